// A floating point number as an object.
//
//   TVxDouble   for lists that hold objects
//
// Example, with German settings:
//   vx::TVxDouble number(1.236);
//   number.RoundedStr(2);         // u"1,24"
//   number.RoundedStr(0);         // u"1,00": always two decimals
//   number.RoundedStrShort(0);    // u"1"
#pragma once

#include "platform/TObject.h"
#include "platform/Types.h"

namespace vx {

class TVxDouble : public TObject {
 public:
  explicit TVxDouble(double Value = 0) noexcept : iValue(Value) {}
  String ClassName() const override { return u"TVxDouble"; }

  double GetValue() const noexcept { return iValue; }
  void SetValue(double Value) noexcept { iValue = Value; }
  // FloatToStr; a text that StrToFloat would not take sets 0.
  String GetAsString() const;
  void SetAsString(std::u16string_view Text);

  // The value at Places decimals, midpoints away from zero; raises as RoundExtended for what is too large.
  Extended Rounded(int Places) const;
  // Rounded, always with two decimals, whatever Places is: 1.2345 at 3 gives u"1,23".
  String RoundedStr(int Places) const;
  // Rounded, with as many decimals as it has.
  String RoundedStrShort(int Places) const;

 private:
  double iValue;
};

}  // namespace vx
