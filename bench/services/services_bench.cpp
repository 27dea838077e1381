// Services side by side with their peers: signals with sigc++ and boost.Signals2, shared configuration files with
// GKeyFile and SimpleIni, the log with spdlog.
//
// Results are compared before they count. An argument names the one topic to measure: signals, ini, stores or log.
// Flushes to the disk are counted; lines named noflush leave ours out, as most peers do not flush.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/services/Flushes.h"
#include "bench/services/PeersIni.h"
#include "bench/services/PeersLog.h"
#include "bench/services/PeersSignals.h"
#include "bench/support/Bench.h"
#include "services/uMsg.h"
#include "services/uSharedIni.h"
#include "services/uVxEvents.h"

namespace vx::bench {

namespace {

constexpr int kRounds = 7;

// A fresh directory, which goes with all that is in it.
class TDirectory {
 public:
  TDirectory() {
    const char* root = std::getenv("TMPDIR");
    FPath = std::string(root ? root : "/tmp") + "/vx_bench_services_XXXXXX";
    Expect(::mkdtemp(FPath.data()) != nullptr, "mkdtemp");
  }
  ~TDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(FPath, ignored);
  }
  TDirectory(const TDirectory&) = delete;
  TDirectory& operator=(const TDirectory&) = delete;
  std::string Path(const std::string& Name) const { return FPath + "/" + Name; }

 private:
  std::string FPath;
};

void WriteFile(const std::string& Path, const std::string& Bytes) {
  std::ofstream file(Path, std::ios::binary);
  file << Bytes;
  file.close();
  Expect(file.good(), Path);
}

std::string ReadFile(const std::string& Path) {
  std::ifstream file(Path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

String Text(const std::string& Utf8) { return String::FromUtf8(Utf8); }

// --- signals ---

constexpr int kEmissions = 10000000;
constexpr size_t kConnected = 1000;
constexpr int kReconnections = 20000;

TIdEvent EventOf(TCounter& Counter) { return TIdEvent::Of<&TCounter::Hear>(Counter); }

struct TPeerOfSignals {
  const char* Name;
  std::unique_ptr<TPeerSignal> (*Make)();
  TBar ToTen;  // what emitting to ten handlers has to reach
};
constexpr TPeerOfSignals kPeersOfSignals[] = {{"sigc++", MakeSigc, TBar::AtLeast(1)},
                                              {"signals2", MakeSignals2, TBar::AtLeast(4)},
                                              {"signals2_dummy_mutex", MakeSignals2Dummy, {}}};

// OfOurs is what ours has to reach, in nanoseconds. The peers' handlers are functors as lambdas are; ours are methods,
// or lambdas that connections hold.
void MeasureEmission(size_t Handlers, bool AreLambdas, TBar OfOurs) {
  const int times = kEmissions / static_cast<int>(Handlers + 1);
  std::vector<TCounter> counters(Handlers), peerCounters(Handlers);
  TIdSignal signal;
  TConnections connections;
  for (TCounter& counter : counters) {
    if (AreLambdas) {
      connections.Add(signal.Connect([&counter](TObject* sender, int id) { counter.Hear(sender, id); }));
    } else {
      signal.Add(EventOf(counter));
    }
  }
  auto ours = [&] {
    return Time([&] {
      TIdSignal* place = &signal;
      for (int id = 0; id < times; ++id) {
        ::benchmark::DoNotOptimize(place);
        place->Emit(nullptr, id);
      }
    });
  };
  const std::string what = "services/emit_to_" + std::to_string(Handlers) + (AreLambdas ? "_lambdas" : "");
  double time = 0;
  for (const TPeerOfSignals& peer : kPeersOfSignals) {
    std::fill(counters.begin(), counters.end(), TCounter());
    std::fill(peerCounters.begin(), peerCounters.end(), TCounter());
    const std::unique_ptr<TPeerSignal> peerSignal = peer.Make();
    for (TCounter& counter : peerCounters) peerSignal->Connect(counter);
    const auto medians = Medians(kRounds, ours, [&] { return Time([&] { peerSignal->Emit(times); }); });
    const int64_t sum = int64_t{times} * (times - 1) / 2 * kRounds;
    for (size_t i = 0; i < Handlers; ++i) Expect(counters[i].Sum == sum && peerCounters[i].Sum == sum, what);
    Report(what, time = medians[0], peer.Name, medians[1], times, Handlers == 10 ? peer.ToTen : TBar());
  }
  ReportOurs(what, time, times, OfOurs);
}

// Ours finds a method among the others and takes none twice; the peers either keep a connection for each handler,
// or look for the function as ours do, and take it as often as it comes.
void MeasureReconnection() {
  std::vector<TCounter> counters(kConnected), peerCounters(kConnected);
  std::mt19937 random(7);
  std::vector<size_t> order(kReconnections);
  for (size_t& index : order) index = random() % kConnected;
  TIdSignal signal;
  for (TCounter& counter : counters) signal.Add(EventOf(counter));
  auto ours = [&] {
    return Time([&] {
      for (size_t index : order) {
        signal.Remove(EventOf(counters[index]));
        signal.Add(EventOf(counters[index]));
      }
    });
  };
  auto compare = [&](const TPeerOfSignals& Peer, bool ByFunction) {
    const std::string what = ByFunction ? "services/reconnect_of_1000_by_function" : "services/reconnect_of_1000";
    const std::unique_ptr<TPeerSignal> peer = Peer.Make();
    for (TCounter& counter : peerCounters) peer->Connect(counter);
    auto reconnect = [&] {
      for (size_t index : order) {
        if (ByFunction) {
          peer->ReconnectByFunction(peerCounters[index]);
        } else {
          peer->Reconnect(index, peerCounters[index]);
        }
      }
    };
    const auto medians = Medians(kRounds, ours, [&] { return Time(reconnect); });
    std::fill(counters.begin(), counters.end(), TCounter());
    std::fill(peerCounters.begin(), peerCounters.end(), TCounter());
    signal.Emit(nullptr, 1);
    peer->Emit(2);
    for (size_t i = 0; i < kConnected; ++i) Expect(counters[i].Sum == 1 && peerCounters[i].Sum == 1, what);
    Report(what, medians[0], Peer.Name, medians[1], kReconnections);
  };
  for (const TPeerOfSignals& peer : kPeersOfSignals) compare(peer, false);
  compare(kPeersOfSignals[1], true);
}

// --- configuration in one process ---

constexpr int kSections = 200, kKeys = 100, kSmallSections = 2, kSmallKeys = 10;
constexpr int kLookUps = 1000000, kIniRounds = 21;

std::string SectionName(int Index) { return "Abschnitt " + std::to_string(Index); }
std::string KeyName(int Index) { return "Schluessel" + std::to_string(Index); }

// About 50 bytes a key, in ASCII: the peers know UTF-8 only, ours stores in the system's code page.
std::string MakeIniText(int Sections, int Keys) {
  std::string text;
  for (int section = 0; section < Sections; ++section) {
    text += "[" + SectionName(section) + "]\r\n";
    for (int key = 0; key < Keys; ++key) {
      const int number = section * Keys + key;
      text += KeyName(key) + "=Breite der Spalten von Seite " + std::to_string(number) + "\r\n";
    }
    text += "\r\n";
  }
  return text;
}

struct TPeerOfIni {
  const char* Name;
  std::unique_ptr<TPeerIni> (*Make)();
  TBar Bar;
};
constexpr TPeerOfIni kPeersOfIni[] = {{"gkeyfile", MakeGKeyFile, TBar::AtLeast(1)}, {"simpleini", MakeSimpleIni, {}}};

std::unique_ptr<TSharedIni> LoadOurs(const std::string& Path, TSharedIniOptions Options) {
  return std::make_unique<TSharedIni>(Text(Path), Options);
}

void ExpectSame(TSharedIni& Ours, TPeerIni& Peer, int Sections, int Keys) {
  for (int section = 0; section < Sections; ++section) {
    for (int key = 0; key < Keys; ++key) {
      const std::string ours = Ours.ReadString(Text(SectionName(section)), Text(KeyName(key)), {}).ToUtf8();
      Expect(!ours.empty() && ours == Peer.Get(SectionName(section), KeyName(key)), "services/ini: values differ");
    }
  }
}

struct TOurKeys {
  std::vector<String> Sections, Keys;
};

// All keys at random, or the last one of each section.
TIniKeys MakeKeys(bool IsAll) {
  TIniKeys result;
  for (int i = 0; i < kSections; ++i) result.Sections.push_back(SectionName(i));
  for (int i = 0; i < kKeys; ++i) result.Keys.push_back(KeyName(i));
  for (size_t section = 0; section < kSections; ++section) {
    for (size_t key = IsAll ? 0 : kKeys - 1; key < kKeys; ++key) result.Pairs.emplace_back(section, key);
  }
  std::shuffle(result.Pairs.begin(), result.Pairs.end(), std::mt19937(11));
  return result;
}

TOurKeys OursOf(const TIniKeys& Keys) {
  TOurKeys result;
  for (const std::string& section : Keys.Sections) result.Sections.push_back(Text(section));
  for (const std::string& key : Keys.Keys) result.Keys.push_back(Text(key));
  return result;
}

int64_t LookUp(TSharedIni& Ini, const TIniKeys& Keys, const TOurKeys& Names) {
  int64_t sum = 0;
  const String none;
  for (const auto& [section, key] : Keys.Pairs) {
    sum += Ini.ReadString(Names.Sections[section], Names.Keys[key], none).view().back();
  }
  return sum;
}

// Loading alone; and with the first look-up in each section, as ours makes its indexes only then.
void MeasureLoad(const std::string& Path, const TPeerOfIni& Peer) {
  const TIniKeys keys = MakeKeys(false);
  const TOurKeys names = OursOf(keys);
  std::unique_ptr<TSharedIni> ours;
  std::unique_ptr<TPeerIni> peer;
  for (bool isUsed : {false, true}) {
    int64_t sum = 0, peerSum = 0;
    auto load = [&] {
      ours.reset();
      return Time([&] {
        ours = LoadOurs(Path, {sioReadOnly});
        if (isUsed) sum += LookUp(*ours, keys, names);
      });
    };
    auto peerLoad = [&] {
      peer = Peer.Make();
      return Time([&] {
        peer->Load(Path);
        if (isUsed) peerSum += peer->LookUp(keys);
      });
    };
    const auto medians = Medians(kIniRounds, load, peerLoad);
    ExpectSame(*ours, *peer, kSections, kKeys);
    Expect(sum == peerSum, "services/ini_load_and_use");
    Report(isUsed ? "services/ini_load_and_use" : "services/ini_load", medians[0], Peer.Name, medians[1], 1, Peer.Bar);
  }
}

void MeasureLookUps(const std::string& Path, const TPeerOfIni& Peer) {
  const TIniKeys keys = MakeKeys(true);
  const TOurKeys names = OursOf(keys);
  const std::unique_ptr<TSharedIni> ours = LoadOurs(Path, {sioReadOnly});
  const std::unique_ptr<TPeerIni> peer = Peer.Make();
  peer->Load(Path);
  int64_t sum = 0, peerSum = 0;
  const int times = kLookUps / static_cast<int>(keys.Pairs.size());
  auto lookUp = [&] {
    return Time([&] {
      for (int i = 0; i < times; ++i) sum += LookUp(*ours, keys, names);
    });
  };
  auto peerLookUp = [&] {
    return Time([&] {
      for (int i = 0; i < times; ++i) peerSum += peer->LookUp(keys);
    });
  };
  const auto medians = Medians(kRounds, lookUp, peerLookUp);
  Expect(sum == peerSum, "services/ini_look_up");
  Report("services/ini_look_up", medians[0], Peer.Name, medians[1], kLookUps, Peer.Bar);
  ReportOurs("services/ini_look_up", medians[0], kLookUps, TBar::AtMost(100));
}

// One key is changed and the file stored. Ours reads the file afresh and merges the change into it; the peers only
// write what they hold, or read the file again before, as they must where others write to it.
void MeasureStore(const TDirectory& Directory, const std::string& Bytes, const TPeerOfIni& Peer) {
  const std::string path = Directory.Path("ours.ini"), peerPath = Directory.Path("peer.ini");
  WriteFile(path, Bytes);
  WriteFile(peerPath, Bytes);
  const std::unique_ptr<TSharedIni> ours = LoadOurs(path, {});
  const std::unique_ptr<TPeerIni> peer = Peer.Make();
  peer->Load(peerPath);
  int flushes[3] = {}, counts[3] = {};
  auto store = [&](int Index, auto Work) {
    flushes[Index] -= FlushCount();
    const std::string value = "Wert " + std::to_string(++counts[Index]);
    const double time = Time([&] { Work(value); });
    flushes[Index] += FlushCount();
    return time;
  };
  auto measure = [&](const std::string& What, TBar Bar) {
    const auto medians = Medians(
        kIniRounds,
        [&] {
          return store(0, [&](const std::string& value) {
            ours->WriteString(Text(SectionName(7)), Text(KeyName(7)), Text(value));
            Expect(ours->Store(), "services/ini_store");
          });
        },
        [&] {
          return store(1, [&](const std::string& value) {
            const std::unique_ptr<TPeerIni> fresh = Peer.Make();
            fresh->Load(peerPath);
            fresh->Set(SectionName(7), KeyName(7), value);
            fresh->Save(peerPath);
          });
        },
        [&] {
          return store(2, [&](const std::string& value) {
            peer->Set(SectionName(7), KeyName(7), value);
            peer->Save(peerPath);
          });
        });
    Report(What, medians[0], Peer.Name, medians[2], 1, Bar);
    Report(What, medians[0], std::string(Peer.Name) + "_reloading", medians[1]);
  };
  measure("services/ini_store", Peer.Bar);
  std::printf("BENCH services/ini_flushes_of_a_store ours=%d %s=%d\n", flushes[0] / kIniRounds, Peer.Name,
              flushes[2] / kIniRounds);
  {
    TWithoutFlushes without;
    measure("services/ini_store_noflush", {});
  }
  const std::unique_ptr<TSharedIni> again = LoadOurs(path, {});
  const std::unique_ptr<TPeerIni> peerAgain = Peer.Make();
  peerAgain->Load(peerPath);
  ExpectSame(*again, *peerAgain, kSections, kKeys);
}

// Nanoseconds for each of so many keys of one section that go, or of so many sections, in any order.
double MeasureDeletions(int Count, bool IsOfSections) {
  std::vector<String> names;
  for (int i = 0; i < Count; ++i) names.push_back(Text(KeyName(i)));
  const String section = u"Abschnitt";
  auto work = [&] {
    TSharedIni ini(String(), {});
    for (const String& name : names) {
      IsOfSections ? ini.WriteString(name, section, name) : ini.WriteString(section, name, name);
    }
    std::vector<String> order = names;
    std::shuffle(order.begin(), order.end(), std::mt19937(13));
    return Time([&] {
      for (const String& name : order) IsOfSections ? ini.EraseSection(name) : ini.DeleteKey(section, name);
    });
  };
  return Medians(3, work)[0] * 1e9 / Count;
}

// Nanoseconds for each of so many sections, all of which are erased or changed, to be stored.
double MeasureSectionStore(const TDirectory& Directory, int Count, bool IsErasing) {
  const std::string path = Directory.Path("sections.ini");
  const std::string bytes = MakeIniText(Count, 1);
  const TWithoutFlushes without;
  auto work = [&] {
    WriteFile(path, bytes);
    const std::unique_ptr<TSharedIni> ini = LoadOurs(path, {});
    for (int i = 0; i < Count; ++i) {
      const String section = Text(SectionName(i));
      IsErasing ? ini->EraseSection(section) : ini->WriteString(section, Text(KeyName(0)), section);
    }
    return Time([&] { Expect(ini->Store(), "services/ini_store_sections"); });
  };
  return Medians(3, work)[0] * 1e9 / Count;
}

void MeasureSectionStores(const TDirectory& Directory) {
  for (bool isErasing : {false, true}) {
    const double few = MeasureSectionStore(Directory, 5000, isErasing);
    const double many = MeasureSectionStore(Directory, 50000, isErasing);
    const char* const what = isErasing ? "services/ini_store_erased_sections" : "services/ini_store_changed_sections";
    ReportGrowth(what, "at_50k", many, "at_5k", few, "ns", TBar::AtMost(3));
  }
}

void MeasureDeletions() {
  for (bool isOfSections : {false, true}) {
    const double few = MeasureDeletions(5000, isOfSections), many = MeasureDeletions(50000, isOfSections);
    const char* const what = isOfSections ? "services/ini_erase_sections" : "services/ini_delete_keys";
    ReportGrowth(what, "at_50k", many, "at_5k", few, "ns", TBar::AtMost(3));
  }
}

// --- locked stores ---

// Runs Store(process, i) for i from 0 to Count - 1 in so many processes at the same time. Seconds for all.
double InProcesses(int Processes, int Count, const std::function<std::function<void(int)>(int)>& MakeStore) {
  int ready[2], start[2];
  Expect(::pipe(ready) == 0 && ::pipe(start) == 0, "pipe");
  char byte = 0;
  std::vector<pid_t> children;
  for (int process = 0; process < Processes; ++process) {
    children.push_back(::fork());
    Expect(children.back() >= 0, "fork");
    if (children.back() > 0) continue;
    ::close(start[1]);
    const std::function<void(int)> store = MakeStore(process);
    const bool isGood = ::write(ready[1], &byte, 1) == 1 && ::read(start[0], &byte, 1) == 0;
    for (int i = 0; isGood && i < Count; ++i) store(i);
    std::_Exit(isGood ? 0 : 1);
  }
  for (int process = 0; process < Processes; ++process) Expect(::read(ready[0], &byte, 1) == 1, "a child");
  const double begin = Seconds();
  ::close(start[1]);
  for (const pid_t child : children) {
    int status = 1;
    Expect(::waitpid(child, &status, 0) == child && status == 0, "a child");
  }
  const double time = Seconds() - begin;
  for (int handle : {ready[0], ready[1], start[0]}) ::close(handle);
  return time;
}

std::string StoredValue(int Process, int Index) {
  return "Prozess " + std::to_string(Process) + ", Wert " + std::to_string(Index);
}

std::function<void(int)> OurStores(const std::string& Path, int Process, int Keys) {
  const std::shared_ptr<TSharedIni> ini = LoadOurs(Path, {});
  ini->SetTimeOut(10000);
  return [=](int i) {
    ini->WriteString(Text(SectionName(Process)), Text(KeyName(i % Keys)), Text(StoredValue(Process, i)));
    Expect(ini->Store(), "services/locked_store: a store");
  };
}

std::function<void(int)> PeerStores(const std::string& Path, int Process, int Keys) {
  return [=](int i) { StoreLocked(Path, SectionName(Process), KeyName(i % Keys), StoredValue(Process, i)); };
}

// Every store of every process must be in the file.
void ExpectStored(const std::string& Path, int Processes, int Count, int Keys) {
  const std::unique_ptr<TSharedIni> ini = LoadOurs(Path, {sioReadOnly});
  for (int process = 0; process < Processes; ++process) {
    for (int i = std::max(0, Count - Keys); i < Count; ++i) {
      const String value = ini->ReadString(Text(SectionName(process)), Text(KeyName(i % Keys)), {});
      Expect(value == Text(StoredValue(process, i)), "services/locked_store: a lost change in " + Path);
    }
  }
}

void MeasureLockedStores(const TDirectory& Directory, const char* Size, const std::string& Bytes, int Keys, int Count) {
  const std::string path = Directory.Path("ours.ini"), peerPath = Directory.Path("peer.ini");
  for (int processes : {1, 2}) {
    const int all = processes * Count;
    auto ours = [&] {
      WriteFile(path, Bytes);
      return InProcesses(processes, Count, [&](int process) { return OurStores(path, process, Keys); }) / all;
    };
    auto oursWithout = [&] {
      TWithoutFlushes without;
      return ours();
    };
    auto peer = [&] {
      WriteFile(peerPath, Bytes);
      return InProcesses(processes, Count, [&](int process) { return PeerStores(peerPath, process, Keys); }) / all;
    };
    const auto medians = Medians(3, ours, oursWithout, peer);
    ExpectStored(path, processes, Count, Keys);
    ExpectStored(peerPath, processes, Count, Keys);
    const std::string what = std::string("services/locked_store_") + Size + "_by_" + std::to_string(processes);
    Report(what, medians[0], "simpleini+flock", medians[2]);
    ReportOurs(what, medians[0], 1, TBar::AtMost(0.6));
    Report(what + "_noflush", medians[1], "simpleini+flock", medians[2]);
  }
}

// --- log ---

constexpr int kLines = 100000, kGroup = 100;

void SetLog(TLogAttitude Attitude, const std::string& Path) {
  TMsgHandlerLog log;
  log.Attitude = Attitude;
  log.FileName = Text(Path);
  log.Active = !Path.empty();
  Msg().SetLog(log);
}

// Group lines belong to one operation, the last one being its own.
void WriteByOurs(TLogAttitude Attitude, const std::string& Path, const std::vector<String>& Texts, int Group) {
  uMsg::FreeBuffersForLeakPrevention();
  SetLog(Attitude, Path);
  const String sender = u"Bench";
  size_t line = 0;
  auto next = [&]() -> const String& { return Texts[line++ % Texts.size()]; };
  for (int i = 0; i < kLines; i += Group) {
    const TMsgFunction whole = Msg().GetMsg();
    for (int k = 1; k < Group; ++k) Msg().GetMsg()(Log(next(), sender), true);
    whole(Log(next(), sender), true);
  }
  uMsg::FreeBuffersForLeakPrevention();
}

// Whether the files are the same but for the stamps and the level, which the peer does not know.
bool AreSameLogs(const std::string& Ours, const std::string& Peer) {
  constexpr size_t kStamp = 19;
  std::string ours = ReadFile(Ours), peer = ReadFile(Peer);
  for (std::string* text : {&ours, &peer}) {
    for (size_t at = 0; at + kStamp < text->size(); at = text->find('\n', at) + 1) {
      text->replace(at, kStamp, kStamp, '0');
      const size_t level = text->find(",,Bench,", at) + 8;
      if (level < text->size()) (*text)[level] = '0';
    }
  }
  return !ours.empty() && ours == peer && std::count(ours.begin(), ours.end(), '\n') == kLines;
}

void MeasureLog(const TDirectory& Directory) {
  std::vector<std::string> texts;
  std::vector<String> ourTexts;
  for (int i = 0; i < 1000; ++i) {
    texts.push_back("Der Einsatz " + std::to_string(1000 + i) + " bei Frau Müller wurde gespeichert.");
    ourTexts.push_back(Text(texts.back()));
  }
  struct TCase {
    const char* What;
    TLogAttitude Attitude;
    int Group;
    int FlushEach;
    TBar Bar;  // for lines that are kept and written together
  };
  constexpr TCase kCases[] = {{"services/log_instant", laInstant, 1, 1, {}},
                              {"services/log_msg_single", laMsg, 1, 1, {}},
                              {"services/log_msg_groups_of_100", laMsg, kGroup, kGroup, TBar::AtLeast(1)},
                              {"services/log_destroy", laDestroy, 1, 0, TBar::AtLeast(1)}};
  const std::string path = Directory.Path("ours.log"), peerPath = Directory.Path("peer.log");
  for (const TCase& each : kCases) {
    auto ours = [&] {
      std::filesystem::remove(path);
      return Time([&] { WriteByOurs(each.Attitude, path, ourTexts, each.Group); });
    };
    auto peer = [&] { return Time([&] { WriteBySpdlog(peerPath, texts, kLines, each.FlushEach); }); };
    const auto medians = Medians(3, ours, peer);
    Expect(AreSameLogs(path, peerPath), each.What);
    Report(each.What, medians[0], each.FlushEach == 0 ? "spdlog" : "spdlog_flushed", medians[1], kLines, each.Bar);
  }
}

}  // namespace

}  // namespace vx::bench

int main(int argc, char** argv) {
  using namespace vx;
  using namespace vx::bench;
  const std::string topic = argc > 1 ? argv[1] : "";
  auto is = [&](const char* Topic) { return topic.empty() || topic == Topic; };
  const TDirectory directory;
  SetLog(laDestroy, {});  // what is told of configuration files
  if (is("signals")) {
    MeasureEmission(0, false, TBar::AtMost(1));
    MeasureEmission(1, false, TBar::AtMost(5));
    MeasureEmission(10, false, {});
    MeasureEmission(10, true, {});
    MeasureReconnection();
  }
  const std::string big = MakeIniText(kSections, kKeys);
  if (is("ini")) {
    const std::string path = directory.Path("big.ini");
    WriteFile(path, big);
    std::printf("BENCH services/ini_file size=%zu keys=%d\n", big.size(), kSections * kKeys);
    for (const TPeerOfIni& peer : kPeersOfIni) {
      MeasureLoad(path, peer);
      MeasureLookUps(path, peer);
      MeasureStore(directory, big, peer);
    }
    MeasureDeletions();
    MeasureSectionStores(directory);
  }
  if (is("stores")) {
    MeasureLockedStores(directory, "20_keys", MakeIniText(kSmallSections, kSmallKeys), kSmallKeys, 500);
    MeasureLockedStores(directory, "1mb", big, kKeys, 50);
  }
  if (is("log")) MeasureLog(directory);
  return 0;
}
