#include "bench/values/LibraryPeers.h"

#include <fmt/format.h>
#include <time.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <locale>

namespace vx::bench {

namespace {

constexpr int kFirstDay = -25569;

class TGermanNumbers : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

bool ReadTime(const std::string& Text, const char* Mask, struct tm& Fields) {
  Fields = {};
  const char* end = strptime(Text.c_str(), Mask, &Fields);
  return end && *end == 0;
}

}  // namespace

int CStrToDay(const std::string& Text) {
  struct tm fields;
  return ReadTime(Text, "%d.%m.%Y", fields) ? fields.tm_mday : 0;
}

TDateTime CStrToDate(const std::string& Text) {
  struct tm fields;
  if (!ReadTime(Text, "%d.%m.%Y", fields)) return 0;
  return static_cast<TDateTime>(timegm(&fields) / 86400 - kFirstDay);
}

TDateTime CStrToTime(const std::string& Text) {
  struct tm fields;
  if (!ReadTime(Text, "%H:%M", fields)) return 0;
  return (fields.tm_hour * 60 + fields.tm_min) / 1440.0;
}

std::string CFormatTime(const char* Mask, TDateTime Value) {
  double days = std::floor(Value);
  time_t seconds =
      static_cast<time_t>(days + kFirstDay) * 86400 + static_cast<time_t>((Value - days) * 86400000 + 0.5) / 1000;
  struct tm fields;
  char text[80];
  gmtime_r(&seconds, &fields);
  return std::string(text, strftime(text, sizeof text, Mask, &fields));
}

std::string CDateToStr(TDateTime Date) { return CFormatTime("%d.%m.%Y", Date); }
std::string CTimeToStr(TDateTime Time) { return CFormatTime("%H:%M", Time); }

std::string CFormatFloat(const char* Mask, double Value) {
  char text[64];
  int length = std::snprintf(text, sizeof text, Mask, Value);
  return std::string(text, static_cast<size_t>(length));
}

template <typename T>
T FromChars(std::string_view Text) {
  T value{};
  const char* end = Text.data() + Text.size();
  auto [rest, error] = std::from_chars(Text.data(), end, value);
  return error == std::errc() && rest == end ? value : T{};
}
template int FromChars(std::string_view);
template double FromChars(std::string_view);
template Extended FromChars(std::string_view);

double GermanFromChars(std::string_view Text) {
  char plain[32];
  size_t length = 0;
  for (char c : Text) {
    if (c == '.') continue;
    if (length == sizeof plain) return 0;
    plain[length++] = c == ',' ? '.' : c;
  }
  return FromChars<double>({plain, length});
}

Extended CStrToExt(const std::string& Text) {
  char* end;
  Extended value = std::strtold(Text.c_str(), &end);
  return end != Text.c_str() && *end == 0 ? value : 0;
}

std::string FmtCurrToStr(double Value) {
  static const std::locale german(std::locale::classic(), new TGermanNumbers);
  return fmt::format(german, "{:.2Lf}", Value);
}

}  // namespace vx::bench
