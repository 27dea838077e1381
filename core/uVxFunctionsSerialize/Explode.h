// Splitting a text into pieces and joining pieces to a text.
#pragma once

#include <memory>
#include <span>

#include "objects/uVxClasses/TVxStringList.h"
#include "platform/Types.h"

namespace vx {

enum TExplodeOption : uint8_t {
  eoTrim,      // trim the pieces
  eoSkipEmpty  // leave empty pieces out
};
using TExplodeOptions = Set<TExplodeOption>;

// The pieces of Text between Separators; none for an empty Text. The last piece is taken as it stands,
// neither trimmed nor left out, whatever the options say: u"a,," with eoSkipEmpty gives a and one
// empty piece. This is wanted.
[[nodiscard]] std::unique_ptr<TVxStringList> explode(std::u16string_view Text, const TCharSet& Separators,
                                                     TExplodeOptions Options = {});
// The same with one separator. One above 255 never separates.
[[nodiscard]] std::unique_ptr<TVxStringList> explode(std::u16string_view Text, char16_t Separator,
                                                     TExplodeOptions Options = {});

// The pieces joined with Glue between them. With eoTrim they are trimmed; with eoSkipEmpty those that
// are empty, after that trimming, are left out with their Glue.
String implode(const TStrings& Strings, std::u16string_view Glue, TExplodeOptions Options = {});
String implode(std::span<const String> Items, std::u16string_view Glue, TExplodeOptions Options = {});

// A list of the items A[i] + Glue + B[i]; what the longer list has more is left out.
[[nodiscard]] std::unique_ptr<TVxStringList> mergeSl(const TStrings& A, const TStrings& B, std::u16string_view Glue);

}  // namespace vx
