#include "platform/ShellExecute.h"

#include <utility>

#include "platform/Hook.h"
#include "platform/os/Shell.h"

namespace vx {

namespace {

THook<TShellExecute>& Hook() {
  static THook<TShellExecute>& hook = *new THook<TShellExecute>;
  return hook;
}

}  // namespace

int ShellExecute(const TShellCall& Call) {
  auto execute = Hook().Get();
  return execute ? (*execute)(Call) : os::ShellExecute(Call);
}

TShellExecute SetShellExecute(TShellExecute Execute) { return Hook().Exchange(std::move(Execute)); }

}  // namespace vx
