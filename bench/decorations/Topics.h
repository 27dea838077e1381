// What the benchmark of decorations measures, each in a file of its own.
#pragma once

namespace vx::bench {

// Finding and merging the decorations of a cell, and the serial form of a list, at two sizes a factor of ten apart.
void RunLists();
// The texts that cells of each type show, beside their parsers and formatters.
void RunFormats();
// A paragraph of rich text read, wrapped and drawn, beside Pango and Qt.
void RunRichText();

}  // namespace vx::bench
