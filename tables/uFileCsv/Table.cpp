// Rows, columns, look-up and transformations of the table.
#include <algorithm>
#include <vector>

#include "platform/Collation.h"
#include "platform/Dialogs.h"
#include "platform/Exceptions.h"
#include "platform/Text.h"
#include "tables/uFileCsv.h"
#include "tables/uFileCsv/detail/ColumnScan.h"
#include "tables/uFileCsv/detail/RowMemory.h"
#include "tables/uTypeCsv.h"

namespace vx {

using detail::FindInColumn;
using detail::SameTextAs;
using detail::SortedUnique;

namespace {

// The cell of a row, empty past its end. Col must not be negative.
const String& CellOrEmpty(const TVxStringList& Row, int Col) {
  static const String empty;
  std::span<const String> cells = Row.Items();
  return static_cast<size_t>(Col) < cells.size() ? cells[static_cast<size_t>(Col)] : empty;
}

String WithoutLineBreaks(const String& Text) {
  auto isBreak = [](char16_t unit) { return unit == u'\r' || unit == u'\n'; };
  if (std::none_of(Text.begin(), Text.end(), isBreak)) return Text;
  String result = Text;
  std::replace_if(result.MutableData(), result.MutableData() + result.size(), isBreak, u' ');
  return result;
}

String PaddedTo(const String& Text, int Length) {
  if (Text.size() >= Length) return Text;
  String result = Text;
  result.Reserve(Length);
  result += String(Length - Text.size(), u' ');
  return result;
}

bool IsBlank(const String& Text) { return TrimView(Text).empty(); }

}  // namespace

TVxStringList* detail::CastRow(TObject* Entry) {
  if (auto* row = dynamic_cast<TVxStringList*>(Entry)) return row;
  throw EInvalidCast(
      Concat({u"An entry of the table is not a TVxStringList but ", Entry ? Entry->ClassName() : u"nil"}));
}

std::span<TObject* const> TFileCsv::ItemsFrom(int First) const {
  if (First < 0) throw EArgumentException(u"A walk from before the first row");
  return Items().subspan(static_cast<size_t>(std::min(First, GetCount())));
}

TColumnRange TFileCsv::Column(int Col, int First) const {
  if (Col < 0) throw EArgumentException(u"A walk before the first column");
  return {ItemsFrom(First), {Col}};
}

std::unique_ptr<TFileCsv> TFileCsv::GetNewInstance() const { return std::make_unique<TFileCsv>(); }

int TFileCsv::FieldCount() const { return GetCount() > 0 ? GetLines(0)->GetCount() : 0; }

int TFileCsv::AddRow(std::u16string_view Commatext) {
  auto row = std::make_unique<TVxStringList>();
  row->SetCommatext(Commatext);
  return AddNew(std::move(row));
}

int TFileCsv::AddRow(std::span<const String> Cells) {
  auto row = std::make_unique<TVxStringList>();
  row->SetCapacity(static_cast<int>(Cells.size()));
  row->AddStrings(Cells);
  return AddNew(std::move(row));
}

int TFileCsv::AddRow(std::initializer_list<TNewText> Cells) {
  const std::vector<String> cells(Cells.begin(), Cells.end());
  return AddRow(std::span<const String>(cells));
}

int TFileCsv::AddEmpty(int Count) {
  std::vector<String> cells(static_cast<size_t>(Count < 0 ? FieldCount() : Count));
  return AddRow(cells);
}

void TFileCsv::AddFileCsv(const TFileCsv& Other) {
  int count = Other.GetCount();  // read once: Other may be this table
  detail::TRowMemory memory(count >= detail::TRowMemory::ManyRows);
  AddMany([&] {
    for (int i = 0; i < count; ++i) {
      auto copy = memory.NewRow();
      copy->Assign(*Other.GetLines(i));
      AddNew(std::move(copy));
    }
  });
}

void TFileCsv::AddAndFree(std::unique_ptr<TFileCsv> Other) {
  if (!Other) return;
  bool isOwned = Other->GetOwnsObjects();
  Other->SetOwnsObjects(false);
  AddMany([&] {
    int i = 0;
    try {
      for (; i < Other->GetCount(); ++i) Add(Other->Get(i));
    } catch (...) {
      if (i < Other->GetCount() && IndexOf(Other->Get(i)) >= 0) ++i;  // it came in before a derived class raised
      for (; isOwned && i < Other->GetCount(); ++i) delete Other->Get(i);
      throw;
    }
  });
}

void TFileCsv::Assign(const TFileCsv& Source) {
  if (&Source == this) return;
  int count = Source.GetCount();
  if (count > GetCapacity()) SetCapacity(count);
  detail::TRowMemory memory(count - GetCount() >= detail::TRowMemory::ManyRows);
  for (int i = 0; i < count; ++i) {
    if (i < GetCount()) {
      GetLines(i)->Assign(*Source.GetLines(i));
    } else {
      auto row = memory.NewRow();
      row->Assign(*Source.GetLines(i));
      AddInPlace(std::move(row));
    }
  }
  while (GetCount() > count) Delete(GetCount() - 1);
}

std::unique_ptr<TFileCsv> TFileCsv::Duplicate() const {
  std::unique_ptr<TFileCsv> result = GetNewInstance();
  result->Assign(*this);
  return result;
}

bool TFileCsv::IsPlain() const noexcept {
  static const std::type_info* const kPlain[] = {&typeid(TFileCsv), &typeid(THeadCsv), &typeid(TSortCsv),
                                                 &typeid(TTypeCsv), &typeid(TCsvView)};
  const std::type_info* type = &typeid(*this);
  // One address is the usual case; classes of another library may have their names elsewhere.
  return std::find(std::begin(kPlain), std::end(kPlain), type) != std::end(kPlain) ||
         std::any_of(std::begin(kPlain), std::end(kPlain), [type](const auto* plain) { return *plain == *type; });
}

// Each row leaves its own place, as a derived class's Delete sees it.
template <typename F>
int TFileCsv::DeleteWhere(F IsGone) {
  const TDeleteScope scope(*this);
  int gone = 0;
  for (int row = GetCount(); row-- > 0;) {
    if (row >= GetCount() || !IsGone(row)) continue;  // a derived class may have deleted more
    Delete(row);
    ++gone;
  }
  return gone;
}

int TFileCsv::RemoveEmpty() {
  return DeleteWhere([this](int row) {
    std::span<const String> cells = GetLines(row)->Items();
    // The commatext of cells that are all empty is one comma fewer than the cells.
    return cells.size() >= 2 && std::ranges::all_of(cells, &String::empty);
  });
}

String TFileCsv::GetCell(int Col, int Row) const {
  const String* cell = FindCell(Col, Row);
  return cell ? *cell : String();
}

void TFileCsv::SetCell(int Col, int Row, const String& Text) {
  if (Row >= GetCount()) return;
  FetchAhead(Get(Row), Col);
  TVxStringList* line = GetLines(Row);
  if (Col < static_cast<int>(line->Items().size())) line->Put(Col, Text);
}

TObject* TFileCsv::GetObject(int Col, int Row) const {
  if (Row >= GetCount() || Col >= GetLines(Row)->GetCount()) return nullptr;
  return GetLines(Row)->GetObject(Col);
}

void TFileCsv::SetObject(int Col, int Row, TObject* Object) {
  if (Row >= GetCount() || Col >= GetLines(Row)->GetCount()) return;
  GetLines(Row)->PutObject(Col, Object);
}

String TFileCsv::getElement(int Col, int Row, const String& NoColValue, const String& NoRowValue) const {
  if (Row < 0 || Row >= GetCount()) return NoRowValue;
  const TVxStringList* line = GetLines(Row);
  if (Col < 0 || Col >= line->GetCount()) return NoColValue;
  return line->Get(Col);
}

void TFileCsv::DeleteCol(int Col) {
  if (Col < 0) return;
  for (int i = 0; i < GetCount(); ++i) {  // the objects of cells may change the table when they go
    auto* row = dynamic_cast<TVxStringList*>(Get(i));
    if (row && Col < row->GetCount()) row->Delete(Col);
  }
}

void TFileCsv::ClearCol(int Col) {
  if (Col < 0) return;
  for (int i = 0; i < GetCount(); ++i) {
    auto* row = dynamic_cast<TVxStringList*>(Get(i));
    if (row && Col < row->GetCount()) row->Put(Col, String());
  }
}

void TFileCsv::ClearContent() {
  for (int row = 0; row < GetCount(); ++row) {
    TVxStringList* line = GetLines(row);
    for (int col = 0; col < line->GetCount(); ++col) {
      bool isKept = row == 0 && col == line->GetCount() - 1;
      line->PutObject(col, nullptr);
      line->Put(col, isKept ? u" " : u"");
    }
  }
}

String TFileCsv::ColumnContent(int Col) const {
  if (Col < 0) return {};
  TCells cells;
  cells.reserve(static_cast<size_t>(GetCount()));
  for (int row = 0; row < GetCount(); ++row) cells.push_back(Trim(CellOrEmpty(*GetLines(row), Col)));
  return WriteCommatext(cells);
}

String TFileCsv::ColumnContentUnique(int Col) const { return SortedUnique(ColumnContent(Col)); }

int TFileCsv::IndexForColKey(int Col, std::u16string_view Key) const {
  if (Col < 0) return -1;
  return FindInColumn(Items(), 0, Col, AsRow, SameTextAs(Key));
}

TVxStringList* TFileCsv::ItemForColKey(int Col, std::u16string_view Key) const {
  int row = IndexForColKey(Col, Key);
  return row < 0 ? nullptr : GetLines(row);
}

String TFileCsv::ElementForColKey(int KeyCol, std::u16string_view Key, int ResultCol, const String& Default) const {
  return getElement(ResultCol, IndexForColKey(KeyCol, Key), Default, Default);
}

String TFileCsv::ElementForKey(int KeyCol, std::u16string_view Key, int ResultCol, const String& Default) const {
  return ElementForColKey(KeyCol, Key, ResultCol, Default);
}

void TFileCsv::DoAll(TCsvAllModes Modes) {
  if (GetCount() == 0) return;
  std::vector<int> widths;
  if (Modes.Has(camUnTrim)) {
    for (int row = 0; row < GetCount(); ++row) {
      std::span<const String> cells = GetLines(row)->Items();
      if (cells.size() > widths.size()) widths.resize(cells.size());
      for (size_t col = 0; col < cells.size(); ++col) widths[col] = std::max(widths[col], cells[col].size());
    }
  }
  int target = 0;
  if (Modes.Has(camBalanceColcount)) {
    target = FieldCount();
    for (int row = 0; Modes.Has(camBalanceMax) && row < GetCount(); ++row) {
      target = std::max(target, GetLines(row)->GetCount());
    }
  }
  DeleteWhere([&](int row) { return DoRow(row, Modes, target, widths) && Modes.Has(camDeleteEmptyLines); });
}

bool TFileCsv::DoRow(int Row, TCsvAllModes Modes, int Width, std::span<const int> CellWidths) {
  TVxStringList* line = GetLines(Row);
  if (line->GetCount() < Width) line->SetCapacity(std::max(line->GetCapacity(), Width));
  while (line->GetCount() < Width) line->InsertItem(line->GetCount(), String(), nullptr);
  bool isEmpty = true;
  for (int col = 0; col < line->GetCount(); ++col) {
    String before = line->Get(col);
    String cell = before;
    if (Modes.Has(camDeleteEnter)) cell = WithoutLineBreaks(cell);
    if (Modes.Has(camTrim)) cell = Trim(cell);
    if (Modes.Has(camUnTrim) && static_cast<size_t>(col) < CellWidths.size()) {
      cell = PaddedTo(cell, CellWidths[static_cast<size_t>(col)]);
    }
    if (Modes.Has(camThousandDivider)) cell = WithThousandDivider(cell);
    if (!(cell == before)) line->Put(col, cell);
    isEmpty = isEmpty && IsBlank(cell);
  }
  return isEmpty;
}

std::unique_ptr<TFileCsv> TFileCsv::TurnAxis() const {
  std::unique_ptr<TFileCsv> result = GetNewInstance();
  int columns = FieldCount();
  int rows = GetCount();
  std::vector<const TVxStringList*> lines;
  lines.reserve(static_cast<size_t>(rows));
  for (int row = 0; row < rows; ++row) lines.push_back(GetLines(row));
  TCells cells(static_cast<size_t>(rows));
  for (int col = 0; col < columns; ++col) {
    for (size_t row = 0; row < lines.size(); ++row) cells[row] = CellOrEmpty(*lines[row], col);
    auto turned = std::make_unique<TVxStringList>();
    turned->TakeCells(cells);
    result->AddInPlace(std::move(turned));
  }
  return result;
}

void TFileCsv::ShowContent() const {
  String text;
  for (int row = 0; row < GetCount(); ++row) {
    text += GetLines(row)->GetCommatext();
    text += u"\r\n";
  }
  ShowMessage(text);
}

int TFileCsv::AddNew(std::unique_ptr<TVxStringList> Row) {
  try {
    int index = Add(Row.get());
    // A derived class may have put its cells into another row; one that it does not own is freed here then.
    bool isTaken = GetOwnsObjects() || index < 0 || Get(index) == Row.get();
    if (isTaken) (void)Row.release();  // the table has it
    return index;
  } catch (...) {
    if (IndexOf(Row.get()) >= 0) (void)Row.release();  // it came in before a derived class raised
    throw;
  }
}

}  // namespace vx
