// Texts as one value of a configuration file: a text.
#include <algorithm>

#include "core/uVxFunctions.h"
#include "fuzz/support/Input.h"
#include "objects/uVxClasses/TVxStringList.h"
#include "services/uSharedIni.h"

namespace vx::fuzz {
namespace {

unsigned Digit(char16_t Unit) {
  const size_t value = std::u16string_view(u"0123456789ABCDEF").find(Unit);
  return value > 15 ? 0 : static_cast<unsigned>(value);
}

// Part by part, as the rules are told.
String PlainDataToStr(String Text) {
  String result;
  while (!Text.empty()) {
    int size = 0;
    if (Text[0] == u'"') {
      result += DequotedStr(Text, u'"', size);
    } else {
      size = static_cast<int>(std::min<size_t>(Text.view().find(u'"'), Text.view().size()));
      for (int i = 0; i + 1 < size; i += 2) result += static_cast<char16_t>(Digit(Text[i]) * 16 + Digit(Text[i + 1]));
    }
    Text = Text.Slice(size);
  }
  return result;
}

}  // namespace

FUZZ(Input) {
  const String text = Input.Text();
  const String data = IniStrToData(text);
  Check(IniDataToStr(data) == text, "a text reads back");
  Check(std::ranges::none_of(data.view(), [](char16_t unit) { return unit < 32; }), "one line");
  Check(IniDataToStr(text) == PlainDataToStr(text), "any text is read by the rules");

  TSharedIni ini{String()}, back{String()};
  ini.WriteData(u"Abschnitt", u"Text", text);
  TVxStringList lines;
  ini.GetStrings(lines);
  back.SetStrings(lines);
  Check(back.ReadData(u"abschnitt", u"TEXT", u"\r\n") == text, "the lines of a file hold the text");
  Check(back.ReadData(u"Abschnitt", u"keiner", text) == text, "the default as it is");
}

}  // namespace vx::fuzz
