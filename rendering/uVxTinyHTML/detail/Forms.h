// What the parser, the readers and the writers of rich texts share.
#pragma once

#include "rendering/uVxTinyHTML/Layout.h"

namespace vx::detail {

// Appends an object to a list that owns; if that raises, the object is freed.
template <typename T>
void AddOwned(TObjectList& List, std::unique_ptr<T> Object) {
  List.Add(Object.get());
  static_cast<void>(Object.release());  // the list's
}

// The page on which a text is laid out to be written in another form.
inline constexpr TRect kPage{0, 0, 1000, 1000};

// Lines in the normal form of the dialect, against the font that the text begins in.
String WriteTinyHTML(const TDecoLines& Lines, const TFont& Base);

}  // namespace vx::detail
