// What the commands have in common.
#pragma once

#include <memory>
#include <span>
#include <string>

#include "core/uConst.h"
#include "tools/vxtab/Commands.h"
#include "tools/vxtab/TableFiles.h"

namespace vx::vxtab {

// As the user names it: "comma", "semicolon", "tab", "esc"; "other" for other ones.
const char* SeparatorName(char16_t Separator);
// The separator that --separator tells, 0 if it is missing. TUsageError.
char16_t SeparatorOption(const TArguments& Args);

// The type that --type tells by its name, its number or its word for users, English or German; Default
// if it is missing. TUsageError, which names all of Known, for a type that is not among them.
TVxFieldType TypeOption(const TArguments& Args, std::span<const TVxFieldType> Known, TVxFieldType Default);

// The table of the file that stands at Index among the files of the command line. If it looks foreign and
// --foreign is missing, a note says so. Raises what LoadTable raises.
std::unique_ptr<TLoadedFile> Load(const TContext& Context, size_t Index = 0, bool WithDetails = false);

// What all commands of the form IN OUT have in common: Change makes the table that is saved.
template <typename F>
void LoadChangeSave(const TContext& Context, F Change) {
  CheckTarget(Context.Args.File(1));
  auto file = Load(Context);
  Change(file->Table);
  SaveTable(file->Table, Context.Args.File(1), Context.Reporter);
}

// The column of a name in the table that was read from File. If the name stands twice, a note says so.
// TFailure that names both if there is none.
int ColumnNamed(const TContext& Context, const THeadCsv& Table, const std::string& File, const String& Name);

}  // namespace vx::vxtab
