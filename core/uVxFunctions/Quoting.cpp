#include "core/uVxFunctions/Quoting.h"

#include "platform/Text.h"
#include "platform/TextForms.h"

namespace vx {

String VxStrToQuoted(const String& Text) {
  return Text.view().find_first_of(u" \",") == std::u16string_view::npos ? Text : QuotedStr(Text, u'"');
}

String VxQuotedToStr(const String& Text) {
  if (Text.empty() || Text[0] != u'"') return Text;
  return ReplaceAll(Text.Slice(1, Text.size() - 2), u"\"\"", u"\"");
}

}  // namespace vx
