#include "tables/uTypeCsv/RenderLegend.h"

#include <algorithm>
#include <set>
#include <vector>

#include "platform/Numbers.h"
#include "platform/TextForms.h"

namespace vx {

namespace {

constexpr char16_t kTitle[] = u"Legende";
// Letters that fit side by side.
constexpr int64_t kPortraitWidth = 120, kLandscapeWidth = 180;

// The images of one list that a table shows.
struct TUsedImages {
  TVxImageList* List;
  std::set<int> Indexes;
};

void Note(const String& Cell, const TDecoration& Look, std::vector<TUsedImages>& Used) {
  auto* list = dynamic_cast<TVxImageList*>(Look.GetImageList());
  const bool isImage = Look.GetFieldType() == vftImage;
  if (list == nullptr || (!isImage && Look.GetImageIndex() < 0)) return;
  auto images = std::ranges::find(Used, list, &TUsedImages::List);
  if (images == Used.end()) images = Used.insert(images, {list, {}});
  const auto add = [&](int index) {
    if (index >= 0 && index < list->GetCount()) images->Indexes.insert(index);
  };
  if (isImage) {
    for (const String& index : ReadCommatext(Cell)) add(StrToIntDef(index, -1));
  }
  add(Look.GetImageIndex());
}

std::vector<TUsedImages> FindImages(const TTypeCsv& Table) {
  std::vector<TUsedImages> result;
  TDecorationList& decorations = Table.GetDecorations();
  const std::unique_ptr<TDecorationList> look = decorations.DuplicateHead();
  for (int row = 0; row < Table.GetCount(); ++row) {
    for (int col = 0; col < Table.GetLines(row)->GetCount(); ++col) {
      const String cell = Table.GetCell(col, row);
      if (cell.empty()) continue;
      decorations.VirtualListForCell(col, row, *look);
      Note(cell, *look->Compress(), result);
    }
  }
  return result;
}

int CountColumns(const std::vector<TUsedImages>& Images, const TStrings* Texts, TDecorationOrientation Orientation) {
  int64_t count = 0, letters = 0;
  for (const TUsedImages& images : Images) {
    for (int index : images.Indexes) {
      ++count;
      letters += images.List->GetItems(index).size();
    }
  }
  for (int i = 0; Texts != nullptr && i < Texts->GetCount(); ++i) {
    ++count;
    letters += Texts->Get(i).size();
  }
  if (count == 0) return 0;
  const int64_t width = letters * 12 / (count * 10);
  if (width == 0) return 1;
  return static_cast<int>(
      std::max<int64_t>((Orientation == dorLandscape ? kLandscapeWidth : kPortraitWidth) / width, 1));
}

void SetOwnFont(TDecoration& Decoration, TFontStyles Style) {
  Decoration.SetFontOwner(true);
  TFont font = Decoration.GetFont();
  font.Size = 8;
  font.Style = Style;
  Decoration.SetFont(font);
}

// The table with its title, and the cells that are put in one behind the other.
class TLegend {
 public:
  explicit TLegend(int Columns) : FTable(std::make_unique<TTypeCsv>()), FColumns(Columns) {
    TDecorationList& decorations = FTable->GetDecorations();
    TFont font = decorations.GetFont();
    font.Size = 10;
    decorations.SetFont(font);
    decorations.SetMarginHoriz(4);
    decorations.SetMarginVerti(4);
    decorations.SetFixed(0, 1, 0, 0);
    decorations.SetFixedColor(clBtnFace);
    SetOwnFont(*decorations.GetRange(rtAll, -1, -1, -1, -1, true), {});
    Add(kTitle);
    SetOwnFont(*decorations.CreateRange(rtRow, -1, 0, -1, 0), {fsBold});
  }
  void NewRow() noexcept { FCol = FColumns; }
  // Gives the place of the text.
  TPoint Add(const String& Text) {
    if (FTable->GetCount() == 0 || FCol == FColumns) {
      FTable->AddEmpty(FColumns);
      FCol = 0;
    }
    const TPoint place{FCol++, FTable->GetCount() - 1};
    FTable->SetCell(place.X, place.Y, Text);
    return place;
  }
  void Add(const TUsedImages& Images) {
    NewRow();
    for (int index : Images.Indexes) {
      const TPoint place = Add(Images.List->GetItems(index));
      TDecoration* decoration = FTable->GetDecorations().GetCell(place.X, place.Y, true);
      decoration->SetImageList(Images.List);
      decoration->SetImageIndex(index);
    }
  }
  std::unique_ptr<TTypeCsv> Take() { return std::move(FTable); }

 private:
  std::unique_ptr<TTypeCsv> FTable;
  int FColumns;
  int FCol = 0;
};

}  // namespace

bool RenderLegend(const TTypeCsv& Table, TDecorationOrientation Orientation, std::unique_ptr<TTypeCsv>& Legend,
                  const TStrings* Texts) {
  Legend.reset();
  const std::vector<TUsedImages> images = FindImages(Table);
  const int columns = CountColumns(images, Texts, Orientation);
  if (columns == 0) return false;
  TLegend legend(columns);
  for (const TUsedImages& used : images) legend.Add(used);
  legend.NewRow();
  for (int i = 0; Texts != nullptr && i < Texts->GetCount(); ++i) legend.Add(Texts->Get(i));
  Legend = legend.Take();
  return true;
}

}  // namespace vx
