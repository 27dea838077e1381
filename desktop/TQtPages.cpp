#include "desktop/TQtPages.h"

#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <exception>
#include <utility>

#include "desktop/QtValues.h"
#include "desktop/detail/PainterDevice.h"
#include "platform/Drawing.h"

namespace vx {

struct TQtPages::TImpl {
  explicit TImpl(QPrinter& APrinter) : Printer(APrinter) {
    Printer.setFullPage(true);
    const QSize sheet = Printer.pageLayout().fullRectPixels(Printer.resolution()).size();
    Size = {sheet.width(), sheet.height()};
    if (!Painter.begin(&Printer)) throw EInvalidGraphicOperation(u"The printer takes no pages");
    const TPoint inch{Printer.resolution(), Printer.resolution()};
    Canvas = std::make_unique<TCanvas>(std::make_unique<detail::TPainterDevice>(Painter, Size, inch, dkPrinter));
  }

  QPrinter& Printer;
  QPainter Painter;
  TPoint Size;
  std::unique_ptr<TCanvas> Canvas;
  int PageCount = 1;
  bool Closed = false;
};

TQtPages::TQtPages(QPrinter& Printer) : FImpl(std::make_unique<TImpl>(Printer)) {}

TQtPages::~TQtPages() = default;

TCanvas& TQtPages::GetCanvas() noexcept { return *FImpl->Canvas; }
TPoint TQtPages::GetPageSize() const noexcept { return FImpl->Size; }
int TQtPages::GetPageCount() const noexcept { return FImpl->PageCount; }

void TQtPages::NewPage() {
  if (!FImpl->Printer.newPage()) throw EInvalidGraphicOperation(u"The printer takes no more pages");
  ++FImpl->PageCount;
}

void TQtPages::Close() {
  if (std::exchange(FImpl->Closed, true)) return;
  FImpl->Painter.restore();  // the device's
  const bool isDone = FImpl->Painter.end();
  if (!isDone || FImpl->Printer.printerState() == QPrinter::Error) {
    throw EInvalidGraphicOperation(u"The printer has not taken all pages");
  }
}

namespace {

void PrintOn(QPrinter& Printer, const TPrintOut& Print) {
  TQtPages pages(Printer);
  Print(pages);
  pages.Close();
}

}  // namespace

bool PrintWithDialog(QWidget* Parent, const String& Title, const TPrintOut& Print) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(ToQt(Title));
  QPrintDialog dialog(&printer, Parent);
  dialog.setWindowTitle(ToQt(Title));
  if (dialog.exec() != QDialog::Accepted) return false;
  PrintOn(printer, Print);
  return true;
}

// Nothing may pass through Qt's events.
void PreviewPrint(QWidget* Parent, const String& Title, const TPrintOut& Print) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(ToQt(Title));
  QPrintPreviewDialog dialog(&printer, Parent);
  dialog.setWindowTitle(ToQt(Title));
  std::exception_ptr failure;
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* onto) {
    try {
      PrintOn(*onto, Print);
    } catch (...) {
      failure = std::current_exception();
      dialog.reject();
    }
  });
  dialog.exec();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace vx
