// A masked editor told rule by rule, on plain texts and exact numbers, for comparisons with the real one. German
// settings, code units of ASCII, no exponents, no hexadecimal digits, and numbers of up to 12 digits only.
#pragma once

#include <algorithm>
#include <chrono>
#include <climits>
#include <cstring>
#include <map>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include "controls/uVxMaskEdit.h"

namespace vx::fuzz {

struct TPlainMask {
  __extension__ using TNumber = __int128;
  using TValue = std::optional<TNumber>;
  using TMatch = std::smatch;
  static constexpr TNumber kOne = 1000000000000;  // numbers are counted in parts of it

  TVxMaskMode Mode = mmNone;
  std::string Mask, Text;
  std::chrono::year_month_day Today{};
  int Start = 0, Length = 0, MaxLength = 0, Digits = 0, Zeros = 0;
  int Low = 0, High = 0;  // whole numbers, days, or minutes
  TVxLimitModes Limits = lmNone;
  bool ReadOnly = false, Valid = true, AllowEmpty = false, DigitLimit = false, Tausend = false;

  bool IsNumber() const { return Mode == mmInteger || Mode == mmFloat || Mode == mmCurrency || Mode == mmPerc; }
  bool IsNoDate(const std::string& Of) const { return (Mode == mmDate || Mode == mmMonth) && Of == Zero(); }
  int Size() const { return static_cast<int>(Text.size()); }
  int Count(char c) const { return static_cast<int>(std::count(Text.begin(), Text.end(), c)); }

  // --- What the user does.
  void Enter(TVxMaskMode AMode) {
    Mode = AMode;
    if (Mode == mmHour || Mode == mmTime || Mode == mmSecond) MaxLength = 10;
    Text = IsNumber() ? "" : Zero();
    Start = Length = 0;
    Valid = true;
  }
  void Select(int AStart, int ALength) {
    Start = std::clamp(AStart, 0, Size());
    Length = std::clamp(ALength, 0, Size() - Start);
  }
  void Move(int To) { Select(To, 0); }
  void Exit() {
    if (!ReadOnly) Valid = Judge(true);
  }
  void Paste(std::string Pasted) {
    if (ReadOnly) return;
    if (MaxLength > 0)
      Pasted.resize(std::min(Pasted.size(), static_cast<size_t>(std::max(0, MaxLength - Size() + Length))));
    if (Length == 0 && Pasted.empty()) return;
    Put(Pasted);
    Valid = Judge(false);
  }
  void Key(char c) {
    if (ReadOnly || c == 27 || c == 0 || c == 1 || c == 3 || c == 22) return;
    if (c == 9 || c == 13) return Exit();
    const std::string before = Text;
    if (c != 8) {
      Input(c);
    } else if (Length > 0) {
      Put("");
    } else if (Start > 0) {
      Select(Start - 1, 1);
      const int at = Start;
      Put(Mode == mmMask && at < static_cast<int>(Zero().size()) ? Zero().substr(at, 1) : "");
      Move(at);
    }
    if (Text != before) Valid = Judge(false);
  }
  void Delete() {
    if (ReadOnly) return;
    const std::string before = Text;
    const int at = Start;
    if (Mode == mmMask) {
      Select(at, 1);
      Put(Length > 0 && at < static_cast<int>(Zero().size()) ? Zero().substr(at, 1) : "");
    } else {
      if (Length == 0) Select(at, 1);
      Put("");
    }
    Move(at);
    if (Text != before) Valid = Judge(false);
  }
  void Arrow(int Step) {
    if (Mode == mmNone || Mode == mmMask) return Move(Start + Length - Step);  // the widget's own
    const TValue value = ReadOnly || !Valid || Text.empty() || IsNoDate(Text) ? TValue() : Read(Text, true);
    if (!value) return;
    const std::string text = Stepped(*value, Step);
    if (MaxLength > 0 && static_cast<int>(text.size()) > MaxLength) return;
    const bool isNew = text != Text;
    Text = text;
    Move(Start);
    if (isNew) Valid = Judge(false);
  }

  // --- Typing.
  void Put(const std::string& New) {
    Text.replace(static_cast<size_t>(Start), static_cast<size_t>(Length), New);
    Move(Start + static_cast<int>(New.size()));
  }
  void Input(char c) {
    if (Length > 0) Put("");
    if (c < 32) return;
    const std::string one(1, c);
    const bool isDigit = c >= '0' && c <= '9', isSign = c == '+' || c == '-';
    const bool hasRoom = MaxLength == 0 || Size() < MaxLength;
    if (Mode == mmNone && hasRoom) Put(one);
    if (IsNumber()) {
      const bool isOpen = Mode != mmInteger && Count(',') == 0;
      if (MaxLength > 0 && Size() > MaxLength - (Mode == mmInteger || isOpen ? 1 : 0)) return;
      if (isDigit || (isSign && Start == 0 && Count(c) == 0) || (c == ',' && isOpen)) Put(one);
    }
    if (Mode == mmDate || Mode == mmMonth) {
      const bool isDate = Mode == mmDate;
      if (hasRoom && Start < (isDate ? 10 : 7) && (isDigit || (c == '.' && Count(c) < (isDate ? 2 : 1)))) Put(one);
    }
    if ((Mode == mmTime || Mode == mmSecond) && hasRoom) {
      if (isDigit) Put(one);
      if ((c == ',' || c == ':') && Count(':') < (Mode == mmTime ? 1 : 2)) Put(":");
    }
    if (Mode == mmHour && (MaxLength == 0 || static_cast<int>(Normal(Text + c).size()) <= MaxLength)) {
      const bool isNegative = Text.starts_with('-');
      const int at = Start;
      if (c == '+' && isNegative) {
        Text.erase(0, 1);
        Move(at);
      } else if (c == '-' && !isNegative && hasRoom) {
        Text = "-" + Text;
        Move(at + 1);
      } else if (hasRoom && (isDigit || ((c == ',' || c == ':') && Count(':') < 2))) {
        Put(isDigit ? one : ":");
      }
    }
    if (Mode == mmMask) InputMask(c);
  }
  void InputMask(char c) {
    const auto places = Places();
    size_t at = static_cast<size_t>(Start);
    while (at < places.size() && c != ' ' && places[at].second == '_' && places[at].first != '!') ++at;
    if (at >= places.size() || !Takes(places[at], c)) return;
    if (at >= Text.size() && MaxLength > 0 && static_cast<int>(at) >= MaxLength) return;
    while (Text.size() < at) Text += Zero()[Text.size()];
    Select(static_cast<int>(at), 1);
    Put(std::string(1, c));
  }

  // --- Templates.
  std::vector<std::pair<char, char>> Places() const {
    std::vector<std::pair<char, char>> places;
    for (size_t i = 0; i < Mask.size(); ++i) {
      const bool isPrefix = Mask[i] == '!' || Mask[i] == '\\';
      if (isPrefix && i + 1 == Mask.size()) break;
      places.emplace_back(isPrefix ? Mask[i] : 0, Mask[isPrefix ? i + 1 : i]);
      i += isPrefix;
    }
    return places;
  }
  static bool Takes(std::pair<char, char> Place, char c) {
    if (Place.first == '!') return c != Place.second;
    if (Place.first == '\\') return c == Place.second;
    static const std::pair<std::string, std::string> classes[] = {
        {"#", "[-+0-9]"}, {"*", "[-+1-9]"}, {"0", "[0-9]"}, {"1", "[01]"},         {"9", "[1-9]"},     {"<", "[a-z]"},
        {">", "[A-Z]"},   {"_", " "},       {"v", "[-+]"},  {"Aa", "[A-Za-z0-9]"}, {"Ll", "[A-Za-z]"}, {"Cc", "[^]"}};
    for (const auto& [units, taken] : classes)
      if (units.find(Place.second) != units.npos) return std::regex_match(std::string(1, c), Form(taken));
    return c == Place.second;
  }

  // --- Values.
  std::string Zero() const {
    std::string literal;
    switch (Mode) {
      case mmDate:
        return "00.00.0000";
      case mmMonth:
        return "00.0000";
      case mmHour:
        return "0:00";
      case mmTime:
        return "00:00";
      case mmSecond:
        return "00:00:00";
      case mmMask:
        for (const auto& [prefix, unit] : Places())
          literal += prefix == '\\' || (prefix == 0 && !std::strchr("#*019<>AaCcLl_v", unit)) ? unit : '_';
        return literal;
      default:
        return IsNumber() ? "0" : "";
    }
  }
  bool Judge(bool Repair) {
    std::string text = Text;
    bool isValid = true;
    if (Mode == mmMask) {
      const auto places = Places();
      isValid = text.size() <= places.size();
      for (size_t i = 0; isValid && i < text.size(); ++i) isValid = Takes(places[i], text[i]);
    } else if (Mode != mmNone) {
      if (text.empty() && Repair && !AllowEmpty) text = Zero();
      if (text.empty()) {
        isValid = AllowEmpty;
      } else if (!IsNoDate(text)) {
        const TValue value = Read(text);
        const TNumber held = Held(value.value_or(0));
        isValid = value && (Repair || held == *value);
        if (isValid && Repair) text = Written(held);
      }
    }
    if (isValid && Repair) {
      Text = text;
      Move(Size());
    }
    return isValid;
  }
  TNumber Held(TNumber Value) const {
    const TNumber unit = IsNumber() ? (Mode == mmInteger ? 1 : kOne) : Mode == mmTime || Mode == mmSecond ? 60 : 1;
    TNumber low = Low * unit, high = High * unit;
    if (Mode == mmTime || Mode == mmSecond) {
      low = std::clamp<TNumber>(low, 0, 86400);
      high = std::clamp<TNumber>(high, 0, 86400);
    } else if (Mode == mmMonth) {
      low -= static_cast<unsigned>(DateOf(low).day()) - 1;
      high -= static_cast<unsigned>(DateOf(high).day()) - 1;
    }
    const bool isAny = Limits != lmNone || Low != 0 || High != 0;
    if (isAny && Limits != lmMax) Value = std::max(Value, low);
    if (isAny && Limits != lmMin) Value = std::min(Value, high);
    return Value;
  }
  static std::chrono::year_month_day DateOf(TNumber Day) {
    return std::chrono::sys_days(std::chrono::days(static_cast<int>(Day) - 25569));
  }
  static TNumber DayOf(std::chrono::year_month_day Date) {
    return std::chrono::sys_days(Date).time_since_epoch().count() + 25569;
  }
  static std::string Padded(TNumber Value, size_t Least = 1) {
    std::string text;
    for (TNumber rest = Value; rest > 0; rest /= 10) text.insert(text.begin(), static_cast<char>('0' + rest % 10));
    return std::string(Least > text.size() ? Least - text.size() : 0, '0') + text;
  }
  static const std::regex& Form(const std::string& Text) {
    static std::map<std::string, std::regex> made;
    return made.try_emplace(Text, Text).first->second;
  }
  static std::optional<long> IntOf(const std::string& Text) {
    if (!std::regex_match(Text, Form("[-+]?0*\\d{1,10}"))) return {};
    const long value = std::stol(Text);
    return value == static_cast<int>(value) ? std::optional<long>(value) : std::nullopt;
  }
  TValue Read(std::string Of, bool IsStepping = false) const {
    TMatch m;
    const auto is = [&](const char* form) { return std::regex_match(Of, m, Form(form)); };
    const auto number = [&m](size_t i) { return IntOf(m[i]).value_or(m[i].length() > 0 ? INT_MAX : 0); };
    if (IsNumber()) {
      std::erase(Of, '.');
      if (!is("([+-]?)(\\d*)(?:(,)(\\d*))?") || m[2].length() + m[4].length() == 0) return {};
      if (Mode == mmInteger && m[3].matched) return {};
      TNumber value = 0, part = kOne;
      for (char digit : m[2].str()) value = std::min<TNumber>(value * 10 + (digit - '0'), kOne);
      value *= Mode == mmInteger ? 1 : kOne;
      for (char digit : m[4].str()) value += (digit - '0') * (part /= 10);
      if (m[1] == "-") value = -value;
      if (Mode == mmInteger && value != static_cast<int>(value)) return {};
      return Mode == mmCurrency && !IsStepping ? Rounded(value, 4, true) : value;
    }
    const std::string month = Padded(static_cast<unsigned>(Today.month()), 2),
                      year = Padded(static_cast<int>(Today.year()));
    if (Mode == mmMonth) {
      if (is("[^.]{3,6}")) Of.insert(2, ".");
      if (is("[^.]+\\.")) Of += year;
      Of = "1." + Of;
    } else if (Mode == mmDate) {
      if (is("[^.]{2}")) Of += "." + month;
      const bool isWhole = is("[^.]{5,8}");
      if (isWhole || is("[^.]{3,4}")) Of.insert(2, ".");
      if (isWhole) Of.insert(5, ".");
      if (is("[^.]*\\.")) Of += month;
      if (is("[^.]*\\.[^.]*\\.")) Of += year;
    }
    if (Mode == mmDate || Mode == mmMonth) {
      if (!is("0*?(\\d{1,4})\\.0*?(\\d{1,4})(?:\\.(0*?\\d{1,4})\\.?)?")) return {};
      long read = m[3].matched ? number(3) : static_cast<int>(Today.year());
      if (m[3].matched && m[3].length() <= 2) read += (static_cast<int>(Today.year()) - 80 - read + 99) / 100 * 100;
      const auto date =
          std::chrono::year(static_cast<int>(read)) / static_cast<int>(number(2)) / static_cast<int>(number(1));
      return date.ok() && read > 0 && number(1) < 32 && number(2) < 13 ? TValue(DayOf(date)) : TValue();
    }
    if (Mode == mmHour) {
      bool isGood = false;
      Of = Normal(Of, &isGood);
      if (!isGood || !is("(-?)(\\d+):(\\d\\d)")) return {};
      const TNumber minutes = std::stol(m[2]) * 60 + number(3);
      return m[1].length() ? -minutes : minutes;
    }
    if (is("0*?(\\d{1,4}):0*?(\\d{1,4}):0*?(\\d{1,4}),0*?(\\d{1,4})")) {  // parts of a second go
      if (number(1) > 23 || number(2) > 59 || number(3) > 59 || number(4) > 999) return {};
      return number(1) * 3600 + number(2) * 60 + (Mode == mmTime ? 0 : number(3));
    }
    if (!is("(0*?\\d{0,5}):(0*?\\d{0,5})(?::(0*?\\d{0,5}))?") &&
        !is("(\\d|\\d\\d|\\d(?=\\d\\d$)|\\d\\d(?=\\d\\d$))(\\d\\d)?()") &&
        !(Mode == mmSecond && is("(\\d\\d?)(\\d\\d)(\\d\\d)")))
      return {};
    const TNumber seconds = number(1) * 3600 + number(2) * 60 + number(3);
    if (number(3) > 59 || seconds > 86400) return {};
    return Mode == mmTime ? seconds / 60 * 60 : seconds;
  }
  static TNumber Rounded(TNumber Value, int Decimals, bool ToEven) {
    TNumber unit = kOne;
    for (int i = 0; i < Decimals; ++i) unit /= 10;
    const TNumber size = Value < 0 ? -Value : Value, rest = size % unit * 2, down = size / unit;
    const bool isUp = rest > unit || (rest == unit && (!ToEven || down % 2 == 1));
    return (down + isUp) * unit * (Value < 0 ? -1 : 1);
  }
  std::string Written(TNumber Value) const {
    std::string text;
    if (IsNumber()) {
      const int decimals = Mode == mmInteger ? 0 : DigitLimit ? Digits : 12;
      if (Mode == mmInteger) Value *= kOne;
      Value = Rounded(Value, decimals, false);
      const TNumber size = Value < 0 ? -Value : Value;
      std::string whole = Padded(size / kOne), part = Padded(size % kOne, 12).substr(0, static_cast<size_t>(decimals));
      if (whole.empty()) whole = "0";
      const int zeros = Zeros - static_cast<int>(whole.size());
      if (!DigitLimit) part.erase(part.find_last_not_of('0') + 1);
      for (int i = static_cast<int>(whole.size()) - 3; Tausend && i > 0; i -= 3)
        whole.insert(static_cast<size_t>(i), ".");
      return (Value < 0 ? "-" : "") + std::string(static_cast<size_t>(std::max(0, zeros)), '0') + whole +
             (part.empty() ? "" : "," + part);
    }
    if (Mode == mmDate || Mode == mmMonth) {
      if (Value < -693593) return Zero();
      const auto date = DateOf(Value);
      text = Padded(static_cast<unsigned>(date.month()), 2) + "." + Padded(static_cast<int>(date.year()), 4);
      return Mode == mmDate ? Padded(static_cast<unsigned>(date.day()), 2) + "." + text : text;
    }
    if (Mode == mmHour) {
      const TNumber size = Value < 0 ? -Value : Value;
      return (Value < 0 ? "-" : "") + Padded(size / 60, static_cast<size_t>(std::max(1, Zeros))) + ":" +
             Padded(size % 60, 2);
    }
    text = Padded(Value / 3600, 2) + ":" + Padded(Value / 60 % 60, 2);
    return Mode == mmSecond ? text + ":" + Padded(Value % 60, 2) : text;
  }
  static std::string Normal(std::string Of, bool* IsGood = nullptr) {
    const std::string typed = Of;
    const bool isNegative = Of.starts_with('-');
    if (Of.empty()) Of = "0";
    if (Of[0] == '+' || Of[0] == '-') Of[0] = '0';
    if (Of[0] == ':') Of = "0" + Of;
    if (const size_t first = Of.find(':'); first == Of.npos) {
      Of.insert(Of.size() < 3 ? 0 : Of.size() - 2, ":");
    } else if (const size_t second = Of.find(':', first + 1); second != Of.npos) {
      Of.erase(second);
    }
    if (Of[0] == ':') Of = "0" + Of;
    if (Of.back() == ':') Of += "00";
    const std::string hours = Of.substr(0, Of.find(':')), minutes = Of.substr(Of.find(':') + 1);
    if (IsGood != nullptr) *IsGood = IntOf(hours).has_value();
    if (!IntOf(hours)) return typed;
    const long rest = IntOf(minutes).value_or(0);
    const std::string shown = std::to_string(rest % 60);
    return (isNegative ? "-" : "") + std::to_string(*IntOf(hours) + rest / 60) + (shown.size() < 2 ? ":0" : ":") +
           shown;
  }
  std::string Stepped(TNumber Value, int Step) {
    const int colon =
        static_cast<int>(Text.find(Mode == mmFloat || Mode == mmCurrency || Mode == mmPerc ? ',' : ':')) + 1;
    const int colon2 = colon == 0 ? 0 : static_cast<int>(Text.find(':', static_cast<size_t>(colon))) + 1;
    if (IsNumber()) {
      TNumber step = Mode == mmInteger ? Step : Step * kOne;
      for (int i = colon; colon > 0 && i < (Start == Size() ? Start : Start + 1); ++i) step /= 10;
      TPlainMask plain = *this;
      plain.DigitLimit = plain.Tausend = false;
      plain.Zeros = 0;
      const TNumber to = Value + step;
      return Mode == mmInteger && to != static_cast<int>(to) ? Text : plain.Written(to);
    }
    if (Mode == mmHour)
      return TPlainMask(*this).Unpadded().Written(Value + (colon > 0 && Start + 1 >= colon ? Step : Step * 60));
    if (Mode == mmTime || Mode == mmSecond) {
      TNumber h = Value / 3600 % 24, m = Value / 60 % 60, s = Value % 60;
      if (colon == 0 || Start < colon)
        h = (h + Step + 24) % 24;
      else if (Mode == mmTime || colon2 == 0 || Start < colon2)
        m = (m + Step + 60) % 60;
      else
        s = (s + Step + 60) % 60;
      return Written(h * 3600 + m * 60 + s);
    }
    const int cursor = Mode == mmMonth ? Start + 3 : Start;
    if (cursor < 3) return Written(std::min<TNumber>(Value + Step, 2958465));
    const bool isYear = cursor >= 6;
    if (Step < 0 && Value <= (isYear ? -693229 : -693562)) return Written(-693594);
    if (Step > 0 && Value >= (isYear ? 2958100 : 2958434)) return Written(2958465);
    auto date = DateOf(Value) + std::chrono::months(isYear ? 12 * Step : Step);
    if (!date.ok()) date = date.year() / date.month() / std::chrono::last;
    return Written(DayOf(date));
  }
  TPlainMask& Unpadded() {
    Zeros = 0;
    return *this;
  }
};

// A real editor, on a line that is typed into as a TPlainEdit is, and the plain one, which go the same way. Picks give
// numbers from Low to High.
template <typename TLine>
struct TMaskPairOn {
  template <typename TPick>
  TMaskPairOn(TVxMaskMode Mode, TPick& Pick) {
    static const char* const kMasks[] = {"00.00", "0_#!a*\\Z", "<>Lv9_1C", "A0!", "C\\", ""};
    const int low = Pick(-30, 30), high = Pick(-3, 30), base = Pick(0, 1) * 42000;
    const bool isNumber = (FPlain.Mode = Mode, FPlain.IsNumber()), isDay = Mode == mmDate || Mode == mmMonth;
    FPlain.Today = std::chrono::year(2015) / 2 / 11;
    FPlain.Mask = kMasks[Pick(0, 5)];
    Edit.SetMaskString(String::FromUtf8(FPlain.Mask));
    Edit.SetMaskMode(Mode);
    FPlain.Enter(Mode);
    FPlain.MaxLength = isNumber && Mode != mmInteger ? 5 : Pick(0, 1) * 10;
    Edit.SetMaxLength(FPlain.MaxLength);
    Edit.SetReadOnly(FPlain.ReadOnly = Pick(0, 20) == 0);
    Edit.SetAllowEmpty(FPlain.AllowEmpty = Pick(0, 3) == 0);
    Edit.SetDigitLimited(FPlain.DigitLimit = Pick(0, 1) == 0);
    Edit.SetDecimaldigits(FPlain.Digits = Pick(0, 4));
    Edit.SetUseTausend(FPlain.Tausend = Pick(0, 1) == 0);
    Edit.SetIntegerDiggits(FPlain.Zeros = Pick(-2, 4));
    Edit.SetLimitModus(FPlain.Limits = static_cast<TVxLimitModes>(Pick(0, 2)));
    FPlain.Low = Pick(0, 1) * (isDay ? base + low : low * 50);
    FPlain.High = Pick(0, 1) * (isDay ? base + high * 20 : high * 60);
    if (isNumber) {
      Edit.SetLimitationMin(FPlain.Low);
      Edit.SetLimitationMax(FPlain.High);
    }
    Edit.SetLimitDTMin(isDay ? FPlain.Low : FPlain.Low / 1440.0);
    Edit.SetLimitDTMax(isDay ? FPlain.High : FPlain.High / 1440.0);
    Edit.SetHintShow(Pick(0, 1) == 0);
  }
  // One thing that a user does, and what it was.
  template <typename TPick>
  std::string Act(TPick& Pick) {
    static const std::string kUnits = "0123456789.,:+-01230123.,:-aZ_ \t\x1B\b\b\x01\x13";
    const bool isMask = FPlain.Mode == mmMask || FPlain.Mode == mmNone;
    const auto unit = [&] {
      const char c = kUnits[static_cast<size_t>(Pick(0, static_cast<int>(kUnits.size()) - 1))];
      return c == ' ' && !isMask ? '7' : c;
    };
    const int act = Pick(0, 24);
    std::string text(1, unit());
    switch (act) {
      case 0:
        for (int i = Pick(0, 8); i > 0; --i) text += unit();
        std::erase_if(text, [](char c) { return c < 32; });
        FPlain.Paste(text);
        Line.Paste(String::FromUtf8(text));
        return "paste " + text;
      case 1:
      case 2: {
        const int start = Pick(-1, 10), length = Pick(0, 3);
        FPlain.Select(start, length);
        Line.SetSelStart(start);
        Line.SetSelLength(length);
        return "select";
      }
      case 3:
      case 4:
      case 5:
      case 6:
        FPlain.Arrow(act % 2 == 0 ? 1 : -1);
        Line.Down(act % 2 == 0 ? vkUp : vkDown);
        return "arrow";
      case 7:
        FPlain.Delete();
        Line.Down(vkDelete);
        return "delete";
      case 8:
        FPlain.Exit();
        Line.Exit();
        FPlain.Select(0, FPlain.Size());
        Line.Enter();
        return "leave and enter";
      default:
        FPlain.Key(text[0]);
        Line.Type(String::FromUtf8(text));
        return "key " + text;
    }
  }
  std::string Plain() const { return Told(FPlain.Text, FPlain.Start, FPlain.Length, FPlain.Valid); }
  std::string Real() const {
    return Told(Edit.GetText().ToUtf8(), Line.GetSelStart(), Line.GetSelLength(), Edit.GetIsValid());
  }
  // What is wrong with the text after the field was left once and again; empty for nothing.
  std::string FinishedTwice() {
    Edit.SetReadOnly(false);
    Edit.Finishing();
    const std::string once = Real();
    if (Edit.GetIsValid() != Edit.Validate()) return once + " is judged otherwise";
    Edit.Finishing();
    return Real() == once ? "" : once + " became " + Real();
  }
  TLine Line;
  TVxMaskEdit Edit{Line};

 private:
  static std::string Told(const std::string& Text, int Start, int Length, bool IsValid) {
    return Text + "|" + std::to_string(Start) + "+" + std::to_string(Length) + (IsValid ? "" : "!");
  }
  TPlainMask FPlain;
};
using TMaskPair = TMaskPairOn<TPlainEdit>;

}  // namespace vx::fuzz
