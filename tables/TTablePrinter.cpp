#include "tables/TTablePrinter.h"

#include <algorithm>
#include <cmath>

#include "platform/DateText.h"
#include "platform/Format.h"
#include "platform/TCanvas.h"
#include "rendering/uDecoration/TDecoratorCanvas.h"
#include "tables/detail/PagePlan.h"
#include "tables/uTypeCsv/RenderLegend.h"

namespace vx {

namespace {

constexpr int kGap = 3;                           // millimetres between headings, table, legend and strips
constexpr int kFootSize = 8;                      // points
constexpr int kTitleMore = 4, kSubTitleMore = 1;  // points above those of the table's font

int Pixels(int Millimetres, int PixelsPerInch) noexcept {
  return static_cast<int>(std::lround(Millimetres * PixelsPerInch / 25.4));
}

// The page without its margins.
TRect Inside(TPoint PageSize, const TRect& Margins, TPoint PixelsPerInch) noexcept {
  const TRect page{0, 0, PageSize.X, PageSize.Y};
  const TRect inside{Pixels(Margins.Left, PixelsPerInch.X), Pixels(Margins.Top, PixelsPerInch.Y),
                     PageSize.X - Pixels(Margins.Right, PixelsPerInch.X),
                     PageSize.Y - Pixels(Margins.Bottom, PixelsPerInch.Y)};
  return IntersectRect(page, inside).IsEmpty() ? page : inside;
}

TDecorationDevice DeviceOf(const TCanvas& Canvas) noexcept {
  return Canvas.GetKind() == dkScreen ? ddScreen : Canvas.GetKind() == dkPrinter ? ddPrinter : ddMetafile;
}

// Has a list of decorations made for the canvas, while it lives.
class TDeviceScope {
 public:
  TDeviceScope(TDecorationList& List, const TCanvas& Canvas) noexcept
      : FList(List), FDevice(List.GetDevice()), FHoverIndex(List.GetHoverIndex()) {
    List.SetDevice(DeviceOf(Canvas));
    List.SetHoverIndex(-1);
  }
  ~TDeviceScope() {
    FList.SetDevice(FDevice);
    FList.SetHoverIndex(FHoverIndex);
  }
  TDeviceScope(const TDeviceScope&) = delete;
  TDeviceScope& operator=(const TDeviceScope&) = delete;

 private:
  TDecorationList& FList;
  const TDecorationDevice FDevice;
  const int FHoverIndex;
};

// Sizes with the line behind each column and row.
std::vector<int> WithLines(const std::vector<int>& Sizes, const TDecorationList& List) {
  std::vector<int> result(Sizes.size());
  const int line = TDecoratorCanvas::LineOf(List);
  std::transform(Sizes.begin(), Sizes.end(), result.begin(), [line](int size) { return size > 0 ? size + line : 0; });
  return result;
}

int Total(const std::vector<int>& Sizes, int First, int End) {
  int total = 0;
  for (int i = First; i < End; ++i) total += Sizes[static_cast<size_t>(i)];
  return total;
}

}  // namespace

// Title, subtitle and foot, each a line.
struct TTablePrinter::THeadings {
  struct TLine {
    TFont Font;
    String Text;
    int Top = 0;
  };
  THeadings(const TDecorationList& List, TCanvas& Canvas, TRect& Room) {
    const auto font = [&](int size, TFontStyles style) {
      TFont result = List.GetFont();
      result.Size = size;
      result.Style = style;
      result.Color = clBlack;
      return result;
    };
    const int size = List.GetFont().Size, gap = Pixels(kGap, Canvas.GetPixelsPerInch().Y);
    Title = {font(size + kTitleMore, {fsBold}), List.GetTitle(), Room.Top};
    Room.Top += HeightOf(Canvas, Title);
    SubTitle = {font(size + kSubTitleMore, {}), List.GetSubTitle(), Room.Top};
    Room.Top += HeightOf(Canvas, SubTitle);
    if (!Title.Text.empty() || !SubTitle.Text.empty()) Room.Top += gap;
    Foot = {font(kFootSize, {}), u"x", 0};
    Foot.Top = Room.Bottom - HeightOf(Canvas, Foot);
    Room.Bottom = std::max(Room.Top + 1, Foot.Top - gap);
  }
  static int HeightOf(TCanvas& Canvas, const TLine& Line) {
    Canvas.SetFont(Line.Font);
    return Canvas.TextHeight(Line.Text);
  }

  TLine Title, SubTitle, Foot;
};

struct TTablePrinter::TSheet {
  TSheet(TTypeCsv& ATable, TCanvas& Canvas, TPoint Room)
      : Table(ATable),
        Sizes(Measure(Canvas, Room)),
        ColWidths(WithLines(Sizes.ColWidths, List())),
        RowHeights(WithLines(Sizes.RowHeights, List())),
        Plan({.ColWidths = ColWidths,
              .RowHeights = RowHeights,
              .FixedCols = List().GetFixed().Left,
              .FixedRows = List().GetFixed().Top,
              .Room = Room,
              .Strips = List().GetPrintPageColumns(),
              .StripGap = Pixels(kGap, Canvas.GetPixelsPerInch().X)}) {}

  TDecorationList& List() const noexcept { return Table.GetDecorations(); }
  TTableSizes Measure(TCanvas& Canvas, TPoint Room) {
    const TDeviceScope device(List(), Canvas);
    return DecoratorCanvas().TrimDevice(Canvas, {Room.X, 0}, List(), Table);
  }
  int HeightOf(const detail::TBand& Rows) const {
    const int height = Total(RowHeights, Rows.First, Rows.End) - Rows.Skip;
    return Rows.Cut > 0 ? Rows.Cut : height;
  }

  void Paint(TCanvas& Canvas, TPoint At, int Page) {
    const TDeviceScope device(List(), Canvas);
    const detail::TPageContent content = Plan.GetPage(Page);
    for (const detail::TBand& rows : content.Strips) {
      PaintStrip(Canvas, At, content.Cols, rows);
      At.X += Plan.GetStripStep();
    }
  }

  void PaintStrip(TCanvas& Canvas, TPoint At, const detail::TBand& Cols, const detail::TBand& Rows) {
    const int fixedWidth = Total(ColWidths, 0, Plan.GetFixedCols());
    const int fixedHeight = Total(RowHeights, 0, Plan.GetFixedRows());
    const int width = Cols.Cut > 0 ? Cols.Cut : Total(ColWidths, Cols.First, Cols.End) - Cols.Skip;
    const TPoint corner{At.X + fixedWidth, At.Y + fixedHeight};
    const TPoint end{corner.X + width, corner.Y + HeightOf(Rows)};
    const TPoint skip{Cols.Skip, Rows.Skip};
    const auto paint = [&](const TRect& clip, TPoint moved) {
      PaintPart(Canvas, clip, {At.X - moved.X, At.Y - moved.Y}, Cols, Rows);
    };
    if (skip == TPoint{}) return paint({At.X, At.Y, end.X, end.Y}, {});
    // What goes on from the page before is painted apart, as the fixed lines beside it do not move.
    paint({corner.X, corner.Y, end.X, end.Y}, skip);
    paint({corner.X, At.Y, end.X, corner.Y}, {skip.X, 0});
    paint({At.X, corner.Y, corner.X, end.Y}, {0, skip.Y});
    paint({At.X, At.Y, corner.X, corner.Y}, {});
  }

  void PaintPart(TCanvas& Canvas, const TRect& Clip, TPoint At, const detail::TBand& Cols, const detail::TBand& Rows) {
    if (Clip.IsEmpty()) return;
    TCanvasState saved(Canvas);
    Canvas.IntersectClip(Clip);
    const TRect place{At.X, At.Y, Clip.Right, Clip.Bottom}, fixed = List().GetFixed();
    const TPoint first{Cols.First, Rows.First};
    if (Plan.GetFixedCols() == std::max(0, fixed.Left) && Plan.GetFixedRows() == std::max(0, fixed.Top)) {
      return DecoratorCanvas().DrawTable(Canvas, place, List(), Table, Sizes, first);
    }
    TTableSizes shown = Sizes;
    HideFixed(shown.ColWidths, Plan.GetFixedCols(), fixed.Left, Cols);
    HideFixed(shown.RowHeights, Plan.GetFixedRows(), fixed.Top, Rows);
    DecoratorCanvas().DrawTable(Canvas, place, List(), Table, shown, first);
  }

  // Fixed lines that are too large to stand on each page stand where the band has them.
  static void HideFixed(std::vector<int>& Sizes, int Repeated, int Fixed, const detail::TBand& Band) {
    for (int line = Repeated; line < std::min(Fixed, static_cast<int>(Sizes.size())); ++line) {
      if (line < Band.First || line >= Band.End) Sizes[static_cast<size_t>(line)] = 0;
    }
  }

  TTypeCsv& Table;
  TTableSizes Sizes;
  std::vector<int> ColWidths, RowHeights;  // with the lines
  detail::TPagePlan Plan;
};

TTablePrinter::TTablePrinter(TTypeCsv& Table, TCanvas& Canvas, TPoint PageSize, const TPrintForm& Form)
    : FTable(Table), FForm(Form), FRoom(Inside(PageSize, Form.Margins, Canvas.GetPixelsPerInch())) {
  TCanvasState saved(Canvas);
  FHeadings = std::make_unique<THeadings>(Table.GetDecorations(), Canvas, FRoom);
  const TPoint room{FRoom.Width(), FRoom.Height()};
  FSheet = std::make_unique<TSheet>(Table, Canvas, room);
  const TDecorationOrientation orientation = PageSize.X > PageSize.Y ? dorLandscape : dorPortrait;
  if (!Form.HasLegend || !RenderLegend(Table, orientation, FLegend, Form.LegendTexts)) return;
  FLegendSheet = std::make_unique<TSheet>(*FLegend, Canvas, room);
  const int height = Total(FLegendSheet->RowHeights, 0, static_cast<int>(FLegendSheet->RowHeights.size()));
  const int rest = FSheet->Plan.GetRest() - Pixels(kGap, Canvas.GetPixelsPerInch().Y);
  if (FSheet->Plan.GetStrips() == 1 && height <= rest && FLegendSheet->Plan.GetAcrossCount() == 1) {
    FLegendTop = FRoom.Bottom - rest;
  }
}

TTablePrinter::~TTablePrinter() = default;

int TTablePrinter::GetPageCount() const noexcept {
  const bool hasLegendPages = FLegendSheet != nullptr && FLegendTop < 0;
  return FSheet->Plan.GetPageCount() + (hasLegendPages ? FLegendSheet->Plan.GetPageCount() : 0);
}

void TTablePrinter::PaintPage(TCanvas& Canvas, int Page) {
  TCanvasState saved(Canvas);
  Canvas.SetBrush({clWhite, bsClear});
  const auto line = [&](const THeadings::TLine& heading, const String& text, bool isRight) {
    if (text.empty()) return;
    Canvas.SetFont(heading.Font);
    const int left = isRight ? FRoom.Right - Canvas.TextWidth(text) : FRoom.Left;
    Canvas.TextRect({FRoom.Left, heading.Top, FRoom.Right, heading.Top + Canvas.TextHeight(text)}, left, heading.Top,
                    text);
  };
  line(FHeadings->Title, FHeadings->Title.Text, false);
  line(FHeadings->SubTitle, FHeadings->SubTitle.Text, false);
  if (FForm.Date != 0) line(FHeadings->Foot, FormatDateTime(u"dd.mm.yyyy", FForm.Date), false);
  line(FHeadings->Foot, Format(u"Seite %d von %d", {Page + 1, GetPageCount()}), true);
  const int own = FSheet->Plan.GetPageCount();
  if (Page < own) FSheet->Paint(Canvas, {FRoom.Left, FRoom.Top}, Page);
  if (Page >= own) FLegendSheet->Paint(Canvas, {FRoom.Left, FRoom.Top}, Page - own);
  if (Page == own - 1 && FLegendTop >= 0) FLegendSheet->Paint(Canvas, {FRoom.Left, FLegendTop}, 0);
}

int PrintTable(TTypeCsv& Table, TPrintPages& Pages, const TPrintForm& Form) {
  TTablePrinter printer(Table, Pages.GetCanvas(), Pages.GetPageSize(), Form);
  for (int page = 0; page < printer.GetPageCount(); ++page) {
    if (page > 0) Pages.NewPage();
    printer.PaintPage(Pages.GetCanvas(), page);
  }
  return printer.GetPageCount();
}

}  // namespace vx
