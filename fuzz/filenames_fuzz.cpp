// Names of files: options, a path, then a name.
#include "fuzz/support/Input.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "services/uHandleFile.h"

namespace vx::fuzz {
namespace {

String JoinedByBackslash(const TVxStringList& List, int First) {
  String result;
  for (int i = First; i < List.GetCount(); ++i) result = Concat({result, i > First ? u"\\" : u"", List.Get(i)});
  return result;
}

void CheckPieces(const String& Path) {
  const std::u16string_view units = Path;
  const bool endsOpen = units.ends_with(u'\\');
  String pieces = JoinedByBackslash(*VxProcessFilename(Path), 0);
  Check(endsOpen ? pieces + u"\\" == Path || Path == u"\\" : pieces == Path, "the pieces are the whole name");

  const String start = VxSubtractLastDirectory(Path), last = VxGetLastDirectory(Path);
  const String whole = endsOpen ? Path.Slice(0, Path.size() - 1) : Path;
  if (start != Path && !Trim(Path).empty()) Check(start + last == whole, "the last directory and what is before it");
  Check(last.view().find(u'\\') == std::u16string_view::npos || start == Path || Trim(Path).empty(),
        "one directory is the last");

  const auto list = PathToList(Path);
  const String drive = ExtractFileDrive(Path);
  Check(list->GetCount() >= 2 && list->Get(0) == drive, "the drive comes first");
  size_t backslash = units.find(u'\\', static_cast<size_t>(drive.size()));
  Check(JoinedByBackslash(*list, 1) == (backslash == units.npos ? u"" : units.substr(backslash + 1)),
        "the pieces behind the first backslash");

  Check(ExtractFilePath(Path) + ExtractFileName(Path) == Path, "path and name are the whole");
  Check(ExtractPureFilename(Path) + ExtractFileExt(Path) == ExtractFileName(Path), "pure name and extension");
  ToNativePath(Path);
  String windows = Path;
  Check(GarantyWindowsPath(windows) == (windows != Path) && windows.view().find(u'/') == std::u16string_view::npos,
        "a path of backslashes");
}

}  // namespace

FUZZ(Input) {
  const bool noBlanks = Input.Byte() % 2 == 1;
  const String path = Input.Text(), name = Input.Text();
  CheckPieces(path);
  CheckPieces(name);

  String mended;
  const bool isGood = ValidateFilename(path, name, mended, noBlanks, u'_');
  const int front = mended.size() - name.size();
  Check(front == path.size() + (path.view().ends_with(u'\\') ? 0 : 1), "each unit stays at its place");
  Check(!isGood || mended.size() <= 260, "a good name is not too long");
  Check(name.empty() || CheckPath(mended.Slice(front)), "a mended name holds nothing forbidden");
  Check(!noBlanks || mended.view().find(u' ') == std::u16string_view::npos, "no blanks");
  String again;
  ValidateFilename(mended.Slice(0, front), mended.Slice(front), again, noBlanks, u'_');
  Check(again == mended, "what is mended stays");

  const int extension = ExtractFileExt(name).size();
  Check(FilenameIs83(name) == (extension < 5 && ExtractPureFilename(name).size() < 9), "8 and 3 characters");
  CheckFileName(name);
  VxFilenameOk(path);
}

}  // namespace vx::fuzz
