// Printing by Qt's printers: the dialog that asks for one, the preview, and the pages.
//
//   TQtPages          the pages of a printer, as whoever prints wants them (TPrintPages)
//   PrintWithDialog   asks for a printer and prints
//   PreviewPrint      shows the pages on the screen first
//
// Example:
//   vx::PrintWithDialog(&window, u"Dienstplan", [&table](vx::TPrintPages& pages) { vx::PrintTable(table, pages); });
//
// Texts are letters of a font, lines and areas are figures, so that all is as sharp as the printer is. A font that is
// not installed is stood in for as the drawing component does it (FontStandIns). PDF files of the library's own
// (TPdfFile) are not made this way.
//
// For the main thread. Pitfalls:
//   - Texts are measured at the printer's fineness: widths differ a little from those on a screen, and a document is
//   laid
//     out anew for each printer.
//   - What is printed with must not change before the call comes back; the preview prints as often as it has to.
#pragma once

#include <functional>
#include <memory>

#include "platform/String.h"
#include "platform/TPrintPages.h"

class QPrinter;
class QWidget;

namespace vx {

class TQtPages : public TPrintPages {
 public:
  // Whole sheets of the printer's paper, its margins included. Printer stays the caller's. EInvalidGraphicOperation if
  // it takes no pages.
  explicit TQtPages(QPrinter& Printer);
  // Ends what Close has not ended.
  ~TQtPages() override;
  // A printer; as fine as that is. Ends with the pages.
  TCanvas& GetCanvas() noexcept override;
  TPoint GetPageSize() const noexcept override;
  // The canvas goes on with the state that it has. EInvalidGraphicOperation if the printer takes no more.
  void NewPage() override;
  int GetPageCount() const noexcept;
  // Hands the last page over. EInvalidGraphicOperation if the printer has failed; another call does nothing.
  void Close();

 private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

using TPrintOut = std::function<void(TPrintPages& Pages)>;
// Asks for a printer, or a PDF file, and has Print print; false if the user does not want to. Title is that of the
// document. Raises what Print and TQtPages raise.
bool PrintWithDialog(QWidget* Parent, const String& Title, const TPrintOut& Print);
// Shows what would be printed, from where it can be. Raises as above, once the preview is closed.
void PreviewPrint(QWidget* Parent, const String& Title, const TPrintOut& Print);

}  // namespace vx
