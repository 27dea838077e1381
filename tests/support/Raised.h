// The text of an error that is expected.
#pragma once

#include "platform/Exceptions.h"

namespace vx::test {

// What body raises as an E; "" if it raises nothing.
template <typename E, typename F>
String RaisedBy(F&& body) {
  try {
    body();
  } catch (const E& error) {
    return error.GetMessage();
  }
  return {};
}

}  // namespace vx::test
