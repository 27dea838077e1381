// Files of the lists of texts.
#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "objects/uVxClasses/TTextList.h"
#include "platform/CodePage.h"
#include "platform/Files.h"

namespace vx {

namespace {

constexpr size_t kReadChunk = 524288;
constexpr size_t kWriteChunk = 262144;

// A list's lines on their way into a stream, through one buffer.
class TLineWriter {
 public:
  TLineWriter(TFileStream& Stream, size_t BufferSize) : FStream(Stream), FBuffer(std::max<size_t>(BufferSize, 2)) {}

  void Write(std::u16string_view Line) {
    size_t bytes = Line.size() + 2;
    if (FUsed + bytes > FBuffer.size()) Flush();
    if (bytes > FBuffer.size()) FBuffer.resize(bytes);
    FPage.Encode(Line.data(), Line.size(), FBuffer.data() + FUsed);
    FBuffer[FUsed + Line.size()] = '\r';
    FBuffer[FUsed + Line.size() + 1] = '\n';
    FUsed += bytes;
  }
  void Flush() {
    if (FUsed > 0) FStream.WriteBuffer(FBuffer.data(), FUsed);
    FUsed = 0;
  }

 private:
  TFileStream& FStream;
  const TCodePage& FPage = GetSystemCodePage();
  std::vector<char> FBuffer;
  size_t FUsed = 0;
};

// The end of the line at Line without its carriage return; Next is where the next line begins.
const char* LineEnd(const char* Line, const char* End, const char*& Next) {
  const char* feed = static_cast<const char*>(std::memchr(Line, '\n', static_cast<size_t>(End - Line)));
  Next = feed ? feed + 1 : End;
  const char* stop = feed ? feed : End;
  return stop > Line && stop[-1] == '\r' ? stop - 1 : stop;
}

}  // namespace

void TTextList::LoadFromFile(std::u16string_view Path) {
  String path = Path;  // it may be an item of this list
  BeginUpdate();
  Clear();
  TFileStream file(path, fmOpenRead | fmShareDenyWrite);
  const TCodePage& page = GetSystemCodePage();
  std::vector<char> buffer(std::clamp<size_t>(static_cast<size_t>(file.GetSize()), 1, kReadChunk));
  bool lineIsOpen = false;
  String openLine;  // what there is of it
  const auto read = [&] {
    try {
      return file.Read(buffer.data(), buffer.size());
    } catch (...) {
      if (lineIsOpen) Add(openLine);
      throw;
    }
  };
  while (size_t count = read()) {
    const char* end = buffer.data() + count;
    for (const char* line = buffer.data(); line != end;) {
      const char* next;
      const char* stop = LineEnd(line, end, next);
      const String text = page.Decode({line, static_cast<size_t>(stop - line)});
      const bool ends = next[-1] == '\n';
      if (lineIsOpen || !ends) openLine += text;
      if (ends) Add(lineIsOpen ? std::exchange(openLine, String()) : text);
      lineIsOpen = !ends;
      line = next;
    }
  }
  if (lineIsOpen) Add(openLine);
  EndUpdate();
}

int64_t TTextList::GetSaveToSize() const {
  int64_t total = 0;
  for (const String& item : Items()) total += int64_t{item.size()} + 2;
  return total;
}

void TTextList::SaveToStream(TFileStream& Stream) const {
  size_t total = static_cast<size_t>(GetSaveToSize());
  TLineWriter writer(Stream, std::min(total, kWriteChunk));
  for (const String& item : Items()) writer.Write(item);
  writer.Flush();
}

void TTextList::SaveToFile(std::u16string_view Path) const {
  TFileStream file(Path, fmCreate | fmShareDenyWrite);
  SaveToStream(file);
  file.SetSize(file.GetPosition());
}

void TTextList::SaveToFileAdd(std::u16string_view Path, bool Front) const {
  TFileInfo info;
  bool exists = GetFileInfo(Path, info);
  TFileStream file(Path, (exists ? fmOpenReadWrite : fmCreate) | fmShareDenyWrite);
  int64_t oldSize = file.GetSize();
  if (!Front || oldSize == 0) {
    file.SetPosition(oldSize);
    SaveToStream(file);
    file.SetSize(file.GetPosition());
    return;
  }
  std::vector<char> old(static_cast<size_t>(oldSize));
  file.ReadBuffer(old.data(), old.size());
  file.SetPosition(GetSaveToSize());
  file.WriteBuffer(old.data(), old.size());
  file.SetSize(file.GetPosition());
  file.SetPosition(0);
  SaveToStream(file);
}

}  // namespace vx
