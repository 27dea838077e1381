// Calculates with hours and money, for amounts_vs_python.sh: reads lines of a routine and its arguments between tabs
// from standard input, and writes for each what comes of it; "!" for what is refused or raises.
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "core/HourPeriods.h"
#include "core/Money.h"
#include "platform/Exceptions.h"

namespace vx::oracle {
namespace {

// The arguments of a line, counted from 1, as what a routine takes; a factor takes two.
struct TLine {
  explicit TLine(const std::string& Text) {
    std::istringstream stream(Text);
    for (std::string word; std::getline(stream, word, '\t');) Words.push_back(word);
  }
  String Text(size_t At) const { return At < Words.size() ? String::FromUtf8(Words[At]) : String(); }
  int64_t Number(size_t At) const { return std::stoll(Words.at(At)); }
  int Int(size_t At) const { return static_cast<int>(Number(At)); }
  Currency Amount(size_t At) const { return Currency::FromUnits(Number(At)); }
  THourAmount Hours(size_t At) const { return THourAmount::FromMinutes(Number(At)); }
  TDecimalFactor Factor(size_t At) const { return TDecimalFactor::Of(Number(At), Int(At + 1)); }
  TMoneyRounding Rounding(size_t At) const { return static_cast<TMoneyRounding>(Int(At)); }
  TDateTime Moment(size_t At) const { return static_cast<TDateTime>(Number(At)) / 1440; }
  std::vector<std::string> Words;
};

std::string Shown(const String& Value) { return Value.ToUtf8(); }
std::string Shown(Currency Value) { return std::to_string(Value.Units); }
std::string Shown(THourAmount Value) { return std::to_string(Value.Minutes); }
std::string Shown(TDecimalFactor Value) { return DecimalFactorToStr(Value, u'.').ToUtf8(); }
std::string Shown(const TPeriodPart& Part) {
  return (Part.IsNight ? "N" : "D") + std::to_string(Part.WeekDay) + ',' + Shown(Part.Clock) + ',' +
         Shown(Part.Elapsed);
}
template <typename T>
std::string Shown(const std::vector<T>& Values) {
  std::string text;
  for (const T& value : Values) text += Shown(value) + ' ';
  return text;
}

std::string Weighted(const TLine& Line) {
  std::vector<int64_t> weights;
  for (size_t i = 3; i < Line.Words.size(); ++i) weights.push_back(Line.Number(i));
  return Shown(SplitAmount(Line.Amount(1), weights, Line.Int(2)));
}
std::string Split(const TLine& Line) {
  const THourPeriod period{Line.Moment(1), Line.Moment(2), Line.Int(3) != 0, Line.Int(4) != 0};
  return Shown(SplitPeriod(period, {pcMidnight, pcNight}, {Line.Int(5), Line.Int(6)}));
}

using TRoutine = std::string (*)(const TLine&);
const std::map<std::string, TRoutine> kRoutines = {
    {"product", [](const TLine& l) { return Shown(Product(l.Amount(1), l.Factor(2), l.Int(4), l.Rounding(5))); }},
    {"wage", [](const TLine& l) { return Shown(Product(l.Amount(1), l.Hours(2), l.Int(4), l.Rounding(5))); }},
    {"quotient", [](const TLine& l) { return Shown(Quotient(l.Amount(1), l.Factor(2), l.Int(4), l.Rounding(5))); }},
    {"percent", [](const TLine& l) { return Shown(PercentOf(l.Amount(1), l.Factor(2), l.Int(4), l.Rounding(5))); }},
    {"with", [](const TLine& l) { return Shown(WithPercent(l.Amount(1), l.Factor(2), l.Int(4), l.Rounding(5))); }},
    {"without",
     [](const TLine& l) { return Shown(WithoutPercent(l.Amount(1), l.Factor(2), l.Int(4), l.Rounding(5))); }},
    {"ratio", [](const TLine& l) { return Shown(Ratio(l.Amount(1), l.Amount(2), l.Int(4), l.Rounding(5))); }},
    {"equal", [](const TLine& l) { return Shown(SplitAmount(l.Amount(1), l.Int(3), l.Int(2))); }},
    {"weighted", Weighted},
    {"industry", [](const TLine& l) { return std::to_string(l.Hours(1).ToIndustry()); }},
    {"minutes", [](const TLine& l) { return Shown(THourAmount::FromIndustry(l.Number(1))); }},
    {"hourtext", [](const TLine& l) { return Shown(HourAmountToStr(l.Hours(1))); }},
    {"industrytext", [](const TLine& l) { return Shown(HourAmountToIndustryStr(l.Hours(1))); }},
    {"hours", [](const TLine& l) { return Shown(StrToHourAmount(l.Text(1))); }},
    {"industryhours", [](const TLine& l) { return Shown(StrToHourAmount(l.Text(1), {hroIndustry})); }},
    {"money", [](const TLine& l) { return Shown(StrToMoney(l.Text(1))); }},
    {"factor", [](const TLine& l) { return Shown(StrToDecimalFactor(l.Text(1))); }},
    {"split", Split}};

}  // namespace
}  // namespace vx::oracle

int main() {
  std::ios::sync_with_stdio(false);
  for (std::string text; std::getline(std::cin, text);) {
    const vx::oracle::TLine line(text);
    try {
      std::cout << vx::oracle::kRoutines.at(line.Words.at(0))(line) << '\n';
    } catch (const vx::Exception&) {
      std::cout << "!\n";
    }
  }
}
