// Web names of code pages and encodings.
#pragma once

#include "platform/Encoding.h"
#include "platform/String.h"

namespace vx {

// The web name of a code page of the system, as in u"windows-1252" for 1252 and u"utf-8" for 65001; empty for a
// number that is not known.
String CodepageToEncoding(int CodePage);

// Asks an encoding, or a code page by its number, for its web name.
class TMyEncodingHelper {
 public:
  explicit TMyEncodingHelper(int CodePage) noexcept : FCodePage(CodePage) {}
  // TEncoding::Default stands for the system's code page, as it is set now.
  explicit TMyEncodingHelper(const TEncoding& Encoding) noexcept;

  int GetCodePage() const noexcept { return FCodePage; }
  // CodepageToEncoding of the code page.
  String Webname() const { return CodepageToEncoding(FCodePage); }

 private:
  int FCodePage;
};

}  // namespace vx
