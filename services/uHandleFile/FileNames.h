// Checking, mending, taking apart and making up names of files.
//
// All of these work on the text alone, but for DecorateFilename, which looks for a free name. The
// delimiter is the backslash.
#pragma once

#include <memory>

#include "objects/uVxClasses/TVxStringList.h"

namespace vx {

// The last component of the trimmed name is not empty and holds no code unit from 0 to 31 and none of
// " * / : < > ? |, the characters forbidden in names. Those above 255 are always allowed.
bool CheckFileName(std::u16string_view name);
// The path is not empty and holds none of the forbidden characters. The colon is one of them, so that
// a path with a drive letter fails; this is wanted.
bool CheckPath(std::u16string_view path);
// A whole path: no code unit below 32, none of / * ? " < > | and a colon only as second character. An
// empty name is good.
bool VxFilenameOk(std::u16string_view name);
// Gives path, with a backslash at its end, and name as result, with replacement in place of each
// forbidden character, in name of each backslash too, and with noBlanks of each blank; a colon at
// position 2 of path stays. False if result has more than 260 characters, or if there is a colon at
// position 2 behind which path goes on and no letter before it.
bool ValidateFilename(std::u16string_view path, std::u16string_view name, String& result, bool noBlanks,
                      char16_t replacement);
// The last component has at most 8 characters, and an extension of at most 4 with its dot.
bool FilenameIs83(const String& name);

// Puts decoration between the pure name and the extension, and behind it format with a number in its
// place (see Format.h), as in u" (%d)" or u"_%.3d": the first number from 1 on whose file doesn't exist
// by VxFileExists. A format without a place for a number, and one that is none, is left out and
// nothing is looked for.
String DecorateFilename(const String& name, std::u16string_view decoration, std::u16string_view format);
// u"Liste" of u"C:\\Daten\\Liste.csv".
String ExtractPureFilename(const String& name);
// Replaces every "/" in path by a backslash; true if there was one.
bool GarantyWindowsPath(String& path);

// The pieces of name between backslashes, without a final empty one, appended to list or in a new one.
void VxProcessFilename(const String& name, TVxStringList& list);
[[nodiscard]] std::unique_ptr<TVxStringList> VxProcessFilename(const String& name);
// The drive of path, empty without one, and the pieces behind the first backslash that follows it:
// "C:", "a", "" of u"C:\\a\\". A path without a drive thus loses its first piece, and where no
// backslash follows there is one empty piece; both are wanted.
[[nodiscard]] std::unique_ptr<TVxStringList> PathToList(const String& path);

// path up to its last backslash that is not its end, with that backslash; without one path itself. A
// blank path gives an empty text: u"C:\\a\\" of u"C:\\a\\b\\".
String VxSubtractLastDirectory(const String& path);
// What stands behind that backslash, or path itself, without a backslash at the end: u"b".
String VxGetLastDirectory(const String& path);

}  // namespace vx
