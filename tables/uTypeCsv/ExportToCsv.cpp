// A typed table as a plain one of what is visible.
#include <optional>

#include "core/uVxFunctionsSerialize/Explode.h"
#include "platform/Numbers.h"
#include "platform/TextForms.h"
#include "rendering/uVxTinyHTML/Converters.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx {

namespace {

constexpr char16_t kLineBreak[] = u"\n";

// What the cells of a table hold that is written in another way than it looks.
class TVisibleText {
 public:
  explicit TVisibleText(const std::unordered_map<int, String>* Images) noexcept : FImages(Images) {}

  static bool Turns(TVxFieldType Type) noexcept {
    return Type == vftCommatext || Type == vftImage || Type == vftTinyHTML || Type == vftToggle;
  }

  String Of(const String& Cell, const TDecoration& Look) const {
    switch (Look.GetFieldType()) {
      case vftCommatext:
        return implode(ReadCommatext(Cell), kLineBreak);
      case vftTinyHTML:
        return HTML2Text(Cell, kLineBreak);
      case vftImage:
      case vftToggle:
        return Names(Cell, dynamic_cast<const TVxImageList*>(Look.GetImageList()));
      default:
        return Cell;
    }
  }

 private:
  String Names(const String& Indexes, const TVxImageList* List) const {
    TCells lines;
    for (const String& cell : ReadCommatext(Indexes)) {
      const std::optional<String> name = NameOf(cell, List);
      if (!name || !name->empty()) lines.push_back(name.value_or(cell));
    }
    return implode(lines, kLineBreak);
  }

  std::optional<String> NameOf(const String& Index, const TVxImageList* List) const {
    int index;
    if (!TryStrToInt(Index, index)) return std::nullopt;
    if (FImages) {
      const auto found = FImages->find(index);
      return found == FImages->end() ? std::nullopt : std::optional(found->second);
    }
    return List && index >= 0 && index < List->GetCount() ? std::optional(List->GetItems(index)) : std::nullopt;
  }

  const std::unordered_map<int, String>* FImages;
};

}  // namespace

std::unique_ptr<TFileCsv> TTypeCsv::ExportToCsv(const std::unordered_map<int, String>* Images, bool Copy) const {
  bool turns = false;
  for (int i = 0; i + 1 < iDecorations->GetCount(); ++i) {
    turns = turns || TVisibleText::Turns(iDecorations->GetItems(i)->GetFieldType());
  }
  if (!turns && !Copy) return nullptr;
  auto result = std::make_unique<TFileCsv>();
  result->AddFileCsv(*this);
  if (!turns) return result;
  const TVisibleText text(Images);
  const std::unique_ptr<TDecorationList> look = iDecorations->DuplicateHead();
  for (int row = 0; row < GetCount(); ++row) {
    for (int col = 0; col < GetLines(row)->GetCount(); ++col) {
      const String cell = GetLines(row)->Get(col);
      if (cell.empty()) continue;
      iDecorations->VirtualListForCell(col, row, *look);
      const std::unique_ptr<TDecoration> decoration = look->Compress();
      if (TVisibleText::Turns(decoration->GetFieldType())) result->SetCell(col, row, text.Of(cell, *decoration));
    }
  }
  return result;
}

}  // namespace vx
