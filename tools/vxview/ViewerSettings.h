// What the viewer remembers: its window, the files shown last, and how each of them was shown. In a configuration file
// that several viewers share, none losing what another one wrote.
//
// Example:
//   ViewerSettings settings(ViewerSettings::DefaultPath());
//   settings.Opened(path);                                     // first of the last files
//   settings.Write(path, u"Spalten", widget.GetLayout());
//   settings.Store();
//
// Pitfall: nothing but the list of last files is stored by itself.
#pragma once

#include <vector>

#include "services/uSharedIni.h"

namespace vx::vxview {

class TViewerSettings {
 public:
  // Empty: nothing is kept.
  explicit TViewerSettings(const String& FileName);
  // In the user's directory of settings; empty if there is none.
  static String DefaultPath();

  // The newest first, at most MostFiles.
  static constexpr int MostFiles = 10;
  std::vector<String> LastFiles();
  // Puts a file in front, and stores that at once.
  void Opened(const String& Path);

  // A text about a file, or about the window for an empty Path.
  String Read(const String& Path, const String& Key);
  void Write(const String& Path, const String& Key, const String& Value);
  void Store();

 private:
  TSharedIni FIni;
};

}  // namespace vx::vxview
