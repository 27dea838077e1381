// Many texts sought in a text at once, in a time that grows with that text alone.
#pragma once

#include <bitset>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vx::detail {

// The texts as a tree of their units, whose nodes know where to go on when the next unit differs.
class TManyTexts {
 public:
  bool IsEmpty() const noexcept { return FNodes.size() == 1; }
  // Not the empty text. To be followed by Finish.
  void Add(std::u16string_view Text);
  void Finish();
  // Whether Text, whose units Fold maps to those of the texts, has any of them in it.
  template <typename F>
  bool AreIn(std::u16string_view Text, F Fold) const {
    uint32_t node = 0;
    for (char16_t unit : Text) {
      const char16_t folded = Fold(unit);
      if (node == 0 && !FFirst[folded & 0xFF]) continue;
      node = Next(node, folded);
      if (FNodes[node].IsEnd) return true;
    }
    return false;
  }

 private:
  struct TNode {
    uint32_t Back = 0;   // the longest end of this node's text that is the beginning of another one
    bool IsEnd = false;  // one of the texts ends here
  };
  static uint64_t Key(uint32_t Node, char16_t Unit) noexcept { return uint64_t{Node} << 16 | Unit; }
  uint32_t Next(uint32_t Node, char16_t Unit) const;

  std::vector<TNode> FNodes{1};
  std::unordered_map<uint64_t, uint32_t> FChildren;
  std::bitset<256> FFirst;  // the low bytes of the first units
};

}  // namespace vx::detail
