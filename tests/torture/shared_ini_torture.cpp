// Proves that shared configuration files and the log lose nothing that was acknowledged and are never seen half
// written, whatever happens to the processes and the disk.
//
//   torture SECONDS [DIR [SEED]]
//
// Each round has a fresh directory, every other one, where mounting is allowed, on a disk of 64 KB that is filled again
// and again; some operations have little space in any case. There are 2, 4 or 8 writers of one file, some through
// mirrors of it, two readers and two writers of a log. Writers and one logger are killed at random and begin again;
// the logger's lines are long, and it is killed as soon as the log is seen to grow, mostly in the middle of one.
// Writers are stopped, too, for longer than others are ready to wait, and some of them don't wait at all.
//
// Every operation draws a ticket, which all values that it writes carry, with check digits. It is acknowledged, in
// memory that all processes share, when Store has succeeded and no warning was reported. Of a log line a killed logger
// may leave a piece, in a line of its own. At the end of a round
//   - a key of one writer has the ticket last acknowledged, or a later one; it is missing only if its last
//     acknowledged operation or a later one removed it, and an erased section is there only if made again;
//   - a key of all has a value whose operation had not ended before an acknowledged one of that key began. An
//     operation that was not acknowledged counts as one that has not ended;
//   - a number that all count up in one call tells how often that was acknowledged, and no more than it was begun.
// While a round runs, two keys that are always stored together never differ, and who reloads changed files by itself
// sees what was acknowledged before.
#include <signal.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <vector>

#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Exceptions.h"
#include "platform/Files.h"
#include "services/uMsg.h"
#include "services/uSharedIni.h"

namespace vx {
namespace {

using TCount = std::atomic<uint64_t>;
using TContent = std::map<std::string, std::string>;  // "Section|key" and its value, "Section|" for a section
enum {
  Done,
  Acknowledged,
  Lost,
  Damaged,
  Litter,
  Kills,
  Stops,
  Full,
  LogLines,
  Pieces,
  Broken,
  Reads,
  Again,
  Counted,
  kTotals
};
const std::vector<const char*> kTotalNames({"stores done", "acknowledged", "lost", "damaged", "litter", "kills",
                                            "stops", "disk-full", "log-lines", "pieces-of-lines", "broken-lines",
                                            "contents read", "stores tried again", "counted up"});
constexpr int kWriters = 8, kSlots = 7, kCommon = 2, kLines = 1 << 17;
// The keys, and sections behind theirs, that each writer has to itself; "#" is its number.
const char* const kNames[kSlots] = {"Alle|a#", "Alle|b#", "Alle|c#", "Fach#|x", "Fach#|", "Lade#|x", "Lade#|"};

const char* const kNumber = "Zahl|n";  // which all count up

struct TSlot {
  TCount Acknowledged;   // twice the ticket, and 1 if it was removed
  TCount Made, Removed;  // the last tickets that tried
};
// What all processes of one round share.
struct TRound {
  TCount Ticket, Stop, LinesBegun[2];
  TSlot Slots[kWriters][kSlots];
  TCount Common[kWriters][kCommon];       // of each writer the last acknowledged ticket, and its end in the lower half
  TCount Newest[kCommon];                 // the last acknowledged ticket of all
  TCount CountsBegun, CountsDone;         // of kNumber
  std::atomic<uint8_t> Lines[2][kLines];  // 1 if acknowledged
};

TCount* Totals;
TRound* Shared;
std::string Root, Dir;  // of all, of the round
int Writers = 0, Warnings = 0, LoggerKills = 0;
bool HasSmallDisk = false, IsMirror = false;

String Wide(const std::string& Latin) {
  std::u16string result;
  for (char unit : Latin) result += static_cast<uint8_t>(unit);
  return result;
}
std::string Latin(std::u16string_view Text) { return {Text.begin(), Text.end()}; }
std::string Central() { return Dir + "/zentral.ini"; }
std::string Local(int Writer) { return Dir + "/lokal" + std::to_string(Writer) + ".ini"; }
std::string LogPath() { return Root + "/messages.log"; }
std::string CommonName(int Key) { return "Streit|s" + std::to_string(Key); }
std::string Name(int Writer, int Slot) {
  return std::string(kNames[Slot]).replace(std::string(kNames[Slot]).find('#'), 1, std::to_string(Writer));
}
String Section(const std::string& Name) { return Wide(Name.substr(0, Name.find('|'))); }
String Key(const std::string& Name) { return Wide(Name.substr(Name.find('|') + 1)); }

void Count(int Fault, const std::string& What) {
  ++Totals[Fault];
  std::fprintf(stderr, "torture: %s, %d writers: %s: %s\n", Dir.c_str(), Writers, kTotalNames[Fault], What.c_str());
}

std::string WithDigits(const std::string& Name, const std::string& Body) {
  return Body + "." + std::to_string(std::hash<std::string>()(Name + "=" + Body) % 100000);
}
std::string Value(const std::string& Name, int Writer, uint64_t Ticket) {
  const std::string numbers = std::to_string(Writer) + "." + std::to_string(Ticket) + ".";
  return WithDigits(Name, numbers + std::string(Ticket % 29, '\xE4'));
}
void Write(TSharedIni& Ini, const std::string& Name, int Writer, uint64_t Ticket) {
  Ini.WriteString(Section(Name), Key(Name), Wide(Value(Name, Writer, Ticket)));
}
struct TOrigin {
  int Writer = 0;
  unsigned long long Ticket = 0;
};
// Where a value comes from; without a ticket if it is not whole.
TOrigin Origin(const std::string& Name, const std::string& Value) {
  TOrigin result;
  const bool isWhole = WithDigits(Name, Value.substr(0, std::min(Value.rfind('.'), Value.size()))) == Value;
  if (isWhole) std::sscanf(Value.c_str(), "%d.%llu.", &result.Writer, &result.Ticket);
  return result;
}

// Whether the bytes are a whole file of sections, each ending with an empty line, and of whole values.
bool Parse(const std::string& Bytes, TContent& Content) {
  std::string section;
  for (size_t at = 0, end; at < Bytes.size(); at = end + 2) {
    if ((end = Bytes.find("\r\n", at)) == Bytes.npos) return false;
    const std::string line = Bytes.substr(at, end - at), key = line.substr(0, line.find('=')), name = section + key;
    if (section.empty()) {
      if (line.size() < 3 || line.front() != '[' || line.back() != ']') return false;
      section = line.substr(1, line.size() - 2) + "|";
      if (!Content.emplace(section, "").second) return false;
    } else if (line.empty()) {
      section.clear();
    } else if (key == line || !Content.emplace(name, line.substr(key.size() + 1)).second ||
               (key != "Datum" && key != "Zeit" && name != kNumber && Origin(name, Content[name]).Ticket == 0)) {
      return false;
    }
  }
  auto ticket = [&](const std::string& own) { return Content.contains(own) ? Origin(own, Content[own]).Ticket : 0; };
  for (int w = 0; w < kWriters; ++w) {
    if (ticket(Name(w, 0)) != ticket(Name(w, 1))) return false;
  }
  return section.empty();
}

// The bytes of a file, as soon as no one stores it; none if there is no file.
std::string Bytes(const std::string& Path) {
  for (int tries = 0; tries < 20000 && ::access(Path.c_str(), F_OK) == 0; ++tries, ::usleep(200)) {
    try {
      TFileStream file(Wide(Path), fmOpenRead | fmShareDenyWrite);
      std::string bytes(static_cast<size_t>(file.GetSize()), '\0');
      return file.ReadBuffer(bytes.data(), bytes.size()), bytes;
    } catch (const EFOpenError&) {  // it is being stored
    }
  }
  return {};
}

TContent Content(const std::string& Path) {
  TContent content;
  const bool isStored = Path == Central() && Shared->Newest[0] > 0;
  const std::string bytes = Bytes(Path);
  if (!Parse(bytes, content) || (isStored && bytes.empty())) Count(Damaged, Path + ":\n" + bytes);
  return content;
}

// Counts warnings; but where a store that could not open the file is tried again, not those of opening.
void TakeLog(const TMsgInfo& Info, int, bool) {
  if (Info.msgType != msgWarning) return;
  if (Info.msg.view().find(u"geschrieben") != Info.msg.view().npos) ++Totals[Full];
  if (IsMirror || Info.sender != u"TSharedIni.StoreValues") ++Warnings;
}
void TakeMsg(const TMsgInfo&, TMsgList&, bool) {}

class TWriter {
 public:
  TWriter(int Number, unsigned Seed) : FNumber(Number), FRandom(Seed) {}

  // An object that may not know any more what is in the file is made anew.
  void Run() {
    while (!Shared->Stop) {
      Open();
      for (int n = 0; Warnings == 0 && n < 50 && !Shared->Stop && IsFresh() && Operate();) ++n;
    }
  }

 private:
  unsigned Random(unsigned Limit) { return FRandom() % Limit; }
  void Open() {
    Warnings = 0;
    IsMirror = Random(4) == 0;
    TDuplicateIniOptions options;
    if (IsMirror) options = {dioInstantSourceRead, dioInstantSourceWrite};
    for (auto option : {dioInstantWrite, dioInstantRead, dioSectionStamp}) {
      if (Random(3) == 0) options.Include(option);
    }
    FIni = std::make_unique<TDuplicateIni>(Wide(IsMirror ? Local(FNumber) : Central()), Wide(Central()), options);
    const uint32_t timeOuts[] = {0, 50, 1000};
    FIni->SetTimeOut(timeOuts[Random(3)]);
  }

  // What another one has stored is seen by who reloads. False if it could not be loaded.
  bool IsFresh() {
    if (!FIni->GetOptions().Has(sioInstantRead)) return true;
    const int other = static_cast<int>(Random(static_cast<unsigned>(Writers)));
    const std::string name = Name(other, 0);
    const uint64_t expected = Shared->Slots[other][0].Acknowledged / 2;
    const std::string value = Latin(FIni->ReadString(Section(name), Key(name), String()));
    const bool isLate = Warnings == 0 && expected > 0 && Origin(name, value).Ticket < expected;
    if (isLate) Count(Lost, name + " is read as " + value + ", not " + std::to_string(expected));
    return Warnings == 0;
  }

  void Mark(int Slot, bool IsGone) {
    TSlot& slot = Shared->Slots[FNumber][Slot];
    (IsGone ? slot.Removed : slot.Made) = FTicket;
    FPending.emplace_back(Slot, IsGone);
  }
  void Put(int Slot) {
    Mark(Slot, false);
    Write(*FIni, Name(FNumber, Slot), FNumber, FTicket);
  }
  void Change(unsigned Kind) {
    const int from = Random(2) == 0 ? 4 : 6, to = 10 - from;
    if (Kind == 0) Put(0), Put(1);
    if (Kind == 1) Put(2);
    if (Kind == 2) Mark(2, true), FIni->DeleteKey(u"Alle", Key(Name(FNumber, 2)));
    if (Kind == 3 || Kind == 4) {
      for (int slot : {from - 1, from}) Mark(slot, true);
      FIni->EraseSection(Section(Name(FNumber, from)));
    }
    if (Kind == 4) Mark(to, false), Put(to - 1);
    if (Kind > 4) Write(*FIni, CommonName(Kind % kCommon), FNumber, FTicket);
  }

  // A change that is not acknowledged may be in the file only if the process was killed.
  bool CountUp() {
    TIniChange change = icNotStored;
    ++Shared->CountsBegun;
    for (int tries = 0; change == icNotStored && tries < 50 && !Shared->Stop; ++tries) {
      change = FIni->Change(Section(kNumber), Key(kNumber), [](String& text) {
        return text = Wide(std::to_string(std::atoi(Latin(text).c_str()) + 1)), true;
      });
    }
    if (change == icStored) ++Shared->CountsDone, ++Totals[Counted];
    if (change != icStored) --Shared->CountsBegun;
    ++Totals[Done];
    return Warnings == 0;
  }

  bool Operate() {
    TFileFaults faults;
    if (Random(20) == 0) faults.LimitSpace(Random(4000));
    if (Random(10) == 0) return CountUp();
    const unsigned kind = Random(8);
    const bool isTogether = kind == 0 || Random(2) == 0;
    FPending.clear();
    FTicket = ++Shared->Ticket;
    if (isTogether) FIni->SetTransaction(true);
    Change(kind);
    if (isTogether) FIni->SetTransaction(false);
    bool isStored = FIni->GetOptions().Has(sioInstantWrite) ? !FIni->Modified() : FIni->Store();
    for (int tries = 0; !isStored && FIni->Modified() && Warnings == 0 && tries < 50 && !Shared->Stop; ++tries) {
      isStored = FIni->Store();
      ++Totals[Again];
    }
    ++Totals[Done];
    if (!isStored || Warnings > 0) return false;
    for (auto [slot, isGone] : FPending) Shared->Slots[FNumber][slot].Acknowledged = FTicket * 2 + isGone;
    if (kind > 4) {
      Shared->Common[FNumber][kind % kCommon] = FTicket << 32 | ++Shared->Ticket;
      TCount& newest = Shared->Newest[kind % kCommon];
      for (uint64_t old = newest; old < FTicket && !newest.compare_exchange_weak(old, FTicket);) continue;
    }
    return ++Totals[Acknowledged] > 0;
  }

  int FNumber;
  std::mt19937 FRandom;
  std::unique_ptr<TSharedIni> FIni;  // of the file itself, where it is no mirror
  uint64_t FTicket = 0;
  std::vector<std::pair<int, bool>> FPending;  // slots, and whether they are removed
};

void Read(unsigned Seed) {
  std::mt19937 random(Seed);
  for (; !Shared->Stop; ::usleep(500), ++Totals[Reads]) {
    const int file = static_cast<int>(random() % static_cast<unsigned>(Writers * 2));
    Content(file < Writers ? Local(file) : Central());
  }
}

// Those of logger 1 go over many pages: the system writes one after the other, and a kill comes between them.
String LogText(int Logger, uint64_t Ticket) {
  const std::string padding(Logger == 0 ? 0 : 100000 + Ticket * 997 % 20000, 'p');
  return Wide(Value("log", Logger, Ticket) + padding);
}

// The disk of logger 0, which is not killed, is full at times; what is kept back then is written at its end.
void WriteLog(int Logger, unsigned Seed) {
  std::mt19937 random(Seed);
  static bool isFull;
  Msg().SetLogInterrupt(nullptr);
  Msg().SetLog({true, laInstant, Wide(LogPath()), Msg().GetLog().Format});
  SetDialogSink([](const TDialog&) { return isFull = true, mrOk; });
  auto& lines = Shared->Lines[Logger];
  for (uint64_t n = Shared->LinesBegun[Logger]++; n < kLines && !Shared->Stop; n = Shared->LinesBegun[Logger]++) {
    TFileFaults faults;
    if (Logger == 0 && random() % 20 == 0) faults.LimitSpace(random() % 100);
    isFull = false;
    Msg().GetMsg()(Log(LogText(Logger, n + 1), u"torture"), true);
    Totals[Full] += isFull;
    lines[n] = !isFull;
    if (Logger == 0) ::usleep(300);
  }
  isFull = false;
  uMsg::FreeBuffersForLeakPrevention();
  for (uint64_t n = 0; Logger == 0 && !isFull && n + 1 < Shared->LinesBegun[0]; ++n) lines[n] = 1;
}

// Whether the file is there, or what its first writer had made of it when it was killed.
bool IsBegun(const std::string& Path) {
  const std::string name = std::filesystem::path(Path).filename();
  const std::filesystem::directory_iterator files(Dir);
  return std::any_of(begin(files), end(files),
                     [&](const auto& file) { return file.path().filename().string().find(name) != name.npos; });
}

// A fresh process stores in every file, which clears away what killed ones left, and all mirrors become equal.
void StoreOnce() {
  for (int w = -1; w < 2 * Writers; ++w) {
    const std::string path = w < 0 ? Central() : Local(w % Writers), name = "Ende|e" + std::to_string(w);
    if (w >= 0 && !IsBegun(path)) continue;
    TDuplicateIniOptions options;
    if (w >= 0) options = {dioInstantSourceRead, dioInstantSourceWrite};
    TDuplicateIni ini(Wide(path), Wide(Central()), options);
    if (w < Writers) Write(ini, name, 0, ++Shared->Ticket);
    if (!ini.Store() || Warnings > 0) Count(Lost, "the last store fails");
  }
}

// Each process ends after 30 seconds at the latest.
pid_t Fork(const std::function<void()>& Work) {
  const pid_t pid = ::fork();
  if (pid != 0) return pid;
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  ::alarm(30);
  Msg().SetLogInterrupt(TLogInterrupt::Of<&TakeLog>());
  Msg().SetMsgInterrupt(TMsgInterrupt::Of<&TakeMsg>());
  Work();
  ::_exit(0);
}

void Await(pid_t Pid) {
  int status = 0;
  ::waitpid(Pid, &status, 0);
  if (status != 0 && status != SIGKILL) Count(Damaged, "a process ends with status " + std::to_string(status));
}

void CheckSlot(const TContent& Content, int Writer, int Slot) {
  const TSlot& slot = Shared->Slots[Writer][Slot];
  const uint64_t acknowledged = slot.Acknowledged / 2, isGone = slot.Acknowledged % 2;
  const auto found = Content.find(Name(Writer, Slot));
  const bool isThere = found != Content.end();
  const std::string value = isThere ? found->second : "nothing";
  const TOrigin origin = isThere ? Origin(found->first, value) : TOrigin();
  const bool isGood = !isThere        ? acknowledged == 0 || isGone || slot.Removed > acknowledged
                      : value.empty() ? !isGone || slot.Made > acknowledged
                                      : origin.Writer == Writer && origin.Ticket >= acknowledged + isGone;
  if (!isGood) Count(Lost, Name(Writer, Slot) + ": " + value + ", not " + std::to_string(slot.Acknowledged));
}

void CheckFiles() {
  const TContent content = Content(Central());
  for (int i = 0; i < kWriters * kSlots; ++i) CheckSlot(content, i / kSlots, i % kSlots);
  for (int i = 0; i < kCommon; ++i) {
    const auto found = content.find(CommonName(i));
    const TOrigin origin = found == content.end() ? TOrigin() : Origin(found->first, found->second);
    const uint64_t last = Shared->Common[origin.Writer][i], newest = Shared->Newest[i], ended = last & 0xFFFFFFFF;
    const bool isGood = origin.Ticket > last >> 32 || (origin.Ticket == last >> 32 && ended >= newest);
    if (newest > 0 && !isGood) Count(Lost, CommonName(i) + " has an old value");
  }
  const auto number = content.find(kNumber);
  const uint64_t counted = number == content.end() ? 0 : std::strtoull(number->second.c_str(), nullptr, 10);
  if (counted < Shared->CountsDone || counted > Shared->CountsBegun) {
    Count(Lost, std::to_string(counted) + " counted, not " + std::to_string(Shared->CountsDone));
  }
  for (const auto& entry : std::filesystem::recursive_directory_iterator(Root)) {
    const std::string path = entry.path();
    if (!path.starts_with(Dir + "/lokal") || !path.ends_with(".ini")) {
      if (path != Dir && path != Central() && path != LogPath()) Count(Litter, path);
      continue;
    }
    TContent mirror = Content(path);
    for (const auto& [name, value] : content) {
      if (!value.empty() && mirror[name] != value) Count(Lost, name + " of " + path);
    }
  }
}

// Counts a piece of a line that a killed logger left, if it can be one, and tells so.
bool IsPiece(const std::string& Line, const std::string& Head) {
  int logger = -1;
  unsigned long long ticket = 0;
  const std::string start = Line.substr(std::min<size_t>(Line.size(), 19)),
                    text = start.substr(std::min(start.size(), Head.size()));
  if (!Head.starts_with(start.substr(0, Head.size()))) return false;
  if (std::sscanf(text.c_str(), "%d.%llu.", &logger, &ticket) == 2 &&
      (logger != 1 || ticket == 0 || ticket > kLines || Shared->Lines[1][ticket - 1] ||
       !(Latin(LogText(1, ticket)) + "\"").starts_with(text))) {
    return false;
  }
  return ++Totals[Pieces], --LoggerKills >= 0;
}

void CheckLog() {
  const std::string bytes = Bytes(LogPath()), head = ",LOG,,torture,0,\"";
  std::vector<int> seen[2] = {std::vector<int>(kLines), std::vector<int>(kLines)};
  for (size_t at = 0, end; at < bytes.size(); at = end + 2, ++Totals[LogLines]) {
    end = std::min(bytes.find("\r\n", at), bytes.size());
    const std::string line = Latin(String::FromUtf8(bytes.substr(at, end - at)));
    const bool isLine = end < bytes.size() && line.size() > 37 && line.find(head) == 19 && line.back() == '"';
    const size_t padding = isLine ? line.find_last_not_of('p', line.size() - 2) + 1 : 0;
    const TOrigin origin = isLine ? Origin("log", line.substr(36, padding - 36)) : TOrigin();
    if (origin.Ticket > 0 && line.substr(36) == Latin(LogText(origin.Writer, origin.Ticket)) + "\"") {
      if (++seen[origin.Writer][origin.Ticket - 1] > 1) Count(Broken, "line twice: " + line.substr(0, 60));
    } else if (!IsPiece(line, head)) {
      Count(Broken,
            "line: " + line.substr(0, 200) + " ... " + line.substr(line.size() - std::min<size_t>(line.size(), 60)));
    }
  }
  for (size_t n = 0; n < 2 * kLines; ++n) {
    if (Shared->Lines[n % 2][n / 2] && !seen[n % 2][n / 2]) Count(Broken, "missing line " + std::to_string(n / 2 + 1));
  }
}

// Waits, not for long, until the log grows by more than short lines.
void AwaitLongLine() {
  auto size = [] {
    std::error_code missing;
    const uintmax_t result = std::filesystem::file_size(LogPath(), missing);
    return missing ? 0 : result;
  };
  const uintmax_t before = size();
  for (const int64_t end = GetTickCount() + 50; size() < before + 4096 && GetTickCount() < end;) continue;
}

void Round(int Number, unsigned Seed, int64_t Milliseconds) {
  std::mt19937 random(Seed + static_cast<unsigned>(Number) * 1000003);
  const bool isSmall = HasSmallDisk && Number % 2 == 1;
  Writers = 2 << Number % 3;
  LoggerKills = 0;
  Dir = Root + "/round" + std::to_string(Number);
  std::filesystem::create_directory(Dir);
  if (isSmall && ::mount("tmpfs", Dir.c_str(), "tmpfs", 0, "size=64k") != 0) std::abort();
  Shared = new (Shared) TRound{};
  auto begin = [&](int process) {
    const auto seed = static_cast<unsigned>(random());
    return Fork([=] {
      if (process < Writers) return TWriter(process, seed).Run();
      process < Writers + 2 ? WriteLog(Writers + 1 - process, seed) : Read(seed);
    });
  };
  std::vector<pid_t> pids;
  for (int process = 0; process < Writers + 4; ++process) pids.push_back(begin(process));
  for (const int64_t end = GetTickCount() + Milliseconds; GetTickCount() < end;) {
    ::usleep(static_cast<useconds_t>(random() % 20000));
    const unsigned kind = random() % 8;
    const int victim = kind < 3 ? Writers : static_cast<int>(random() % static_cast<unsigned>(Writers));
    pid_t& pid = pids[static_cast<size_t>(victim)];
    if (kind == 3) {  // until it is killed or the round ends, at least some of them for longer than others wait
      ::kill(pid, SIGSTOP);
      ++Totals[Stops];
    } else if (kind < 6) {
      if (victim == Writers) AwaitLongLine();
      ::kill(pid, SIGKILL);
      Await(pid);
      ++Totals[Kills];
      LoggerKills += victim == Writers;
      pid = begin(victim);
    } else {
      ::kill(pid, SIGCONT);
    }
    if (isSmall) std::ofstream(Dir + "/ballast") << std::string(random() % 3 == 0 ? 1 << 16 : 0, 'b');
  }
  Shared->Stop = 1;
  for (pid_t pid : pids) ::kill(pid, SIGCONT);
  std::filesystem::remove(Dir + "/ballast");
  for (pid_t pid : pids) Await(pid);
  Await(Fork(StoreOnce));
  CheckFiles();
  CheckLog();
  if (isSmall) ::umount2(Dir.c_str(), MNT_DETACH);
}

int Main(int Arguments, char** Argument) {
  const int64_t end = GetTickCount() + (Arguments > 1 ? std::atoi(Argument[1]) * 1000 : 0);
  Root = std::string(Arguments > 2 ? Argument[2] : "/tmp") + "/vxtortureXXXXXX";
  const unsigned seed = Arguments > 3 ? static_cast<unsigned>(std::atoi(Argument[3])) : 1;
  const size_t size = kTotals * sizeof(TCount);
  void* shared = ::mmap(nullptr, size + sizeof(TRound), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED || ::mkdtemp(Root.data()) == nullptr) return std::perror(Root.c_str()), 2;
  Totals = static_cast<TCount*>(shared);
  Shared = reinterpret_cast<TRound*>(Totals + kTotals);
  HasSmallDisk = ::unshare(CLONE_NEWNS) == 0 && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
  std::printf("torture: seed %u, files in %s, small disk: %s\n", seed, Root.c_str(),
              HasSmallDisk ? "yes" : "skipped, as mounting is not allowed");
  std::fflush(stdout);
  auto bad = [] { return Totals[Lost] + Totals[Damaged] + Totals[Litter] + Totals[Broken]; };
  for (int number = 0; bad() == 0 && end - GetTickCount() >= 300; ++number) {
    // Now and then long enough that who is stopped holds up the others until they give up.
    Round(number, seed, std::min<int64_t>(end - GetTickCount(), number % 4 == 3 ? 2500 : 1000));
    if (bad() == 0) std::filesystem::remove_all(Dir), std::filesystem::remove(LogPath());
  }
  std::printf("torture:");
  for (int i = 0; i < kTotals; ++i) std::printf(" %s=%ju", kTotalNames[i], uintmax_t{Totals[i]});
  std::printf("\n");
  if (bad() == 0) std::filesystem::remove_all(Root);
  return bad() > 0 || Totals[Acknowledged] == 0;
}

}  // namespace
}  // namespace vx

int main(int Arguments, char** Argument) { return vx::Main(Arguments, Argument); }
