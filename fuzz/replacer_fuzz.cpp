// Templates: flags, a text, then search strings and replacements in turn.
#include "fuzz/support/Input.h"
#include "fuzz/support/PlainReplacer.h"

namespace vx::fuzz {

FUZZ(Input) {
  const uint8_t flags = Input.Byte();
  const String text = Input.Text();
  TCells holders, replacers;
  for (const String& cell : Input.Cells()) (holders.size() > replacers.size() ? replacers : holders).push_back(cell);
  const bool caseSensitive = (flags & 1) != 0;
  TVxStringReplacer replacer;
  replacer.ReplaceString(text, holders, replacers, caseSensitive);
  TPlainParts parts = PlainParts(text, holders, replacers, caseSensitive);
  Check(PartsOf(replacer) == parts, "a text is cut by the rules");
  String printed;
  for (const TPlainPart& part : parts) printed += part.Text;
  Check(replacer.ToString() == printed, "a text is printed by the rules");
  Check(!caseSensitive || VxStringReplace(text, holders, replacers) == printed, "one rule, two ways");

  replacers.resize(replacers.size() + (flags >> 1 & 1), u"more");
  printed.clear();
  for (const TPlainPart& part : parts) printed += part.Index < 0 ? part.Text : String(u"<>");
  Check(replacer.Replace(TCells(replacers.size(), u"<>")).ToString() == printed, "a text is filled again");
}

}  // namespace vx::fuzz
