// What the lists by id share: many entries at once.
#pragma once

#include <span>
#include <vector>

namespace vx::detail {

// The values of two lists by id as those of one, in the order of the ids; where both have an id, Take
// chooses. Ids ascend in both, each with the value at the same place.
template <typename T, typename TTake>
std::vector<T> MergeById(std::span<const int> IdsA, std::span<const T> ValuesA, std::span<const int> IdsB,
                         std::span<const T> ValuesB, TTake Take) {
  std::vector<T> result;
  result.reserve(IdsA.size() + IdsB.size());
  size_t a = 0, b = 0;
  while (a < IdsA.size() && b < IdsB.size()) {
    if (IdsA[a] < IdsB[b]) {
      result.push_back(ValuesA[a++]);
    } else if (IdsA[a] > IdsB[b]) {
      result.push_back(ValuesB[b++]);
    } else {
      result.push_back(Take(ValuesA[a++], ValuesB[b++]));
    }
  }
  for (; a < IdsA.size(); ++a) result.push_back(ValuesA[a]);
  for (; b < IdsB.size(); ++b) result.push_back(ValuesB[b]);
  return result;
}

}  // namespace vx::detail
