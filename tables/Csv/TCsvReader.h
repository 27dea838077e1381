// A table file row by row, without a table. The unit's header tells the rules.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "platform/String.h"
#include "tables/Csv/TCsvFaults.h"
#include "tables/Csv/TCsvForm.h"

namespace vx {

namespace detail {
class TCsvSource;
}

// Holds a piece of the file and one row, whatever the file's size; a row has to fit into the memory.
//
// Example:
//   vx::TCsvReader reader(u"C:\\Daten\\Kassen.csv");
//   while (reader.Next()) {
//     if (reader.Cells().size() > 2) use(reader.Line(), reader.Cells()[2]);
//   }
//   if (reader.Faults().Count > 0) show(reader.Faults().First[0].ToText());
class TCsvReader {
 public:
  // What Form leaves open is found out at once; for the encoding the file may be read through. Raises EFOpenError,
  // EReadError; EArgumentException for a form that can't be.
  explicit TCsvReader(std::u16string_view Path, const TCsvForm& Form = {});
  // The same for bytes in memory, which have to stay as long as the reader reads.
  static TCsvReader OverBytes(std::string_view Bytes, const TCsvForm& Form = {});
  ~TCsvReader();
  TCsvReader(TCsvReader&& Other) noexcept;
  TCsvReader& operator=(TCsvReader&& Other) noexcept;

  // Goes to the next row; false at the end. EReadError.
  [[nodiscard]] bool Next();
  // Goes over the next row without making texts of its cells, and gives their number; -1 at the end. Faults in it are
  // not told. EReadError.
  [[nodiscard]] int Skip();
  // The cells of the present row, until the next call of Next or Skip; a copied cell stays.
  std::span<const String> Cells() const;
  // The present row, counted from 0, and the line of the file where it begins, counted from 1.
  int Row() const noexcept;
  int64_t Line() const noexcept;

  // The form of the file, with nothing left open; its line end is that of the first row that Next or Skip met.
  const TCsvForm& Form() const noexcept;
  // Those of the rows so far.
  const TCsvFaults& Faults() const noexcept;

 private:
  explicit TCsvReader(std::unique_ptr<detail::TCsvSource> Source) noexcept;
  std::unique_ptr<detail::TCsvSource> FSource;
};

}  // namespace vx
