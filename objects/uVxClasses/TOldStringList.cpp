#include "objects/uVxClasses/TOldStringList.h"

namespace vx {

int TOldStringList::AddObject(const String& Text, TObject* Object) {
  int index = TTextList::AddObject(Text, nullptr);
  PutObject(index, Object);
  return index;
}

void TOldStringList::InsertItem(int Index, const String& Text) {
  if (Index != Entries().Count()) CheckIndex(Index);
  Entries().Insert(Index, Text, nullptr);
}

void TOldStringList::InsertEntry(int Index, const String& Text, TObject* Object) {
  InsertItem(Index, Text);
  if (Object) PutObject(Index, Object);
}

void TOldStringList::Assign(const TStrings& Source) {
  TTextList::Assign(Source);
  const TOldStringList* other = dynamic_cast<const TOldStringList*>(&Source);
  if (!other) return;
  FDuplicates = other->FDuplicates;
  FSorted = other->FSorted;
}

void TOldStringList::Sort() {
  CustomSort([](const TOldStringList& list, int a, int b) {
    const std::span<const String> items = list.Items();
    return list.CompareStrings(items[static_cast<size_t>(a)], items[static_cast<size_t>(b)]);
  });
}

std::unique_ptr<TOldStringList> TOldStringList::Duplicate() const {
  auto result = std::make_unique<TOldStringList>();
  result->Assign(*this);
  return result;
}

}  // namespace vx
