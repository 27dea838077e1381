// Looks of tables, the serial form of a decoration list, as files and in words.
#pragma once

#include <iosfwd>
#include <memory>
#include <string>

#include "rendering/uDecoration.h"
#include "tools/vxtab/Reporter.h"

namespace vx::vxtab {

// Name is a path in UTF-8. A text that is no look, or a damaged one, is told as the library tells it, and is a
// TFailure, as is a file that can't be read.
std::unique_ptr<TDecorationList> LoadLook(const std::string& Name);
// Replaces the file in one step. A note tells of characters that the code page lacks. TFailure.
void SaveLook(const TDecorationList& Look, const std::string& Name, TReporter& Reporter);

// A line for each thing that differs from a plain table, and for each decoration.
void TellLook(const TDecorationList& Look, std::ostream& Out);

}  // namespace vx::vxtab
