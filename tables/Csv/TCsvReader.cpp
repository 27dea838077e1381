#include "tables/Csv/TCsvReader.h"

#include <utility>

#include "tables/Csv/detail/CsvSource.h"

namespace vx {

using detail::TCsvInput;
using detail::TCsvSource;

TCsvReader::TCsvReader(std::unique_ptr<TCsvSource> Source) noexcept : FSource(std::move(Source)) {}
TCsvReader::TCsvReader(std::u16string_view Path, const TCsvForm& Form)
    : FSource(TCsvSource::New(TCsvInput(String(Path)), Form, false)) {}
TCsvReader TCsvReader::OverBytes(std::string_view Bytes, const TCsvForm& Form) {
  return TCsvReader(TCsvSource::New(TCsvInput(Bytes), Form, false));
}
TCsvReader::~TCsvReader() = default;
TCsvReader::TCsvReader(TCsvReader&& Other) noexcept = default;
TCsvReader& TCsvReader::operator=(TCsvReader&& Other) noexcept = default;

bool TCsvReader::Next() { return FSource->Next(); }
int TCsvReader::Skip() { return FSource->Skip(); }
std::span<const String> TCsvReader::Cells() const { return FSource->Cells(); }
int TCsvReader::Row() const noexcept { return FSource->Row; }
int64_t TCsvReader::Line() const noexcept { return FSource->Line; }
const TCsvForm& TCsvReader::Form() const noexcept { return FSource->Form; }
const TCsvFaults& TCsvReader::Faults() const noexcept { return FSource->Faults; }

}  // namespace vx
