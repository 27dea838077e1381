#include "core/uConst/Subtypes.h"

#include <algorithm>
#include <utility>

#include "objects/uVxClasses.h"
#include "platform/Collation.h"
#include "platform/Exceptions.h"
#include "platform/Numbers.h"

namespace vx {

namespace {

#include "core/uConst/SubtypesText.inc"

constexpr char16_t kFederalState[] = u"FEDERALSTATE";

constinit const TSubtypes* FLists = nullptr;

using TTexts = std::span<const String>;

String ItemAt(TTexts Texts, int Index) {
  return Index >= 0 && Index < static_cast<int>(Texts.size()) ? Texts[static_cast<size_t>(Index)] : String();
}

int IndexOf(TTexts Texts, std::u16string_view Value) {
  const auto found = std::ranges::find_if(Texts, [&](const String& text) { return AnsiSameText(text, Value); });
  return found == Texts.end() ? -1 : static_cast<int>(found - Texts.begin());
}

// See getSubTypeIndex; -1 for no list, too.
int IndexOf(const TSubtypes& Lists, int List, std::u16string_view Value) {
  if (List < 0) return -1;
  const int index = IndexOf(Lists.Symbols(List), Value);
  return index >= 0 ? index : IndexOf(Lists.Texts(List), Value);
}

// Never looked at as an object.
TObject* AsObject(int Id) {
  return reinterpret_cast<TObject*>(intptr_t{Id});  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace

const TSubtypes& TSubtypes::Lists() {
  static const struct TAtEnd {
    ~TAtEnd() { FreeLists(); }
  } atEnd;
  if (!FLists) FLists = Parse(kSubtypesText).release();
  return *FLists;
}

void TSubtypes::FreeLists() noexcept { delete std::exchange(FLists, nullptr); }

String getSubTypeText(std::u16string_view Key, int Index) {
  const TSubtypes& lists = TSubtypes::Lists();
  const int list = lists.Find(Key);
  return list < 0 ? String() : ItemAt(lists.Texts(list), Index);
}

String getSubTypeSymbol(std::u16string_view Key, int Index) {
  const TSubtypes& lists = TSubtypes::Lists();
  const int list = lists.Find(Key);
  return list < 0 ? String() : ItemAt(lists.Symbols(list), Index);
}

int getSubTypeIndex(std::u16string_view Key, std::u16string_view Value) {
  const TSubtypes& lists = TSubtypes::Lists();
  return IndexOf(lists, lists.Find(Key), Value);
}

String SubtypeSymbolToText(std::u16string_view Key, std::u16string_view Symbol) {
  const TSubtypes& lists = TSubtypes::Lists();
  const int list = lists.Find(Key);
  const int index = IndexOf(lists, list, Symbol);
  return index < 0 ? String() : ItemAt(lists.Texts(list), index);
}

String SubtypeTextToSymbol(std::u16string_view Key, std::u16string_view Text) {
  const TSubtypes& lists = TSubtypes::Lists();
  const int list = lists.Find(Key);
  const int index = IndexOf(lists, list, Text);
  return index < 0 ? String() : ItemAt(lists.Symbols(list), index);
}

String SubtypeContent(std::u16string_view Key) {
  const TSubtypes& lists = TSubtypes::Lists();
  const int list = lists.Find(Key);
  return list < 0 ? String() : WriteCommatext(lists.Texts(list));
}

String SubtypeIdContent(std::u16string_view Key) {
  const TSubtypes& lists = TSubtypes::Lists();
  const int list = lists.Find(Key);
  if (list < 0) throw EArgumentException(Concat({u"Unknown subtype \"", Key, u"\""}));
  return lists.IdContent(list);
}

String SubtypeKeys() { return WriteCommatext(TSubtypes::Lists().Keys()); }

String Bundesland(int Id) { return SubtypeSymbolToText(kFederalState, IntToStr(Id)); }

int GetCountries(TStrings& Strings, std::u16string_view Selection, int Current) {
  const TSubtypes& lists = TSubtypes::Lists();
  const TTexts states = lists.Texts(lists.Find(kFederalState));
  TVxIdList ids;
  ids.SetCommatext(Selection);
  ids.Add(0);
  ids.Add(Current);
  TVxStringList countries;
  const int last = static_cast<int>(states.size()) - 1;
  for (int i = 0; i <= last; ++i) {
    const int id = i < last ? i : 0;
    if (Selection.empty() || ids.IndexOf(id) >= 0) countries.AddObject(ItemAt(states, i), AsObject(id));
  }
  if (Strings.GetCommaText() != countries.GetCommaText()) {
    TUpdateScope scope(Strings);
    Strings.Clear();
    Strings.AddStrings(countries);
  }
  for (int i = 0; i < Strings.GetCount(); ++i) {
    if (Strings.GetObject(i) == AsObject(Current)) return i;
  }
  return 0;
}

}  // namespace vx
