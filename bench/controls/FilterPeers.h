// What others do with the cells of the filter's benchmark; each in a source of its own.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vx::bench {

// PCRE2 itself: an expression without regard to case for Unicode, compiled into instructions.
class TPcre2Expression {
 public:
  explicit TPcre2Expression(std::u16string_view Pattern);
  ~TPcre2Expression();
  bool IsMatch(std::u16string_view Text) const;
  // The same by PCRE2's fastest way, which takes the text to be whole UTF-16 without a look.
  bool IsMatchOfWhole(std::u16string_view Text) const;

 private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

// A table of three columns behind a proxy that takes the rows whose columns contain Words, regardless of case.
class TQtFilter {
 public:
  TQtFilter(const std::vector<std::u16string>* Columns, const std::u16string* Words);
  ~TQtFilter();
  // Seconds for the whole table; Rows becomes how many are left.
  double Filter(int& Rows);

 private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

}  // namespace vx::bench
