// From the raw text of a cell to what the user sees: the text that is shown, the room that it needs, and the painted
// cell. The unit's header tells the whole.
//
// Example, with German settings:
//   bool fraction;
//   vx::TDecorator::FormatText(u"11.02.2015", vx::vftDate, u"d. mmmm", fraction);  // u"11. Februar"
//   vx::TDecorator::FormatText(u"1500", vx::vftInteger, u"kb ", fraction);         // u"2 KB"
//   vx::TDecorator::FormatText(u"1,5", vx::vftFraction, u"", fraction);            // u"150": to be drawn as a fraction
//   auto cell = list.VirtualListForCell(2, 7);
//   vx::TPoint size = grid.Calculate(canvas, u"Müller", nullptr, *cell);           // pixels
//   grid.DrawCell(canvas, {0, 0, 90, 20}, u"Müller", nullptr, *cell, {vx::ddsSelected});
//
// Pitfalls:
//   - Without a format a text is shown as it is: a boolean "1" is "1", and only "ja" with a format of at most one line.
//   - Fractions are found by the digits of an Extended: 1,6 is one, 1,4 is not, since its decimals are 39.99... of 100
//     there. This is wanted: all parts of the library agree on it.
//   - A vftButton without text is none, and one under the mouse without an image for that shows nothing.
#pragma once

#include "platform/TCanvas.h"
#include "rendering/uDecoration/TDecorationList.h"
#include "rendering/uDecoration/TSortedTable.h"

namespace vx {

// What decorations make of a cell. Has no state; derived classes adapt it to a target, such as a grid.
class TDecorator : public TObject {
 public:
  String ClassName() const override { return u"TDecorator"; }

  // The width and height in pixels that the cell needs on the canvas, whose state is what it was afterwards. The list
  // is the virtual list of the cell, aObject what is attached to the cell (a TBitmap for vftGrafic) or nullptr. (0, 0)
  // if there is nothing to show and no limit asks for more; margins and edge stripes count only beside something.
  virtual TPoint Calculate(TCanvas& aCanvas, const String& aText, TObject* aObject, TDecorationList& aDecorationList);
  // Whether the edge stripes belong also to heads of columns that can be clicked.
  virtual bool ColumnClickSelection() const { return true; }
  // Paints the cell, which is aRect on the canvas, whose state is what it was afterwards. The list and aObject are
  // those of Calculate. In this order: the callback before it, edge stripes, background or head, image, graphic, text,
  // the lines above the row under the mouse, the callback behind it. Nothing clips to aRect: heads that can be clicked
  // reach 2 pixels beyond it, and turned texts and images are drawn whole.
  virtual void DrawCell(TCanvas& aCanvas, const TRect& aRect, const String& aText, TObject* aObject,
                        TDecorationList& aDecorationList, TDecorationDrawStates aState);
  // The target, not owned; nullptr for none.
  virtual TObject* GetComponent() const = 0;
  virtual void SetComponent(TObject* aComponent) = 0;
  // Sizes the columns and rows of the target to what they hold.
  virtual void Trim() = 0;

  // The text that is shown for a value; with aFraction set, a number whose last two characters are its decimals, to be
  // drawn as a fraction. What can't be read stays as it is, but an unknown vftStatus with a format, and vftImage,
  // vftToggle and vftButton, and vftTinyHTML and vftGrafic with a format, give the empty text. Never raises.
  //   vftBoolean     aFormat has the words for "0" and "1" in two lines
  //   vftInteger, vftFloat, vftFraction    a mask of FormatFloat, or "KB"; the value may have no thousands separators
  //   vftDate, vftTime, vftDateTime        a mask of FormatDateTime; "q" for a time as hours and minutes
  //   vftHour        "q": u"26:05", u":45", u"-1:30", nothing for 0; the hours wrap around at 65536
  //   vftCurrency    anything: with the sign of the currency; empty: without
  static String FormatText(const String& aValue, TVxFieldType aFieldType, std::u16string_view aFormat, bool& aFraction);
  // What a cell holds in words, for lists, hints and exports: for the indices of images their names, if the decoration
  // has a TVxImageList, joined by ", " in a single line; of a vftCommatext or vftTinyHTML the first of its lines in a
  // single line. Where that is not asked for, they are lines with carriage return and line feed between them and none
  // behind the last one. All else as FormatText.
  static String GetText(const String& aValue, const TDecoration& aDecoration, bool aSingleLine);

  // With dloBorder, black lines inside those sides of aRect, the list's cell, that are sides of the table.
  static void DrawBorder(TCanvas& aCanvas, const TRect& aRect, const TDecorationList& aDecorationList);
  // A line without its last point; the pen, but for its colour, is the canvas's.
  static void DrawLine(TCanvas& aCanvas, int X1, int Y1, int X2, int Y2, TColor aColor);

  // The scale from the screen to the list's device: how much finer the printer is, also for a metafile.
  static Extended FaktorHorz(const TDecorationList& aDecorationList) noexcept;
  static Extended FaktorVert(const TDecorationList& aDecorationList) noexcept;
  // Sets the size of the canvas's font, in points; for a metafile in the points of its own device.
  static void SetCanvasFontSize(TCanvas& aCanvas, const TDecorationList& aDecorationList, int aSize);
};

namespace uDecoration {
// Frees the shared decorators and the pictures of the sort arrows; their next use makes them again.
void FreeBuffersForLeakPrevention() noexcept;
}  // namespace uDecoration

}  // namespace vx
