// Proves that two machines which share a drive lose nothing of a configuration file and a log that was acknowledged.
//
//   torture_net NAME SECONDS MOUNT1 MOUNT2 [KILL]
//
// Two mounts of one drive stand for two machines; tests/torture/net.sh makes them. Two processes on each store a key of
// their own and one of all again and again, and one on each writes a log. KILL is a command that kills the client of
// the second mount and mounts it again; it is run at random moments. Afterwards each mount, looked at anew, has to show
// each key as it was acknowledged last, or later, each acknowledged log line once and whole, and nothing beside them.
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "services/uMsg.h"
#include "services/uSharedIni.h"

namespace vx {
namespace {

using TCount = std::atomic<uint64_t>;
constexpr int kMounts = 2, kWriters = 4, kKeys = 16, kLines = 1 << 20;

struct TShared {
  TCount Stop, Tried, AtFirst, Acknowledged, Microseconds;
  TCount Keys[kWriters][kKeys];  // the last acknowledged value
  TCount Begun[kMounts];
  std::atomic<uint8_t> Lines[kMounts][kLines];  // 1 if acknowledged
};
TShared* Shared;
int Warnings = 0;
bool IsRefused = false;
uint64_t Lost = 0, Damaged = 0, Litter = 0, Broken = 0, Pieces = 0;

String Wide(const std::string& Text) { return String::FromUtf8(Text); }
void Fault(uint64_t& Count, const std::string& What) {
  ++Count;
  std::fprintf(stderr, "torture-net: %s\n", What.c_str());
}

// A refused store is tried again; any other warning means that nobody knows.
void TakeLog(const TMsgInfo& Info, int, bool) {
  if (Info.msgType == msgWarning) ++Warnings;
}
void TakeMsg(const TMsgInfo&, TMsgList&, bool) {}

void Store(const std::string& Mount, int Writer, unsigned Seed) {
  std::mt19937 random(Seed);
  for (uint64_t value = 1; !Shared->Stop;) {
    Warnings = 0;
    TSharedIni ini(Wide(Mount + "/Station.ini"));
    for (int n = 0; n < 50 && Warnings == 0 && !Shared->Stop; ++n, ++value) {
      const unsigned key = random() % kKeys;
      ini.WriteString(Wide("W" + std::to_string(Writer)), Wide("k" + std::to_string(key)), Wide(std::to_string(value)));
      ini.WriteString(u"Alle", u"k", Wide(std::to_string(Writer) + "." + std::to_string(value)));
      const auto begin = std::chrono::steady_clock::now();
      bool isStored = ini.Store();
      ++Shared->Tried;
      Shared->AtFirst += isStored && Warnings == 0;
      for (int tries = 0; !isStored && ini.Modified() && tries < 20 && !Shared->Stop; ++tries) {
        Warnings = 0;
        isStored = ini.Store();
      }
      if (!isStored || Warnings > 0) break;
      const auto time = std::chrono::steady_clock::now() - begin;
      Shared->Microseconds +=
          static_cast<uint64_t>(std::chrono::duration_cast<std::chrono::microseconds>(time).count());
      Shared->Keys[Writer][key] = value;
      ++Shared->Acknowledged;
      ::usleep(random() % 20000);
    }
    if (Warnings > 0) ::usleep(20000);
  }
}

std::string LogText(int Logger, uint64_t Line) {
  return std::to_string(Logger) + "." + std::to_string(Line) + "." + std::string(Line * 97 % 3000, 'p') + "|";
}

void WriteLog(const std::string& Mount, int Logger) {
  Msg().SetLogInterrupt(nullptr);
  Msg().SetLog({true, laInstant, Wide(Mount + "/messages.log"), u"%6"});
  SetDialogSink([](const TDialog&) { return IsRefused = true, mrOk; });
  for (uint64_t n; !Shared->Stop && (n = Shared->Begun[Logger]++) < kLines; ::usleep(5000)) {
    IsRefused = false;
    Msg().GetMsg()(Log(Wide(LogText(Logger, n)), u"torture"), true);
    Shared->Lines[Logger][n] = !IsRefused;
    if (IsRefused) ::usleep(20000);
  }
  ::_exit(0);  // what was not acknowledged stays in the buffer
}

pid_t Fork(const std::function<void()>& Work) {
  const pid_t pid = ::fork();
  if (pid != 0) return pid;
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  Work();
  ::_exit(0);
}

// A file by a second name, of which a mount can't remember anything yet.
struct TFresh {
  explicit TFresh(const std::string& Path) : Name(Path + ".fresh") {
    if (::link(Path.c_str(), Name.c_str()) != 0) Fault(Damaged, "no " + Path);
  }
  ~TFresh() { ::unlink(Name.c_str()); }
  TFresh(const TFresh&) = delete;
  TFresh& operator=(const TFresh&) = delete;
  std::string Bytes() const {
    std::ifstream file(Name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  const std::string Name;
};

void CheckKeys(const std::string& Mount) {
  const TFresh fresh(Mount + "/Station.ini");
  TSharedIni ini(Wide(fresh.Name), {sioReadOnly});
  if (ini.GetLoaded() == 0) Fault(Damaged, Mount + " shows no file");
  for (int i = 0; i < kWriters * kKeys; ++i) {
    const int writer = i / kKeys, key = i % kKeys;
    const uint64_t acknowledged = Shared->Keys[writer][key];
    const String section = Wide("W" + std::to_string(writer)), name = Wide("k" + std::to_string(key));
    const std::string value = ini.ReadString(section, name, u"0").ToUtf8();
    if (std::strtoull(value.c_str(), nullptr, 10) < acknowledged) {
      const std::string told = std::to_string(acknowledged) + ", " + Mount + " shows " + value;
      Fault(Lost, section.ToUtf8() + "|" + name.ToUtf8() + " was acknowledged as " + told);
    }
  }
}

void CheckFile(const std::string& Mount) {
  const std::string bytes = TFresh(Mount + "/Station.ini").Bytes();
  if (!bytes.ends_with("\r\n\r\n") || bytes.find('\0') != bytes.npos) Fault(Damaged, Mount + ":\n" + bytes);
}

void CheckLog(const std::string& Mount, bool HasKills) {
  const std::string bytes = TFresh(Mount + "/messages.log").Bytes();
  std::vector<int> seen[kMounts] = {std::vector<int>(kLines), std::vector<int>(kLines)};
  for (size_t at = 0, end; at < bytes.size(); at = end + 2) {
    end = std::min(bytes.find("\r\n", at), bytes.size());
    const std::string line = bytes.substr(at, end - at);
    int logger = -1;
    unsigned long long n = kLines;
    const bool isRead =
        std::sscanf(line.c_str(), "%d.%llu.", &logger, &n) == 2 && logger >= 0 && logger < kMounts && n < kLines;
    const std::string whole = isRead ? LogText(logger, n) : std::string();
    if (isRead && line == whole) {
      if (++seen[logger][n] > 1 && Shared->Lines[logger][n]) Fault(Broken, "log line twice: " + line.substr(0, 40));
    } else if (HasKills && (!isRead || (whole.starts_with(line) && !Shared->Lines[logger][n])) && line.size() < 4000) {
      ++Pieces;
    } else {
      Fault(Broken, "log line: " + line.substr(0, 100));
    }
  }
  for (int i = 0; i < kMounts * kLines; ++i) {
    const int logger = i / kLines, n = i % kLines;
    if (Shared->Lines[logger][n] && seen[logger][n] == 0)
      Fault(Broken, "no log line " + LogText(logger, static_cast<uint64_t>(n)).substr(0, 12));
  }
}

void CheckLitter(const std::string& Mount) {
  for (const auto& entry : std::filesystem::directory_iterator(Mount)) {
    const std::string name = entry.path().filename();
    if (name != "Station.ini" && name != "messages.log") Fault(Litter, entry.path());
  }
}

int Main(int Arguments, char** Argument) {
  if (Arguments < 5) return std::fprintf(stderr, "usage: torture_net NAME SECONDS MOUNT1 MOUNT2 [KILL]\n"), 2;
  const std::string mounts[] = {Argument[3], Argument[4]};
  const bool hasKills = Arguments > 5;
  void* shared = ::mmap(nullptr, sizeof(TShared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) return std::perror("torture-net"), 2;
  Shared = new (shared) TShared{};
  Msg().SetLogInterrupt(TLogInterrupt::Of<&TakeLog>());
  Msg().SetMsgInterrupt(TMsgInterrupt::Of<&TakeMsg>());
  std::vector<pid_t> pids;
  for (int w = 0; w < kWriters; ++w)
    pids.push_back(Fork([=] { Store(mounts[w % kMounts], w, static_cast<unsigned>(w)); }));
  for (int m = 0; m < kMounts; ++m) pids.push_back(Fork([=] { WriteLog(mounts[m], m); }));
  std::mt19937 random(1);
  int kills = 0;
  for (const int64_t end = GetTickCount() + std::atoi(Argument[2]) * 1000; GetTickCount() < end;) {
    ::usleep(static_cast<useconds_t>(200000 + random() % 2000000));
    if (hasKills && GetTickCount() < end) kills += std::system(Argument[5]) == 0;
  }
  Shared->Stop = 1;
  for (pid_t pid : pids) {
    int status = 0;
    ::waitpid(pid, &status, 0);
    if (status != 0) Fault(Damaged, "a process ends with status " + std::to_string(status));
  }
  ::sleep(2);  // longer than names and stamps are remembered
  // Who stores once more clears away what a killed client left.
  for (int tries = 0; tries < 12; ++tries) {
    TSharedIni last(Wide(mounts[0] + "/Station.ini"));
    last.WriteString(u"Ende", u"k", u"1");
    if (last.Store()) break;
    if (!hasKills && tries == 0) Fault(Litter, "a right that nobody has any more is in the way");
    ::sleep(1);
  }
  ::sleep(2);
  for (const std::string& mount : mounts)
    CheckKeys(mount), CheckFile(mount), CheckLog(mount, hasKills), CheckLitter(mount);
  const auto count = [](const TCount& c) { return static_cast<double>(c.load()); };
  const double first = 100 * count(Shared->AtFirst) / std::max(count(Shared->Tried), 1.0);
  const double time = count(Shared->Microseconds) / 1000 / std::max(count(Shared->Acknowledged), 1.0);
  uint64_t lines = 0;
  for (const auto& of : Shared->Lines) {
    for (const auto& line : of) lines += line;
  }
  std::printf(
      "torture-net: %s: stores=%.0f acknowledged=%.0f at-first-try=%.1f%% ms/store=%.1f kills=%d log-lines=%ju "
      "pieces=%ju lost=%ju damaged=%ju litter=%ju broken-lines=%ju\n",
      Argument[1], count(Shared->Tried), count(Shared->Acknowledged), first, time, kills, uintmax_t{lines},
      uintmax_t{Pieces}, uintmax_t{Lost}, uintmax_t{Damaged}, uintmax_t{Litter}, uintmax_t{Broken});
  return Lost + Damaged + Litter + Broken > 0 || Shared->Acknowledged == 0 || (!hasKills && first < 95);
}

}  // namespace
}  // namespace vx

int main(int Arguments, char** Argument) { return vx::Main(Arguments, Argument); }
