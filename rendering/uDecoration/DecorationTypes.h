// The small types of decorations.
#pragma once

#include <span>
#include <vector>

#include "platform/Graphics.h"
#include "platform/Method.h"
#include "platform/Types.h"

namespace vx {

class TCanvas;
class TDecoration;
class TDecorationList;

// The kind of region that a decoration is for. The ordinals are part of the serial form.
enum TRangeType : uint8_t {
  rtUnknown,  // no cell
  rtCell,     // one cell
  rtColumn,   // columns, from Left to Right of the range
  rtRow,      // rows, from Top to Bottom
  rtRect,     // a rectangle
  rtAll,      // the whole table
  rtFixed,    // its fixed border
  rtContent   // all but the border
};
// "Unknown", "Cell", "Column", "Row", "Rect", "All", "Fixed" or "Content"; "Unknown" for what is no type.
String RangeTypeToStr(TRangeType Type);

enum TTextAngle : uint8_t {
  taNone,
  taHorz,
  taVert  // the text of the cell is turned by 90 degrees
};

enum TDecorationDevice : uint8_t { ddScreen, ddPrinter, ddMetafile };

// The way in which decorations follow one another along an axis.
enum TDLDirectionType : uint8_t { dldtUnknown, dldtLeft, dldtUp, dldtRight, dldtDown, dldtEqual };

enum TDecorationDrawState : uint8_t {
  ddsSelected,
  ddsMouseOver,
  ddsMouseDown,
  ddsPrinter,
  ddsMask,  // text and images alone, without any background
  ddsFocused
};
using TDecorationDrawStates = Set<TDecorationDrawState>;

enum TDecorationOption : uint8_t {
  doCoupled,   // the cells of the region are one
  doZebraLine  // the background is darkened
};
using TDecorationOptions = Set<TDecorationOption>;

// Lines of the grid and the behaviour of the whole table.
enum TDecorationListOption : uint8_t {
  dloFixedVertLine,
  dloFixedHorzLine,
  dloVertLine,
  dloHorzLine,
  dloGridLines,
  dloColumnClick,     // the heads of columns can be clicked
  dloRowSelect,       // whole rows are selected
  dloNoSelect,        // selected cells are not marked
  dloDimensionBySet,  // the table grows when a cell beyond it is set
  dloBorder           // a line around the table
};
using TDecorationListOptions = Set<TDecorationListOption>;

// How columns and rows are sized.
enum TTrimMode : uint8_t {
  tmNone,
  tmCanvasWidthMax,
  tmCanvasWidthMin,
  tmCanvasHeightMax,
  tmCanvasHeightMin,
  tmHideEmptyColumn,
  tmHideEmptyRow,
  tmHideEmptyColContent,
  tmHideEmptyRowContent,
  tmShowFullFixed,
  tmBalanceWidth,
  tmBalanceHeight,
  tmHide,
  tmNumberProtection,  // a text that is cut keeps its numbers
  tmFitImage,          // images get the height of the text
  tmTrueCommatext      // empty lines of a commatext keep their place
};
using TTrimModes = Set<TTrimMode>;

// The colours of the four edge stripes of a cell.
struct TColorRect {
  TColor Left = clSilver;
  TColor Top = clSilver;
  TColor Right = clSilver;
  TColor Bottom = clSilver;
  friend constexpr bool operator==(const TColorRect&, const TColorRect&) noexcept = default;
};

using TPointArray = std::vector<TPoint>;

// Around the painting of a cell: Rect is the cell on the canvas, Decoration its effective decoration.
using TCallbackDraw = Method<void(TCanvas& Canvas, int aCol, int aRow, TRect& Rect, TDecoration& Decoration)>;
using TCallbackPostDraw = TCallbackDraw;
// While a target trims the widths of its columns; sizes are in pixels.
using TCallbackTrimming = Method<void(TDecorationList& DecoList, std::span<const int> Values, TPointArray& CalcValues,
                                      TTrimModes Modes, int MaxSize)>;

}  // namespace vx
