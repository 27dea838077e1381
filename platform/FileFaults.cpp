#include "platform/detail/FileFaults.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <map>
#include <mutex>

namespace vx {

struct TFileFaults::TRules {
  struct TRule {
    TFileOperation Operation;
    int Error, Times, Skip;
    std::string PathEnd;
  };
  std::vector<TRule> Rules;
  int64_t Space = -1;  // bytes left, -1 without limit
  int64_t Reads = -1;
  bool FreezesStamps = false, LosesLocks = false;
  std::map<std::string, TDateTime> Stamps;
};

namespace {

std::mutex FaultMutex;
std::atomic<int> FaultScopes{0};

// How much of Count the limit Left lets pass; takes it off.
size_t TakeFrom(int64_t& Left, size_t Count) noexcept {
  if (Left < 0) return Count;
  size_t taken = static_cast<size_t>(std::min<uint64_t>(static_cast<uint64_t>(Left), Count));
  Left -= static_cast<int64_t>(taken);
  return taken;
}

}  // namespace

// All scopes that live, the newest last. Used under the mutex.
struct TFileFaultAccess {
  using TRules = TFileFaults::TRules;
  static std::vector<TRules*>& Scopes() {
    static std::vector<TRules*> scopes;
    return scopes;
  }
  static bool Fires(TRules::TRule& Rule, const std::string& Native, const std::string& Second) noexcept {
    if (!Native.ends_with(Rule.PathEnd) && !Second.ends_with(Rule.PathEnd)) return false;
    if (Rule.Skip > 0) return --Rule.Skip, false;
    if (Rule.Times <= 0) return false;
    return --Rule.Times, true;
  }
  static int ErrorOf(TFileOperation Operation, const std::string& Native, const std::string& Second) noexcept {
    for (auto scope = Scopes().rbegin(); scope != Scopes().rend(); ++scope) {
      for (auto& rule : (*scope)->Rules) {
        if (rule.Operation == Operation && Fires(rule, Native, Second)) return rule.Error;
      }
    }
    return 0;
  }
  static size_t Take(int64_t TRules::*Limit, size_t Count) noexcept {
    for (TRules* rules : Scopes()) Count = TakeFrom(rules->*Limit, Count);
    return Count;
  }
  static bool LosesLocks() noexcept {
    return std::any_of(Scopes().begin(), Scopes().end(), [](const TRules* rules) { return rules->LosesLocks; });
  }
  static TDateTime Told(const std::string& Native, TDateTime Stamp) {
    for (TRules* rules : Scopes()) {
      if (rules->FreezesStamps) return rules->Stamps.try_emplace(Native, Stamp).first->second;
    }
    return Stamp;
  }
};

TFileFaults::TFileFaults() : FRules(new TRules) {
  std::lock_guard lock(FaultMutex);
  try {
    TFileFaultAccess::Scopes().push_back(FRules);
  } catch (...) {
    delete FRules;
    throw;
  }
  ++FaultScopes;
}

TFileFaults::~TFileFaults() {
  {
    std::lock_guard lock(FaultMutex);
    std::erase(TFileFaultAccess::Scopes(), FRules);
    --FaultScopes;
  }
  delete FRules;
}

void TFileFaults::Fail(TFileOperation Operation, int Error, int Times, int Skip, std::string PathEnd) {
  std::lock_guard lock(FaultMutex);
  FRules->Rules.push_back({Operation, Error, Times, Skip, std::move(PathEnd)});
}

void TFileFaults::LimitSpace(int64_t Bytes) noexcept {
  std::lock_guard lock(FaultMutex);
  FRules->Space = std::max<int64_t>(Bytes, 0);
}

void TFileFaults::CutReads(int64_t Bytes) noexcept {
  std::lock_guard lock(FaultMutex);
  FRules->Reads = std::max<int64_t>(Bytes, 0);
}

void TFileFaults::FreezeStamps() noexcept {
  std::lock_guard lock(FaultMutex);
  FRules->FreezesStamps = true;
}

void TFileFaults::LoseLocks() noexcept {
  std::lock_guard lock(FaultMutex);
  FRules->LosesLocks = true;
}

namespace files {
namespace {

bool AnyFaults() noexcept { return FaultScopes.load(std::memory_order_relaxed) != 0; }

size_t Take(int64_t TFileFaultAccess::TRules::*Limit, size_t Count) noexcept {
  if (!AnyFaults()) return Count;
  std::lock_guard lock(FaultMutex);
  return TFileFaultAccess::Take(Limit, Count);
}

}  // namespace

int FaultOf(TFileOperation Operation, const std::string& Native, const std::string& Second) noexcept {
  if (!AnyFaults()) return 0;
  std::lock_guard lock(FaultMutex);
  return TFileFaultAccess::ErrorOf(Operation, Native, Second.empty() ? Native : Second);
}

bool Permitted(TFileOperation Operation, const std::string& Native, const std::string& Second) noexcept {
  int error = FaultOf(Operation, Native, Second);
  return error == 0 || Fail(error);
}

size_t TakeSpace(size_t Count) noexcept { return Take(&TFileFaultAccess::TRules::Space, Count); }

size_t TakeReads(size_t Count) noexcept { return Take(&TFileFaultAccess::TRules::Reads, Count); }

bool LosesLocks() noexcept {
  if (!AnyFaults()) return false;
  std::lock_guard lock(FaultMutex);
  return TFileFaultAccess::LosesLocks();
}

TDateTime ToldStamp(const std::string& Native, TDateTime Stamp) {
  if (!AnyFaults()) return Stamp;
  std::lock_guard lock(FaultMutex);
  return TFileFaultAccess::Told(Native, Stamp);
}

}  // namespace files
}  // namespace vx
