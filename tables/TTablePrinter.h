// A typed table on paper: as many pages as it takes, with headings, numbers of pages and a legend.
//
//   TTablePrinter    lays the table out and paints its pages
//   TPrintForm       margins, date, legend
//   PrintTable       all of it onto pages
//
// Example:
//   vx::TPdfFile pdf(u"Dienstplan.pdf", vx::PageA4());
//   vx::TPrintForm form;
//   form.Date = vx::Now();
//   int pages = vx::PrintTable(table, pdf, form);
//   pdf.Close();
//
// Each page has the table's title and subtitle above and the date and "Seite 1 von 3" below. The fixed rows at the top
// stand on each page, as do fixed columns at the left; where they would leave less than half of the room they don't.
// Columns that don't fit go on pages of their own, to be laid side by side: these follow one another before the next
// rows come. A row is only cut if it is higher than a page, and a column if it is wider. With a PrintPageColumns above
// 1 a narrow table stands on each page in up to so many strips, as many as have room for all of its columns. The legend
// of the table's images comes below the last row, or on pages of its own.
//
// Sizes are trimmed for the paper as TDecoratorCanvas does it, with the room between the margins. Nothing is kept of
// the rows but their heights.
//
// Threads: an object is for one at a time; different objects may be used at once.
//
// Pitfall: the table must not change while there is a printer for it.
#pragma once

#include <memory>

#include "platform/TPrintPages.h"
#include "platform/TStrings.h"
#include "platform/Types.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx {

struct TPrintForm {
  TRect Margins{20, 15, 15, 15};          // millimetres
  TDateTime Date = 0;                     // in the foot of each page; 0 for none
  bool HasLegend = true;                  // if the table has images with names
  const TStrings* LegendTexts = nullptr;  // further lines of the legend; stays the caller's
};

class TTablePrinter {
 public:
  // Measures with Canvas for pages of so many pixels. Margins that leave no room count as none.
  TTablePrinter(TTypeCsv& Table, TCanvas& Canvas, TPoint PageSize, const TPrintForm& Form = {});
  ~TTablePrinter();
  TTablePrinter(const TTablePrinter&) = delete;
  TTablePrinter& operator=(const TTablePrinter&) = delete;

  // At least 1.
  int GetPageCount() const noexcept;
  // Page counts from 0. The canvas is one like that of the constructor, and keeps its state.
  void PaintPage(TCanvas& Canvas, int Page);

 private:
  struct TSheet;  // a table with its sizes and pages
  struct THeadings;

  TTypeCsv& FTable;
  const TPrintForm FForm;
  TRect FRoom;  // of the table on each page
  std::unique_ptr<THeadings> FHeadings;
  std::unique_ptr<TSheet> FSheet;
  std::unique_ptr<TTypeCsv> FLegend;
  std::unique_ptr<TSheet> FLegendSheet;  // nullptr without a legend
  int FLegendTop = -1;                   // on the last page of the table; -1: it has pages of its own
};

// Prints all pages; the first one is the present page. The result is their number. Raises what the pages raise.
int PrintTable(TTypeCsv& Table, TPrintPages& Pages, const TPrintForm& Form = {});

}  // namespace vx
