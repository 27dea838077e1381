#include <QPrinter>
#include <fstream>

#include "desktop/TQtPages.h"
#include "desktop/detail/PainterDevice.h"
#include "platform/cairo/CairoDrawing.h"
#include "tables/TTablePrinter.h"
#include "tests/platform/cairo/Devices.h"
#include "tests/support/Test.h"

namespace vx {
namespace test {

// The contract of all surfaces (tests/platform/cairo/Contract_test.cpp) holds for Qt's painter.
std::span<const TDevice> Devices() {
  static const TDevice device{
      "Painter", [](const std::function<void(TCanvas&)>& draw) -> std::optional<TBitmap> {
        QImage image(120, 80, QImage::Format_RGB32);
        image.fill(Qt::white);
        {
          QPainter painter(&image);
          TCanvas canvas(std::make_unique<detail::TPainterDevice>(painter, TPoint{120, 80}, TPoint{96, 96}, dkPrinter));
          draw(canvas);
        }
        TBitmap seen(pf24bit, 120, 80);
        for (int y = 0; y < 80; ++y) {
          seen.SetRow(y, {reinterpret_cast<const uint32_t*>(image.constScanLine(y)), 120});
        }
        return seen;
      }};
  return {&device, 1};
}

uint32_t PixelAt(const TBitmap& Bitmap, int X, int Y) {
  std::vector<uint32_t> row(static_cast<size_t>(Bitmap.GetWidth()));
  Bitmap.GetRow(Y, row);
  return row[static_cast<size_t>(X)] & 0xFFFFFF;
}

TRect InkOf(const TBitmap& Bitmap) {
  TRect ink{INT_MAX, INT_MAX, 0, 0};
  for (int y = 0; y < Bitmap.GetHeight(); ++y) {
    for (int x = 0; x < Bitmap.GetWidth(); ++x) {
      if (PixelAt(Bitmap, x, y) == 0xFFFFFF) continue;
      ink = {std::min(ink.Left, x), std::min(ink.Top, y), std::max(ink.Right, x + 1), std::max(ink.Bottom, y + 1)};
    }
  }
  return ink.Right == 0 ? TRect{} : ink;
}

}  // namespace test

namespace {

TEST(TQtPages, PrintsATableOnSheets) {
  InstallDrawing();
  const test::TTempDir directory;
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setResolution(600);
  printer.setOutputFileName(QString::fromStdString(directory.GetPath() + "/plan.pdf"));
  TTypeCsv table;
  for (int i = 0; i < 150; ++i) table.AddRow({u"Müller" + IntToStr(i), u"Köln"});
  TQtPages pages(printer);
  EXPECT_EQ((TFacts{pages.GetPageSize().X, pages.GetPageSize().Y}), "4958 7017") << "whole points of A4";
  const int printed = PrintTable(table, pages);
  EXPECT_EQ(printed, pages.GetPageCount());
  pages.Close();
  EXPECT_GT(pages.GetPageCount(), 1);
  std::ifstream file(directory.GetPath() + "/plan.pdf", std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), {});
  EXPECT_EQ(bytes.substr(0, 5), "%PDF-");
  EXPECT_NE(bytes.find("/FontFile"), bytes.npos) << "letters, no pictures of them";
}

}  // namespace
}  // namespace vx
