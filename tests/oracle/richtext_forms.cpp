// Rich texts from standard input in another form, for programs that read them by rules of their own.
//
//   richtext_forms text     as plain text, lines joined by line feeds
//   richtext_forms rtf      as RTF for other programs
//   richtext_forms html     RTF in the normal form of the dialect
//
// Texts are UTF-8, for html bytes of Windows-1252; each one ends with the byte 0x1E, and so does each result.
#include <cstdio>
#include <iterator>
#include <string>

#include "platform/CodePage.h"
#include "platform/Exceptions.h"
#include "platform/TRecordingCanvas.h"
#include "rendering/uVxTinyHTML.h"

namespace {

constexpr char kEnd = '\x1E';
// Wide and high enough for any text.
constexpr vx::TRect kPage{0, 0, 1 << 24, 1 << 24};

std::string Converted(const std::string& Form, const std::string& Text) {
  vx::TRecordingCanvas canvas;
  if (Form == "html") return vx::RTF2HTML(vx::GetSystemCodePage().Decode(Text), canvas).ToUtf8();
  const vx::String text = vx::String::FromUtf8(Text);
  return (Form == "text" ? vx::HTML2Text(text, u"\n") : vx::HTML2RTF(text, canvas, kPage, vx::rfEscaped)).ToUtf8();
}

}  // namespace

int main(int argc, char** argv) {
  const std::string form = argc == 2 ? argv[1] : "";
  if (form != "text" && form != "rtf" && form != "html") return 2;
  std::string all;
  char block[4096];
  while (const size_t count = std::fread(block, 1, sizeof block, stdin)) all.append(block, count);
  size_t first = 0;
  for (size_t end; (end = all.find(kEnd, first)) != all.npos; first = end + 1) {
    std::string result;
    try {
      result = Converted(form, all.substr(first, end - first));
    } catch (const vx::Exception& error) {
      result = std::string("raises ") + error.what();
    }
    std::printf("%s%c", result.c_str(), kEnd);
  }
  return 0;
}
