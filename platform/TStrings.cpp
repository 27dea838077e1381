#include "platform/TStrings.h"

#include "platform/Collation.h"
#include "platform/Exceptions.h"
#include "platform/TextForms.h"

namespace vx {

namespace {

constexpr char16_t kQuote = u'"';

bool NeedsCommaQuotes(std::u16string_view Text) {
  for (char16_t unit : Text) {
    if (unit <= u' ' || unit == kQuote || unit == u',') return true;
  }
  return false;
}

}  // namespace

void TStrings::RaiseListError(std::u16string_view Pattern, int Value) {
  throw EStringListError(FormatListError(Pattern, Value));
}

void TStrings::Put(int Index, const String& Text) {
  TObject* object = GetObject(Index);
  Delete(Index);
  InsertObject(Index, Text, object);
}

TObject* TStrings::GetObject(int) const { return nullptr; }
void TStrings::PutObject(int, TObject*) {}

int TStrings::Add(const String& Text) {
  int index = GetCount();
  Insert(index, Text);
  return index;
}

int TStrings::AddObject(const String& Text, TObject* Object) {
  int index = Add(Text);
  PutObject(index, Object);
  return index;
}

void TStrings::InsertObject(int Index, const String& Text, TObject* Object) {
  Insert(Index, Text);
  PutObject(Index, Object);
}

void TStrings::Exchange(int A, int B) {
  TUpdateScope scope(*this);
  String text = Get(A);
  TObject* object = GetObject(A);
  Put(A, Get(B));
  PutObject(A, GetObject(B));
  Put(B, text);
  PutObject(B, object);
}

void TStrings::Move(int From, int To) {
  if (From == To) return;
  TUpdateScope scope(*this);
  String text = Get(From);
  TObject* object = GetObject(From);
  PutObject(From, nullptr);  // a list that owns its objects must not free the one that moves
  Delete(From);
  InsertObject(To, text, object);
}

int TStrings::IndexOf(std::u16string_view Text) const {
  int count = GetCount();
  for (int i = 0; i < count; ++i) {
    if (CompareStrings(Get(i), Text) == 0) return i;
  }
  return -1;
}

void TStrings::AddStrings(const TStrings& Strings) {
  TUpdateScope scope(*this);
  int count = Strings.GetCount();
  for (int i = 0; i < count; ++i) AddObject(Strings.Get(i), Strings.GetObject(i));
}

void TStrings::Assign(const TStrings& Source) {
  if (&Source == this) return;
  TUpdateScope scope(*this);
  Clear();
  AddStrings(Source);
}

void TStrings::BeginUpdate() {
  if (FUpdateCount == 0) SetUpdateState(true);
  ++FUpdateCount;
}

void TStrings::EndUpdate() {
  --FUpdateCount;
  if (FUpdateCount == 0) SetUpdateState(false);
}

void TStrings::SetUpdateState(bool) {}

TUpdateScope::~TUpdateScope() noexcept(false) {
  const bool isAlone = std::uncaught_exceptions() == FErrors;
  try {
    FStrings.EndUpdate();
  } catch (...) {
    if (isAlone) throw;  // two errors at once would end the program
  }
}

String TStrings::GetTextStr() const {
  String result;
  int count = GetCount();
  for (int i = 0; i < count; ++i) {
    result += Get(i);
    result += u"\r\n";
  }
  return result;
}

void TStrings::SetTextStr(std::u16string_view Text) {
  TUpdateScope scope(*this);
  String kept = Text;  // the text may be an item of this list
  Text = kept.view().substr(0, kept.view().find(u'\0'));
  Clear();
  while (!Text.empty()) {
    size_t end = Text.find_first_of(u"\r\n");
    if (end == Text.npos) end = Text.size();
    Add(String(Text.substr(0, end)));
    size_t next = end < Text.size() ? end + 1 : end;
    if (next < Text.size() && Text[end] == u'\r' && Text[next] == u'\n') ++next;
    Text.remove_prefix(next);
  }
}

String TStrings::GetCommaText() const {
  String result;
  int count = GetCount();
  for (int i = 0; i < count; ++i) {
    if (i > 0) result += u',';
    String item = Get(i);
    const bool isQuoted = NeedsCommaQuotes(item) || (item.empty() && count == 1);
    result += isQuoted ? QuotedStr(item, kQuote) : item;
  }
  return result;
}

void TStrings::SetCommaText(std::u16string_view Text) {
  auto isBlank = [](char16_t unit) { return unit >= 1 && unit <= u' '; };
  String kept = Text;  // the text may be an item of this list
  Text = kept;
  TUpdateScope scope(*this);
  Clear();
  size_t pos = 0;
  auto skipBlanks = [&] {
    while (pos < Text.size() && isBlank(Text[pos])) ++pos;
  };
  skipBlanks();
  while (pos < Text.size() && Text[pos] != 0) {
    if (Text[pos] == kQuote) {
      int consumed = 0;
      Add(DequotedStr(Text.substr(pos), kQuote, consumed));
      pos += static_cast<size_t>(consumed);
    } else {
      size_t start = pos;
      while (pos < Text.size() && Text[pos] > u' ' && Text[pos] != u',') ++pos;
      Add(String(Text.substr(start, pos - start)));
    }
    skipBlanks();
    if (pos < Text.size() && Text[pos] == u',') {
      ++pos;
      skipBlanks();
      if (pos >= Text.size() || Text[pos] == 0) Add(String());
    }
  }
}

bool TStrings::Equals(const TStrings& Other) const {
  int count = GetCount();
  if (count != Other.GetCount()) return false;
  for (int i = 0; i < count; ++i) {
    if (!(Get(i) == Other.Get(i))) return false;
  }
  return true;
}

int TStrings::CompareStrings(std::u16string_view A, std::u16string_view B) const { return AnsiCompareText(A, B); }

}  // namespace vx
