// Editors of one line that hold one typed value as text.
//
//   StrToHM, toHour, toMinute    texts of hour counts (HourText.h)
//
// Example:
//   vx::Extended hours = 0;
//   vx::toHour(u"2:45", hours);   // true
//   hours;                        // 2.75
//
// Pitfall: a text without ":" is minutes.
#pragma once

#include "controls/uVxMaskEdit/HourText.h"
