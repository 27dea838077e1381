// One place for the objects of which a program has one each.
//
//   GSingletons                                the objects by their names
//   uSingleton::FreeBuffersForLeakPrevention   frees them
//
// Example:
//   auto& mailer = vx::GSingletons()[u"TMailer"];
//   if (!mailer) mailer = std::make_unique<TMailer>();
//   static_cast<TMailer&>(*mailer).Send(letter);
//
// The library keeps nothing of its own here: names are the application's to choose. Pitfall: there is no
// lock; what several threads use has to be put in before they start.
#pragma once

#include <map>
#include <memory>

#include "platform/String.h"
#include "platform/TObject.h"

namespace vx {

using TSingletons = std::map<String, std::unique_ptr<TObject>>;

// The dictionary, which owns its objects. It is built at first use and freed when the program ends.
TSingletons& GSingletons();

namespace uSingleton {

// Frees the dictionary with all its objects, in the order of their names; the next use, even by one of
// their destructors, begins a new one.
void FreeBuffersForLeakPrevention() noexcept;

}  // namespace uSingleton

}  // namespace vx
