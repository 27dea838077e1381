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
// How the options of the command line want files read. TUsageError.
TReading ReadingOptions(const TArguments& Args);
// The form that --to-separator and --to-encoding tell; none if both are missing. TUsageError.
std::optional<TCsvForm> WritingOptions(const TArguments& Args);

// The type that --type tells by its name, its number or its word for users, English or German; Default
// if it is missing. TUsageError, which names all of Known, for a type that is not among them.
TVxFieldType TypeOption(const TArguments& Args, std::span<const TVxFieldType> Known, TVxFieldType Default);

// The table of the file that stands at Index among the files of the command line. If it looks foreign and
// --foreign is missing, a note says so. Raises what LoadTable raises.
std::unique_ptr<TLoadedFile> Load(const TContext& Context, size_t Index = 0, bool WithDetails = false);

// Saves the table in the file that stands at Index, as the options want it. Raises what SaveTable raises.
void Save(const TContext& Context, TFileCsv& Table, size_t Index);

// What all commands of the form IN OUT have in common: Change makes the table that is saved.
template <typename F>
void LoadChangeSave(const TContext& Context, F Change) {
  CheckTarget(Context.Args.File(1));
  auto file = Load(Context);
  Change(file->Table);
  Save(Context, file->Table, 1);
}

// The column of a name in the table that was read from File. If the name stands twice, a note says so.
// TFailure that names both if there is none.
int ColumnNamed(const TContext& Context, const THeadCsv& Table, const std::string& File, const String& Name);

}  // namespace vx::vxtab
