// Peers of the signals: sigc++ and boost.Signals2.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace vx {
class TObject;
}

namespace vx::bench {

// What handlers do on both sides.
struct TCounter {
  int64_t Sum = 0;
  void Hear(TObject*, int Id) { Sum += Id; }
};

class TPeerSignal {
 public:
  virtual ~TPeerSignal() = default;
  virtual void Connect(TCounter& Counter) = 0;
  // Disconnects the handler that was connected as the Index-th and connects Counter instead, which has to be the
  // same one. By its connection; or by its function, if the peer can do that.
  virtual void Reconnect(size_t Index, TCounter& Counter) = 0;
  virtual void ReconnectByFunction(TCounter& Counter) = 0;
  // Emits the ids from 0 to Times - 1.
  virtual void Emit(int Times) = 0;
};

std::unique_ptr<TPeerSignal> MakeSigc();
std::unique_ptr<TPeerSignal> MakeSignals2();
// The same without locks.
std::unique_ptr<TPeerSignal> MakeSignals2Dummy();

}  // namespace vx::bench
