#include "bench/tables/NaiveTable.h"

#include <csv.h>

#include <cstdio>
#include <cstring>
#include <memory>

#include "platform/CodePage.h"

namespace vx::bench {

namespace {

std::string ReadAll(const char* Path) {
  std::FILE* file = std::fopen(Path, "rb");
  std::fseek(file, 0, SEEK_END);
  std::string bytes(static_cast<size_t>(std::ftell(file)), '\0');
  std::rewind(file);
  if (std::fread(bytes.data(), 1, bytes.size(), file) != bytes.size()) std::abort();
  std::fclose(file);
  return bytes;
}

// One cell from p on; p then stands on the separator or the line end.
std::string TakeCell(const char*& p, const char* end) {
  std::string cell;
  if (p == end || *p != '"') {
    const char* start = p;
    const char* line = static_cast<const char*>(std::memchr(p, '\r', static_cast<size_t>(end - p)));
    const char* stop = line ? line : end;
    const char* separator = static_cast<const char*>(std::memchr(p, ';', static_cast<size_t>(stop - p)));
    p = separator ? separator : stop;
    cell.assign(start, p);
    return cell;
  }
  for (++p;;) {
    const char* quote = static_cast<const char*>(std::memchr(p, '"', static_cast<size_t>(end - p)));
    if (!quote) quote = end;
    cell.append(p, quote);
    p = quote == end ? end : quote + 1;
    if (p == end || *p != '"') return cell;
    cell += *p++;
  }
}

}  // namespace

TNaiveTable LoadNaive(const char* Path) {
  std::string bytes = ReadAll(Path);
  TNaiveTable table;
  const char* p = bytes.data();
  const char* end = p + bytes.size();
  while (p < end) {
    std::vector<std::string>& row = table.emplace_back();
    for (;;) {
      row.push_back(TakeCell(p, end));
      if (p == end || *p != ';') break;
      ++p;
    }
    if (p < end && *p == '\r') ++p;
    if (p < end && *p == '\n') ++p;
  }
  return table;
}

void SaveNaive(const TNaiveTable& Table, const char* Path) {
  std::FILE* file = std::fopen(Path, "wb");
  std::string line;
  for (const auto& row : Table) {
    line.clear();
    for (size_t i = 0; i < row.size(); ++i) {
      if (i > 0) line += ';';
      const std::string& cell = row[i];
      if (cell.find_first_of(" ;\"\r\n\t") == cell.npos) {
        line += cell;
        continue;
      }
      line += '"';
      for (char c : cell) {
        if (c == '"') line += '"';
        line += c;
      }
      line += '"';
    }
    line += "\r\n";
    std::fwrite(line.data(), 1, line.size(), file);
  }
  std::fclose(file);
}

TNaiveTable LoadLibcsv(const char* Path) {
  struct TState {
    TNaiveTable Table;
    bool AtStart = true;
  } state;
  csv_parser parser;
  csv_init(&parser, CSV_STRICT | CSV_EMPTY_IS_NULL);
  csv_set_delim(&parser, ';');
  csv_set_space_func(&parser, [](unsigned char) { return 0; });
  auto takeCell = [](void* cell, size_t length, void* data) {
    TState& s = *static_cast<TState*>(data);
    if (s.AtStart) s.Table.emplace_back();
    s.AtStart = false;
    s.Table.back().emplace_back(static_cast<const char*>(cell ? cell : ""), length);
  };
  auto takeRow = [](int, void* data) { static_cast<TState*>(data)->AtStart = true; };
  std::FILE* file = std::fopen(Path, "rb");
  auto buffer = std::make_unique<char[]>(1 << 20);
  while (size_t count = std::fread(buffer.get(), 1, 1 << 20, file)) {
    csv_parse(&parser, buffer.get(), count, takeCell, takeRow, &state);
  }
  csv_fini(&parser, takeCell, takeRow, &state);
  csv_free(&parser);
  std::fclose(file);
  return std::move(state.Table);
}

char16_t LoadFloor(const char* Path) {
  std::string bytes = ReadAll(Path);
  auto units = std::make_unique_for_overwrite<char16_t[]>(bytes.size());
  GetSystemCodePage().Decode(bytes.data(), bytes.size(), units.get());
  return bytes.empty() ? u'\0' : units[bytes.size() - 1];
}

}  // namespace vx::bench
