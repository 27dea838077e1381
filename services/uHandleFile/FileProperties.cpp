#include "services/uHandleFile/FileProperties.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>

#include "platform/Calendar.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/FormatSettings.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace vx {
namespace {

constexpr TDateTime kFirstDay = -693593;       // 1.1.0001
constexpr TDateTime kFirstFileDay = -109205;   // 1.1.1601
constexpr TDateTime kBehindLastDay = 2958466;  // 1.1.10000
constexpr size_t kHashBlock = 524288;
constexpr int kMaxDigits = 18;
constexpr int kInvalidArgument = 22;

// 0 if dateTime, taken as local time, has a form in the system's time.
int ConversionError(TDateTime dateTime) {
  if (!(dateTime >= kFirstDay && dateTime < kBehindLastDay)) return 1;
  if (dateTime < kFirstFileDay) return 2;
  return LocalToUtc(dateTime) < kFirstFileDay ? 3 : 0;
}

uint64_t FromLittleEndian(uint64_t value) noexcept {
  if constexpr (std::endian::native == std::endian::little) return value;
  uint64_t result = 0;
  for (int i = 0; i < 8; ++i) result = result << 8 | (value >> (8 * i) & 0xFF);
  return result;
}

uint64_t FoldBlock(const char* bytes, size_t count) noexcept {
  uint64_t hash = 0;
  for (size_t at = 0; at < count; at += 8) {
    uint64_t group;
    std::memcpy(&group, bytes + at, 8);
    hash ^= group;
  }
  return FromLittleEndian(hash);
}

uint64_t HashOf(TFileStream& file) {
  const std::unique_ptr<char[]> buffer(new char[kHashBlock]);
  uint64_t hash = 0;
  while (size_t got = file.Read(buffer.get(), kHashBlock)) {
    const size_t padded = (got + 7) / 8 * 8;
    std::memset(buffer.get() + got, 0, padded - got);
    hash ^= FoldBlock(buffer.get(), padded);
    if (got < kHashBlock) break;
  }
  return hash;
}

// Adds 1 to a decimal number.
void Increment(std::string& number) {
  size_t at = number.size();
  while (at > 0 && number[at - 1] == '9') number[--at] = '0';
  if (at > 0) {
    ++number[at - 1];
  } else {
    number.insert(0, 1, '1');
  }
}

// size / 2^shift, rounded up to that many places.
String Scaled(uint64_t size, int shift, int digits) {
  const uint64_t mask = (uint64_t{1} << shift) - 1;
  std::string number = std::to_string(size >> shift);
  int places = std::clamp(digits, 0, std::max(0, kMaxDigits - static_cast<int>(number.size())));
  uint64_t rest = size & mask;
  for (int i = 0; i < places; ++i) {
    rest *= 10;
    number += static_cast<char>('0' + (rest >> shift));
    rest &= mask;
  }
  if (rest != 0) Increment(number);
  for (; places > 0 && number.back() == '0'; --places) number.pop_back();
  String text = String::FromUtf8(number);
  if (places == 0) return text;
  const int whole = text.size() - places;
  return Concat({text.Slice(0, whole), {&GetFormatSettings().DecimalSeparator, 1}, text.Slice(whole)});
}

String SizeText(uint64_t size, int shift, int digits, std::u16string_view unit) {
  return Concat({Scaled(size, shift, digits), u" ", unit});
}

}  // namespace

int64_t VxFileSize(std::u16string_view name, bool signal) {
  TFileInfo info;
  if (!GetFileInfo(name, info)) return signal ? -1 : 0;
  if (info.IsDirectory) return signal ? -2 : 0;
  return info.Size;
}

TDateTime VxFileLastWrite(std::u16string_view name, bool signal) {
  TFileInfo info;
  if (!GetFileInfo(name, info)) return signal ? -1 : 0;
  return info.LastWrite;
}

bool VxSetFileLastWrite(std::u16string_view name, TDateTime dateTime, int& errorCode) {
  errorCode = ConversionError(dateTime);
  if (errorCode != 0) {
    SetLastError(kInvalidArgument);
    return false;
  }
  try {
    TFileStream file(name, fmOpenReadWrite | fmShareDenyNone);
    errorCode = file.SetLastWrite(std::round(dateTime * MSecsPerDay) / MSecsPerDay) ? 0 : 5;
  } catch (const EStreamError&) {
    errorCode = 4;
  }
  return errorCode == 0;
}

String VxSetFileLastWriteError(int errorCode) {
  String text;
  switch (errorCode) {
    case 0:
      return u"Das Dateidatum wurde erfolgreich geändert!";
    case 1:
      text = u"[1] Ausnahmefehler!";
      break;
    case 2:
      text = u"[2] \"SystemTimeToFileTime\" ist fehlgeschlagen!";
      break;
    case 3:
      text = u"[3] \"LocalFileTimeToFileTime\" ist fehlgeschlagen!";
      break;
    case 4:
      text = u"[4] \"FileOpen\" ist fehlgeschlagen!";
      break;
    case 5:
      text = u"[5] \"SetFileTime\" ist fehlgeschlagen!";
      break;
    default:
      text = Concat({u"[", IntToStr(errorCode), u"] Unbekannter Fehler!"});
  }
  return Concat({text, u" Win32Error=", IntToStr(GetLastError())});
}

bool VxHashFromHD(std::u16string_view name, uint64_t& hash) {
  hash = 0;
  try {
    TFileStream file(name, fmOpenRead | fmShareDenyNone);
    hash = HashOf(file);
    return true;
  } catch (const EStreamError&) {
    return false;
  }
}

String VxFileSizeText(uint64_t size) {
  if (size > uint64_t{1} << 30) return SizeText(size, 30, 2, u"GB");
  if (size > uint64_t{1} << 20) return SizeText(size, 20, 2, u"MB");
  if (size > uint64_t{1} << 10) return SizeText(size, 10, 2, u"kB");
  return SizeText(size, 0, 0, u"Byte");
}

String VxFileSizeTextDetail(uint64_t size, std::u16string_view unit, int digits) {
  const String upper = UpperCase(String(unit));
  if (upper == u"GB") return SizeText(size, 30, digits, u"GB");
  if (upper == u"MB") return SizeText(size, 20, digits, u"MB");
  if (upper == u"KB") return SizeText(size, 10, digits, u"kB");
  return SizeText(size, 0, 0, u"Byte");
}

}  // namespace vx
