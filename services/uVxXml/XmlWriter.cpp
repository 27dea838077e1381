// Writing: one walk over the tree, which makes one line at a time and hands it over.

#include <algorithm>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <vector>

#include "objects/uVxClasses/TVxStringList.h"
#include "platform/StringArena.h"
#include "platform/Text.h"
#include "platform/TextBuffer.h"
#include "platform/detail/Quoting.h"
#include "services/uVxXml/TXmlObject.h"
#include "services/uVxXml/detail/Escapes.h"

namespace vx {

using detail::TEntryFiller;

namespace {

constexpr int64_t kMostUnits = INT32_MAX;

[[noreturn]] void RaiseTooLong() { throw std::length_error("vx::TXmlObject: longer than 2^31-1 code units"); }

template <size_t kCount>
void Move(char16_t* Target, const char16_t* Source) {
  std::memcpy(Target, Source, kCount * sizeof(char16_t));
}

// Copies a text that is short as a rule, for which a call would cost more than the text: in blocks of fixed size, the
// last of which may overlap the one before.
char16_t* Put(char16_t* Target, std::u16string_view Text) {
  const char16_t* source = Text.data();
  const size_t count = Text.size();
  if (count > 64) return std::copy_n(source, count, Target);
  if (count >= 8) {
    for (size_t i = 0; i + 8 < count; i += 8) Move<8>(Target + i, source + i);
    Move<8>(Target + count - 8, source + count - 8);
  } else if (count >= 4) {
    Move<4>(Target, source);
    Move<4>(Target + count - 4, source + count - 4);
  } else {
    for (size_t i = 0; i < count; ++i) Target[i] = source[i];
  }
  return Target + count;
}

char16_t* PutUpper(char16_t* Target, std::u16string_view Text) {
  unsigned all = 0;
  for (size_t i = 0; i < Text.size(); ++i) {
    const unsigned unit = Text[i];
    all |= unit;
    Target[i] = static_cast<char16_t>(unit - (unit - u'a' < 26 ? 32 : 0));
  }
  if (all >= 128) std::transform(Text.begin(), Text.end(), Target, [](char16_t unit) { return UpperCase(unit); });
  return Target + Text.size();
}

// The line that is being made, in memory that all lines use in turn.
class TLine : public TTextBuffer {
 public:
  void Add(std::u16string_view Text) { Put(Room(Text.size()), Text); }
  void AddEncoded(std::u16string_view Text) {
    xml::ForEachEncoded(Text, [&](std::u16string_view Piece) { Add(Piece); });
  }
  // The beginning of a tag.
  void AddTag(int64_t Blanks, std::u16string_view Bracket, std::u16string_view Name) {
    char16_t* target = Room(static_cast<size_t>(Blanks) + Bracket.size() + Name.size());
    PutUpper(Put(std::fill_n(target, Blanks, u' '), Bracket), Name);
  }
  void AddAttribute(std::u16string_view Name, std::u16string_view Value) {
    char16_t* target = Room(Name.size() + 3);
    *target++ = u' ';
    Put(Put(target, Name), u"=\"");
    AddEncoded(Value);
    *Room(1) = u'"';
  }
};

// Hands the lines of a tree to Take. An element is opened only when it turns out to have a body, and all elements
// above it are then.
template <typename TTake>
class TXmlWalk {
 public:
  TXmlWalk(int Indent, TTake Take) : FIndent(std::max(Indent, 0)), FTake(Take) {}

  void Run(const TXmlObject& Root) {
    FPath.push_back({&Root, 0});
    while (!FPath.empty()) {
      TStep& step = FPath.back();
      if (step.Next < step.Object->GetCount()) {
        FPath.push_back({step.Object->GetXml(step.Next++), 0});
      } else {
        Leave(*step.Object);
        FPath.pop_back();
        FOpen = std::min(FOpen, FPath.size());
      }
    }
  }

 private:
  struct TStep {
    const TXmlObject* Object;
    int Next;
  };

  int64_t IndentAt(size_t Level) const { return FIndent + 2 * static_cast<int64_t>(Level); }

  // Writes the value of the last element of the path, and its end.
  void Leave(const TXmlObject& Object) {
    if (!Object.GetValue().empty()) AddValue(Object.GetValue());
    const size_t level = FPath.size() - 1;
    if (FOpen <= level && Object.GetIsRoot()) {
      OpenUpTo(level + 1);
      FLine.AddTag(IndentAt(level) + 1, u"<", u"NULL");
      FLine.Add(u" />");
      EndLine();
    }
    if (FOpen > level) {
      FUnits -= IndentAt(level);  // counted when it was opened
      FLine.AddTag(IndentAt(level), u"</", Object.GetName());
      FLine.Add(u">");
      EndLine();
    } else if (HasAttributes(Object)) {
      OpenUpTo(level);
      AddOpening(level);
      FLine.Add(u" />");
      EndLine();
    }
  }

  // Gives the first Count elements of the path a body.
  void OpenUpTo(size_t Count) {
    if (FOpen == Count) return;
    // The blanks of a deep path are so many that they are counted before they are made, those of the ends, too.
    const auto levels = static_cast<int64_t>(Count - FOpen);
    const int64_t blanks = levels * (IndentAt(FOpen) + IndentAt(Count - 1)) / 2;
    if (FUnits + 2 * blanks > kMostUnits) RaiseTooLong();
    FUnits += blanks;
    for (; FOpen < Count; ++FOpen) {
      AddOpening(FOpen);
      FLine.Add(u">");
      EndLine();
    }
  }

  void AddOpening(size_t Level) {
    const TXmlObject& object = *FPath[Level].Object;
    FLine.AddTag(IndentAt(Level), u"<", object.GetName());
    for (int i = 0; i < object.GetAttributeCount(); ++i) {
      const TXmlAttribute& attribute = *object.GetAttribute(i);
      if (!attribute.GetValue().empty()) FLine.AddAttribute(attribute.GetName(), attribute.GetValue());
    }
  }

  static bool HasAttributes(const TXmlObject& Object) {
    for (int i = 0; i < Object.GetAttributeCount(); ++i) {
      if (!Object.GetAttribute(i)->GetValue().empty()) return true;
    }
    return false;
  }

  // The lines of a value, cut as lists of texts cut theirs.
  void AddValue(std::u16string_view Value) {
    const char16_t* pos = Value.data();
    const char16_t* end = scan::FindUnit(pos, pos + Value.size(), 0);
    while (pos != end) {
      OpenUpTo(FPath.size());
      const char16_t* stop = scan::FindEither(pos, end, u'\r', u'\n');
      FLine.AddEncoded({pos, static_cast<size_t>(stop - pos)});
      EndLine();
      pos = stop;
      if (pos != end) ++pos;
      if (pos != end && *stop == u'\r' && *pos == u'\n') ++pos;
    }
  }

  void EndLine() {
    FUnits += static_cast<int64_t>(FLine.View().size());
    if (FUnits > kMostUnits) RaiseTooLong();
    FTake(FLine.View());
    FLine.Clear();
  }

  int64_t FIndent;
  TTake FTake;
  std::vector<TStep> FPath;
  size_t FOpen = 0;  // how many elements of the path, from the first one on, were opened
  TLine FLine;
  int64_t FUnits = 0;  // of all lines, and of the blanks that are sure to come
};

// Puts a commatext together in pieces of about the same size.
class TCommatext {
 public:
  // Adds a line, by the rules of commatext; a lone line is never empty.
  void Add(std::u16string_view Line) {
    const size_t most = 2 * Line.size() + 3;
    if (FEnd - FPos < static_cast<ptrdiff_t>(most)) NewPiece(most);
    if (FIsBehindLine) *FPos++ = u',';
    FIsBehindLine = true;
    if (!detail::NeedsQuotes(Line, u',', u'"')) {
      FPos = Put(FPos, Line);
      return;
    }
    *FPos++ = u'"';
    detail::ForEachDoubled(Line, u'"', [&](const char16_t* units, size_t count) { FPos = Put(FPos, {units, count}); });
    *FPos++ = u'"';
  }

  String ToString() {
    EndPiece();
    size_t total = 0;
    for (const TPiece& piece : FPieces) total += piece.Count;
    return String::Build(total, [&](char16_t* target) {
      for (const TPiece& piece : FPieces) target = std::copy_n(piece.Units.get(), piece.Count, target);
    });
  }

 private:
  static constexpr size_t kPieceUnits = 32768;
  struct TPiece {
    std::unique_ptr<char16_t[]> Units;
    size_t Count;
  };

  void EndPiece() {
    if (!FPieces.empty()) FPieces.back().Count = static_cast<size_t>(FPos - FPieces.back().Units.get());
  }
  void NewPiece(size_t Least) {
    EndPiece();
    const size_t units = std::max(Least, kPieceUnits);
    FPieces.push_back({std::unique_ptr<char16_t[]>(new char16_t[units]), 0});
    FPos = FPieces.back().Units.get();
    FEnd = FPos + units;
  }

  std::vector<TPiece> FPieces;
  char16_t* FPos = nullptr;
  char16_t* FEnd = nullptr;
  bool FIsBehindLine = false;
};

}  // namespace

String TXmlObject::GetXmlCommatext(int Indent) const {
  TCommatext text;
  TXmlWalk(Indent, [&](std::u16string_view Line) { text.Add(Line); }).Run(*this);
  return text.ToString();
}

void TXmlObject::GetXmlText(int Indent, TStrings& Strings) const {
  TEntryFiller filler;
  TStringArena texts;
  TXmlWalk(Indent, [&](std::u16string_view Line) {
    ::new (filler.Place()) String(texts.Build(Line.size(), [&](char16_t* target) { Put(target, Line); }));
    filler.Advance();
  }).Run(*this);
  TUpdateScope scope(Strings);
  filler.GiveTo([&](detail::TEntries& Lines) {
    if (auto* list = dynamic_cast<TVxStringList*>(&Strings)) return list->TakeCells(Lines);
    Strings.Clear();
    for (const String& line : Lines.Texts()) Strings.Add(line);
    Lines.Clear();
  });
}

}  // namespace vx
