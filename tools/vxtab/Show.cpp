#include "tools/vxtab/Show.h"

#include <algorithm>
#include <iterator>
#include <ostream>

#include "tools/vxtab/CodePoints.h"

namespace vx::vxtab {

namespace {

constexpr int kPipeWidth = 4096;  // of a line where there is no terminal

struct TRange {
  char32_t First, Last;
};

constexpr TRange kCombining[] = {{0x300, 0x36F},   {0x483, 0x489},   {0x591, 0x5BD},    {0x610, 0x61A},
                                 {0x64B, 0x65F},   {0x6D6, 0x6DC},   {0x93A, 0x93A},    {0x93C, 0x93C},
                                 {0x941, 0x948},   {0x94D, 0x94D},   {0xE31, 0xE31},    {0xE34, 0xE3A},
                                 {0xE47, 0xE4E},   {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF},  {0x20D0, 0x20FF},
                                 {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xE0100, 0xE01EF}};
constexpr TRange kWide[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},  {0x3041, 0x4DBF},   {0x4E00, 0xA4CF},
                            {0xA960, 0xA97F},   {0xAC00, 0xD7A3},  {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},
                            {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},  {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF},
                            {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};
// Characters that are not to be seen, or that change how others are drawn.
constexpr TRange kInvisible[] = {{0x80, 0x9F},     {0x61C, 0x61C},   {0x200B, 0x200F}, {0x2028, 0x202E},
                                 {0x2060, 0x206F}, {0xD800, 0xDFFF}, {0xFEFF, 0xFEFF}, {0xFFFE, 0xFFFF}};

template <size_t kCount>
bool IsIn(const TRange (&Ranges)[kCount], char32_t CodePoint) {
  auto found = std::partition_point(std::begin(Ranges), std::end(Ranges), [=](TRange r) { return r.Last < CodePoint; });
  return found != std::end(Ranges) && found->First <= CodePoint;
}

// The text shown for one character.
std::string Picture(char32_t CodePoint, int& Width) {
  std::string picture;
  Width = 1;
  if (CodePoint < 0x20 || CodePoint == 0x7F) {
    AppendUtf8(picture, CodePoint == 0x7F ? 0x2421 : 0x2400 + CodePoint);
  } else if (IsIn(kInvisible, CodePoint)) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    picture = "‹";
    int shift = CodePoint > 0xFF ? 12 : 4;
    Width = 2 + shift / 4 + 1;
    for (; shift >= 0; shift -= 4) picture += kDigits[CodePoint >> shift & 15];
    picture += "›";
  } else {
    AppendUtf8(picture, CodePoint);
    Width = DisplayWidth(CodePoint);
  }
  return picture;
}

int Digits(int Number) { return static_cast<int>(std::to_string(Number).size()); }

// Writes cells behind one another, each with Text in Width columns.
class TLinePrinter {
 public:
  explicit TLinePrinter(std::ostream& Out) : FOut(Out) {}

  void Cell(const std::string& Text, int TextWidth, int Width, std::string_view Before) {
    Pad();
    FOut << Before << Text;
    FBlanks = Width - TextWidth;
  }
  void Rule(int Width, std::string_view Before) { FOut << Before << std::string(static_cast<size_t>(Width), '-'); }
  void End() {
    FOut << '\n';
    FBlanks = 0;
  }

 private:
  // Blanks come only before further text, so that no line ends in blanks.
  void Pad() {
    FOut << std::string(static_cast<size_t>(FBlanks), ' ');
    FBlanks = 0;
  }
  std::ostream& FOut;
  int FBlanks = 0;
};

struct TColumn {
  int Index, Width;
};

// The columns that fit, with their widths; the last one may be narrowed.
std::vector<TColumn> Fit(const TFileCsv& Table, std::span<const int> Columns, int MaxCell, int From, int Last,
                         int Room) {
  std::vector<TColumn> result;
  for (int column : Columns) {
    int width = Digits(column);
    for (int row = From; row < Last; ++row) {
      auto cells = Table.GetLines(row)->Items();
      if (static_cast<size_t>(column) >= cells.size()) continue;
      int cellWidth;
      VisibleText(cells[static_cast<size_t>(column)], MaxCell, cellWidth);
      width = std::max(width, cellWidth);
    }
    Room -= 3;
    if (Room < 1) break;
    result.push_back({column, std::min(width, Room)});
    Room -= width;
  }
  return result;
}

}  // namespace

int DisplayWidth(char32_t CodePoint) noexcept {
  if (CodePoint < 0x300) return 1;
  if (IsIn(kCombining, CodePoint)) return 0;
  return IsIn(kWide, CodePoint) ? 2 : 1;
}

std::string VisibleText(std::u16string_view Text, int Limit, int& Width) {
  std::string result;
  size_t cut = 0;  // where the text ends if "…" has to follow
  int cutWidth = 0;
  int marks = 0;
  Width = 0;
  for (size_t pos = 0; pos < Text.size();) {
    int width;
    std::string picture = Picture(NextCodePoint(Text, pos), width);
    marks = width == 0 ? marks + 1 : 0;
    if (Width + width > Limit || marks > 8) {
      result.resize(cut);
      Width = cutWidth + 1;
      return result + "…";
    }
    result += picture;
    Width += width;
    if (Width < Limit) {
      cut = result.size();
      cutWidth = Width;
    }
  }
  return result;
}

std::string Quoted(std::u16string_view Text) {
  int width;
  return "'" + VisibleText(Text, 40, width) + "'";
}

void ShowTable(const TFileCsv& Table, const TShowPart& Part, std::ostream& Out) {
  const int lineWidth = Part.Width > 0 ? std::max(Part.Width, 8) : kPipeWidth;
  const int from = std::min(Part.From, Table.GetCount());
  const int last = from + std::min(Part.Rows, Table.GetCount() - from);
  std::vector<int> columns = Part.Columns;
  int all = static_cast<int>(columns.size());
  if (columns.empty()) {
    for (int row = from; row < last; ++row) all = std::max(all, Table.GetLines(row)->GetCount());
    // No more can fit, whatever they hold.
    for (int column = 0; column < std::min(all, lineWidth / 3); ++column) columns.push_back(column);
  }
  const int numberWidth = Digits(std::max(last - 1, 0));
  const std::vector<TColumn> fitting = Fit(Table, columns, Part.CellWidth, from, last, lineWidth - numberWidth);
  TLinePrinter line(Out);
  line.Cell("", 0, numberWidth, "");
  for (TColumn column : fitting) {
    int width;
    std::string number = VisibleText(String::FromUtf8(std::to_string(column.Index)), column.Width, width);
    line.Cell(number, width, column.Width, " | ");
  }
  line.End();
  line.Rule(numberWidth, "");
  for (TColumn column : fitting) line.Rule(column.Width, "-+-");
  line.End();
  for (int row = from; row < last; ++row) {
    line.Cell(std::string(static_cast<size_t>(numberWidth - Digits(row)), ' ') + std::to_string(row), numberWidth,
              numberWidth, "");
    auto cells = Table.GetLines(row)->Items();
    auto isThere = [&](TColumn column) { return static_cast<size_t>(column.Index) < cells.size(); };
    // A row ends behind the last cell that it has.
    auto end = std::find_if(fitting.rbegin(), fitting.rend(), isThere).base();
    for (TColumn column : std::span(fitting.begin(), end)) {
      int width = 0;
      std::string text;
      if (isThere(column)) {
        text = VisibleText(cells[static_cast<size_t>(column.Index)], std::min(column.Width, Part.CellWidth), width);
      }
      line.Cell(text, width, column.Width, " | ");
    }
    line.End();
  }
  int shown = static_cast<int>(fitting.size());
  if (last - from < Table.GetCount() || shown < all) {
    Out << "(" << last - from << " of " << Table.GetCount() << " rows, " << shown << " of " << all << " columns)\n";
  }
}

}  // namespace vx::vxtab
