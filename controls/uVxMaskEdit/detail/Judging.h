// Whether a text is a value of its field, and how it stays when the field is left.
#pragma once

#include "controls/uVxMaskEdit/MaskTypes.h"

namespace vx::detail {

enum TJudgeWish : uint8_t { jwCheck, jwHint, jwRepair };

struct TJudgement {
  bool IsValid = false;
  String Text;  // jwRepair: what a valid value stays as, held to the limits
  String Hint;  // jwHint: what would be stored
};

TJudgement Judge(const TMaskRules& Rules, const String& Text, TJudgeWish Wish);
// The text that a field begins with.
String EmptyPicture(const TMaskRules& Rules);

}  // namespace vx::detail
