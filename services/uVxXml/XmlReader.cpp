// Reading: one walk over the text, with the open elements on a stack of its own.

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <vector>

#include "platform/Scan.h"
#include "platform/StringArena.h"
#include "services/uVxXml/TXmlObject.h"
#include "services/uVxXml/XmlText.h"

namespace vx {

namespace {

// A name as it was opened, looked for at places further and further on. Much of a long name may match at many
// places that follow one another closely: what was compared once is not compared again.
class TClosingName {
 public:
  explicit TClosingName(std::u16string_view Name) noexcept : FName(Name) {}
  size_t Size() const noexcept { return FName.size(); }

  // Whether the name stands at Pos.
  bool StandsAt(const char16_t* Pos, const char16_t* End) {
    if (static_cast<size_t>(End - Pos) < FName.size()) return false;
    if (FName.size() < kLong) return std::equal(FName.begin(), FName.end(), Pos);
    if (!FLong) FLong = std::make_unique<TLong>(TLong{{}, Pos, Pos});
    size_t matched = 0;
    if (Pos < FLong->MatchEnd) {
      if (FLong->Fronts.empty()) FindFronts();
      const size_t known = static_cast<size_t>(FLong->MatchEnd - Pos);
      matched = FLong->Fronts[static_cast<size_t>(Pos - FLong->Match)];
      if (matched != known) return false;
    }
    while (matched < FName.size() && Pos[matched] == FName[matched]) ++matched;
    FLong->Match = Pos;
    FLong->MatchEnd = Pos + matched;
    return matched == FName.size();
  }

 private:
  static constexpr size_t kLong = 64;
  struct TLong {
    std::vector<size_t> Fronts;  // for each place in the name how many units there are the name's first ones
    const char16_t* Match;       // the match that reached farthest: where it begins
    const char16_t* MatchEnd;    // and ends
  };

  void FindFronts() {
    std::vector<size_t> fronts(FName.size());
    fronts[0] = FName.size();
    for (size_t i = 1, match = 0, matchEnd = 0; i < FName.size(); ++i) {
      size_t front = i < matchEnd ? std::min(matchEnd - i, fronts[i - match]) : 0;
      while (i + front < FName.size() && FName[front] == FName[i + front]) ++front;
      if (i + front > matchEnd) {
        match = i;
        matchEnd = i + front;
      }
      fronts[i] = front;
    }
    FLong->Fronts = std::move(fronts);
  }

  std::u16string_view FName;
  std::unique_ptr<TLong> FLong;
};

// Makes texts in shared blocks that grow with what is taken, so that an element read from a long text holds on to
// no more than about its own size.
class TXmlTexts {
 public:
  String Take(std::u16string_view Text) {
    if (Text.size() <= String::InlineCapacity) return Text;
    if (!FArena || (FTaken > 4 * FBlockUnits && FBlockUnits < kMostUnits)) {
      FBlockUnits *= 4;
      FArena.emplace(FBlockUnits);
    }
    FTaken += Text.size();
    return FArena->Build(Text.size(), [&](char16_t* target) { std::copy(Text.begin(), Text.end(), target); });
  }

 private:
  static constexpr size_t kMostUnits = 32768;
  std::optional<TStringArena> FArena;
  size_t FBlockUnits = 128;
  size_t FTaken = 0;
};

class TXmlReader {
 public:
  explicit TXmlReader(std::u16string_view Text) noexcept : FPos(Text.data()), FEnd(FPos + Text.size()) {}

  // Returns the place behind the element.
  const char16_t* Read(TXmlObject& Root) {
    if (!FindName()) return FPos;
    Open(&Root, nullptr);
    while (!FOpen.empty()) {
      if (IsAtEnd() || Closes(FOpen.back().Name)) {
        FOpen.pop_back();
      } else if (FindName()) {
        ReadChild(*FOpen.back().Object);
      }
    }
    return FPos;
  }

 private:
  struct TOpen {
    TXmlObject* Object;
    std::unique_ptr<TXmlObject> Nameless;  // the object if it has no name: nobody else owns it
    TClosingName Name;
  };

  bool IsAtEnd() const noexcept { return FPos == FEnd || *FPos == 0; }
  // The unit Ahead of the place; 0 behind the end.
  char16_t Unit(ptrdiff_t Ahead = 0) const noexcept { return FEnd - FPos > Ahead ? FPos[Ahead] : u'\0'; }
  bool IsAtComment() const noexcept { return Unit() == u'<' && Unit(1) == u'!'; }
  template <typename TStops>
  std::u16string_view TakeUpTo(TStops Stops) noexcept {
    const char16_t* first = FPos;
    while (FPos != FEnd && *FPos != 0 && !Stops(*FPos)) ++FPos;
    return {first, static_cast<size_t>(FPos - first)};
  }

  // Passes over a comment; one that nothing closes goes to the end of the text.
  void PassComment() noexcept {
    const char16_t* first = FPos + 2;
    for (FPos = first;; ++FPos) {
      FPos = scan::FindEither(FPos, FEnd, u'>', 0);
      if (IsAtEnd()) return;
      if (FPos - first < 2 || FPos[-1] != FPos[-2] || (FPos[-1] != u'-' && FPos[-1] != u']')) continue;
      ++FPos;
      return;
    }
  }

  // Passes over blanks and comments; true if the text goes on.
  bool Skip() noexcept {
    for (;;) {
      while (FPos != FEnd && *FPos <= 32 && *FPos != 0) ++FPos;
      if (!IsAtComment()) return !IsAtEnd();
      PassComment();
    }
  }

  // Goes behind the next "<" that begins a tag. False for a closing tag, and at the end of the text.
  bool FindName() noexcept {
    do {
      FPos = scan::FindEither(FPos, FEnd, u'<', 0);
      if (IsAtEnd()) return false;
      ++FPos;
    } while (Unit() == u'!' || Unit() == u'?');
    return Unit() != u'/';
  }

  bool Closes(TClosingName& Name) {
    if (*FPos != u'/' || !Name.StandsAt(FPos + 1, FEnd)) return false;
    FPos += 1 + Name.Size();
    return true;
  }

  void ReadChild(TXmlObject& Parent) {
    auto child = std::make_unique<TXmlObject>();
    TXmlObject* object = child.get();
    if (const char16_t unit = Unit(); unit == 0 || unit == u' ' || unit == u'>') {
      Open(object, std::move(child));
    } else {
      Parent.Add(child.release());
      Open(object, nullptr);
      // Of an element like <a/> the slash belongs to the name only as long as its end is looked for.
      const String& name = object->GetName();
      if (name[name.size() - 1] == u'/') object->SetName(name.Slice(0, name.size() - 1));
    }
  }

  // Reads all that stands before the children of an element; its name stands at the place.
  void Open(TXmlObject* Object, std::unique_ptr<TXmlObject> Nameless) {
    const std::u16string_view name = TakeUpTo([](char16_t unit) { return unit == u' ' || unit == u'>'; });
    FOpen.push_back({Object, std::move(Nameless), TClosingName(name)});
    Object->SetName(FTexts.Take(name));
    if (Unit() == u' ') {
      while (Skip() && *FPos != u'/' && *FPos != u'>') ReadAttribute(*Object);
    }
    if (Unit() == u'>') {
      ++FPos;
      if (Skip() && *FPos != u'<') ReadValue(*Object);
    }
    if (!IsAtEnd() && Unit(1) == u'/') ++FPos;
    Skip();
  }

  void ReadAttribute(TXmlObject& Object) {
    const std::u16string_view name = TakeUpTo([](char16_t unit) { return unit == u' ' || unit == u'='; });
    if (!Skip() || *FPos != u'=') return;
    ++FPos;
    Skip();
    const bool isQuoted = Unit() == u'"' || Unit() == u'\'';
    if (isQuoted) ++FPos;
    const std::u16string_view value = isQuoted ? TakeQuoted() : TakeUpTo([](char16_t unit) { return unit == u' '; });
    if (!IsAtEnd()) ++FPos;
    Object.AddAttribute(FTexts.Take(name), FTexts.Take(value));
  }

  std::u16string_view TakeQuoted() noexcept {
    return TakeUpTo([](char16_t unit) { return unit == u'"' || unit == u'\''; });
  }

  void ReadValue(TXmlObject& Object) {
    std::u16string_view text = TakeText();
    String joined;
    if (IsAtComment()) {
      for (joined = text; IsAtComment(); joined += TakeText()) PassComment();
      text = joined;
    }
    const char16_t* end = text.data() + text.size();
    const bool isEncoded = scan::FindUnit(text.data(), end, u'&') != end;
    Object.SetValue(isEncoded ? XMLDecode(text) : FTexts.Take(text));
  }

  std::u16string_view TakeText() noexcept {
    const char16_t* first = FPos;
    FPos = scan::FindEither(FPos, FEnd, u'<', 0);
    return {first, static_cast<size_t>(FPos - first)};
  }

  const char16_t* FPos;
  const char16_t* FEnd;
  std::vector<TOpen> FOpen;
  TXmlTexts FTexts;
};

}  // namespace

std::u16string_view TXmlObject::Read(std::u16string_view Text) {
  const char16_t* rest = TXmlReader(Text).Read(*this);
  return Text.substr(static_cast<size_t>(rest - Text.data()));
}

}  // namespace vx
