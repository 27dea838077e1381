#include "core/uVxFunctionsSerialize/Explode.h"

#include <algorithm>

#include "platform/Text.h"

namespace vx {

std::unique_ptr<TVxStringList> explode(std::u16string_view Text, const TCharSet& Separators, TExplodeOptions Options) {
  auto result = std::make_unique<TVxStringList>();
  if (Text.empty()) return result;
  TCells cells;
  size_t start = 0;
  for (size_t i = 0; i < Text.size(); ++i) {
    if (!Separators.Has(Text[i])) continue;
    std::u16string_view piece = Text.substr(start, i - start);
    if (Options.Has(eoTrim)) piece = TrimView(piece);
    if (!piece.empty() || !Options.Has(eoSkipEmpty)) cells.emplace_back(piece);
    start = i + 1;
  }
  cells.emplace_back(Text.substr(start));
  result->TakeCells(cells);
  return result;
}

std::unique_ptr<TVxStringList> explode(std::u16string_view Text, char16_t Separator, TExplodeOptions Options) {
  return explode(Text, TCharSet{Separator}, Options);
}

namespace {

template <typename TGet>
String Join(int Count, TGet Get, std::u16string_view Glue, TExplodeOptions Options) {
  String result;
  bool first = true;
  for (int i = 0; i < Count; ++i) {
    const String& item = Get(i);
    std::u16string_view piece = Options.Has(eoTrim) ? TrimView(item) : item.view();
    if (piece.empty() && Options.Has(eoSkipEmpty)) continue;
    if (!first) result += Glue;
    result += piece;
    first = false;
  }
  return result;
}

}  // namespace

String implode(const TStrings& Strings, std::u16string_view Glue, TExplodeOptions Options) {
  return Join(
      Strings.GetCount(), [&](int i) { return Strings.Get(i); }, Glue, Options);
}

String implode(std::span<const String> Items, std::u16string_view Glue, TExplodeOptions Options) {
  auto get = [&](int i) -> const String& { return Items[static_cast<size_t>(i)]; };
  return Join(static_cast<int>(Items.size()), get, Glue, Options);
}

std::unique_ptr<TVxStringList> mergeSl(const TStrings& A, const TStrings& B, std::u16string_view Glue) {
  auto result = std::make_unique<TVxStringList>();
  int count = std::min(A.GetCount(), B.GetCount());
  for (int i = 0; i < count; ++i) result->Add(Concat({A.Get(i), Glue, B.Get(i)}));
  return result;
}

}  // namespace vx
