// Rich texts as others lay them out and draw them: the seconds that it takes to read the markup, wrap it and
// draw it. All draw letters of the same font and size.
#pragma once

#include <memory>
#include <string>

namespace vx::bench {

inline constexpr int kTextWidth = 400, kTextHeight = 120;
inline constexpr int kTextPixels = 11;

class TPangoText {
 public:
  TPangoText();
  ~TPangoText();
  // Markup of Pango. Height gets that of the text.
  double Draw(const std::string& Markup, int& Height);

 private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

class TQtText {
 public:
  TQtText();
  ~TQtText();
  double Draw(const std::string& Html, int& Height);

 private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

}  // namespace vx::bench
