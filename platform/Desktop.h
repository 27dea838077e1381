// What only a desktop with windows can give. Unless a program sets it, there is none.
//
//   FindWindow, SetFindWindow               windows of other programs
//   SelectDirectory, SetSelectDirectory     the dialog that asks for a directory
//
// Example:
//   vx::SetSelectDirectory([](const vx::TDirectoryQuestion& question, vx::String& directory) {
//     return MyFolderDialog(question.Caption, directory);
//   });
//
// Threads: any number may ask and replace.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/String.h"

namespace vx {

struct TWindow {
  int64_t Handle = 0;     // 0: there is no such window
  int64_t ProcessId = 0;  // 0: unknown
  String Module{};        // the path of the program that it belongs to; empty if it can't be read
};
// The window of that title and, unless ClassName is empty, of that class.
using TFindWindow = std::function<TWindow(const String& ClassName, const String& Title)>;
// Without a function that was set no window is found.
TWindow FindWindow(const String& ClassName, const String& Title);
// Both setters return what was set before; an empty function takes the service away again.
TFindWindow SetFindWindow(TFindWindow Find);

struct TDirectoryQuestion {
  String Caption;
  String Root;  // nothing above it can be chosen; empty: all can
};
// Directory is the one chosen at first and, if the result is true, the one that the user took.
using TSelectDirectory = std::function<bool(const TDirectoryQuestion& Question, String& Directory)>;
// False, as if the user had cancelled, without a function that was set.
bool SelectDirectory(const TDirectoryQuestion& Question, String& Directory);
TSelectDirectory SetSelectDirectory(TSelectDirectory Select);

}  // namespace vx
