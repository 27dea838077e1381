// Chains, lists by id and small lists of objects.
//
//   TVxChainList              a chain of pointers that remembers where it was last
//   TVxThreadList             the same behind a lock
//   TVxIdValueList            a number, or a date, for each id
//   TVxIdObjectList           an object for each id
//   TVxObjectListSimple       a plain list of objects
//   TVxObjectListSimpleSort   one that keeps its objects in the order of a number that each object gives
//
// Example (a queue of jobs that several threads fill and empty):
//   vx::TVxThreadList queue;
//   queue.Add(new TJob);                                    // TJob derives from TObject, and from it alone
//   if (auto* job = static_cast<TJob*>(queue.PopFirst())) {  // the caller's now
//     job->Run();
//     delete job;
//   }
//
// Pitfalls:
//   - Chains hold pointers without knowing of what: they free none. What shall be freed as an object has
//     to be put in as TObject*.
//   - Only TVxThreadList may be changed by several threads at once.
//   - Reading a TVxChainList by index moves its cache: even that is a change.
#pragma once

#include "objects/uVxContnrs/TVxChainList.h"
#include "objects/uVxContnrs/TVxIdObjectList.h"
#include "objects/uVxContnrs/TVxIdValueList.h"
#include "objects/uVxContnrs/TVxObjectListSimple.h"
#include "objects/uVxContnrs/TVxThreadList.h"
