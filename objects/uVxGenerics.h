// Lists of values of any type, and a search key.
//
//   GList<T>                                   a list of values or pointers
//   GSortList<T>                               one that keeps its items in order
//   TVxDataIdSingleton                         a TVxDataId to search sorted lists with
//   uVxGenerics::FreeBuffersForLeakPrevention  frees that key
//
// Example (rows ordered by their first cell):
//   vx::GSortList<vx::TVxStringList*> rows([](vx::TVxStringList* a, vx::TVxStringList* b) {
//     return vx::AnsiCompareText(a->Get(0), b->Get(0));
//   });
//   rows.Add(&meier);
//   rows.AddUnique(&meier);                    // -1: it is there
//   for (vx::TVxStringList* row : rows.Items()) Print(*row);
//
// Threads: several may read one at once through its const members; who changes it has to be alone with it.
//
// Pitfalls:
//   - Lists of pointers free nothing. A derived list may do so in Notify; it then has to call Clear in
//     its destructor.
//   - Two items are the same to a GSortList if its comparer says 0.
#pragma once

#include "objects/uVxGenerics/GList.h"
#include "objects/uVxGenerics/GSortList.h"
#include "objects/uVxGenerics/TVxDataIdSingleton.h"
