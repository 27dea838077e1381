// Where the nodes of a document and their texts lie. Internal to Xml.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "services/Xml/TXmlDocument.h"
#include "services/Xml/detail/XmlScanner.h"

namespace vx {

namespace detail {

// Gives pieces of blocks, which all go with it.
class TXmlBlocks {
 public:
  // Aligned as a pointer has to be.
  void* Take(size_t Size) {
    const size_t size = (Size + alignof(void*) - 1) / alignof(void*) * alignof(void*);
    if (size > FLeft) Open(size);
    FLeft -= size;
    return FEnd - FLeft - size;
  }

 private:
  static constexpr size_t kFirst = 2048, kLargest = 256 * 1024;
  void Open(size_t Size) {
    FNextSize = FBlocks.empty() ? kFirst : FNextSize < kLargest ? 2 * FNextSize : FNextSize;
    const size_t size = Size > FNextSize ? Size : FNextSize;
    FBlocks.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
    FEnd = FBlocks.back().get() + size;
    FLeft = size;
  }
  std::vector<std::unique_ptr<std::byte[]>> FBlocks;
  std::byte* FEnd = nullptr;
  size_t FLeft = 0, FNextSize = 0;
};

}  // namespace detail

struct TXmlDocument::TMemory {
  detail::TXmlBlocks Blocks;
  detail::TXmlTexts Texts;  // of the file that was read
};

}  // namespace vx
