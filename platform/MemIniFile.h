// A configuration file read into memory: sections with keys and their values.
//
//   TMemIniFile   the file
//
// Example:
//   vx::TMemIniFile ini(u"C:\\Daten\\Pflege.ini");
//   vx::String station = ini.ReadString(u"Station", u"Name", u"unbekannt");
//
// A line is trimmed. An empty one and one that begins with ";" is skipped; "[Name]" begins a section of the
// trimmed name; any other is "key=value", each trimmed, and belongs to the section before it. Lines before
// the first section are dropped, and a line without "=" holds no value.
//
// The bytes are UTF-8 or UTF-16 if a byte order mark says so, else the system's code page.
//
// Threads: an object is for one at a time; different objects may be used at once.
//
// Pitfall: of sections or keys that stand twice the first one is found.
#pragma once

#include <map>
#include <span>
#include <string_view>
#include <vector>

#include "platform/TStrings.h"

namespace vx {

// Names are matched without regard to case, as AnsiSameText does.
class TMemIniFile : public TObject {
 public:
  // Reads the file at once. No file is an empty one; one that can't be opened or read raises EStreamError.
  explicit TMemIniFile(std::u16string_view Path);
  TMemIniFile(const TMemIniFile&) = delete;
  TMemIniFile& operator=(const TMemIniFile&) = delete;
  String ClassName() const override { return u"TMemIniFile"; }

  // Replaces Strings by the names of all sections, in their order, also those that stand twice.
  void ReadSections(TStrings& Strings) const;
  // Replaces Strings by the keys of a section, in their order; by nothing if there is no such section.
  void ReadSection(std::u16string_view Section, TStrings& Strings) const;
  // The value of a key, which may be empty; Default if there is no such section or key.
  String ReadString(std::u16string_view Section, std::u16string_view Ident, const String& Default) const;

 private:
  // By the small letters of names. Ordered and not hashed, so that no choice of names makes reading slow.
  struct TNameOrder {
    bool operator()(std::u16string_view A, std::u16string_view B) const noexcept;
  };
  template <typename T>
  using TByName = std::map<std::u16string_view, T, TNameOrder>;
  struct TSection {
    std::vector<std::u16string_view> Keys;
    TByName<std::u16string_view> Values;
  };

  void Parse();
  static void Replace(TStrings& Strings, std::span<const std::u16string_view> Names);

  String FText;  // holds what all views show
  std::vector<std::u16string_view> FNames;
  TByName<TSection> FSections;
};

}  // namespace vx
