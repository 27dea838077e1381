#include "platform/Exceptions.h"

#include "platform/Format.h"

namespace vx {

Exception::Exception(String Message)
    : FMessage(std::move(Message)), FUtf8(std::make_shared<const std::string>(FMessage.ToUtf8())) {}

void RaiseConvertError(std::u16string_view Text, std::u16string_view Kind) {
  throw EConvertError(Concat({u"'", Text, u"' is not a valid ", Kind}));
}

String FormatListError(std::u16string_view Pattern, int Value) { return Format(Pattern, {Value}); }

}  // namespace vx
