#include "tools/vxtab/NamedCommands.h"

#include <ostream>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "core/uVxFunctions.h"
#include "core/uVxFunctionsSerialize.h"
#include "platform/Collation.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "tables/uSearchConst.h"
#include "tables/uSort.h"
#include "tools/vxtab/CommandHelpers.h"
#include "tools/vxtab/Show.h"

namespace vx::vxtab {

namespace {

// The types that have a comparison of their own, and those of texts.
constexpr TVxFieldType kComparable[] = {vftShortString, vftString,   vftBoolean,   vftInteger,  vftFloat,
                                        vftDate,        vftTime,     vftCommatext, vftDateTime, vftStatus,
                                        vftHour,        vftCurrency, vftFraction,  vftTinyHTML};

void Note(const TContext& Context, size_t File, const std::string& Text) {
  Context.Reporter.Say("note: " + Context.Args.File(File) + ": " + Text);
}

int ColumnNamed(const TContext& Context, const TLoadedFile& File, size_t Index, const String& Name) {
  return ColumnNamed(Context, File.Table, Context.Args.File(Index), Name);
}

// "NAME=VALUE" cut behind the first name that is one of the table's; at the first "=" if none is.
std::pair<String, String> CutKey(const THeadCsv& Table, const String& Text) {
  auto cut = [&](int at) { return std::pair(Text.Slice(0, at - 1), Text.Slice(at)); };
  for (int at = Pos(u"=", Text); at > 0; at = Pos(u"=", Text, at + 1)) {
    if (Table.FieldIndex(Text.Slice(0, at - 1)) >= 0) return cut(at);
  }
  return cut(Pos(u"=", Text));
}

// The names of the table's columns, in small letters. A note with Consequence tells of one that stands twice.
std::unordered_set<String> NamesNotingDoubles(const TContext& Context, size_t File, const THeadCsv& Table,
                                              const char* Consequence) {
  std::unordered_set<String> names;
  const String* twice = nullptr;
  for (const String& name : Table.GetLines(0)->Items()) {
    if (!names.insert(LowerCase(name)).second && twice == nullptr) twice = &name;
  }
  if (twice != nullptr) Note(Context, File, "the name " + Quoted(*twice) + " stands twice; " + Consequence);
  return names;
}

// Says what a merge of From does not take over as it stands.
void NoteLosses(const TContext& Context, const THeadCsv& Into, const THeadCsv& From, int KeyColumn) {
  const auto known = NamesNotingDoubles(Context, 0, Into, "its first column is taken");
  (void)NamesNotingDoubles(Context, 1, From, "the last cell of a row that is not empty is taken");
  for (const String& name : From.GetLines(0)->Items()) {
    if (Context.Args.Has("add-fields") || known.contains(LowerCase(name))) continue;
    Note(Context, 1, "the column " + Quoted(name) + " is left out, as all that the other table lacks");
    break;
  }
  std::unordered_map<String, int> rowsByKey;
  bool isWideKnown = false, isKeyKnown = false;
  for (int row = 1; row < From.GetCount(); ++row) {
    if (!isWideKnown && From.GetLines(row)->GetCount() > From.FieldCount()) {
      Note(Context, 1, "cells beyond the head are left out, first in row " + std::to_string(row));
      isWideKnown = true;
    }
    const auto [found, isNew] = rowsByKey.emplace(From.GetCell(KeyColumn, row), row);
    if (isNew || isKeyKnown) continue;
    Note(Context, 1,
         "rows with the same key become one row, first " + std::to_string(found->second) + " and " +
             std::to_string(row) + " with " + Quoted(found->first));
    isKeyKnown = true;
  }
}

// The index of a clause by its symbol or text.
size_t ReadClause(const std::string& Value) {
  const String text = String::FromUtf8(Value);
  std::string known;
  for (size_t i = 0; i < CLAUSE_SYMBOL.size(); ++i) {
    if (text == CLAUSE_SYMBOL[i] || AnsiSameText(text, CLAUSE_TEXT[i])) return i;
    known += (i > 0 ? ", " : "") + String(CLAUSE_SYMBOL[i]).ToUtf8() + " (" + String(CLAUSE_TEXT[i]).ToUtf8() + ")";
  }
  throw TUsageError("--where: unknown clause '" + Value + "'; known are " + known);
}

// Compare would take the text for 0, as it is no value of the type.
bool IsNoValue(const String& Text, TVxFieldType Type) {
  auto isDefault = [](auto read) { return read(0) != read(1); };
  switch (Type) {
    case vftInteger:
    case vftStatus:
      return isDefault([&](int other) { return StrToIntDef(Text, other); });
    case vftFloat:
    case vftFraction:
      return isDefault([&](int other) { return StrToExtDef(Text, other); });
    case vftCurrency:
      return isDefault([&](int other) { return StrToCurrDef(Text, Currency(other)); });
    case vftDate:
      return isDefault([&](int other) { return StrToDateDef(Text, other); });
    case vftTime:
      return isDefault([&](int other) { return StrToTimeDef(Text, other); });
    case vftDateTime:
      return isDefault([&](int other) { return StrToDateTimeDef(Text, other); });
    case vftHour:
      return isDefault([&](int other) { return StrToHourDef(Text, other); });
    default:
      return false;
  }
}

// One condition on a cell.
class TCondition {
 public:
  TCondition(size_t Clause, String Value, TVxFieldType Type)
      : FClause(Clause), FValue(std::move(Value)), FType(Type), FPart(LowerCase(FValue)) {}

  bool Holds(const String& Cell) const {
    if (FClause < 2) return HasPart(Cell) == (FClause == 0);
    const int order = Compare(Cell, FValue, FType, u"");
    switch (FClause) {
      case 2:
        return order == 0;
      case 3:
        return order != 0;
      case 4:
        return order < 0;
      case 5:
        return order <= 0;
      case 6:
        return order > 0;
      default:
        return order >= 0;
    }
  }

 private:
  bool HasPart(const String& Cell) const { return FPart.empty() || Pos(FPart, LowerCase(Cell)) > 0; }
  size_t FClause;
  String FValue;
  TVxFieldType FType;
  String FPart;
};

// Keeps the head and those of the other rows whose cell at Column holds to Condition.
void KeepRows(TFileCsv& Table, int Column, const TCondition& Condition) {
  std::vector<int> order{0}, others;
  for (int row = 1; row < Table.GetCount(); ++row) {
    (Condition.Holds(Table.GetCell(Column, row)) ? order : others).push_back(row);
  }
  const int count = static_cast<int>(order.size());
  order.insert(order.end(), others.begin(), others.end());
  Table.Arrange(order);
  while (Table.GetCount() > count) Table.Delete(Table.GetCount() - 1);
}

}  // namespace

void RunGet(const TContext& Context) {
  const TArguments& args = Context.Args;
  if (args.File(1).find('=') == std::string::npos) {
    throw TUsageError("'" + args.File(1) + "' is not of the form KEYNAME=VALUE");
  }
  auto file = Load(Context);
  const auto [name, value] = CutKey(file->Table, String::FromUtf8(args.File(1)));
  const String resultName = String::FromUtf8(args.File(2));
  const int column = ColumnNamed(Context, *file, 0, name);
  (void)ColumnNamed(Context, *file, 0, resultName);  // an error if there is none
  if (file->Table.ItemForField(name, value) == nullptr) {
    std::string text = args.File(0) + ": no row has exactly " + Quoted(value) + " in the column " + Quoted(name);
    const int alike = file->Table.IndexForColKey(column, value);
    if (alike > 0) {
      text += "; row " + std::to_string(alike) + " has " + Quoted(file->Table.GetCell(column, alike));
    }
    throw TFailure(text);
  }
  Context.Out << file->Table.ElementForField(name, value, resultName).ToUtf8() << '\n';
}

void RunSort(const TContext& Context) {
  const TArguments& args = Context.Args;
  TSortColumn by;
  const String name = String::FromUtf8(args.Needed("by").back());
  by.SortType = TypeOption(args, kComparable, vftString);
  by.SortDirection = args.Has("desc") ? -1 : 1;
  if (args.Has("format")) {
    if (by.SortType != vftDate && by.SortType != vftTime && by.SortType != vftDateTime) {
      throw TUsageError("--format goes with --type Date, Time and DateTime only");
    }
    by.DateTimeFormat = String::FromUtf8(args.Values("format").back());
  }
  CheckTarget(args.File(1));
  auto file = Load(Context);
  by.Index = ColumnNamed(Context, *file, 0, name);
  std::vector<TSortColumn> columns{by};
  for (const std::string& further : args.Values("stable-with")) {
    const int column = ColumnNamed(Context, *file, 0, String::FromUtf8(further));
    columns.push_back({.Index = column, .SortType = vftString, .SortDirection = 1, .DateTimeFormat = {}});
  }
  std::vector<const TVxStringList*> rows;
  for (int row = 1; row < file->Table.GetCount(); ++row) rows.push_back(file->Table.GetLines(row));
  std::vector<int> order{0};
  for (int index : OrderRows(rows, columns)) order.push_back(index + 1);
  file->Table.Arrange(order);
  Save(Context, file->Table, 1);
}

void RunMerge(const TContext& Context) {
  const TArguments& args = Context.Args;
  const String name = String::FromUtf8(args.Needed("key").back());
  if (args.File(0) == "-" && args.File(1) == "-") throw TUsageError("only one of INTO and FROM can be '-'");
  CheckTarget(args.File(2));
  auto into = Load(Context, 0);
  auto from = Load(Context, 1);
  (void)ColumnNamed(Context, *into, 0, name);  // an error if there is none
  NoteLosses(Context, into->Table, from->Table, ColumnNamed(Context, *from, 1, name));
  // A cell that a row has not could not take a value.
  into->Table.DoAll({camBalanceColcount});
  into->Table.AddContent(from->Table, name, args.Has("add-fields"));
  Save(Context, into->Table, 2);
}

void RunSelect(const TContext& Context) {
  const TArguments& args = Context.Args;
  const auto where = args.Needed("where");
  if (args.Values("where").size() > where.size()) throw TUsageError("--where stands twice; select once for each");
  const TVxFieldType type = TypeOption(args, kComparable, vftString);
  const size_t clause = ReadClause(where[1]);
  const String value = String::FromUtf8(where[2]);
  if (clause > 1 && !value.empty() && IsNoValue(value, type)) {
    throw TUsageError("--where: " + Quoted(value) + " is not of the type " + VxFieldTypeToText(type, false).ToUtf8());
  }
  LoadChangeSave(Context, [&](THeadCsv& table) {
    const int column = ColumnNamed(Context, table, args.File(0), String::FromUtf8(where[0]));
    KeepRows(table, column, TCondition(clause, value, type));
  });
}

void RunIni(const TContext& Context) {
  const TArguments& args = Context.Args;
  if (args.Has("separator")) throw TUsageError("ini reads files without separators");
  CheckTarget(args.File(1));
  TReading reading;
  reading.By = args.Has("foreign") ? rbForeignIni : rbIni;
  auto file = LoadTable(args.File(0), reading, Context.In, Context.Reporter);
  if (!file->Hint.empty()) Note(Context, 0, file->Hint + "; try --foreign");
  std::unordered_set<String> sections;
  for (int row = 1; row < file->Table.GetCount(); ++row) {
    const String section = file->Table.GetCell(0, row);
    if (sections.insert(UpperCase(section)).second) continue;
    Note(Context, 0, "the section " + section.ToUtf8() + " stands twice; both rows have the values of the first one");
    break;
  }
  Save(Context, file->Table, 1);
}

void RunUnique(const TContext& Context) {
  const TArguments& args = Context.Args;
  const String name = String::FromUtf8(args.Needed("col").back());
  CheckTarget(args.File(1));
  auto file = Load(Context);
  const int column = ColumnNamed(Context, *file, 0, name);
  TVxStringList cells;
  cells.SetCommatext(file->Table.FieldContentUnique(name));
  TFileCsv table;
  table.AddRow({file->Table.FieldName(column)});
  std::unordered_set<String> known;  // texts that differ in case may stand between equal ones
  for (const String& cell : cells.Items()) {
    if (known.insert(cell).second) table.AddRow({cell});
  }
  Save(Context, table, 1);
}

void RunVocab(const TContext& Context) {
  const TArguments& args = Context.Args;
  if (args.Has("foreign") || args.Has("separator")) throw TUsageError("vocab reads no file");
  TVxStringList keys, entries;
  keys.SetCommatext(SubtypeKeys());
  TFileCsv table;
  if (args.FileCount() > 0) {
    const String key = String::FromUtf8(args.File(0));
    if (keys.IndexOf(key) < 0) throw TFailure("there is no vocabulary " + Quoted(key) + "; vxtab vocab lists them");
    entries.SetCommatext(SubtypeIdContent(key));
    for (const String& entry : entries.Items()) table.AddRow(entry);
  } else {
    for (const String& key : keys.Items()) {
      entries.SetCommatext(SubtypeContent(key));
      table.AddRow({key, IntToStr(entries.GetCount())});
    }
  }
  TShowPart part;
  part.Rows = table.GetCount();
  part.CellWidth = 100;
  part.Width = Context.Terminal.Width;
  ShowTable(table, part, Context.Out);
}

}  // namespace vx::vxtab
