#include "controls/uVxFilter/detail/TextTest.h"

#include <algorithm>

#include "core/uVxFunctions/Matching.h"
#include "platform/Scan.h"
#include "platform/TRegEx.h"
#include "platform/Text.h"
#include "platform/TextBuffer.h"

namespace vx::detail {

namespace {

// From so many values on those that a text has to equal or to contain are sought together.
constexpr size_t kManyValues = 8;
// A longer value is sought by StrMatch, whose time grows with the text alone, whatever repeats in both.
constexpr size_t kLongValue = 32;
constexpr std::u16string_view kAnything = u"[\\w\\W]*";

char16_t Fold(char16_t Unit) noexcept {
  if (Unit >= 128) return UpperCase(Unit);
  return Unit >= u'a' && Unit <= u'z' ? static_cast<char16_t>(Unit - 32) : Unit;
}

// How often a unit stands in cells, roughly: the less, the better it is to scan for.
int Frequency(char16_t Folded) noexcept {
  constexpr std::u16string_view kFromRare = u"QXJYVPÜÄÖZKFWBMOGC98765432UHDTL0A1SRIN E";
  const size_t place = kFromRare.find(Folded);
  return place == kFromRare.npos ? 0 : static_cast<int>(place) + 1;
}

// Takes Mark from the end or the beginning, and says whether it was there.
bool TakeFirst(std::u16string_view& Text, char16_t Mark) {
  if (!Text.starts_with(Mark)) return false;
  Text.remove_prefix(1);
  return true;
}
bool TakeLast(std::u16string_view& Text, char16_t Mark) {
  if (!Text.ends_with(Mark)) return false;
  Text.remove_suffix(1);
  return true;
}

}  // namespace

TValueTest::TValueTest(std::u16string_view Value, bool Strict) {
  if (Strict) {
    SetPattern(Value);
    return;
  }
  const bool isFirst = TakeFirst(Value, u'!');
  const bool isLast = TakeLast(Value, u'!');
  SetPattern(Concat({isFirst ? u"" : u"*", Value, isLast ? u"" : u"*"}));
}

void TValueTest::SetPattern(std::u16string_view Pattern) {
  const size_t first = Pattern.find_first_not_of(u'*');
  if (first == Pattern.npos) {
    FKind = Pattern.empty() ? vtEquals : vtAll;
    return;
  }
  const size_t end = Pattern.find_last_not_of(u'*') + 1;
  const bool isOpenFirst = first > 0, isOpenLast = end < Pattern.size();
  const std::u16string_view inner = Pattern.substr(first, end - first);
  FFolded.resize(inner.size());
  std::transform(inner.begin(), inner.end(), FFolded.begin(), Fold);
  if (inner.find(u'*') != inner.npos) {
    FKind = vtPattern;
    FPattern = Pattern;
  } else {
    FKind = isOpenFirst ? (isOpenLast ? vtContains : vtEnds) : (isOpenLast ? vtBegins : vtEquals);
    SetScanUnits();
    if (FKind == vtContains && inner.size() > kLongValue) FPattern = Pattern;
  }
}

void TValueTest::SetScanUnits() {
  auto rarest = std::min_element(FFolded.begin(), FFolded.end(),
                                 [](char16_t a, char16_t b) { return Frequency(a) < Frequency(b); });
  FScanAt = static_cast<size_t>(rarest - FFolded.begin());
  FScan[0] = *rarest;
  FScan[1] = LowerCase(*rarest);
  // Digraphs have a form between, with only their first letter big.
  const auto next = static_cast<char16_t>(*rarest + 1);
  FScan[2] = Fold(next) == *rarest ? next : FScan[1];
}

bool TValueTest::IsAt(const char16_t* Place) const noexcept {
  for (size_t i = 0; i < FFolded.size(); ++i) {
    if (Place[i] != FFolded[i] && Fold(Place[i]) != FFolded[i]) return false;
  }
  return true;
}

bool TValueTest::IsIn(std::u16string_view Text) const noexcept {
  if (Text.size() < FFolded.size()) return false;
  const char16_t* at = Text.data() + FScanAt;
  const char16_t* end = at + (Text.size() - FFolded.size() + 1);
  for (;; ++at) {
    at = FScan[1] == FScan[2] ? scan::FindEither(at, end, FScan[0], FScan[1])
                              : std::find_first_of(at, end, FScan, FScan + 3);
    if (at == end) return false;
    if (IsAt(at - FScanAt)) return true;
  }
}

bool TValueTest::Matches(std::u16string_view Text) const {
  switch (FKind) {
    case vtAll:
      return true;
    case vtContains:
      return IsIn(Text);
    case vtPattern:
      return StrMatch(Text, FPattern, false);
    default:
      break;
  }
  if (Text.size() < FFolded.size() || (FKind == vtEquals && Text.size() > FFolded.size())) return false;
  return IsAt(FKind == vtEnds ? Text.data() + (Text.size() - FFolded.size()) : Text.data());
}

TTextTest::TTextTest(std::span<const String> Values, bool Strict) {
  FValues.reserve(Values.size());
  for (const String& value : Values) FValues.emplace_back(value, Strict);
  if (FValues.size() < kManyValues) return;
  for (const TValueTest& test : TakeKind(TValueTest::vtEquals)) FEqualTexts.emplace_back(test.GetFolded());
  FEquals.insert(FEqualTexts.begin(), FEqualTexts.end());
  for (const TValueTest& test : TakeKind(TValueTest::vtContains)) FContains.Add(test.GetFolded());
  FContains.Finish();
}

std::vector<TValueTest> TTextTest::TakeKind(TValueTest::TKind Kind) {
  const auto first = std::stable_partition(FValues.begin(), FValues.end(),
                                           [Kind](const TValueTest& test) { return test.GetKind() != Kind; });
  std::vector<TValueTest> taken(first, FValues.end());
  FValues.erase(first, FValues.end());
  return taken;
}

bool TTextTest::IsOneOf(std::u16string_view Text) const {
  TTextBuffer folded;
  std::transform(Text.begin(), Text.end(), folded.Room(Text.size()), Fold);
  return FEquals.contains(folded.View());
}

bool TTextTest::Matches(std::u16string_view Text) const {
  if (!FEquals.empty() && IsOneOf(Text)) return true;
  if (!FContains.IsEmpty() && FContains.AreIn(Text, Fold)) return true;
  return std::any_of(FValues.begin(), FValues.end(), [&](const TValueTest& test) { return test.Matches(Text); });
}

String BuildExpression(std::span<const String> Values, bool Strict) {
  TTextBuffer result;
  bool isFirst = true;
  for (const String& value : Values) {
    std::u16string_view text = TrimView(value);
    if (text.empty()) continue;
    const char16_t mark = Strict ? u'*' : u'!';
    const bool isOpenLast = TakeLast(text, mark) == Strict;
    const bool isOpenFirst = TakeFirst(text, mark) == Strict;
    if (!isFirst) result.Add(u'|');
    isFirst = false;
    if (isOpenFirst) result.Add(kAnything);
    result.Add(TRegEx::Escape(text));
    if (isOpenLast) result.Add(kAnything);
  }
  return result.View().empty() ? String(kAnything) : result.ToString();
}

}  // namespace vx::detail
