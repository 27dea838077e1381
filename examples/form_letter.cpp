// Fills a form letter a thousand times. The letter is searched for its placeholders once; each patient then costs
// no more than the values and the printing of the text.
#include <cstdio>

#include "core/uVxFunctions.h"
#include "objects/uVxClassesString.h"
#include "platform/DateText.h"
#include "platform/Numbers.h"

namespace {

constexpr int kLetters = 1000;

const char16_t* const kLetter =
    u"%Anrede% %Name%,\n"
    u"am %Datum% besuchen wir Sie zum Gespräch über Ihren Pflegegrad %Grad%.\n"
    u"Ihr Beitrag ab diesem Tag: %Betrag%. Bitte halten Sie Ihr Schreiben Nr. %Nummer% bereit, %Name%.\n";

const vx::String kHolders[] = {u"%Anrede%", u"%Name%", u"%Datum%", u"%Grad%", u"%Betrag%", u"%Nummer%"};

}  // namespace

int main() {
  const vx::String salutations[] = {u"Sehr geehrte Frau", u"Sehr geehrter Herr"};
  const vx::String names[] = {u"Müller", u"Schröder", u"Groß", u"Meier-Lüdenscheid", u"Öztürk"};
  const vx::TDateTime firstDay = vx::StrToDate(u"02.03.2015");

  vx::TVxStringReplacer letter;
  vx::String values[std::size(kHolders)];
  letter.ReplaceString(kLetter, kHolders, values, true);
  std::printf("%d pieces\n", letter.GetCount());
  int64_t units = 0;
  vx::String text;
  for (int i = 0; i < kLetters; ++i) {
    values[0] = salutations[i % 2];
    values[1] = names[i % 5];
    values[2] = vx::DateToStr(firstDay + i % 365);
    values[3] = vx::IntToStr(i % 5 + 1);
    values[4] = vx::VxCurrToStr(vx::Currency(100 + i) / 4, {vx::ctsThousendDivider, vx::ctsSign}, 2);
    values[5] = vx::IntToStr(4711 + i);
    text = letter.Replace(values).ToString();
    units += text.size();
    if (i == 0) std::printf("%s", text.ToUtf8().c_str());
  }
  std::printf("...\n%s%d letters, %lld characters\n", text.ToUtf8().c_str(), kLetters, static_cast<long long>(units));
  return 0;
}
