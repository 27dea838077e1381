// The rows of a table file, whatever its units are. Internal to the readers of Csv.
#pragma once

#include <memory>
#include <span>

#include "tables/Csv/TCsvFaults.h"
#include "tables/Csv/TCsvForm.h"
#include "tables/Csv/detail/CsvInput.h"
#include "tables/uFileCsv/detail/RowMemory.h"

namespace vx::detail {

class TCsvSource {
 public:
  // Finds out what Form leaves open. AreMany: the rows stay, and are to lie in large blocks where they are many.
  // Raises EArgumentException for a form that can't be, EReadError.
  static std::unique_ptr<TCsvSource> New(TCsvInput Input, const TCsvForm& Form, bool AreMany);
  virtual ~TCsvSource() = default;
  TCsvSource(const TCsvSource&) = delete;
  TCsvSource& operator=(const TCsvSource&) = delete;

  // Goes to the next row; false at the end.
  virtual bool Next() = 0;
  // The cells of the present row, until Next or TakeRow.
  virtual std::span<const String> Cells() = 0;
  // The present row, which has no cells then.
  virtual std::unique_ptr<TVxStringList> TakeRow() = 0;
  // Goes over a row without making texts of it, and gives the number of its cells; -1 at the end. No faults are found.
  virtual int Skip() = 0;

  TCsvForm Form;  // as found out
  TCsvFaults Faults;
  int Row = -1;           // the present one
  int64_t Line = 0;       // where it begins
  int64_t LinesDone = 0;  // the line ends in front of the row behind it

 protected:
  TCsvSource(TCsvInput Input, bool AreMany);
  TCsvInput FInput;
  TRowMemory FMemory;
};

// The separator by the lines of a sample, see TCsvForm.
char16_t GuessCsvSeparator(std::u16string_view Sample, char16_t Quote);

}  // namespace vx::detail
