#include "objects/uVxClassesString.h"

#include <algorithm>
#include <memory>

#include "platform/Text.h"

namespace vx {

namespace {

// A match as one number, so that numbers in order are matches in order: by position, and at one position the
// higher index of a search string first.
constexpr uint32_t kLastIndex = UINT32_MAX;
uint64_t MatchOf(int Pos, size_t Index) { return uint64_t{static_cast<uint32_t>(Pos)} << 32 | (kLastIndex - Index); }
int PosOf(uint64_t Match) { return static_cast<int>(Match >> 32); }
size_t IndexOf(uint64_t Match) { return kLastIndex - static_cast<uint32_t>(Match); }

std::vector<uint64_t> MatchesOf(const String& Text, std::span<const String> Holders, bool CaseSensitive) {
  std::vector<uint64_t> matches;
  const String text = CaseSensitive ? Text : LowerCase(Text);
  for (size_t i = 0; i < Holders.size(); ++i) {
    const String holder = CaseSensitive ? Holders[i] : LowerCase(Holders[i]);
    for (int pos = Pos(holder, text); pos > 0; pos = Pos(holder, text, pos + holder.size()))
      matches.push_back(MatchOf(pos, i));
  }
  std::sort(matches.begin(), matches.end());
  return matches;
}

}  // namespace

TVxStringReplacer& TVxStringReplacer::ReplaceString(const String& Text, std::span<const String> Holders,
                                                    std::span<const String> Replacers, bool CaseSensitive) {
  const String text = Text;  // NOLINT(performance-unnecessary-copy-initialization): may be a piece that goes
  iVars.clear();
  iList.Clear();
  iReplacerArrLength = static_cast<int>(Replacers.size());
  if (text.empty()) return *this;
  const auto holders = Holders.first(std::min(Holders.size(), Replacers.size()));
  Build(text, MatchesOf(text, holders, CaseSensitive), holders, Replacers);
  return *this;
}

void TVxStringReplacer::Build(const String& Text, std::span<const uint64_t> Matches, std::span<const String> Holders,
                              std::span<const String> Replacers) {
  // The text from a position up to another, which lies before the first where matches overlap.
  auto addConst = [&](int From, int Behind) {
    auto part = std::make_unique<TVxStringReplaceConst>(Copy(Text, From, Behind - From));
    iList.Add(part.get());
    (void)part.release();  // the list has it
  };
  iVars.reserve(Matches.size());
  int end = 1;  // the position behind the last match
  for (uint64_t match : Matches) {
    if (PosOf(match) != end) addConst(end, PosOf(match));
    const size_t index = IndexOf(match);
    auto part = std::make_unique<TVxStringReplaceVar>(Replacers[index], PosOf(match), Holders[index].size(),
                                                      static_cast<int>(index));
    iList.Add(part.get());
    iVars.push_back(part.release());
    iDirty = true;
    end = PosOf(match) + iVars.back()->GetHolderLng();
  }
  if (end <= Text.size()) addConst(end, Text.size() + 1);
}

TVxStringReplacer& TVxStringReplacer::Replace(std::span<const String> Replacers) {
  if (Replacers.size() < static_cast<size_t>(iReplacerArrLength)) return *this;
  for (TVxStringReplaceVar* part : iVars) part->SetText(Replacers[static_cast<size_t>(part->GetArrayIndex())]);
  return *this;
}

TVxStringReplacer& TVxStringReplacer::ReplaceItemText(int ArrayIndex, const String& Text) {
  const String text = Text;  // NOLINT(performance-unnecessary-copy-initialization): may be a placeholder's
  for (TVxStringReplaceVar* part : iVars) {
    if (part->GetArrayIndex() == ArrayIndex) part->SetText(text);
  }
  return *this;
}

String TVxStringReplacer::ToString() const {
  size_t total = 0;
  auto textOf = [](const TObject* Part) { return static_cast<const TVxStringReplacePart*>(Part)->GetText().view(); };
  for (const TObject* part : iList.Items()) total += textOf(part).size();
  return String::Build(total, [&](char16_t* target) {
    for (const TObject* part : iList.Items()) {
      const std::u16string_view text = textOf(part);
      target = std::copy(text.begin(), text.end(), target);
    }
  });
}

String VxStringReplace(const String& Text, std::span<const String> Holders, std::span<const String> Replacers) {
  return TVxStringReplacer().ReplaceString(Text, Holders, Replacers, true).ToString();
}

}  // namespace vx
