#include "platform/IniLine.h"

#include "platform/Text.h"

namespace vx {

TIniLine ParseIniLine(std::u16string_view Line) noexcept {
  Line = TrimView(Line);
  if (Line.empty() || Line.front() == u';') return {};
  if (Line.front() == u'[' && Line.back() == u']') {
    return {ilSection, TrimView(Line.substr(1, Line.size() - 2)), {}};
  }
  const size_t parting = Line.find(u'=');
  if (parting == Line.npos) return {ilPlain, Line, {}};
  return {ilValue, TrimView(Line.substr(0, parting)), TrimView(Line.substr(parting + 1))};
}

}  // namespace vx
