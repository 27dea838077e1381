#include "bench/services/PeersSignals.h"

#include <benchmark/benchmark.h>
#include <sigc++/sigc++.h>

#include <boost/signals2.hpp>
#include <vector>

namespace vx::bench {

namespace {

// A handler whose function the compiler knows, the fastest that both peers take.
struct THandler {
  TCounter* Counter;
  void operator()(TObject* Sender, int Id) const { Counter->Hear(Sender, Id); }
  bool operator==(const THandler& Other) const { return Counter == Other.Counter; }
};

template <typename TSignal, typename TConnection>
class TPeer : public TPeerSignal {
 public:
  void Connect(TCounter& Counter) override { FConnections.push_back(FSignal.connect(THandler{&Counter})); }
  void Reconnect(size_t Index, TCounter& Counter) override {
    FConnections[Index].disconnect();
    FConnections[Index] = FSignal.connect(THandler{&Counter});
  }
  void ReconnectByFunction(TCounter& Counter) override {
    if constexpr (requires { FSignal.disconnect(THandler{&Counter}); }) {
      FSignal.disconnect(THandler{&Counter});
      FSignal.connect(THandler{&Counter});
    }
  }
  void Emit(int Times) override {
    TSignal* signal = &FSignal;
    for (int id = 0; id < Times; ++id) {
      ::benchmark::DoNotOptimize(signal);
      (*signal)(nullptr, id);
    }
  }

 private:
  TSignal FSignal;
  std::vector<TConnection> FConnections;
};

using TSignature = void(TObject*, int);
using TDummySignal =
    boost::signals2::signal_type<TSignature, boost::signals2::keywords::mutex_type<boost::signals2::dummy_mutex>>::type;

}  // namespace

std::unique_ptr<TPeerSignal> MakeSigc() {
  return std::make_unique<TPeer<sigc::signal<void, TObject*, int>, sigc::connection>>();
}
std::unique_ptr<TPeerSignal> MakeSignals2() {
  return std::make_unique<TPeer<boost::signals2::signal<TSignature>, boost::signals2::connection>>();
}
std::unique_ptr<TPeerSignal> MakeSignals2Dummy() {
  return std::make_unique<TPeer<TDummySignal, boost::signals2::connection>>();
}

}  // namespace vx::bench
