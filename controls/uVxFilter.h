// The filter bar: a cell above each column of a table, whose values tell which rows are on show.
//
//   TVxFilter          the bar: makes a view hide and show its rows
//   TVxFilterItem      what is to be found in one column; TVxFilterItems: all of them
//   TVxFilterCore      how an item tests and shows, by the type of its column:
//     TVxFilterNone      nothing is tested
//     TVxFilterData      the object beside a cell
//     TVxFilterText      texts, with TVxFilterTextBox, TVxFilterCBox and TVxFilterCheckCBox
//     TVxFilterImage     images, with TVxFilterImgDraw and TVxFilterImgList
//   TVxFilterForm      the window that comes up below an item
//   TVxPaintBox        what the bar is as a control
//   TFilterType, TFilterMultiSelect
//
// Example:
//   vx::TCsvView view;
//   for (auto* line : {u"Meier,Bonn", u"Müller,Köln", u"Obermeier,Bonn"}) view.AddRow(line);
//   vx::TVxFilter bar;
//   for (int i = 0; i < view.FieldCount(); ++i) bar.GetItems().Add();
//   bar.SetFilter(&view);
//   bar.GetItems().Get(0).SetValue(u"meier");
//   bar.Filter(&view);
//   view.GetCount();                              // 2
//   bar.GetItems().Get(0).SetValue(u"!meier");    // begins with it; see uVxFilter/TVxFilterText.h
//   bar.Filter(&view);
//   view.GetCell(0, 0);                           // u"Meier"
//   bar.Reset();
//   bar.Filter(&view);
//   view.GetCount();                              // 3
//
// Without a type of its own (ftAuto) an item goes by its column's: numbers and texts are typed where the column has
// more than seven different values and chosen from a list otherwise; truth values and states are always chosen, rich
// texts and commatexts always typed. Columns of the fixed border and graphics are never filtered.
//
// One thread at a time. Pitfalls:
//   - The bar filters nothing by itself: who hears of a change (OnChanged, SigChanged) calls Filter.
//   - A bar makes no items: as many as are added follow the view, and those beyond its columns are dropped.
//   - An item looks at the values of its column when the view is set, not when rows change.
//   - The view has to live as long as it is bound; SetFilter(nullptr) unbinds it.
#pragma once

#include "controls/uVxFilter/FilterTypes.h"
#include "controls/uVxFilter/TVxFilter.h"
#include "controls/uVxFilter/TVxFilterCore.h"
#include "controls/uVxFilter/TVxFilterForm.h"
#include "controls/uVxFilter/TVxFilterImage.h"
#include "controls/uVxFilter/TVxFilterItem.h"
#include "controls/uVxFilter/TVxFilterText.h"
#include "controls/uVxFilter/TVxPaintBox.h"
#include "tables/uTypeCsv.h"
