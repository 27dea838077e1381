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

char16_t SeparatorOption(const TArguments& Args) {
  if (!Args.Has("separator")) return 0;
  if (!Args.Has("foreign")) throw TUsageError("--separator goes with --foreign only");
  const std::string& value = Args.Values("separator").back();
  for (auto [unit, name] : kSeparators) {
    if (value == name) return unit;
  }
  if (value.size() == 1 && value[0] >= ' ' && value[0] < 127 && value[0] != '"') return static_cast<char16_t>(value[0]);
  throw TUsageError("--separator " + value + ": neither comma, semicolon, tab, esc nor a single character");
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
  auto file = LoadTable(name, args.Has("foreign") ? rbForeign : rbLibrary, SeparatorOption(args), WithDetails,
                        Context.In, Context.Reporter);
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
