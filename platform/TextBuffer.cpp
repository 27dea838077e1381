#include "platform/TextBuffer.h"

namespace vx {

void TTextBuffer::Grow(size_t More) {
  const size_t capacity = std::max(FCount + More, 2 * FCapacity);
  std::unique_ptr<char16_t[]> units(new char16_t[capacity]);
  std::copy_n(FUnits, FCount, units.get());
  FLong = std::move(units);
  FUnits = FLong.get();
  FCapacity = capacity;
}

}  // namespace vx
