// The commands that go by the names of columns, and those on configuration files and vocabularies. What
// they do stands in the table of Commands.cpp, what they raise at TCommand.
#pragma once

#include "tools/vxtab/Commands.h"

namespace vx::vxtab {

void RunGet(const TContext& Context);
void RunSort(const TContext& Context);
void RunMerge(const TContext& Context);
void RunSelect(const TContext& Context);
void RunIni(const TContext& Context);
void RunUnique(const TContext& Context);
void RunVocab(const TContext& Context);

}  // namespace vx::vxtab
