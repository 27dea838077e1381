// What all configuration files have: sections of keys with values, as texts or typed.
//
//   TCustomIniFile   the base; a derived class reads and writes texts
//
// Numbers, dates and times are written and read by the format settings in use.
//
// Threads: an object is for one at a time; different objects may be used at once.
#pragma once

#include <string_view>

#include "platform/TStrings.h"
#include "platform/Types.h"

namespace vx {

class TCustomIniFile : public TObject {
 public:
  const String& GetFileName() const noexcept { return FFileName; }

  // The value of a key; Default if there is no such section or key.
  virtual String ReadString(std::u16string_view Section, std::u16string_view Ident, const String& Default) = 0;
  virtual void WriteString(const String& Section, const String& Ident, const String& Value) = 0;
  // Each clears the list and fills it with the keys of a section, the sections, or a section's lines.
  virtual void ReadSection(std::u16string_view Section, TStrings& Strings) = 0;
  virtual void ReadSections(TStrings& Strings) = 0;
  virtual void ReadSectionValues(std::u16string_view Section, TStrings& Strings) = 0;
  virtual void EraseSection(const String& Section) = 0;
  virtual void DeleteKey(const String& Section, const String& Ident) = 0;
  // Brings changes to the file.
  virtual void UpdateFile() = 0;
  virtual bool ValueExists(std::u16string_view Section, std::u16string_view Ident) = 0;

  // Typed values go through ReadString, whose default is that of the value as text, and WriteString. A text
  // that is no such value gives Default. u"0x1F" is read as hexadecimal, u"0x" alone is none.
  virtual int ReadInteger(std::u16string_view Section, std::u16string_view Ident, int Default);
  // An empty text gives Default, too.
  virtual TDateTime ReadDate(std::u16string_view Section, std::u16string_view Ident, TDateTime Default);
  virtual TDateTime ReadDateTime(std::u16string_view Section, std::u16string_view Ident, TDateTime Default);
  virtual TDateTime ReadTime(std::u16string_view Section, std::u16string_view Ident, TDateTime Default);
  virtual Extended ReadFloat(std::u16string_view Section, std::u16string_view Ident, Extended Default);
  // 0 is false and every other number true.
  bool ReadBool(std::u16string_view Section, std::u16string_view Ident, bool Default);
  void WriteInteger(const String& Section, const String& Ident, int Value);
  void WriteDate(const String& Section, const String& Ident, TDateTime Value);
  void WriteDateTime(const String& Section, const String& Ident, TDateTime Value);
  void WriteTime(const String& Section, const String& Ident, TDateTime Value);
  void WriteFloat(const String& Section, const String& Ident, Extended Value);
  void WriteBool(const String& Section, const String& Ident, bool Value);

 protected:
  explicit TCustomIniFile(String FileName) noexcept : FFileName(std::move(FileName)) {}

 private:
  String FFileName;
};

}  // namespace vx
