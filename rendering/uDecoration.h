// Decorations: how the regions of a table look, and how the raw texts of their cells are to be read.
//
//   TDecoration              the look of one region: colours, font, field type, format, images, limits
//   TDecorationList          all decorations of a table by their precedence, and the look of the whole table
//   TDLRange, TDLRangeList   long runs of column or row decorations, which are searched by bisection
//   TDecorator               the text that a cell shows, the room that it needs, and its painting
//   TDecoratorStringGrid, TDecoratorListView, TDecoratorCanvas    the same for grids, list views and bare canvases:
//                            sizes of columns and rows, layout, mouse
//   TTableSizes, TCellSource the sizes, and how they are found; what decorators ask of whoever has the cells
//   TSortedTable             what a decorator asks of a table that can be sorted
//   TButtonInfo              the button that a cell of the type vftButton shows
//   DecorationTypes.h        the kinds of regions, sets of options, TColorRect, callbacks
//
// Example:
//   vx::TDecorationList list;                                     // owns; everything is a string at first
//   list.SetColCount(5);
//   list.SetRowCount(200);
//   list.CreateRange(vx::rtColumn, 2, -1, 2, -1)->SetFieldType(vx::vftDate);
//   list.GetCell(2, 7, true)->SetColor(vx::clYellow);
//   auto cell = list.VirtualListForCell(2, 7);                    // a list of the decorations that apply
//   cell->GetCount();                                             // 3
//   auto look = cell->Compress();                                 // one decoration of all three
//   look->GetFieldType();                                         // vx::vftDate
//   look->GetColor();                                             // vx::clYellow
//   vx::String text = list.GetCommatext();                        // the whole list, to be kept
//
// Coordinates are cells, the column first; a negative one counts from the end of the table: -1 is the last one.
//
// Threads: an object is for one at a time; different objects may be used at once. What is shared by the program, such
// as the pictures of arrows, is made under a lock.
//
// Pitfalls:
//   - White stands for no background and silver for no stripe colour: a decoration can't ask for either.
//   - A decoration whose range is changed stays where it is in its list, and a cell is found by its range as it was
//     written: the decoration of the cell (-1, -1) is none of the last cell's.
//   - Runs are a memory of the list: whoever changes a list calls RefreshRangeList before painting goes on, or cells
//     may miss decorations.
#pragma once

#include "rendering/uDecoration/DecorationTypes.h"
#include "rendering/uDecoration/TButtonInfo.h"
#include "rendering/uDecoration/TCellSource.h"
#include "rendering/uDecoration/TDLRange.h"
#include "rendering/uDecoration/TDecoration.h"
#include "rendering/uDecoration/TDecorationList.h"
#include "rendering/uDecoration/TDecorator.h"
#include "rendering/uDecoration/TDecoratorCanvas.h"
#include "rendering/uDecoration/TDecoratorListView.h"
#include "rendering/uDecoration/TDecoratorStringGrid.h"
#include "rendering/uDecoration/TSortedTable.h"
#include "rendering/uDecoration/TTableSizes.h"
