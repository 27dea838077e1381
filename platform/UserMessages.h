// What the person at the screen is told of errors, in German. The texts of exceptions and SysErrorMessage are English,
// for logs.
//
//   UserErrorMessage   of a number of the system's
//   UserMessage        of an exception
//
// Example:
//   vx::String told;
//   try {
//     vx::TFileStream(u"/nowhere/liste.csv", vx::fmOpenRead);
//   } catch (const vx::EStreamError& error) {
//     told = vx::UserMessage(error);
//   }
//   told;   // u"Die Datei \"/nowhere/liste.csv\" kann nicht geöffnet werden. Ihr Verzeichnis ist nicht vorhanden."
//
// Pitfall: only faults of files and want of memory have a German text; any other exception gives its own.
#pragma once

#include <exception>

#include "platform/String.h"

namespace vx {

// A sentence about a file at which the system failed with Error, a number of <cerrno>: u"Der Datenträger ist voll."
// What is not in the table is told by its number and the system's own text.
String UserErrorMessage(int Error);

// GetUserMessage of a fault of a file, else the text of the exception.
String UserMessage(const std::exception& Error);

}  // namespace vx
