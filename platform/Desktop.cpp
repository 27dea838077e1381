#include "platform/Desktop.h"

#include <utility>

#include "platform/Hook.h"

namespace vx {

namespace {

template <typename F>
THook<F>& Hook() {
  static THook<F>& hook = *new THook<F>;
  return hook;
}

}  // namespace

TWindow FindWindow(const String& ClassName, const String& Title) {
  auto find = Hook<TFindWindow>().Get();
  return find ? (*find)(ClassName, Title) : TWindow();
}

TFindWindow SetFindWindow(TFindWindow Find) { return Hook<TFindWindow>().Exchange(std::move(Find)); }

bool SelectDirectory(const TDirectoryQuestion& Question, String& Directory) {
  auto select = Hook<TSelectDirectory>().Get();
  return select && (*select)(Question, Directory);
}

TSelectDirectory SetSelectDirectory(TSelectDirectory Select) {
  return Hook<TSelectDirectory>().Exchange(std::move(Select));
}

}  // namespace vx
