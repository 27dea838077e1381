// Elements, texts and what stands around them.
#include "services/Xml/detail/XmlScanner.h"

#include <algorithm>
#include <utility>

#include "platform/Scan.h"
#include "platform/Text.h"
#include "services/Xml/detail/XmlChars.h"

namespace vx::detail {

namespace {

constexpr size_t kFewAttributes = 16;  // up to there each is compared with each

// The first "<", "&" or "]".
char16_t* FindTextStop(char16_t* First, char16_t* Last) noexcept {
  const auto isStop = [](char16_t unit) { return unit == u'<' || unit == u'&' || unit == u']'; };
#if defined(__SSE2__)
  const auto stops = [](__m128i units) {
    const __m128i markup =
        _mm_or_si128(_mm_cmpeq_epi16(units, scan::Fill(u'<')), _mm_cmpeq_epi16(units, scan::Fill(u'&')));
    return _mm_or_si128(markup, _mm_cmpeq_epi16(units, scan::Fill(u']')));
  };
#else
  const int stops = 0;
#endif
  return const_cast<char16_t*>(scan::Find(First, Last, stops, isStop));
}

char16_t* FindUnit(char16_t* First, char16_t* Last, char16_t Unit) noexcept {
  return const_cast<char16_t*>(scan::FindUnit(First, Last, Unit));
}

bool IsBlankText(std::u16string_view Text) noexcept { return std::ranges::all_of(Text, IsXmlBlank); }

std::u16string_view View(const char16_t* First, const char16_t* Last) noexcept {
  return {First, static_cast<size_t>(Last - First)};
}

}  // namespace

TXmlScanner::TXmlScanner(TXmlInput Input, const TXmlLimits& Limits)
    : Form(Input.Form), FInput(std::move(Input)), FLimits(Limits) {
  FTexts.Units = std::move(FInput.Units);
  FPos = FTexts.Units.get();
  FEnd = FPos + FInput.Size;
  FSeen = FPos;
  Form.HasDeclaration = false;
}

bool TXmlScanner::Next() {
  if (FIsDone) return false;
  if (FEndsEmpty) {
    PutEnd();
    return true;
  }
  if (!std::exchange(FIsBegun, true) && StandsAt(u"<?xml") && IsXmlBlank(FPos[5]) && !TakeDeclaration()) return false;
  for (;;) {
    if (!(FOpen.empty() ? TakeOutside() : TakeInside())) {
      FIsDone = true;
      Piece = xpNone;
      return false;
    }
    // An entity may stand for nothing.
    const bool isKept = Piece != xpText || !(FLimits.Options.Has(xroDropBlanks) ? IsBlankText(Text) : Text.empty());
    if (isKept) return true;
  }
}

bool TXmlScanner::Skip() {
  const size_t open = FOpen.size();
  if (Piece != xpStart) return true;
  while (FOpen.size() >= open || Piece != xpEnd) {
    if (!Next()) return false;
  }
  return true;
}

// --- places and faults ---

void TXmlScanner::GoTo(const char16_t* Pos) noexcept {
  while (FSeen < Pos) {
    const char16_t* const end = scan::FindUnit(FSeen, Pos, u'\n');
    FColumn += end - FSeen;
    if (FInput.HasPairs) FColumn -= std::count_if(FSeen, end, IsLowSurrogate);
    FSeen = end;
    if (end == Pos) return;
    ++FSeen;
    ++FLine;
    FColumn = 1;
  }
}

void TXmlScanner::Mark() noexcept {
  GoTo(FPos);
  Line = FLine;
  Column = FColumn;
}

bool TXmlScanner::Fail(TXmlFaultKind Kind, const char16_t* At, std::u16string_view Detail) {
  GoTo(std::min<const char16_t*>(At, FEnd));
  Fault.Kind = Kind;
  Fault.Detail = Detail;
  if (At >= FEnd && FInput.EndKind != xfNone) {
    Fault.Kind = FInput.EndKind;
    Fault.Detail = FInput.EndDetail;
  } else if (At >= FEnd && (Kind == xfExpected || Kind == xfName || Kind == xfReference || Kind == xfEndTag)) {
    Fault.Kind = xfEnd;
    if (Kind == xfEndTag) Fault.Detail = Concat({u"</", Detail, u">"});
    if (Detail.empty()) Fault.Detail = Kind == xfName ? u"Name" : u";";
  }
  Fault.Line = FLine;
  Fault.Column = FColumn;
  FIsDone = true;
  return false;
}

bool TXmlScanner::Expect(char16_t Unit) {
  if (*FPos != Unit) return Fail(xfExpected, FPos, {&Unit, 1});
  ++FPos;
  return true;
}

// --- steps ---

bool TXmlScanner::SkipBlanks() noexcept {
  const char16_t* const first = FPos;
  while (IsXmlBlank(*FPos)) ++FPos;
  return FPos != first;
}

bool TXmlScanner::StandsAt(std::u16string_view Word) const noexcept {
  return static_cast<size_t>(FEnd - FPos) >= Word.size() && View(FPos, FPos + Word.size()) == Word;
}

bool TXmlScanner::TakeName(std::u16string_view& Taken) {
  const char16_t* const end = EndOfXmlName(FPos);
  if (end == FPos) return Fail(xfName, FPos);
  Taken = View(FPos, end);
  FPos += Taken.size();
  return true;
}

bool TXmlScanner::TakeDeclared(std::u16string_view Word, std::u16string_view& Value) {
  FPos += Word.size();
  SkipBlanks();
  if (!Expect(u'=')) return false;
  SkipBlanks();
  return TakeLiteral(Value);
}

// A text in quotes of either kind, as it stands.
bool TXmlScanner::TakeLiteral(std::u16string_view& Value) {
  if (*FPos != u'"' && *FPos != u'\'') return Fail(xfExpected, FPos, u"\"");
  char16_t* const end = FindUnit(FPos + 1, FEnd, *FPos);
  if (end == FEnd) return Fail(xfExpected, FEnd, {FPos, 1});
  Value = View(FPos + 1, end);
  FPos = end + 1;
  return true;
}

bool TXmlScanner::TakeDeclaration() {
  std::u16string_view value;
  Form.HasDeclaration = true;
  FPos += 5;
  SkipBlanks();
  if (!StandsAt(u"version")) return Fail(xfExpected, FPos, u"version");
  char16_t* const version = FPos;
  if (!TakeDeclared(u"version", value)) return false;
  if (!value.starts_with(u"1.") || value.size() == 2 || !std::ranges::all_of(value.substr(2), IsDigit)) {
    return Fail(xfExpected, version, u"version=\"1.0\"");
  }
  bool isParted = SkipBlanks();
  if (isParted && StandsAt(u"encoding")) {
    if (!TakeEncoding()) return false;
    isParted = SkipBlanks();
  }
  if (isParted && StandsAt(u"standalone")) {
    char16_t* const standalone = FPos;
    if (!TakeDeclared(u"standalone", value)) return false;
    if (value != u"yes" && value != u"no") return Fail(xfExpected, standalone, u"standalone=\"yes\"");
    Form.Standalone = value == u"yes" ? xsYes : xsNo;
    SkipBlanks();
  }
  if (!StandsAt(u"?>")) return Fail(xfExpected, FPos, u"?>");
  FPos += 2;
  return true;
}

bool TXmlScanner::TakeEncoding() {
  char16_t* const at = FPos;
  std::u16string_view name;
  if (!TakeDeclared(u"encoding", name)) return false;
  TXmlEncoding encoding = xeUtf8;
  const bool isKnown = FindXmlEncoding(name, encoding);
  if (FInput.IsText) {
    if (isKnown) Form.Encoding = encoding;
    return true;
  }
  if (!isKnown) return Fail(xfEncoding, at, name);
  const bool isUtf16 = Form.Encoding == xeUtf16 || Form.Encoding == xeUtf16BigEndian;
  const bool isAnyUtf16 = isUtf16 && SameAscii(name, u"utf-16");
  return encoding == Form.Encoding || isAnyUtf16 || Fail(xfEncodingMismatch, at, name);
}

bool TXmlScanner::TakeOutside() {
  SkipBlanks();
  Mark();
  if (FPos == FEnd) {
    if (FInput.EndKind != xfNone || !FHasRoot) return Fail(xfNoElement, FEnd);
    return false;
  }
  if (*FPos != u'<') return Fail(xfOutside, FPos);
  if (FPos[1] == u'?') return TakeInstruction();
  if (StandsAt(u"<!--")) return TakeComment();
  if (StandsAt(u"<!DOCTYPE")) return FHasRoot || FHasDoctype ? Fail(xfOutside, FPos) : TakeDoctype();
  if (FHasRoot || FPos[1] == u'!' || FPos[1] == u'/') return Fail(xfOutside, FPos);
  FHasRoot = true;
  return TakeStart();
}

bool TXmlScanner::TakeInside() {
  Mark();
  Depth = static_cast<int>(FOpen.size());
  if (*FPos != u'<') return FPos == FEnd ? Fail(xfEndTag, FEnd, FOpen.back()) : TakeText();
  switch (FPos[1]) {
    case u'/':
      return TakeEnd();
    case u'?':
      return TakeInstruction();
    case u'!':
      if (StandsAt(u"<!--")) return TakeComment();
      if (StandsAt(u"<![CDATA[")) return TakeCData();
      return Fail(xfName, FPos + 1);
    default:
      return TakeStart();
  }
}

bool TXmlScanner::TakeStart() {
  const char16_t* const at = FPos++;
  Attributes.clear();
  FNames.clear();
  if (!TakeName(Name)) return false;
  for (;;) {
    const bool isParted = SkipBlanks();
    if (*FPos == u'>' || *FPos == u'/') break;
    if (!isParted) return Fail(xfExpected, FPos, u">");
    if (!TakeAttribute()) return false;
  }
  IsEmptyTag = *FPos == u'/';
  if (IsEmptyTag) ++FPos;
  if (!Expect(u'>')) return false;
  if (!FDeclared.empty()) AddDeclared();
  Depth = static_cast<int>(FOpen.size());
  if (Depth >= FLimits.Depth) return Fail(xfDepth, at);
  FOpen.push_back(Name);
  FEndsEmpty = IsEmptyTag;
  Piece = xpStart;
  Text = {};
  return true;
}

bool TXmlScanner::TakeAttribute() {
  const char16_t* const at = FPos;
  TXmlReadAttribute attribute;
  if (!TakeName(attribute.Name)) return false;
  const auto isSame = [&](const TXmlReadAttribute& other) { return other.Name == attribute.Name; };
  if (Attributes.size() == kFewAttributes) {
    for (const TXmlReadAttribute& other : Attributes) FNames.insert(other.Name);
  }
  const bool isTwice = Attributes.size() < kFewAttributes ? std::ranges::any_of(Attributes, isSame)
                                                          : !FNames.insert(attribute.Name).second;
  if (isTwice) return Fail(xfDuplicateAttribute, at, attribute.Name);
  SkipBlanks();
  if (!Expect(u'=')) return false;
  SkipBlanks();
  if (!TakeValue(attribute.Value)) return false;
  Attributes.push_back(attribute);
  return true;
}

bool TXmlScanner::TakeValue(std::u16string_view& Value) {
  const char16_t quote = *FPos;
  if (quote != u'"' && quote != u'\'') return Fail(xfExpected, FPos, u"\"");
  TPieces pieces(++FPos, FTexts);
  for (;; ++FPos) {
    while (*FPos != quote && *FPos != u'<' && *FPos != u'&' && *FPos >= u' ') ++FPos;
    if (*FPos == quote) break;
    if (*FPos == u'<') return Fail(xfLess, FPos);
    if (*FPos == u'&') {
      if (!TakeReference(pieces, true)) return false;
      --FPos;
    } else if (FPos == FEnd) {
      return Fail(xfExpected, FEnd, {&quote, 1});
    } else {
      GoTo(FPos + 1);  // a line end is counted before it goes
      *FPos = u' ';
    }
  }
  Value = pieces.Finish(FPos++);
  return true;
}

bool TXmlScanner::TakeEnd() {
  const std::u16string_view name = FOpen.back();
  FPos += 2;
  const std::u16string_view rest = View(FPos, FEnd);
  if (!rest.starts_with(name) || (EndOfXmlName(FPos) != FPos + name.size())) return Fail(xfEndTag, FPos - 2, name);
  FPos += name.size();
  SkipBlanks();
  if (!Expect(u'>')) return false;
  PutEnd();
  return true;
}

void TXmlScanner::PutEnd() {
  Piece = xpEnd;
  Name = FOpen.back();
  FOpen.pop_back();
  Depth = static_cast<int>(FOpen.size());
  FEndsEmpty = false;
}

bool TXmlScanner::TakeText() {
  TPieces pieces(FPos, FTexts);
  for (;;) {
    FPos = FindTextStop(FPos, FEnd);
    if (FPos == FEnd || *FPos == u'<') break;
    if (*FPos == u'&') {
      if (!TakeReference(pieces, false)) return false;
    } else if (FPos[1] == u']' && FPos[2] == u'>') {
      return Fail(xfBrackets, FPos);
    } else {
      ++FPos;
    }
  }
  Text = pieces.Finish(FPos);
  if (FPos == FEnd) return Fail(xfEndTag, FEnd, FOpen.back());
  Piece = xpText;
  Name = {};
  return true;
}

bool TXmlScanner::TakeCData() {
  char16_t* const first = FPos + 9;
  FPos = first;
  for (;; ++FPos) {
    FPos = FindUnit(FPos, FEnd, u']');
    if (FPos == FEnd) return Fail(xfExpected, FEnd, u"]]>");
    if (FPos[1] == u']' && FPos[2] == u'>') break;
  }
  Text = View(first, FPos);
  FPos += 3;
  Piece = xpCData;
  Name = {};
  return true;
}

bool TXmlScanner::TakeComment() {
  char16_t* const first = FPos + 4;
  FPos = first;
  for (;; ++FPos) {
    FPos = FindUnit(FPos, FEnd, u'-');
    if (FPos == FEnd) return Fail(xfExpected, FEnd, u"-->");
    if (FPos[1] == u'-') break;
  }
  if (FPos[2] != u'>') return Fail(FPos + 2 >= FEnd ? xfExpected : xfDashes, FPos + 2 >= FEnd ? FEnd : FPos, u"-->");
  Text = View(first, FPos);
  FPos += 3;
  Piece = xpComment;
  Name = {};
  return true;
}

bool TXmlScanner::TakeInstruction() {
  const char16_t* const at = FPos;
  FPos += 2;
  if (!TakeName(Name)) return false;
  if (SameAscii(Name, u"xml")) return Fail(xfInstruction, at);
  const bool isParted = SkipBlanks();
  char16_t* const first = FPos;
  for (;; ++FPos) {
    FPos = FindUnit(FPos, FEnd, u'?');
    if (FPos == FEnd) return Fail(xfExpected, FEnd, u"?>");
    if (FPos[1] == u'>') break;
    if (!isParted) break;
  }
  if (!isParted && (FPos != first || FPos[1] != u'>')) return Fail(xfExpected, first, u"?>");
  Text = View(first, FPos);
  FPos += 2;
  Piece = xpInstruction;
  return true;
}

}  // namespace vx::detail
