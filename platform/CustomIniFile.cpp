#include "platform/CustomIniFile.h"

#include "platform/DateText.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace vx {

namespace {

using TDateReader = bool (*)(std::u16string_view, TDateTime&) noexcept;

TDateTime DateFrom(std::u16string_view Text, TDateTime Default, TDateReader Read) noexcept {
  TDateTime value;
  return !Text.empty() && Read(Text, value) ? value : Default;
}

}  // namespace

int TCustomIniFile::ReadInteger(std::u16string_view Section, std::u16string_view Ident, int Default) {
  const String text = ReadString(Section, Ident, IntToStr(Default));
  if (text.size() <= 2 || !SameAscii(text.view().substr(0, 2), u"0x")) return StrToIntDef(text, Default);
  return StrToIntDef(u"$" + text.Slice(2), Default);
}

TDateTime TCustomIniFile::ReadDate(std::u16string_view Section, std::u16string_view Ident, TDateTime Default) {
  return DateFrom(ReadString(Section, Ident, DateToStr(Default)), Default, TryStrToDate);
}

TDateTime TCustomIniFile::ReadDateTime(std::u16string_view Section, std::u16string_view Ident, TDateTime Default) {
  return DateFrom(ReadString(Section, Ident, DateTimeToStr(Default)), Default, TryStrToDateTime);
}

TDateTime TCustomIniFile::ReadTime(std::u16string_view Section, std::u16string_view Ident, TDateTime Default) {
  return DateFrom(ReadString(Section, Ident, TimeToStr(Default)), Default, TryStrToTime);
}

Extended TCustomIniFile::ReadFloat(std::u16string_view Section, std::u16string_view Ident, Extended Default) {
  const String text = ReadString(Section, Ident, FloatToStr(Default));
  Extended value;
  return TextToFloat(text, value, GetFormatSettings()) ? value : Default;
}

bool TCustomIniFile::ReadBool(std::u16string_view Section, std::u16string_view Ident, bool Default) {
  return ReadInteger(Section, Ident, Default) != 0;
}

void TCustomIniFile::WriteInteger(const String& Section, const String& Ident, int Value) {
  WriteString(Section, Ident, IntToStr(Value));
}

void TCustomIniFile::WriteDate(const String& Section, const String& Ident, TDateTime Value) {
  WriteString(Section, Ident, DateToStr(Value));
}

void TCustomIniFile::WriteDateTime(const String& Section, const String& Ident, TDateTime Value) {
  WriteString(Section, Ident, DateTimeToStr(Value));
}

void TCustomIniFile::WriteTime(const String& Section, const String& Ident, TDateTime Value) {
  WriteString(Section, Ident, TimeToStr(Value));
}

void TCustomIniFile::WriteFloat(const String& Section, const String& Ident, Extended Value) {
  WriteString(Section, Ident, FloatToStr(Value));
}

void TCustomIniFile::WriteBool(const String& Section, const String& Ident, bool Value) {
  WriteInteger(Section, Ident, Value);
}

}  // namespace vx
