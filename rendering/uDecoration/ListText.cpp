// The serial form of a decoration list, and the same as a constant of a program's text.
#include <algorithm>

#include "core/uVxFunctionsSerialize/FontText.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Sorting.h"
#include "platform/Text.h"
#include "platform/TextBuffer.h"
#include "rendering/uDecoration/TDecorationList.h"
#include "rendering/uDecoration/detail/Letters.h"
#include "rendering/uDecoration/detail/SerialCells.h"

namespace vx {

namespace {

constexpr size_t kHeadCells = 20;
constexpr size_t kLeastCells = 19;
constexpr std::u16string_view kSeparators[] = {u"ÿ", u"'#255'", u"'#255"};

// The first separator of the kind that is written, else of an older one; the number of cells if there is none.
size_t FindSeparator(const TCells& Cells) {
  for (std::u16string_view separator : kSeparators) {
    const auto found = std::find(Cells.begin(), Cells.end(), separator);
    if (found != Cells.end()) return static_cast<size_t>(found - Cells.begin());
  }
  return Cells.size();
}

constexpr size_t kPasWidth = 80;
constexpr std::u16string_view kPasHeading = u"   Decorationsliste =";
constexpr std::u16string_view kPasFirst = u"        '";
constexpr std::u16string_view kPasNext = u"      + '";
constexpr std::u16string_view kPasBreak = u"'+#13+#10+'";

}  // namespace

String TDecorationList::GetCommatext() const {
  detail::TCellWriter writer(kHeadCells + 1 + static_cast<size_t>(GetCount()));
  writer.Text(iTitle);
  writer.Text(iSubTitle);
  writer.Color(iColor, clWhite);
  writer.Rect(iFixed);
  writer.Color(iFixedColor, clBtnFace);
  writer.Text(FontToString(iFont, true));
  for (int number : {iImageSpacing, iMarginHoriz, iMarginVerti, iMaxSubLines, iMinColWidth, iMinRowHeight}) {
    writer.Number(number);
  }
  writer.Color(iSelectionColor, clHighlight);
  writer.Text(detail::ToLetters(iTrimModes, detail::kTrimModeLetters));
  writer.Text(detail::ToLetters(iOptions, detail::kListOptionLetters));
  writer.Number(iZebraLines);
  writer.Number(iPrintPageColumns);
  writer.Text(kSeparators[0]);
  for (TObject* item : Items()) writer.Text(AsDecoration(item)->GetCommatext());
  return WriteCommatext(writer.Cells());
}

void TDecorationList::SetCommatext(std::u16string_view aText) {
  const TCells cells = ReadCommatext(aText);  // before the list is emptied, as the text may come from it
  Clear();
  const size_t separator = FindSeparator(cells);
  if (separator == cells.size()) {
    detail::TellRefused(u"Die Dekorationsliste", u"enthält keinen Trenner:", cells);
    return;
  }
  if (separator < kLeastCells) {
    Init();
    detail::TellRefused(u"Die Dekorationsliste",
                        Concat({u"hat ", IntToStr(static_cast<int>(separator)), u" statt 19 Felder:"}), cells);
    return;
  }
  const std::span<const String> all(cells);
  ReadHead(all.first(separator));
  ReadItems(all.subspan(separator + 1));
  RefreshRangeList();
}

void TDecorationList::ReadHead(std::span<const String> Cells) {
  detail::TRecordReader reader(Cells);
  iTitle = reader.Text();
  iSubTitle = reader.Text();
  iColor = reader.Color(clWhite);
  iFixed = reader.Rect(0);
  iFixedColor = reader.Color(clBtnFace);
  StringToFont(reader.Text(), iFont);
  iImageSpacing = reader.Number(1);
  iMarginHoriz = reader.Number(1);
  for (int* number : {&iMarginVerti, &iMaxSubLines, &iMinColWidth, &iMinRowHeight}) *number = reader.Number(0);
  iSelectionColor = reader.Color(clHighlight);
  iTrimModes = detail::FromLetters<TTrimMode>(reader.Text(), detail::kTrimModeLetters);
  iOptions = detail::FromLetters<TDecorationListOption>(reader.Text(), detail::kListOptionLetters);
  iZebraLines = reader.Number(0);
  iPrintPageColumns = reader.Number(0);
}

// What Add makes of the items one after the other, with a single sorting.
void TDecorationList::ReadItems(std::span<const String> Texts) {
  std::vector<std::unique_ptr<TDecoration>> cells;
  for (const String& text : Texts) {
    auto item = std::make_unique<TDecoration>(this);
    item->SetCommatext(text);
    if (item->GetRangeType() == rtCell) {
      cells.push_back(std::move(item));
    } else {
      TObjectList::Insert(iIndexFirstCell++, item.get());
      static_cast<void>(item.release());
    }
  }
  const auto isBefore = [&](size_t a, size_t b) { return cells[a]->IndexSort() < cells[b]->IndexSort(); };
  for (size_t index : StableOrder(cells.size(), isBefore)) {
    std::unique_ptr<TDecoration>& item = cells[index];
    TDecoration* last = GetCount() > iIndexFirstCell ? GetItems(GetCount() - 1) : nullptr;
    if (last && last->IndexSort() == item->IndexSort()) {
      CompressDecoration(*item, *last);
    } else {
      TObjectList::Add(item.get());
      static_cast<void>(item.release());
    }
  }
}

bool TDecorationList::SaveToFile(const String& aFileName) const {
  const std::string bytes = GetSystemCodePage().Encode(GetCommatext());
  TFileStream(aFileName, fmCreate | fmShareDenyWrite).WriteBuffer(bytes.data(), bytes.size());
  return true;
}

void TDecorationList::ExportPasFormat(TStrings* aStrings) const {
  if (!aStrings) return;
  aStrings->Clear();
  aStrings->Add(kPasHeading);
  const auto asLine = [](std::u16string_view text, std::u16string_view end) {
    return Concat({ReplaceAll(String(text), u"\r\n", kPasBreak), end});
  };
  const String text = GetCommatext();
  std::u16string line(kPasFirst);
  for (char16_t unit : text.view()) {
    line += unit;
    if (line.size() != kPasWidth) continue;
    const size_t comma = line.rfind(u',');
    const size_t cut = comma == line.npos ? kPasWidth : comma + 1;
    aStrings->Add(asLine(std::u16string_view(line).substr(0, cut), u"'"));
    line.replace(0, cut, kPasNext);
  }
  if (line == kPasNext) {
    const int last = aStrings->GetCount() - 1;
    aStrings->Put(last, Concat({aStrings->Get(last), u";"}));
  } else {
    aStrings->Add(asLine(line, u"';"));
  }
}

void TDecorationList::ImportPasFormat(const TStrings* aStrings) {
  if (!aStrings) return;
  TTextBuffer text;
  for (int i = 1; i < aStrings->GetCount(); ++i) {
    const String line = aStrings->Get(i);
    if (TrimView(line).empty()) break;
    const size_t first = line.view().find(u'\''), last = line.view().rfind(u'\'');
    if (first >= last) continue;
    text.Add(ReplaceAll(String(line.view().substr(first + 1, last - first - 1)), kPasBreak, u"\r\n").view());
  }
  SetCommatext(text.View());
}

}  // namespace vx
