// The peer of the log: spdlog's basic file logger for one thread.
#pragma once

#include <string>
#include <vector>

namespace vx::bench {

// Writes Count lines, which take their texts from Texts in turn, into a new file and closes it. The lines have the
// form that ours have unless told otherwise. The logger's buffer is flushed after each FlushEach lines and at the
// end; 0: only at the end.
void WriteBySpdlog(const std::string& Path, const std::vector<std::string>& Texts, int Count, int FlushEach);

}  // namespace vx::bench
