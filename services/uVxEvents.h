// Signals: events that any number of handlers hear.
//
//   TNotifySignal, TSimpleSignal, TProgressSignal, TIdSignal              the signals, by what they hand over
//   TNotifyEventHandler, TSimpleEventHandler, ...                         one handler of each
//   TNotifyHandlerList, TNotifyHandlerEnumerator                          the list of handlers and a walk through it
//   TProgressString, TMouseDownWrapper, TMouseMoveWrapper                 values to hand over as EventArgs
//
// Example:
//   vx::TIdSignal chosen;
//   chosen.Add(vx::TIdEvent::Of<&TPatientView::Show>(view));
//   chosen.Emit(&list, 4711);                                  // view.Show(&list, 4711)
//   chosen.Remove(vx::TIdEvent::Of<&TPatientView::Show>(view));
//   int last = 0;
//   vx::TConnection heard = chosen.Connect([&](vx::TObject*, int id) { last = id; });   // until heard ends
//
// Handlers are called in the order in which they were added. While a signal is emitted they may do what they
// like with it: one that is removed before its turn is not called, one that is added is not called in this
// emission, one that removes itself or others causes no skip and no second call, one that emits the signal
// again starts an emission of its own. What one throws ends the emission and reaches the caller of Emit.
//
// Pitfalls:
//   - A handler's object must live until it is removed. That of Connect removes itself (platform/Connection.h).
//   - The list holds the newest handler first: the first one that was added has the highest index.
//   - One thread at a time.
#pragma once

#include "services/uVxEvents/EventArgs.h"
#include "services/uVxEvents/HandlerList.h"
#include "services/uVxEvents/Signals.h"
