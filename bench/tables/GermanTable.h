// Generates the table that the benchmarks of tables work on.
#pragma once

#include <string>

namespace vx::bench {

// Rows rows of ten columns: number, surname, first name, date, post code, town, level, hours, amount,
// remark; ";" between the cells, cells with a blank and other special ones in double quotes,
// Windows-1252, carriage return and line feed. The same for the same arguments.
std::string MakeGermanTable(int Rows, unsigned Seed = 20261122);

}  // namespace vx::bench
