// Templates by the rules as they are told, one match at a time.
#pragma once

#include <vector>

#include "objects/uVxClassesString.h"
#include "platform/Text.h"

namespace vx::fuzz {

struct TPlainPart {
  String Text;
  int Pos, Length, Index;
  bool operator==(const TPlainPart&) const = default;
};
using TPlainParts = std::vector<TPlainPart>;

inline TPlainParts PlainParts(const String& text, std::span<const String> holders, std::span<const String> replacers,
                              bool caseSensitive) {
  TPlainParts list;
  if (text.empty()) return list;
  const std::u16string in(caseSensitive ? text.view() : LowerCase(text).view());
  for (size_t i = 0; i < std::min(holders.size(), replacers.size()); ++i) {
    const std::u16string holder(caseSensitive ? holders[i].view() : LowerCase(holders[i]).view());
    for (size_t at = in.find(holder); !holder.empty() && at != in.npos; at = in.find(holder, at + holder.size())) {
      size_t place = 0;
      while (place < list.size() && list[place].Pos < static_cast<int>(at) + 1) ++place;
      list.insert(list.begin() + static_cast<ptrdiff_t>(place),
                  {replacers[i], static_cast<int>(at) + 1, static_cast<int>(holder.size()), static_cast<int>(i)});
    }
  }
  if (list.empty()) return {{text, 0, 0, -1}};
  TPlainParts all;
  if (list[0].Pos > 1) all.push_back({Copy(text, 1, list[0].Pos - 1), 0, 0, -1});
  for (size_t i = 0; i < list.size(); ++i) {
    all.push_back(list[i]);
    const int end = list[i].Pos + list[i].Length;
    const int next = i + 1 < list.size() ? list[i + 1].Pos : text.size() + 1;
    if (end != next && (i + 1 < list.size() || end <= text.size()))
      all.push_back({Copy(text, end, next - end), 0, 0, -1});
  }
  return all;
}

inline TPlainParts PartsOf(const TVxStringReplacer& replacer) {
  TPlainParts result;
  for (int i = 0; i < replacer.GetCount(); ++i) {
    const TVxStringReplacePart& part = replacer.GetPart(i);
    const auto* holder = dynamic_cast<const TVxStringReplacer::TVxStringReplaceVar*>(&part);
    TPlainPart& plain = result.emplace_back();
    plain.Text = part.GetText();
    plain.Pos = part.GetPos();
    plain.Length = part.GetHolderLng();
    plain.Index = holder ? holder->GetArrayIndex() : -1;
  }
  return result;
}

}  // namespace vx::fuzz
