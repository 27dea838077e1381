// How texts and bytes are written in an SVG file. Of use to this component only.
#pragma once

#include <string>
#include <string_view>

namespace vx::drawing {

// UTF-8 as the text or an attribute of an element; what XML may not hold becomes U+FFFD.
std::string EscapedXml(std::string_view Utf8);
std::string Base64(std::string_view Bytes);

}  // namespace vx::drawing
