#include "platform/Text.h"

#include <algorithm>
#include <charconv>

#include "platform/CaseTables.h"

namespace vx {

namespace {

constexpr size_t kNotFound = std::u16string_view::npos;
// Shorter parts are looked for unit by unit: no text can make that slow.
constexpr size_t kShortPart = 8;

// Where the greatest suffix of Part begins, by the order of the units or, with Reversed, by the
// opposite order, and the period of that suffix.
struct TSuffix {
  size_t Begin;
  size_t Period;
};

TSuffix GreatestSuffix(std::u16string_view Part, bool Reversed) noexcept {
  size_t begin = 0, candidate = 1, offset = 0, period = 1;
  while (candidate + offset < Part.size()) {
    char16_t a = Part[begin + offset], b = Part[candidate + offset];
    if (a == b) {
      if (++offset == period) {
        candidate += period;
        offset = 0;
      }
    } else if ((a > b) != Reversed) {
      candidate += offset + 1;
      offset = 0;
      period = candidate - begin;
    } else {
      begin = candidate++;
      offset = 0;
      period = 1;
    }
  }
  return {begin, period};
}

// Two-way search: linear in both lengths, without memory of its own.
size_t FindLong(std::u16string_view Part, std::u16string_view Text, size_t From) noexcept {
  const size_t size = Part.size();
  TSuffix suffix = std::max(GreatestSuffix(Part, false), GreatestSuffix(Part, true),
                            [](const TSuffix& A, const TSuffix& B) { return A.Begin < B.Begin; });
  const size_t begin = suffix.Begin;
  size_t period = suffix.Period;
  const bool periodic = begin + period <= size && Part.substr(0, begin) == Part.substr(period, begin);
  if (!periodic) period = std::max(begin, size - begin) + 1;
  size_t known = 0;  // units at the front of Part that are known to match
  for (size_t at = From; at + size <= Text.size();) {
    size_t right = std::max(begin, known);
    while (right < size && Part[right] == Text[at + right]) ++right;
    if (right < size) {
      at += right - begin + 1;
      known = 0;
      continue;
    }
    size_t left = begin;
    while (left > known && Part[left - 1] == Text[at + left - 1]) --left;
    if (left <= known) return at;
    at += period;
    known = periodic ? size - period : 0;
  }
  return kNotFound;
}

size_t Find(std::u16string_view Part, std::u16string_view Text, size_t From) noexcept {
  return Part.size() <= kShortPart ? Text.find(Part, From) : FindLong(Part, Text, From);
}

String MapCase(const CaseMap::TTable& Table, const String& Text) {
  auto changes = [&](char16_t Unit) { return CaseMap::Map(Table, Unit) != Unit; };
  if (std::none_of(Text.begin(), Text.end(), changes)) return Text;
  return String::Build(Text.size(), [&](char16_t* Units) {
    std::transform(Text.begin(), Text.end(), Units, [&](char16_t Unit) { return CaseMap::Map(Table, Unit); });
  });
}

int DigitValue(char16_t Unit) noexcept {
  if (Unit >= u'0' && Unit <= u'9') return Unit - u'0';
  if (Unit >= u'a' && Unit <= u'f') return Unit - u'a' + 10;
  if (Unit >= u'A' && Unit <= u'F') return Unit - u'A' + 10;
  return 99;
}

}  // namespace

std::u16string_view TrimLeftView(std::u16string_view Text) noexcept {
  size_t first = 0;
  while (first < Text.size() && Text[first] <= u' ') ++first;
  return Text.substr(first);
}

std::u16string_view TrimRightView(std::u16string_view Text) noexcept {
  size_t size = Text.size();
  while (size > 0 && Text[size - 1] <= u' ') --size;
  return Text.substr(0, size);
}

std::u16string_view TrimView(std::u16string_view Text) noexcept { return TrimLeftView(TrimRightView(Text)); }

String TrimLeft(const String& Text) { return Text.Slice(Text.size() - static_cast<int>(TrimLeftView(Text).size())); }

String TrimRight(const String& Text) { return Text.Slice(0, static_cast<int>(TrimRightView(Text).size())); }

String Trim(const String& Text) {
  int first = Text.size() - static_cast<int>(TrimLeftView(Text).size());
  return Text.Slice(first, static_cast<int>(TrimView(Text).size()));
}

char16_t UpperCase(char16_t Unit) noexcept { return CaseMap::Upper(Unit); }
char16_t LowerCase(char16_t Unit) noexcept { return CaseMap::Lower(Unit); }
String UpperCase(const String& Text) { return MapCase(CaseMap::kUpper, Text); }
String LowerCase(const String& Text) { return MapCase(CaseMap::kLower, Text); }

String Copy(const String& Text, int Index, int Count) { return Text.Slice(std::max(Index, 1) - 1, std::max(Count, 0)); }

int Pos(std::u16string_view Part, std::u16string_view Text, int From) noexcept {
  if (Part.empty() || From < 1) return 0;
  size_t at = Find(Part, Text, static_cast<size_t>(From) - 1);
  return at == kNotFound ? 0 : static_cast<int>(at) + 1;
}

String ReplaceAll(const String& Text, std::u16string_view From, std::u16string_view To) {
  std::u16string_view text = Text;
  size_t at = From.empty() ? kNotFound : Find(From, text, 0);
  if (at == kNotFound) return Text;
  String result;
  result.Reserve(Text.size());
  size_t done = 0;
  for (; at != kNotFound; at = Find(From, text, done)) {
    result += text.substr(done, at - done);
    result += To;
    done = at + From.size();
  }
  result += text.substr(done);
  return result;
}

String IntToStr(int64_t Value) {
  char digits[24];
  const char* end = std::to_chars(digits, digits + sizeof digits, Value).ptr;
  return String::Build(static_cast<int>(end - digits),
                       [&](char16_t* Units) { std::copy(static_cast<const char*>(digits), end, Units); });
}

bool TryStrToInt(std::u16string_view Text, int& Value) noexcept {
  size_t blanks = std::min(Text.find_first_not_of(u' '), Text.size());
  Text.remove_prefix(blanks);
  bool negative = false;
  int base = 10;
  if (Text.starts_with(u'$')) {
    base = 16;
    Text.remove_prefix(1);
  } else if (Text.starts_with(u"0x") || Text.starts_with(u"0X")) {
    base = 16;
    Text.remove_prefix(2);
  } else if (Text.starts_with(u'-') || Text.starts_with(u'+')) {
    negative = Text.front() == u'-';
    Text.remove_prefix(1);
  }
  if (Text.empty()) return false;
  const int64_t limit = base == 16 ? int64_t{UINT32_MAX} : int64_t{INT32_MAX} + (negative ? 1 : 0);
  int64_t number = 0;
  for (char16_t unit : Text) {
    int digit = DigitValue(unit);
    if (digit >= base) return false;
    number = number * base + digit;
    if (number > limit) return false;
  }
  // Eight hexadecimal digits are the bits of the number: $FFFFFFFF is -1.
  Value = static_cast<int>(static_cast<uint32_t>(negative ? -number : number));
  return true;
}

int StrToIntDef(std::u16string_view Text, int Default) noexcept {
  int value;
  return TryStrToInt(Text, value) ? value : Default;
}

String Format(std::u16string_view Pattern, std::initializer_list<std::u16string_view> Values) {
  String result;
  const std::u16string_view* value = Values.begin();
  size_t done = 0;
  for (size_t at = Pattern.find(u'%'); at != kNotFound && at + 1 < Pattern.size(); at = Pattern.find(u'%', at)) {
    char16_t kind = Pattern[at + 1];
    bool filled = (kind == u's' || kind == u'd') && value != Values.end();
    if (filled || kind == u'%') {
      result += Pattern.substr(done, at - done);
      result += filled ? *value++ : std::u16string_view(u"%");
      done = at + 2;
    }
    at += filled || kind == u'%' ? 2 : 1;
  }
  result += Pattern.substr(done);
  return result;
}

}  // namespace vx
