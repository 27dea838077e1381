#include "platform/Encoding.h"

#include "platform/CodePage.h"

namespace vx {

namespace {

String DecodeUnits(std::string_view Bytes, size_t HighAt) {
  return String::Build(Bytes.size() / 2, [&](char16_t* target) {
    for (size_t i = 0; i + 1 < Bytes.size(); i += 2) {
      const auto high = static_cast<unsigned char>(Bytes[i + HighAt]);
      const auto low = static_cast<unsigned char>(Bytes[i + 1 - HighAt]);
      *target++ = static_cast<char16_t>(high << 8 | low);
    }
  });
}

std::string EncodeUnits(std::u16string_view Text, size_t HighAt) {
  std::string bytes(2 * Text.size(), '\0');
  char* target = bytes.data();
  for (char16_t unit : Text) {
    target[HighAt] = static_cast<char>(unit >> 8);
    target[1 - HighAt] = static_cast<char>(unit & 0xFF);
    target += 2;
  }
  return bytes;
}

}  // namespace

const TEncoding& TEncoding::Default() noexcept {
  static constexpr TEncoding kEncoding(ekCodePage, {});
  return kEncoding;
}

const TEncoding& TEncoding::Utf8() noexcept {
  static constexpr TEncoding kEncoding(ekUtf8, "\xEF\xBB\xBF");
  return kEncoding;
}

const TEncoding& TEncoding::Utf16() noexcept {
  static constexpr TEncoding kEncoding(ekUtf16, "\xFF\xFE");
  return kEncoding;
}

const TEncoding& TEncoding::Utf16BigEndian() noexcept {
  static constexpr TEncoding kEncoding(ekUtf16BigEndian, "\xFE\xFF");
  return kEncoding;
}

const TEncoding& TEncoding::Detect(std::string_view Bytes, size_t& MarkSize, const TEncoding& Otherwise) noexcept {
  for (const TEncoding* encoding : {&Utf8(), &Utf16(), &Utf16BigEndian()}) {
    if (Bytes.starts_with(encoding->FMark)) {
      MarkSize = encoding->FMark.size();
      return *encoding;
    }
  }
  MarkSize = 0;
  return Otherwise;
}

String TEncoding::Decode(std::string_view Bytes) const {
  switch (FKind) {
    case ekUtf8:
      return String::FromUtf8(Bytes);
    case ekUtf16:
      return DecodeUnits(Bytes, 1);
    case ekUtf16BigEndian:
      return DecodeUnits(Bytes, 0);
    case ekCodePage:
      break;
  }
  return GetSystemCodePage().Decode(Bytes);
}

std::string TEncoding::Encode(std::u16string_view Text) const {
  switch (FKind) {
    case ekUtf8: {
      std::string bytes;
      AppendUtf8(bytes, Text);
      return bytes;
    }
    case ekUtf16:
      return EncodeUnits(Text, 1);
    case ekUtf16BigEndian:
      return EncodeUnits(Text, 0);
    case ekCodePage:
      break;
  }
  return GetSystemCodePage().Encode(Text);
}

}  // namespace vx
