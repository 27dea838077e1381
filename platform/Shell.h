// Opening a document in its application.
//
//   OpenDocument      opens through the hook
//   SetOpenDocument   replaces the hook
//
// Example (a test):
//   vx::SetOpenDocument([&](const vx::String& file, const vx::String&) { opened = file; return true; });
//   vx::OpenDocument(u"D:\\Listen\\a.csv", u"D:\\Listen\\");
//
// The system's own way starts "xdg-open" with the file alone, never through a command line.
//
// Threads: any number may call these at once.
#pragma once

#include <functional>

#include "platform/String.h"

namespace vx {

// File in the library's or the native path grammar, and its directory as working directory. True if
// an application took it.
using TOpenDocument = std::function<bool(const String& File, const String& Directory)>;

// Opens File in the application that the system has for it, without waiting for that application.
// An empty Directory leaves the working directory. False if the file is not there or nothing can be
// started.
bool OpenDocument(const String& File, const String& Directory);
// Replaces the way of opening; an empty function sets the system's own back. Returns what was set
// before, empty if it was the system's own.
TOpenDocument SetOpenDocument(TOpenDocument Open);

}  // namespace vx
