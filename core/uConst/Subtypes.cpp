#include "core/uConst/Subtypes.h"

#include <algorithm>
#include <span>
#include <vector>

#include "platform/Collation.h"
#include "platform/Exceptions.h"
#include "platform/Lazy.h"
#include "platform/Numbers.h"
#include "platform/TextForms.h"

namespace vx {

namespace {

#include "core/uConst/SubtypesText.inc"

constexpr char16_t kFederalState[] = u"FEDERALSTATE";

using TTexts = std::span<const String>;

struct TSubtype {
  String Key;
  TCells Symbols, Texts;
};
using TSubtypes = std::vector<TSubtype>;  // in the order of their keys

// The lists of a text: records parted by ESC, each a commatext of the key, the commatext of the symbols and that of
// the texts, which are as many.
TSubtypes Parse(std::u16string_view Text) {
  TSubtypes result;
  for (const String& record : ReadCsv(Text)) {
    const TCells cells = ReadCommatext(record);
    result.push_back({cells[0], ReadCommatext(cells[1]), ReadCommatext(cells[2])});
  }
  std::ranges::sort(result, [](const auto& a, const auto& b) { return AnsiCompareText(a.Key, b.Key) < 0; });
  return result;
}

constinit TLazy<const TSubtypes> Subtypes;

const TSubtypes& Lists() {
  return Subtypes.Get([] { return std::make_unique<const TSubtypes>(Parse(kSubtypesText)); });
}

// The list of a key; nullptr if it is unknown.
const TSubtype* Find(std::u16string_view Key) {
  const TSubtypes& lists = Lists();
  const auto found = std::ranges::lower_bound(
      lists, Key, [](std::u16string_view a, std::u16string_view b) { return AnsiCompareText(a, b) < 0; },
      &TSubtype::Key);
  return found != lists.end() && AnsiSameText(found->Key, Key) ? &*found : nullptr;
}

String ItemAt(TTexts Texts, int Index) {
  return Index >= 0 && Index < static_cast<int>(Texts.size()) ? Texts[static_cast<size_t>(Index)] : String();
}

int IndexOf(TTexts Texts, std::u16string_view Value) {
  const auto found = std::ranges::find_if(Texts, [&](const String& text) { return AnsiSameText(text, Value); });
  return found == Texts.end() ? -1 : static_cast<int>(found - Texts.begin());
}

// See getSubTypeIndex; -1 for no list, too.
int IndexOf(const TSubtype* List, std::u16string_view Value) {
  if (List == nullptr) return -1;
  const int index = IndexOf(List->Symbols, Value);
  return index >= 0 ? index : IndexOf(List->Texts, Value);
}

// Never looked at as an object.
TObject* AsObject(int Id) {
  return reinterpret_cast<TObject*>(intptr_t{Id});  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace

void subtypes::Free() noexcept { Subtypes.Free(); }

String getSubTypeText(std::u16string_view Key, int Index) {
  const TSubtype* list = Find(Key);
  return list == nullptr ? String() : ItemAt(list->Texts, Index);
}

String getSubTypeSymbol(std::u16string_view Key, int Index) {
  const TSubtype* list = Find(Key);
  return list == nullptr ? String() : ItemAt(list->Symbols, Index);
}

int getSubTypeIndex(std::u16string_view Key, std::u16string_view Value) { return IndexOf(Find(Key), Value); }

String SubtypeSymbolToText(std::u16string_view Key, std::u16string_view Symbol) {
  const TSubtype* list = Find(Key);
  const int index = IndexOf(list, Symbol);
  return index < 0 ? String() : ItemAt(list->Texts, index);
}

String SubtypeTextToSymbol(std::u16string_view Key, std::u16string_view Text) {
  const TSubtype* list = Find(Key);
  const int index = IndexOf(list, Text);
  return index < 0 ? String() : ItemAt(list->Symbols, index);
}

String SubtypeContent(std::u16string_view Key) {
  const TSubtype* list = Find(Key);
  return list == nullptr ? String() : WriteCommatext(list->Texts);
}

String SubtypeIdContent(std::u16string_view Key) {
  const TSubtype* list = Find(Key);
  if (list == nullptr) throw EArgumentException(Concat({u"Unknown subtype \"", Key, u"\""}));
  TCells pairs;
  for (size_t i = 0; i < list->Symbols.size(); ++i) {
    pairs.push_back(WriteCommatext(TCells{list->Symbols[i], list->Texts[i]}));
  }
  return WriteCommatext(pairs);
}

String SubtypeKeys() {
  TCells keys;
  for (const TSubtype& list : Lists()) keys.push_back(list.Key);
  return WriteCommatext(keys);
}

String Bundesland(int Id) { return SubtypeSymbolToText(kFederalState, IntToStr(Id)); }

int GetCountries(TStrings& Strings, std::u16string_view Selection, int Current) {
  const TCells& states = Find(kFederalState)->Texts;
  std::vector<int> ids = {0, Current};
  for (const String& id : ReadCommatext(Selection)) ids.push_back(StrToIntDef(id, 0));
  struct TCountry {
    int Id;
    String Text;
  };
  std::vector<TCountry> countries;
  for (size_t i = 0; i < states.size(); ++i) {
    const int id = i + 1 < states.size() ? static_cast<int>(i) : 0;
    if (Selection.empty() || std::ranges::find(ids, id) != ids.end()) countries.push_back({id, states[i]});
  }
  const auto count = static_cast<int>(countries.size());
  bool isSame = Strings.GetCount() == count;
  for (int i = 0; i < count && isSame; ++i) isSame = Strings.Get(i) == countries[static_cast<size_t>(i)].Text;
  if (!isSame) {
    TUpdateScope scope(Strings);
    Strings.Clear();
    for (const TCountry& country : countries) Strings.AddObject(country.Text, AsObject(country.Id));
  }
  for (int i = 0; i < Strings.GetCount(); ++i) {
    if (Strings.GetObject(i) == AsObject(Current)) return i;
  }
  return 0;
}

}  // namespace vx
