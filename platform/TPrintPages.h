// What a document is printed on: pages, one after the other. A PDF file is one, a printer another.
//
// Threads: an object is for one at a time; different objects may be used at once.
#pragma once

#include "platform/Graphics.h"

namespace vx {

class TCanvas;

class TPrintPages {
 public:
  virtual ~TPrintPages() = default;
  // Draws on the present page, the first one at first.
  virtual TCanvas& GetCanvas() noexcept = 0;
  // In pixels; all pages are alike. What is wider than high lies on its side.
  virtual TPoint GetPageSize() const noexcept = 0;
  // Goes on with the next page.
  virtual void NewPage() = 0;
};

}  // namespace vx
