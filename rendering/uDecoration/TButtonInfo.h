// The button that a cell of the type vftButton shows.
//
// Example:
//   vx::TButtonInfo info(u"3,,,4|boCircle|OK|", u",,5,||Ja|");   // the second text is laid over the first one
//   info.ImageIndexHover;                                         // 5
//   info.Caption;                                                 // u"Ja"
#pragma once

#include <string_view>

#include "platform/String.h"

namespace vx {

enum TButtonBorder : uint8_t { boNone, boSquare, boCircle, boCell };

struct TButtonInfo {
  TButtonInfo() = default;
  // Reads aSerial, and lays aMerge over it; an empty text says nothing.
  explicit TButtonInfo(std::u16string_view aSerial, std::u16string_view aMerge = {});

  void Init() { *this = TButtonInfo(); }
  // What the other one has set replaces what is here: image indexes other than -1, a border other than boNone, texts
  // that are not empty.
  void Merge(const TButtonInfo& aOther);
  void Merge(std::u16string_view aSerial) { Merge(TButtonInfo(aSerial)); }

  // A lighttext of four cells: the commatext of the image indexes (enabled, disabled, hover, down), the border's word
  // such as u"boSquare", caption and hint.
  String GetSerialize() const;
  // Never refuses a text: an index that is missing or no number is -1, an unknown word boNone, and a missing text is
  // empty.
  void SetSerialize(std::u16string_view aText);

  friend bool operator==(const TButtonInfo&, const TButtonInfo&) noexcept = default;

  // Of the image list; -1 for none.
  int ImageIndexEnabled = -1;
  int ImageIndexDisabled = -1;
  int ImageIndexHover = -1;
  int ImageIndexDown = -1;
  String Caption;
  String Hint;
  TButtonBorder Border = boNone;
};

}  // namespace vx
