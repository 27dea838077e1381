// The peers of the table: what a programmer writes without a library, and libcsv.
#pragma once

#include <string>
#include <vector>

namespace vx::bench {

using TNaiveTable = std::vector<std::vector<std::string>>;

// Reads the whole file and splits it with memchr; quoted cells with doubled quotes and line breaks.
TNaiveTable LoadNaive(const char* Path);
void SaveNaive(const TNaiveTable& Table, const char* Path);
// The same structure filled by libcsv.
TNaiveTable LoadLibcsv(const char* Path);
// Reads the file and widens it to UTF-16 by the code page; makes no cells. Returns the last unit.
char16_t LoadFloor(const char* Path);

}  // namespace vx::bench
