#include "tools/vxtab/Painting.h"

#include "tools/vxtab/Arguments.h"

#ifdef VX_HAS_DRAWING

#include <algorithm>

#include "platform/Clock.h"
#include "platform/TBitmap.h"
#include "platform/Text.h"
#include "platform/cairo/CairoDrawing.h"
#include "rendering/uDecoration/TDecoratorCanvas.h"
#include "tables/TTablePrinter.h"

namespace vx::vxtab {

namespace {

constexpr int kMostPixels = 16384;
constexpr int kMargin = 8;  // pixels around the table

// The title, and the table below it.
class TPicture {
 public:
  TPicture(TTypeCsv& Table, TCanvas& Canvas) : FTable(Table) {
    FSizes = DecoratorCanvas().TrimDevice(Canvas, {}, Table.GetDecorations(), Table);
    FTitle = Table.GetDecorations().GetFont();
    FTitle.Size += 4;
    FTitle.Style = {fsBold};
    const TCanvasState saved(Canvas);
    Canvas.SetFont(FTitle);
    FTop = kMargin;
    if (!Title().empty()) FTop += Canvas.TextHeight(Title()) + kMargin;
    const int64_t right = kMargin + std::max<int64_t>(Total(FSizes.ColWidths), Canvas.TextWidth(Title()));
    FWidth = right + kMargin;
    FHeight = FTop + Total(FSizes.RowHeights) + kMargin;
  }

  TPoint GetSize() const {
    if (FWidth <= kMostPixels && FHeight <= kMostPixels) return {static_cast<int>(FWidth), static_cast<int>(FHeight)};
    throw TFailure("the picture would be " + std::to_string(FWidth) + " x " + std::to_string(FHeight) +
                   " pixels; take fewer rows and columns by --rows and --cols, or a PDF");
  }
  void Paint(TCanvas& Canvas) const {
    const TPoint size = GetSize();
    Canvas.SetBrush({clWhite});
    Canvas.FillRect({0, 0, size.X, size.Y});
    Canvas.SetBrush({clWhite, bsClear});
    Canvas.SetFont(FTitle);
    Canvas.TextOut(kMargin, kMargin, Title());
    DecoratorCanvas().DrawTable(Canvas, {kMargin, FTop, size.X - kMargin, size.Y - kMargin}, FTable.GetDecorations(),
                                FTable, FSizes);
  }

 private:
  const String& Title() const noexcept { return FTable.GetDecorations().GetTitle(); }
  // With the line behind each column and row.
  int64_t Total(const std::vector<int>& Sizes) const {
    const int line = TDecoratorCanvas::LineOf(FTable.GetDecorations());
    int64_t total = 0;
    for (int size : Sizes) total += size > 0 ? size + line : 0;
    return total;
  }

  TTypeCsv& FTable;
  TTableSizes FSizes;
  TFont FTitle;
  int FTop = 0;
  int64_t FWidth = 0, FHeight = 0;
};

}  // namespace

bool CanPaint() noexcept { return true; }

void PaintPicture(TTypeCsv& Table, const std::string& Name) {
  InstallDrawing();
  const String path = String::FromUtf8(Name);
  TBitmap bitmap(pf24bit, 1, 1);
  if (LowerCase(path).view().ends_with(u".svg")) {
    TSvgFile trial(path, {1, 1});  // to measure with
    const TPicture picture(Table, trial.GetCanvas());
    TSvgFile file(path, picture.GetSize());
    picture.Paint(file.GetCanvas());
    return file.Close();
  }
  const TPicture picture(Table, bitmap.GetCanvas());
  const TPoint size = picture.GetSize();
  bitmap.SetSize(size.X, size.Y);
  picture.Paint(bitmap.GetCanvas());
  SavePngFile(bitmap, path);
}

int PaintPages(TTypeCsv& Table, const std::string& Name, bool Landscape) {
  InstallDrawing();
  TPoint size = PageA4();
  if (Landscape) std::swap(size.X, size.Y);
  TPdfFile file(String::FromUtf8(Name), size);
  TPrintForm form;
  form.Date = Now();
  const int pages = PrintTable(Table, file, form);
  file.Close();
  return pages;
}

}  // namespace vx::vxtab

#else

namespace vx::vxtab {

bool CanPaint() noexcept { return false; }
void PaintPicture(TTypeCsv&, const std::string&) {}
int PaintPages(TTypeCsv&, const std::string&, bool) { return 0; }

}  // namespace vx::vxtab

#endif
