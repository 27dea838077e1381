// Tables of cases, and many facts in one comparison.
//
//   for (const auto& [text, number] : TCases<String, int>{{u"1", 1}, {u"x", 7}})
//     EXPECT_EQ(StrToIntDef(text, 7), number) << text;
//   EXPECT_EQ((TFacts{list.Add(u"b"), list.IsIn(u"a"), list.GetText()}), "0 no b\r\n");
#pragma once

#include <charconv>
#include <concepts>
#include <iterator>
#include <ostream>
#include <ranges>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/String.h"

namespace vx {

// A row for each case: what is asked, then what has to come of it.
template <typename... T>
using TCases = std::vector<std::tuple<T...>>;

// Values, made in their order, as one text with blanks between: numbers in the shortest form that is exact, "yes" and
// "no", texts as UTF-8, items of a list with commas between. A variable that some of them change is read behind all.
class TFacts {
 public:
  template <typename... T>
  explicit TFacts(const T&... Values) {
    ((Put(Values), FText += ' '), ...);
    FText.pop_back();
  }
  friend bool operator==(const TFacts& Facts, std::string_view Text) { return Facts.FText == Text; }
  friend void PrintTo(const TFacts& Facts, std::ostream* Stream) { *Stream << '"' << Facts.FText << '"'; }

 private:
  void Put(const String& Text) { FText += Text.ToUtf8(); }
  void Put(std::string_view Text) { FText += Text; }
  template <typename T>
  requires std::is_arithmetic_v<T> || std::is_enum_v<T>
  void Put(T Value) {
    char digits[64];
    if constexpr (std::is_same_v<T, bool>)
      FText += Value ? "yes" : "no";
    else
      FText.append(digits, std::to_chars(digits, std::end(digits), +Value).ptr);
  }
  template <std::ranges::range T>
  requires(!std::convertible_to<T, String> && !std::convertible_to<T, std::string_view>) void Put(const T& Items) {
    for (bool isFirst = true; const auto& item : Items) {
      if (!std::exchange(isFirst, false)) FText += ',';
      Put(item);
    }
  }
  std::string FText;
};

}  // namespace vx
