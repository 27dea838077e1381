// What a look says, in words.
#include <iterator>
#include <ostream>
#include <string_view>
#include <utility>

#include "core/uConst.h"
#include "tools/vxtab/LookFiles.h"
#include "tools/vxtab/Show.h"

namespace vx::vxtab {

namespace {

template <typename E>
using TWord = std::pair<E, const char*>;

constexpr TWord<TAlign> kSides[] = {
    {alLeft, "left"}, {alRight, "right"}, {alTop, "top"}, {alBottom, "bottom"}, {alClient, "centre"}};
constexpr TWord<TFontStyle> kStyles[] = {
    {fsBold, "bold"}, {fsItalic, "italic"}, {fsUnderline, "underlined"}, {fsStrikeOut, "struck out"}};
constexpr TWord<TDecorationOption> kOptions[] = {{doCoupled, "one cell"}, {doZebraLine, "darkened"}};
constexpr TWord<TDecorationListOption> kListOptions[] = {{dloFixedVertLine, "vertical lines in the border"},
                                                         {dloFixedHorzLine, "horizontal lines in the border"},
                                                         {dloVertLine, "vertical lines"},
                                                         {dloHorzLine, "horizontal lines"},
                                                         {dloGridLines, "grid lines"},
                                                         {dloColumnClick, "heads that can be clicked"},
                                                         {dloRowSelect, "selection of rows"},
                                                         {dloNoSelect, "no selection"},
                                                         {dloDimensionBySet, "growing when written to"},
                                                         {dloBorder, "a line around"}};
constexpr TWord<TTrimMode> kTrimModes[] = {{tmNone, "sizes kept"},
                                           {tmCanvasWidthMax, "not wider than its place"},
                                           {tmCanvasWidthMin, "as wide as its place"},
                                           {tmCanvasHeightMax, "not higher than its place"},
                                           {tmCanvasHeightMin, "as high as its place"},
                                           {tmHideEmptyColumn, "empty columns hidden"},
                                           {tmHideEmptyRow, "empty rows hidden"},
                                           {tmHideEmptyColContent, "columns without content hidden"},
                                           {tmHideEmptyRowContent, "rows without content hidden"},
                                           {tmShowFullFixed, "border shown in full"},
                                           {tmBalanceWidth, "widths balanced"},
                                           {tmBalanceHeight, "heights balanced"},
                                           {tmHide, "hidden"},
                                           {tmNumberProtection, "numbers kept when cut"},
                                           {tmFitImage, "images as high as text"},
                                           {tmTrueCommatext, "empty lines kept"}};

// The words of all members, with commas between.
template <typename E, size_t kCount>
std::string Words(Set<E> Members, const TWord<E> (&Known)[kCount]) {
  std::string text;
  for (const auto& [member, word] : Known) {
    if (Members.Has(member)) text += (text.empty() ? "" : ", ") + std::string(word);
  }
  return text;
}

// "name: value", unless the value is empty.
void Tell(std::ostream& Out, const char* Name, const std::string& Value) {
  if (!Value.empty()) Out << Name << ": " << Value << '\n';
}

// The name of a colour, else "#RRGGBB".
std::string ColorWord(TColor Color) {
  const std::string text = ColorToString(Color).ToUtf8();  // otherwise "$00BBGGRR"
  return text[0] == '$' ? '#' + text.substr(7) + text.substr(5, 2) + text.substr(3, 2) : text;
}
std::string ColorWord(TColor Color, TColor Unset) { return Color == Unset ? std::string() : ColorWord(Color); }

std::string Font(const TFont& Font) {
  std::string text = Font.Name.ToUtf8() + ' ' + std::to_string(Font.Size);
  if (const std::string styles = Words(Font.Style, kStyles); !styles.empty()) text += ", " + styles;
  if (Font.Color != clWindowText) text += ", " + ColorWord(Font.Color);
  return text;
}

// What is set of four numbers, such as "1 left, 2 bottom".
std::string Sides(const TRect& Numbers) {
  const std::pair<int, const char*> sides[] = {
      {Numbers.Left, "left"}, {Numbers.Top, "top"}, {Numbers.Right, "right"}, {Numbers.Bottom, "bottom"}};
  std::string text;
  for (const auto& [number, side] : sides) {
    if (number != 0) text += (text.empty() ? "" : ", ") + std::to_string(number) + ' ' + side;
  }
  return text;
}

std::string Span(const char* One, const char* Many, int First, int Last) {
  if (First == Last) return One + (' ' + std::to_string(First));
  return Many + (' ' + std::to_string(First) + " to " + std::to_string(Last));
}

std::string Region(const TDecoration& Item) {
  const TRect& range = Item.GetRange();
  switch (Item.GetRangeType()) {
    case rtCell:
      return "cell " + std::to_string(range.Left) + ',' + std::to_string(range.Top);
    case rtColumn:
      return Span("column", "columns", range.Left, range.Right);
    case rtRow:
      return Span("row", "rows", range.Top, range.Bottom);
    case rtRect:
      return Span("column", "columns", range.Left, range.Right) + " in " + Span("row", "rows", range.Top, range.Bottom);
    case rtAll:
      return "all cells";
    case rtFixed:
      return "border";
    case rtContent:
      return "content";
    default:
      return "nowhere";
  }
}

// The parts of a decoration that are set, with "; " between.
class TItemText {
 public:
  explicit TItemText(const TDecoration& Item) {
    if (Item.GetFieldType() != vftUnknown) Add(VxFieldTypeToText(Item.GetFieldType(), false).ToUtf8());
    if (!Item.GetFormatString().empty()) Add("as " + Quoted(Item.GetFormatString()));
    Add(Words(Item.GetAlignSet(), kSides));
    if (Item.GetTextAngle() == taVert) Add("upward");
    AddNamed("background ", ColorWord(Item.GetColor(), clWhite));
    if (Item.GetFontOwner()) Add("font " + Font(Item.GetFont()));
    if (Item.GetImageIndex() >= 0) Add("image " + std::to_string(Item.GetImageIndex()));
    AddNamed("image ", Words(Item.GetImageAlignSet(), kSides));
    AddNamed("stripes ", Sides(Item.GetSelectRange()));
    Add(Words(Item.GetOptions(), kOptions));
    Add(Words(Item.GetTrimModes(), kTrimModes));
    AddLimits("width", Item.GetWidthMin(), Item.GetWidthMax());
    AddLimits("height", Item.GetHeightMin(), Item.GetHeightMax());
    if (FText.empty()) FText = "nothing set";
  }
  const std::string& GetText() const noexcept { return FText; }

 private:
  void Add(const std::string& Part) {
    if (!Part.empty()) FText += (FText.empty() ? "" : "; ") + Part;
  }
  void AddNamed(const char* Name, const std::string& Value) {
    if (!Value.empty()) Add(Name + Value);
  }
  void AddLimits(const char* Name, int Least, int Most) {
    if (Least >= 0) Add(std::string(Name) + " at least " + std::to_string(Least));
    if (Most >= 0) Add(std::string(Name) + " at most " + std::to_string(Most));
  }
  std::string FText;
};

std::string NumberUnless(int Number, int Unset) { return Number == Unset ? std::string() : std::to_string(Number); }

}  // namespace

void TellLook(const TDecorationList& Look, std::ostream& Out) {
  Tell(Out, "title", Look.GetTitle().ToUtf8());
  Tell(Out, "subtitle", Look.GetSubTitle().ToUtf8());
  Tell(Out, "fixed", Sides(Look.GetFixed()));
  Tell(Out, "font", Font(Look.GetFont()));
  Tell(Out, "background", ColorWord(Look.GetColor(), clWhite));
  Tell(Out, "background of the border", ColorWord(Look.GetFixedColor(), clWhite));
  Tell(Out, "darker rows, every", NumberUnless(Look.GetZebraLines(), 0));
  Tell(Out, "with", Words(Look.GetOptions(), kListOptions));
  Tell(Out, "sizes", Words(Look.GetTrimModes(), kTrimModes));
  Tell(Out, "most lines in a cell", NumberUnless(Look.GetMaxSubLines(), 0));
  Tell(Out, "columns at least", NumberUnless(Look.GetMinColWidth(), 0));
  Tell(Out, "rows at least", NumberUnless(Look.GetMinRowHeight(), 0));
  Tell(Out, "strips on a page", NumberUnless(Look.GetPrintPageColumns(), 0));
  for (int i = 0; i < Look.GetCount(); ++i) {
    Out << Region(*Look.GetItems(i)) << ": " << TItemText(*Look.GetItems(i)).GetText() << '\n';
  }
}

}  // namespace vx::vxtab
