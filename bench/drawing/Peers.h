// What others do with the same names: the seconds that one round over all of them takes.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace vx::bench {

inline constexpr int kCellWidth = 160, kCellHeight = 18, kRows = 40;
inline constexpr int kFontPixels = 11;

class TQtPeer {
 public:
  explicit TQtPeer(const std::vector<std::string>& Names);
  ~TQtPeer();
  double Width();
  // Each name on its ground in a row of a picture.
  double DrawStatic();
  double DrawElided();
  double Fill();

 private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

class TCairoPeer {
 public:
  explicit TCairoPeer(const std::vector<std::string>& Names);
  ~TCairoPeer();
  double PangoWidth();
  double PangoDraw();
  // The glyphs of the names are known beforehand.
  double GlyphDraw();
  double Fill();

 private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

}  // namespace vx::bench
