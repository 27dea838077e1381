// The fonts that an SVG file brings along, each cut down to the letters used. Of use to this component only.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "platform/cairo/Face.h"

namespace vx::drawing {

class TSvgFonts {
 public:
  // Takes the letters of Text, in Face or where that lacks them in those that shaping takes, into the file; gives
  // the names of their families, first those of the file, then those installed, as CSS has them.
  std::string Use(TFace& Face, std::u16string_view Text);
  // The rules that define the families of the file; a font that can't be cut down is left out.
  std::string Rules() const;

 private:
  struct TUsed {
    int Number = 0;
    std::string Family;  // as it is installed
    std::set<uint32_t> Letters;
  };
  TUsed& Place(const std::string& File, int Index, const std::string& Family);

  std::map<std::pair<std::string, int>, TUsed> FUsed;
};

}  // namespace vx::drawing
