#include "platform/Shell.h"

#include <utility>

#include "platform/Hook.h"
#include "platform/os/Shell.h"

namespace vx {

namespace {

THook<TOpenDocument>& Hook() {
  static THook<TOpenDocument>& hook = *new THook<TOpenDocument>;
  return hook;
}

}  // namespace

bool OpenDocument(const String& File, const String& Directory) {
  auto open = Hook().Get();
  return open ? (*open)(File, Directory) : os::OpenDocument(File, Directory);
}

TOpenDocument SetOpenDocument(TOpenDocument Open) { return Hook().Exchange(std::move(Open)); }

}  // namespace vx
