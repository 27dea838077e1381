// One object for the whole life of the program: whoever runs last may still ask for it.
#pragma once

#include <cstddef>
#include <new>

namespace vx::detail {

template <typename T>
T& Immortal() noexcept {
  alignas(T) static std::byte storage[sizeof(T)];
  static T& object = *new (storage) T;
  return object;
}

}  // namespace vx::detail
