#include "tools/vxtab/CommandHelpers.h"

#include <algorithm>
#include <utility>

#include "core/uVxFunctionsSerialize.h"
#include "platform/Collation.h"
#include "tools/vxtab/Show.h"

namespace vx::vxtab {

namespace {

constexpr std::pair<char16_t, const char*> kSeparators[] = {
    {u',', "comma"}, {u';', "semicolon"}, {u'\t', "tab"}, {u'\x1B', "esc"}};

}  // namespace

const char* SeparatorName(char16_t Separator) {
  for (auto [unit, name] : kSeparators) {
    if (unit == Separator) return name;
  }
  return "other";
}

namespace {

// 0 if the option is missing.
char16_t SeparatorOption(const TArguments& Args, const std::string& Option) {
  if (!Args.Has(Option)) return 0;
  const std::string& value = Args.Values(Option).back();
  for (auto [unit, name] : kSeparators) {
    if (value == name) return unit;
  }
  const String text = String::FromUtf8(value);
  const bool isCharacter =
      text.size() == 1 && text[0] >= u' ' && text[0] != u'"' && text[0] != 127 && text[0] != 0xFFFD;
  if (isCharacter) return text[0];
  throw TUsageError("--" + Option + " " + value + ": neither comma, semicolon, tab, esc nor a single character");
}

// Encoding and mark; nothing changes if the option is missing.
void EncodingOption(const TArguments& Args, const std::string& Option, TCsvForm& Form) {
  if (!Args.Has(Option)) return;
  struct TName {
    const char* Name;
    TCsvEncoding Encoding;
    bool HasMark;
  };
  static constexpr TName kNames[] = {{"utf-8", ceUtf8, true},
                                     {"utf-8-plain", ceUtf8, false},
                                     {"utf-16", ceUtf16, true},
                                     {"utf-16be", ceUtf16BigEndian, true},
                                     {"codepage", ceCodePage, false}};
  const std::string& value = Args.Values(Option).back();
  std::string known;
  for (const TName& name : kNames) {
    known += (known.empty() ? "" : ", ") + std::string(name.Name);
    if (value != name.Name) continue;
    Form.Encoding = name.Encoding;
    Form.HasMark = name.HasMark;
    return;
  }
  throw TUsageError("--" + Option + " " + value + ": not an encoding; known are " + known);
}

}  // namespace

TReading ReadingOptions(const TArguments& Args) {
  TReading reading;
  reading.By = Args.Has("foreign") ? rbForeign : rbLibrary;
  for (const char* option : {"separator", "encoding"}) {
    if (Args.Has(option) && !Args.Has("foreign")) {
      throw TUsageError("--" + std::string(option) + " goes with --foreign only");
    }
  }
  reading.Form.Separator = SeparatorOption(Args, "separator");
  EncodingOption(Args, "encoding", reading.Form);
  reading.Form.CodePage = Args.Number("codepage", 0);
  if (Args.Has("sheet")) reading.Sheet = Args.Values("sheet").back();
  return reading;
}

std::optional<TCsvForm> WritingOptions(const TArguments& Args) {
  if (!Args.Has("to-separator") && !Args.Has("to-encoding")) return {};
  TCsvForm form;
  form.Separator = SeparatorOption(Args, "to-separator");
  EncodingOption(Args, "to-encoding", form);
  form.CodePage = Args.Number("codepage", 0);
  return form;
}

void Save(const TContext& Context, TFileCsv& Table, size_t Index) {
  SaveTable(Table, Context.Args.File(Index), WritingOptions(Context.Args), Context.Reporter);
}

TVxFieldType TypeOption(const TArguments& Args, std::span<const TVxFieldType> Known, TVxFieldType Default) {
  if (!Args.Has("type")) return Default;
  const std::string& value = Args.Values("type").back();
  const String text = String::FromUtf8(value);
  std::string names;
  for (TVxFieldType type : Known) {
    const String word = VxFieldTypeToText(type, false);
    const String german = VxFieldTypeToText(type, true);
    if (GetVxFieldType(text) == type || AnsiSameText(text, word) || AnsiSameText(text, german)) return type;
    names += (names.empty() ? "" : ", ") + word.ToUtf8() + (word == german ? "" : " (" + german.ToUtf8() + ")");
  }
  throw TUsageError("--type " + value + ": not a type for this command; known are " + names);
}

std::unique_ptr<TLoadedFile> Load(const TContext& Context, size_t Index, bool WithDetails) {
  const TArguments& args = Context.Args;
  const std::string& name = args.File(Index);
  TReading reading = ReadingOptions(args);
  reading.WithDetails = WithDetails;
  auto file = LoadTable(name, reading, Context.In, Context.Reporter);
  if (!file->Hint.empty()) {
    Context.Reporter.Say("note: " + name + " seems to come from another program, try --foreign: " + file->Hint);
  }
  return file;
}

int ColumnNamed(const TContext& Context, const THeadCsv& Table, const std::string& File, const String& Name) {
  const int column = Table.FieldIndex(Name);
  if (column < 0) throw TFailure(File + ": row 0 has no column named " + Quoted(Name));
  const auto rest = Table.GetLines(0)->Items().subspan(static_cast<size_t>(column) + 1);
  if (std::any_of(rest.begin(), rest.end(), [&](const String& name) { return AnsiSameText(name, Name); })) {
    Context.Reporter.Say("note: " + File + ": the name " + Quoted(Name) + " stands twice; column " +
                         std::to_string(column) + " is taken");
  }
  return column;
}

}  // namespace vx::vxtab
