#include "controls/uVxMaskEdit/detail/Judging.h"

#include "controls/uVxMaskEdit/Template.h"
#include "controls/uVxMaskEdit/detail/TimeKinds.h"

namespace vx::detail {
namespace {

// A picture that is no value, such as u"00.00.0000", stands for none.
template <typename TKind>
bool IsNoValue(const TMaskRules& Rules, const String& Text) {
  if constexpr (std::is_same_v<TKind, TDateKind> || std::is_same_v<TKind, TMonthKind>)
    return Text == Picture(TKind::Zero, Rules.iFormatSettings);
  else
    return false;
}

// Most texts are asked at each key whether they are good, and for nothing else.
template <typename TKind>
TJudgement JudgeAs(const TMaskRules& Rules, const String& Text, TJudgeWish Wish) {
  const TFormatSettings& settings = Rules.iFormatSettings;
  TJudgement result;
  String text = Text;
  if (text.empty() && Wish == jwRepair && !Rules.iAllowEmpty) text = Picture(TKind::Zero, settings);
  if (text.empty() || IsNoValue<TKind>(Rules, text)) {
    result.IsValid = !text.empty() || Rules.iAllowEmpty;
    if (Wish == jwRepair) result.Text = text;
    if (Wish == jwHint) result.Hint = Picture(TKind::Nothing, settings);
    return result;
  }
  typename TKind::TValue value{};
  if (!TKind::Read(Rules, text, value)) {
    if (Wish == jwHint) result.Hint = Picture(TKind::Bad, settings);
    return result;
  }
  const auto held = TKind::Limits(Rules).Clamped(value);
  result.IsValid = Wish == jwRepair || held == value;
  if (Wish == jwRepair) result.Text = TKind::Write(Rules, held);
  if (Wish == jwHint) result.Hint = TKind::Hint(Rules, held);
  return result;
}

template <typename TKind>
TJudgement JudgeNumber(const TMaskRules& Rules, const String& Text, TJudgeWish Wish) {
  TJudgement result = JudgeAs<TKind>(Rules, Text, Wish);
  if (Wish == jwRepair) result.Text = PutIntegerDiggits(Rules, result.Text);
  return result;
}

TJudgement JudgeMask(const TMaskRules& Rules, const String& Text) {
  TJudgement result;
  result.IsValid = TextAllowed(Rules.iMaskString, Text);
  result.Text = Text;
  return result;
}

}  // namespace

TJudgement Judge(const TMaskRules& Rules, const String& Text, TJudgeWish Wish) {
  switch (Rules.iMaskMode) {
    case mmInteger:
      return JudgeNumber<TIntegerKind>(Rules, Text, Wish);
    case mmFloat:
    case mmPerc:
      return JudgeNumber<TFloatKind>(Rules, Text, Wish);
    case mmCurrency:
      return JudgeNumber<TCurrencyKind>(Rules, Text, Wish);
    case mmDate:
      return JudgeAs<TDateKind>(Rules, Text, Wish);
    case mmMonth:
      return JudgeAs<TMonthKind>(Rules, Text, Wish);
    case mmHour:
      return JudgeNumber<THourKind>(Rules, Text, Wish);
    case mmTime:
      return JudgeAs<TTimeKind>(Rules, Text, Wish);
    case mmSecond:
      return JudgeAs<TSecondKind>(Rules, Text, Wish);
    case mmMask:
      return JudgeMask(Rules, Text);
    default:
      return {true, Text, {}};
  }
}

String EmptyPicture(const TMaskRules& Rules) {
  switch (Rules.iMaskMode) {
    case mmDate:
      return Picture(TDateKind::Zero, Rules.iFormatSettings);
    case mmMonth:
      return Picture(TMonthKind::Zero, Rules.iFormatSettings);
    case mmHour:
      return THourKind::Zero;
    case mmTime:
      return Picture(TTimeKind::Zero, Rules.iFormatSettings);
    case mmSecond:
      return Picture(TSecondKind::Zero, Rules.iFormatSettings);
    case mmMask:
      return LiteralString(Rules.iMaskString, Rules.iBlankChar);
    default:
      return {};
  }
}

}  // namespace vx::detail
