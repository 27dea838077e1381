#include "platform/Paths.h"

#include "tests/support/Test.h"

namespace {

TEST(Paths, MapsTheGrammarToTheLocalFileSystem) {
  TPathMap map;
  map.SetDrive(u'd', "/srv/daten/"), map.SetShare(u"Server\\Pflege", "/mnt/pflege");
  const std::pair<String, std::string> cases[] = {{u"", ""},
                                                  {u"/home/anna/Müller.csv", "/home/anna/Müller.csv"},
                                                  {u"a\\b.csv", "a/b.csv"},
                                                  {u"\\a\\b", "/a/b"},
                                                  {u"/tmp/x\\y", "/tmp/x/y"},
                                                  {u"c:/etc\\hosts", "/etc/hosts"},
                                                  {u"C:", "/"},
                                                  {u"C:\\", "/"},
                                                  {u"D:", "/srv/daten"},
                                                  {u"D:\\Listen\\a.csv", "/srv/daten/Listen/a.csv"},
                                                  {u"D:a.csv", "/srv/daten/a.csv"},
                                                  {u"D:\\", "/srv/daten/"},
                                                  {u"\\\\SERVER\\pflege\\x\\a.csv", "/mnt/pflege/x/a.csv"},
                                                  {u"\\\\server\\pflege", "/mnt/pflege"}};
  for (const auto& [path, native] : cases) EXPECT_EQ(map.ToNative(path), native);
  map.SetShare(u"\\\\server\\weg", "/mnt");
  map.SetShare(u"\\\\server\\WEG", "");
  for (const char16_t* unknown : {u"E:\\a", u"\\\\server\\weg\\a", u"\\\\server", u"\\\\\\a"})
    EXPECT_TRUE(map.ToNative(unknown).starts_with("/dev/null/")) << String(unknown).ToUtf8();
  EXPECT_EQ((TFacts{map.HasDrive(u'D'), map.HasDrive(u'c'), map.HasDrive(u'E'), map.HasDrive(u'1')}), "yes yes no no");
}

TEST(Paths, TakesPathsApart) {
  const TCases<String, String, String, String, String, String, String> cases = {
      {u"C:\\v1\\a.b.csv", u"C:", u"C:\\v1", u"a.b.csv", u".csv", u"C:\\v1\\a.b.csv\\", u"C:\\v1\\a.b.csv"},
      {u"C:\\", u"C:", u"C:\\", u"", u"", u"C:\\", u"C:\\"},
      {u"", u"", u"", u"", u"", u"\\", u""},
      {u"C:a.b", u"C:", u"C:", u"a.b", u".b", u"C:a.b\\", u"C:a.b"},
      {u"/a.", u"", u"/", u"a.", u".", u"/a./", u"/a."},
      {u"/tmp/v1.0/x", u"", u"/tmp/v1.0", u"x", u"", u"/tmp/v1.0/x/", u"/tmp/v1.0/x"},
      {u"/tmp//", u"", u"/tmp", u"", u"", u"/tmp/", u"/tmp"},
      {u"12:30.txt", u"", u"", u"12:30.txt", u".txt", u"12:30.txt\\", u"12:30.txt"},
      {u"\\\\s\\f\\a.b", u"\\\\s\\f", u"\\\\s\\f", u"a.b", u".b", u"\\\\s\\f\\a.b\\", u"\\\\s\\f\\a.b"},
      {u"/tmp/x\\y", u"", u"/tmp/x", u"y", u"", u"/tmp/x\\y\\", u"/tmp/x\\y"}};
  for (const auto& [path, drive, directory, name, extension, included, excluded] : cases) {
    SCOPED_TRACE(path.ToUtf8());
    EXPECT_EQ((std::vector{ExtractFileDrive(path), ExtractFileDir(path), ExtractFileName(path), ExtractFileExt(path),
                           IncludeTrailingPathDelimiter(path), ExcludeTrailingPathDelimiter(path)}),
              (std::vector{drive, directory, name, extension, included, excluded}));
    EXPECT_EQ(ExtractFilePath(path) + name, ChangeFileExt(path, extension));
  }
}

}  // namespace
