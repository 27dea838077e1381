// Size, last-write time and checksum of a file, and sizes as text.
#pragma once

#include <cstdint>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// The size in bytes. A missing file gives -1 and a directory -2 with signal, both 0 without.
int64_t VxFileSize(std::u16string_view name, bool signal);
// The last-write time in local time. A missing file gives -1 with signal, 0 without.
TDateTime VxFileLastWrite(std::u16string_view name, bool signal);

// Sets the last-write time from local time, rounded to the millisecond. errorCode is 0 for success, else 1 for what is
// no date of the years 1 to 9999, 2 for a date before 1601, 3 if its universal time lies there, 4 if the file could not
// be opened for reading and writing, 5 if the time could not be set.
bool VxSetFileLastWrite(std::u16string_view name, TDateTime dateTime, int& errorCode);
// The German text of such a code, with the number of the system's last error in this thread behind all
// but that of 0: u"[4] \"FileOpen\" ist fehlgeschlagen! Win32Error=2".
String VxSetFileLastWriteError(int errorCode);

// A fast checksum of the contents: all groups of 8 bytes, the last filled up with zeros, taken as
// little-endian numbers and combined by exclusive or. An empty file gives 0. False, and 0, if the file
// can't be opened or read.
bool VxHashFromHD(std::u16string_view name, uint64_t& hash);

// The size in the largest unit that it exceeds, rounded up to two places, with the German decimal
// comma: u"1024 Byte", u"1,01 kB" for 1025, u"2 GB".
String VxFileSizeText(uint64_t size);
// The size in unit ("GB", "MB" or "KB" in any case; any other gives bytes), rounded up to digits
// places, without zeros at the end and with 18 digits in all at most. Digits below 0 count as 0.
String VxFileSizeTextDetail(uint64_t size, std::u16string_view unit, int digits);

}  // namespace vx
