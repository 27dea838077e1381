// Runs the benchmarks of decorations, or one of them: formats, lists or richtext.
#include <cstring>

#include "bench/decorations/Topics.h"

int main(int argc, char** argv) {
  const auto wants = [&](const char* topic) { return argc < 2 || std::strcmp(argv[1], topic) == 0; };
  if (wants("formats")) vx::bench::RunFormats();
  if (wants("lists")) vx::bench::RunLists();
  if (wants("richtext")) vx::bench::RunRichText();
}
