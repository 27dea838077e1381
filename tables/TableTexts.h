// Tables as texts for other programs: JSON lines and Markdown, in UTF-8.
//
//   TableToJsonLines   each row a line of JSON
//   TableToMarkdown    a table of GitHub's Markdown
//   AppendJsonRow      one row as an array of JSON
//
// Example:
//   vx::TFileCsv table;
//   table.AddRow({u"Name", u"Ort"});
//   table.AddRow({u"Weiß", u"Köln|Deutz"});
//   vx::TableToJsonLines(table);  // "{\"Name\": \"Weiß\", \"Ort\": \"Köln|Deutz\"}\n"
//   vx::TableToMarkdown(table);
//   //   | Name | Ort |
//   //   | --- | --- |
//   //   | Weiß | Köln\|Deutz |
//
// Lines end in a line feed; ReplaceFileContent of platform/SafeFiles.h puts the text into a file. Cells stay texts:
// u"12" is "12".
//
// Threads: any number may write one table, which nobody changes meanwhile.
//
// Pitfall: Markdown is for reading. It drops blanks at the ends of cells, and line breaks become <br>.
#pragma once

#include <span>
#include <string>

#include "tables/uFileCsv.h"

namespace vx {

enum TJsonRows : uint8_t {
  jrObjects,  // row 0 has the names, and every other row is an object: {"Name": "Weiß"}
  jrArrays    // every row is an array: ["Name", "Ort"]
};

// Every cell can be read back. As an object has each name once, a column without one is called by its number, from 1
// on: "3"; so is one beyond the head; and a name that stood before gets its number behind it: "Ort 3". Cells that a
// short row lacks are not in its object. Lone surrogates stand as \uD800.
std::string TableToJsonLines(const TFileCsv& Table, TJsonRows Rows = jrObjects);

// Row 0 is the head. Rows are filled up to the widest one. What Markdown and HTML would take for something else than
// the letter stands behind a backslash. Lone surrogates become U+FFFD. Empty for a table without rows or cells.
std::string TableToMarkdown(const TFileCsv& Table);

// Appends ["Weiß", "Köln"], without a line end.
void AppendJsonRow(std::string& Target, std::span<const String> Cells);

}  // namespace vx
