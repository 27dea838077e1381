#include "services/Xml/detail/XmlInput.h"

#include <algorithm>

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Scan.h"
#include "platform/Text.h"
#include "platform/TextBuffer.h"
#include "platform/detail/Utf8.h"
#include "services/Xml/detail/XmlChars.h"

namespace vx::detail {

namespace {

constexpr size_t kPadding = 8;  // units 0 behind the text
constexpr size_t kMost = INT32_MAX - kPadding;

// Puts characters one behind the other, and stops at the first that XML does not allow.
class TUnitWriter {
 public:
  TUnitWriter(TXmlInput& Input, size_t Most) : FInput(Input) {
    FInput.Units = std::make_unique_for_overwrite<char16_t[]>(Most + kPadding);
    FTarget = FInput.Units.get();
  }
  ~TUnitWriter() {
    FInput.Size = static_cast<size_t>(FTarget - FInput.Units.get());
    std::fill_n(FTarget, kPadding, u'\0');
  }
  TUnitWriter(const TUnitWriter&) = delete;
  TUnitWriter& operator=(const TUnitWriter&) = delete;

  // False at the end.
  bool Put(char32_t Character) {
    const bool isBehindReturn = FIsReturn;
    FIsReturn = Character == '\r';
    if (FIsReturn) Character = '\n';
    if (Character == '\n' && isBehindReturn && !FIsReturn) return true;
    if (!IsXmlCharacter(Character)) return Stop(xfCharacter, XmlNumberOf(Character));
    FInput.HasPairs = FInput.HasPairs || Character > 0xFFFF;
    FTarget = PutCharacter(FTarget, Character);
    return true;
  }
  bool Stop(TXmlFaultKind Kind, const String& Detail = {}) {
    FInput.EndKind = Kind;
    FInput.EndDetail = Detail;
    return false;
  }
#if defined(__SSE2__)
  // Sixteen bytes of ASCII without a return and other units below 32 but tabs and line feeds; false for others.
  bool PutAscii(const char* Bytes) {
    const __m128i bytes = scan::Load(Bytes);
    const __m128i low = _mm_cmplt_epi8(bytes, _mm_set1_epi8(32));  // below 32 and, as numbers have a sign, beyond 127
    const __m128i good =
        _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n')), _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\t')));
    if (FIsReturn || scan::Mask(_mm_andnot_si128(good, low)) != 0) return false;
    const __m128i zero = _mm_setzero_si128();
    _mm_storeu_si128(reinterpret_cast<__m128i*>(FTarget), _mm_unpacklo_epi8(bytes, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(FTarget + 8), _mm_unpackhi_epi8(bytes, zero));
    FTarget += 16;
    return true;
  }
#endif

 private:
  TXmlInput& FInput;
  char16_t* FTarget;
  bool FIsReturn = false;  // the last one was, and a line feed behind it is part of that line end
};

void DecodeUtf8(std::string_view Bytes, TXmlInput& Input) {
  TUnitWriter writer(Input, Bytes.size());
  for (size_t pos = 0; pos < Bytes.size();) {
#if defined(__SSE2__)
    if (Bytes.size() - pos >= 16 && writer.PutAscii(Bytes.data() + pos)) {
      pos += 16;
      continue;
    }
    // One of the next sixteen is another one: they go one by one.
    const size_t end = std::min(pos + 16, Bytes.size());
#else
    const size_t end = Bytes.size();
#endif
    while (pos < end) {
      const char32_t character = NextFromUtf8(Bytes, pos);
      if (character == kBrokenUtf8) {
        writer.Stop(xfBytes);
        return;
      }
      if (!writer.Put(character)) return;
    }
  }
}

// UnitAt(index) gives the code units.
template <typename F>
void DecodeUnits(size_t Count, TXmlInput& Input, F UnitAt) {
  TUnitWriter writer(Input, Count);
  for (size_t pos = 0; pos < Count; ++pos) {
    const char16_t unit = UnitAt(pos);
    char32_t character = unit;
    if (IsHighSurrogate(unit) && pos + 1 < Count && IsLowSurrogate(UnitAt(pos + 1))) {
      character = JoinSurrogates(unit, UnitAt(++pos));
    } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
      writer.Stop(xfBytes);
      return;
    }
    if (!writer.Put(character)) return;
  }
}

void DecodeUtf16(std::string_view Bytes, size_t HighAt, TXmlInput& Input) {
  DecodeUnits(Bytes.size() / 2, Input, [&](size_t pos) {
    const auto high = static_cast<uint8_t>(Bytes[2 * pos + HighAt]);
    const auto low = static_cast<uint8_t>(Bytes[2 * pos + 1 - HighAt]);
    return static_cast<char16_t>(high << 8 | low);
  });
  if (Bytes.size() % 2 != 0 && Input.EndKind == xfNone) Input.EndKind = xfBytes;
}

void DecodePage(std::string_view Bytes, TXmlInput& Input) {
  const int number = CodePageOfXml(Input.Form.Encoding);
  const TCodePage* page = number == 0 ? nullptr : TCodePage::Find(number);
  TUnitWriter writer(Input, Bytes.size());
  for (char byte : Bytes) {
    const auto value = static_cast<uint8_t>(byte);
    if (page == nullptr && value > 127) {
      writer.Stop(xfBytes);
      return;
    }
    if (!writer.Put(page == nullptr ? value : page->DecodeByte(value))) return;
  }
}

// The name of the encoding in a declaration at the beginning; empty if there is none.
String DeclaredName(std::string_view Bytes) {
  if (!Bytes.starts_with("<?xml") || Bytes.find_first_of(" \t\r\n") != 5) return {};
  Bytes = Bytes.substr(0, Bytes.find("?>"));
  const size_t at = Bytes.find("encoding");
  if (at == Bytes.npos) return {};
  const size_t first = Bytes.find_first_of("\"'", at);
  if (first == Bytes.npos) return {};
  return String::FromUtf8(Bytes.substr(first + 1, Bytes.find(Bytes[first], first + 1) - first - 1));
}

void Decode(std::string_view Bytes, TXmlInput& Input) {
  switch (Input.Form.Encoding) {
    case xeUtf8:
      return DecodeUtf8(Bytes, Input);
    case xeUtf16:
      return DecodeUtf16(Bytes, 1, Input);
    case xeUtf16BigEndian:
      return DecodeUtf16(Bytes, 0, Input);
    default:
      return DecodePage(Bytes, Input);
  }
}

}  // namespace

String XmlNumberOf(char32_t Character) {
  TTextBuffer text;
  text.Add(u"U+");
  for (int shift = Character > 0xFFFF ? 20 : 12; shift >= 0; shift -= 4) {
    text.Add(u"0123456789ABCDEF"[Character >> shift & 15]);
  }
  return text.ToString();
}

bool FindXmlEncoding(std::u16string_view Name, TXmlEncoding& Encoding) {
  static constexpr struct {
    std::u16string_view Name;
    TXmlEncoding Encoding;
  } kNames[] = {{u"utf-8", xeUtf8},
                {u"utf8", xeUtf8},
                {u"utf-16", xeUtf16},
                {u"utf-16le", xeUtf16},
                {u"utf-16be", xeUtf16BigEndian},
                {u"us-ascii", xeAscii},
                {u"ascii", xeAscii},
                {u"iso-8859-1", xeIso8859_1},
                {u"iso8859-1", xeIso8859_1},
                {u"iso_8859-1", xeIso8859_1},
                {u"latin1", xeIso8859_1},
                {u"iso-8859-15", xeIso8859_15},
                {u"iso8859-15", xeIso8859_15},
                {u"windows-1252", xeWindows1252},
                {u"cp1252", xeWindows1252}};
  for (const auto& [name, encoding] : kNames) {
    if (!SameAscii(Name, name)) continue;
    Encoding = encoding;
    return true;
  }
  return false;
}

int CodePageOfXml(TXmlEncoding Encoding) noexcept {
  return Encoding == xeIso8859_1 ? 28591 : Encoding == xeIso8859_15 ? 28605 : Encoding == xeWindows1252 ? 1252 : 0;
}

TXmlInput TXmlInput::FromBytes(std::string_view Bytes) {
  static constexpr struct {
    std::string_view Start;
    TXmlEncoding Encoding;
    bool IsMark;
  } kStarts[] = {{"\xEF\xBB\xBF", xeUtf8, true},
                 {"\xFF\xFE", xeUtf16, true},
                 {"\xFE\xFF", xeUtf16BigEndian, true},
                 {{"<\0", 2}, xeUtf16, false},
                 {{"\0<", 2}, xeUtf16BigEndian, false}};
  TXmlInput input;
  if (Bytes.size() >= kMost) {
    input.EndKind = xfTooLarge;
    Bytes = {};
  }
  for (const auto& [start, encoding, isMark] : kStarts) {
    if (!Bytes.starts_with(start)) continue;
    input.Form.Encoding = encoding;
    input.Form.HasMark = isMark;
    if (isMark) Bytes.remove_prefix(start.size());
    Decode(Bytes, input);
    return input;
  }
  // A name that is not known is told where it stands, which only has to be read.
  const String name = DeclaredName(Bytes);
  if (!name.empty() && !FindXmlEncoding(name, input.Form.Encoding)) input.Form.Encoding = xeIso8859_1;
  if (input.Form.Encoding == xeUtf16 || input.Form.Encoding == xeUtf16BigEndian) input.Form.Encoding = xeUtf8;
  Decode(Bytes, input);
  return input;
}

TXmlInput TXmlInput::FromFile(const String& Path) {
  TFileStream file(Path, fmOpenRead | fmShareDenyNone);
  std::string bytes;
  file.ReadRest(bytes, INT32_MAX);
  return FromBytes(bytes);
}

TXmlInput TXmlInput::FromText(std::u16string_view Text) {
  TXmlInput input;
  input.IsText = true;
  if (Text.size() >= kMost) {
    input.EndKind = xfTooLarge;
    Text = {};
  }
  DecodeUnits(Text.size(), input, [&](size_t pos) { return Text[pos]; });
  return input;
}

}  // namespace vx::detail
