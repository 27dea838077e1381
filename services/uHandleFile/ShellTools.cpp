#include "services/uHandleFile/ShellTools.h"

#include <algorithm>
#include <vector>

#include "platform/ShellExecute.h"
#include "services/uHandleFile/FileTests.h"

namespace vx {

namespace {

// The tools from wtAddressBook to wtInternet.
constexpr std::u16string_view kTools[] = {
    u"wab.exe",     u"calc.exe", u"cmd.exe",      u"mspaint.exe",  u"wordpad.exe", u"notepad.exe",  u"wmplayer.exe",
    u"charmap.exe", u"dfrg.msc", u"msinfo32.exe", u"sndvol32.exe", u"wscui.cpl",   u"iexplore.exe",
};

TShellCall CallOf(TWindowsTool tool, const String& parameter) {
  switch (tool) {
    case wtFolder:
      return {u"open", parameter};
    case wtFolderFonts:
      return {u"open", u"%SystemRoot%\\Fonts", parameter};
    case wtExplore:
      return {u"explore", parameter};
    case wtPrint:
      return {u"print", parameter};
    default:
      return {u"open", tool < std::size(kTools) ? kTools[tool] : std::u16string_view(), parameter};
  }
}

}  // namespace

bool VxWindowsTool(TWindowsTool tool, const String& parameter) {
  return ShellExecute(CallOf(tool, parameter)) > seFailed;
}

bool VxProcessMailTo(const String& address, const String& subject, const String& body, const String& attachment) {
  String mail = Concat({u"mailto:", address, u"?subject=", subject, u"&body=", body});
  if (VxFileExists(attachment)) mail += Concat({u"&file=\"", attachment, u"\""});
  return ShellExecute({u"open", mail}) > seFailed;
}

std::unique_ptr<TVxStringList> VxParseURL(const String& url) {
  std::vector<String> pieces;
  int end = url.size();
  for (int i = end - 1; i >= 0; --i) {
    if (url[i] != u'/') continue;
    if (i + 1 < end) pieces.push_back(url.Slice(i + 1, end - i - 1));
    end = i + 1;
    --i;
  }
  if (end > 0) pieces.push_back(url.Slice(0, end));
  auto result = std::make_unique<TVxStringList>();
  std::for_each(pieces.rbegin(), pieces.rend(), [&](const String& piece) { result->Add(piece); });
  return result;
}

}  // namespace vx
