// The shared constants: the types of cells and their names.
//
//   TVxFieldType                            the 19 types of a cell
//   FIELDTYPESTRINGS                        their names, which are their serial form, too
//   getSubTypeText and its kin              the named lists of domain values; see core/uConst/Subtypes.h
//   uConst::FreeBuffersForLeakPrevention    frees what the unit keeps
//
// Example:
//   vx::FIELDTYPESTRINGS[vx::vftDate];      // u"vftDate"
//
// The ordinals are part of stored data and never change. The routines between types, names and numbers
// stand in core/uVxFunctionsSerialize.h. Pitfall: an ordinal that was read may lie outside the table;
// FieldTypeToStr bears that, a subscript does not.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "core/uConst/Subtypes.h"
#include "platform/String.h"

namespace vx {

enum TVxFieldType : uint8_t {
  vftUnknown,
  vftShortString,
  vftString,
  vftBoolean,
  vftInteger,
  vftFloat,
  vftDate,
  vftTime,
  vftCommatext,  // text of several lines
  vftDateTime,
  vftStatus,
  vftImage,
  vftHour,  // an amount of hours; may exceed a day and be negative
  vftCurrency,
  vftFraction,
  vftTinyHTML,
  vftToggle,
  vftGrafic,
  vftButton
};

// The name of each type, by its ordinal.
inline constexpr std::array<std::u16string_view, 19> FIELDTYPESTRINGS = {
    u"vftUnknown",  u"vftShortString", u"vftString",   u"vftBoolean", u"vftInteger", u"vftFloat", u"vftDate",
    u"vftTime",     u"vftCommatext",   u"vftDateTime", u"vftStatus",  u"vftImage",   u"vftHour",  u"vftCurrency",
    u"vftFraction", u"vftTinyHTML",    u"vftToggle",   u"vftGrafic",  u"vftButton"};

namespace uConst {

// Frees what this unit builds at first use; the next use builds it again. The names of the types are
// constants and stay usable. Not for use beside other threads that use the unit.
void FreeBuffersForLeakPrevention() noexcept;

}  // namespace uConst

}  // namespace vx
