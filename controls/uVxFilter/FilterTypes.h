// The words of the filter bar.
#pragma once

#include <cstdint>

namespace vx {

enum TFilterType : uint8_t {
  ftNone,      // no filter: every row passes
  ftAuto,      // by the type of the column, and by its values
  ftText,      // free text
  ftCboxText,  // one of the column's values, or several
  ftImage,     // images
  ftData       // the object beside the cell
};

enum TFilterMultiSelect : uint8_t { fmsAuto, fmsYes, fmsNo };

}  // namespace vx
