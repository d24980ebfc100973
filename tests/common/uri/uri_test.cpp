#include "qxcommon/uri.h"

#include <gtest/gtest.h>

#include <iterator>
#include <memory>

#include "support/memory_platform.h"

namespace QXCommonNS {
namespace {

std::string utf8(const UnicodeString& text) {
  std::string bytes;
  text.toUTF8String(bytes);
  return bytes;
}

QXUri user(const char* text) {
  return QXUri(UnicodeString::fromUTF8(text), URISTR_USER);
}
QXUri folder(const char* text) {
  return QXUri(UnicodeString::fromUTF8(text), URISTR_FOLDER);
}

std::string contentOf(const QXUri& uri) {
  const std::unique_ptr<std::istream> stream(uri.getIStream(nullptr, nullptr));
  if (!stream) return "(null)";
  return {std::istreambuf_iterator<char>(*stream), {}};
}

TEST(Uri, IsBornEmptyAndLocal) {
  const QXUri uri;
  EXPECT_TRUE(uri.isEmpty());
  EXPECT_TRUE(uri.uriText.isEmpty());
  EXPECT_TRUE(uri.isFile());
  EXPECT_FALSE(uri.isAbsolute());
  EXPECT_FALSE(uri.isDataScheme());
  EXPECT_TRUE(uri.getFileName().isEmpty());
  EXPECT_TRUE(uri.getBaseString().isEmpty());
  EXPECT_TRUE(uri.getExtension().isEmpty());
}

struct TextCase {
  const char* given;
  const char* text;
  bool absolute;
  bool file;
};

TEST(Uri, CanonicalTextOfUserTexts) {
  const TextCase cases[] = {
      {"a.ttf", "a.ttf", false, true},
      {"dir/a.ttf", "dir/a.ttf", false, true},
      {"/a//b///c.ttf", "/a/b/c.ttf", true, true},
      {"/a/./b/../c.ttf", "/a/c.ttf", true, true},
      {"/../../a", "/a", true, true},
      {"../../a", "../../a", false, true},
      {"a/../../b", "../b", false, true},
      {"./a.ttf", "a.ttf", false, true},
      {".", "./", false, true},
      {"a/..", "./", false, true},
      {"a/b/..", "a/", false, true},
      {"a/b/.", "a/b/", false, true},
      {"..", "../", false, true},
      {"/", "/", true, true},
      {"//", "/", true, true},
      {"/a/..", "/", true, true},
      {"/a/", "/a/", true, true},
      // Separators of both systems, where the text does not say that it is a POSIX path.
      {"dir\\a.ttf", "dir/a.ttf", false, true},
      {"C:\\Windows\\Fonts\\a.ttf", "C:/Windows/Fonts/a.ttf", true, true},
      {"C:/a/../../b", "C:/b", true, true},
      {"C:a.ttf", "C:a.ttf", false, true},
#ifndef _WIN32
      {"/dir/a\\b:c.ttf", "/dir/a\\b:c.ttf", true, true},
      {"\\\\server\\fonts", "/server/fonts", true, true},
#endif
      // What looks encoded in a path is what it looks like.
      {"a%20b#c?d.ttf", "a%20b#c?d.ttf", false, true},
      {"/100%/a.ttf", "/100%/a.ttf", true, true},
      // file: URIs are decoded.
      {"file:///a/b%20c.ttf", "/a/b c.ttf", true, true},
      {"FILE:///a.ttf", "/a.ttf", true, true},
      {"file://localhost/a.ttf", "/a.ttf", true, true},
      {"file:/a/%e3%81%82.ttf", "/a/\xE3\x81\x82.ttf", true, true},
      {"file:///C:/a.ttf", "C:/a.ttf", true, true},
      {"file:///a.ttf?x#y", "/a.ttf", true, true},
      {"file:///a%3fb%23.ttf", "/a?b#.ttf", true, true},
      {"file:a.ttf", "a.ttf", false, true},
#ifndef _WIN32
      {"file://server/a.ttf", "file://server/a.ttf", true, false},
#endif
      // Anything else keeps its text.
      {"http://host/a/../b.woff?q#f", "http://host/a/../b.woff?q#f", true, false},
      {"urn:x", "urn:x", true, false},
      {"data:font/woff;base64,AAAA", "data:font/woff;base64,AAAA", true, false},
      // A scheme ends before any separator, and begins with a letter.
      {"dir/http://x", "dir/http:/x", false, true},
      {"1x:y", "1x:y", false, true},
      {"a_b:c", "a_b:c", false, true},
      {":x", ":x", false, true},
  };
  for (const TextCase& c : cases) {
    const QXUri uri = user(c.given);
    EXPECT_EQ(utf8(uri.uriText), c.text) << c.given;
    EXPECT_EQ(uri.isAbsolute(), c.absolute) << c.given;
    EXPECT_EQ(uri.isFile(), c.file) << c.given;
    EXPECT_EQ(uri.getText(), uri.uriText);
  }
}

TEST(Uri, CanonicalTextIsStable) {
  for (const char* text : {"/a/./b", "a/..", "C:\\x\\", "../a//b", "file:///a%20b", ".", "/.."}) {
    const QXUri once = user(text);
    EXPECT_EQ(QXUri(once.uriText, URISTR_USER).uriText, once.uriText) << text;
    EXPECT_EQ(QXUri(once.uriText, URISTR_FOLDER).uriText, once.uriText) << text;
  }
}

TEST(Uri, FolderTextsAreTakenLiterally) {
  EXPECT_EQ(utf8(folder("data:x").uriText), "data:x");
  EXPECT_TRUE(folder("data:x").isFile());
  EXPECT_FALSE(folder("data:x").isDataScheme());
  EXPECT_EQ(utf8(folder("http://x/").uriText), "http:/x/");
  EXPECT_TRUE(folder("http://x/").isFile());
  EXPECT_EQ(utf8(folder("/fonts//").uriText), "/fonts/");
#ifndef _WIN32
  EXPECT_EQ(utf8(folder("fonts/a\\b.ttf").uriText), "fonts/a\\b.ttf");
  EXPECT_EQ(utf8(folder("fonts/a\\b.ttf").getFileName()), "a\\b.ttf");
#endif
}

// Configurations test by this whether a value is a bare file name.
TEST(Uri, FileNameEqualsTheInputExactlyForBareNames) {
  for (const char* text : {"a.ttf", ".ttf", "a", "a b.ttf", "a%20b.ttf", "a#b.ttf", "a?b.ttf",
                           "C:a.ttf", "...", "a..b"}) {
    EXPECT_EQ(utf8(user(text).getFileName()), text);
  }
  for (const char* text :
       {"dir/a.ttf", "./a.ttf", "../a.ttf", "/a.ttf", "dir\\a.ttf", "a.ttf/", "a/../b.ttf",
        "C:/a.ttf", "file:a.ttf", "http:a.ttf", "data:,x", ".", "..", "http://h/a.ttf"}) {
    EXPECT_NE(utf8(user(text).getFileName()), text);
  }
}

struct SplitCase {
  const char* text;
  const char* base;
  const char* name;
  const char* extension;
};

TEST(Uri, SplitsIntoFolderNameAndExtension) {
  const SplitCase cases[] = {
      {"/f/a.ttf", "/f/", "a.ttf", ".ttf"},
      {"/f/A.TtF", "/f/", "A.TtF", ".TtF"},
      {"a.ttf", "", "a.ttf", ".ttf"},
      {"/f/", "/f/", "", ""},
      {"/f.d/a", "/f.d/", "a", ""},
      {".ttf", "", ".ttf", ".ttf"},
      {"a.", "", "a.", "."},
      {"a.tar.gz", "", "a.tar.gz", ".gz"},
      {"a.b?c.d#e", "", "a.b?c.d#e", ".d#e"},
      {"http://h/p/a.woff?x=/y.z#f", "http://h/p/", "a.woff", ".woff"},
      {"http://host", "http://host/", "", ""},
      {"http://host?q", "http://host/", "", ""},
      {"urn:x", "urn:", "x", ""},
      {"data:font/woff;base64,AA/A.ttf", "", "", ""},
  };
  for (const SplitCase& c : cases) {
    const QXUri uri = user(c.text);
    EXPECT_EQ(utf8(uri.getBaseString()), c.base) << c.text;
    EXPECT_EQ(utf8(uri.getFileName()), c.name) << c.text;
    EXPECT_EQ(utf8(uri.getExtension()), c.extension) << c.text;
  }
}

TEST(Uri, AnExtensionOutlivesItsUri) {
  UnicodeString extension;
  {
    const QXUri uri = user("/a/rather/long/path/that/is/kept/on/the/heap/file.dfont");
    extension = uri.getExtension();
  }
  EXPECT_EQ(utf8(extension), ".dfont");
}

struct ExtensionCase {
  const char* text;
  const char* set;
  const char* result;
  const char* old;
};

TEST(Uri, SetExtensionReplacesAndGivesTheOldOne) {
  const ExtensionCase cases[] = {
      {"/f/a.afm", ".pfm", "/f/a.pfm", ".afm"},
      {"x", ".pfm", "x.pfm", ""},
      {"/f.d/x", ".pfm", "/f.d/x.pfm", ""},
      {"a.", ".x", "a.x", "."},
      {"a.b", "", "a", ".b"},
      {"/f/", ".x", "/f/", ""},
      {"", ".x", "", ""},
      {"http://h/a.b?q", ".c", "http://h/a.c?q", ".b"},
      {"data:,a.b", ".c", "data:,a.b", ""},
  };
  for (const ExtensionCase& c : cases) {
    QXUri uri = user(c.text);
    EXPECT_EQ(utf8(uri.setExtension(UnicodeString::fromUTF8(c.set))), c.old) << c.text;
    EXPECT_EQ(utf8(uri.uriText), c.result) << c.text;
  }
}

TEST(Uri, ANullExtensionRemovesIt) {
  QXUri uri = user("/f/a.ttf");
  EXPECT_EQ(utf8(uri.setExtension(nullptr)), ".ttf");
  EXPECT_EQ(utf8(uri.uriText), "/f/a");
  EXPECT_EQ(utf8(uri.setExtension(nullptr)), "");
  QXUri bare = user(".ttf");
  EXPECT_EQ(utf8(bare.setExtension(nullptr)), ".ttf");
  EXPECT_TRUE(bare.getFileName().isEmpty());
  const UnicodeString extension(u".otf");
  EXPECT_EQ(utf8(uri.setExtension(&extension)), "");
  EXPECT_EQ(utf8(uri.uriText), "/f/a.otf");
}

TEST(Uri, ToDirectoryClosesTheText) {
  const char* cases[][2] = {{"/f", "/f/"},
                            {"/f/", "/f/"},
                            {"f", "f/"},
                            {"", ""},
                            {"/", "/"},
                            {".", "./"},
                            {"http://h/a?q", "http://h/a/?q"},
                            {"data:,x", "data:,x"}};
  for (const auto& c : cases) {
    QXUri uri = user(c[0]);
    EXPECT_EQ(utf8(uri.toDirectory()), c[1]);
    EXPECT_EQ(utf8(uri.uriText), c[1]);
  }
}

TEST(Uri, LocalPathOfWhatIsNotLocalIsItsTextOnlyWhenAsked) {
  EXPECT_EQ(utf8(user("/f/a").getLocalPath(false)), "/f/a");
  EXPECT_EQ(utf8(user("/f/a").getLocalPath(true)), "/f/a");
  EXPECT_EQ(utf8(user("http://h/a").getLocalPath(false)), "");
  EXPECT_EQ(utf8(user("http://h/a").getLocalPath(true)), "http://h/a");
  EXPECT_EQ(utf8(user("data:,x").getLocalPath(false)), "");
}

struct ResolveCase {
  const char* base;
  const char* relative;
  const char* result;
};

TEST(Uri, ResolvesAgainstTheFolderOfTheBase) {
  const ResolveCase cases[] = {
      {"/etc/font-config.xml", "fonts", "/etc/fonts"},
      {"/etc/", "fonts/a.ttf", "/etc/fonts/a.ttf"},
      {"/etc", "fonts", "/fonts"},
      {"/etc/x/", "../fonts\\a.ttf", "/etc/fonts/a.ttf"},
      {"/etc/x", "", "/etc/"},
      {"/etc/x", ".", "/etc/"},
      {"dir/x", "a", "dir/a"},
      {"x", "a", "a"},
      {"", "a", "a"},
      {"/etc/", "/usr/a", "/usr/a"},
      {"/etc/", "C:\\a", "C:/a"},
      {"/etc/", "http://h/a", "http://h/a"},
      {"/etc/", "data:,x", "data:,x"},
      {"/etc/", "file:///usr/a%20b", "/usr/a b"},
      {"http://h/p/q.xml?x", "../a.ttf", "http://h/a.ttf"},
      {"http://h", "a.ttf", "http://h/a.ttf"},
      {"http://h/p/", "/usr/a", "/usr/a"},
      {"data:,x", "a", "a"},
  };
  for (const ResolveCase& c : cases) {
    const QXUri uri(user(c.base), UnicodeString::fromUTF8(c.relative), URISTR_USER);
    EXPECT_EQ(utf8(uri.uriText), c.result) << c.base << " + " << c.relative;
  }
}

#ifndef _WIN32
TEST(Uri, ResolvingLeavesTheBaseAsItStands) {
  const QXUri uri(user("/a\\b:c/x"), u"d\\e", URISTR_USER);
  EXPECT_EQ(utf8(uri.uriText), "/a\\b:c/d/e");
}
#endif

TEST(Uri, CopiesKeepTheirKind) {
  const QXUri literal = folder("data:x");
  QXUri copy;
  copy = literal;
  EXPECT_FALSE(copy.isDataScheme());
  EXPECT_FALSE(QXUri(literal).isDataScheme());
}

class UriWorld : public testing::Test {
 protected:
  qxtest::MemoryPlatform world_;
  qxtest::PlatformInPlace inPlace_{world_};
};

TEST_F(UriWorld, ExistsOnlyAsARegularFile) {
  world_.file("/f/a.ttf", "abc").special("/f/pipe").link("/f/l.ttf", "/f/a.ttf");
  EXPECT_TRUE(user("/f/a.ttf").isFileExists());
  EXPECT_TRUE(user("/f/l.ttf").isFileExists());
  EXPECT_TRUE(user("file:///f/a.ttf").isFileExists());
  EXPECT_FALSE(user("/f").isFileExists());
  EXPECT_FALSE(user("/f/pipe").isFileExists());
  EXPECT_FALSE(user("/f/none").isFileExists());
  EXPECT_FALSE(user("/f/A.TTF").isFileExists());
  EXPECT_FALSE(user("data:,x").isFileExists());
  EXPECT_FALSE(QXUri().isFileExists());
}

TEST_F(UriWorld, OpensFilesInTheirRealSpelling) {
  world_.file("/f/A%20#.ttf", "abc");
  EXPECT_EQ(contentOf(user("/f/A%20#.ttf")), "abc");
  EXPECT_EQ(contentOf(user("/f/a%20#.ttf")), "(null)");
  EXPECT_EQ(world_.openedPaths(), std::vector<std::string>{"/f/A%20#.ttf"});
}

TEST_F(UriWorld, DoesNotOpenWhatIsNoFile) {
  world_.folder("/f").special("/p");
  for (const char* text : {"/f", "/p", "/none", "http://h/a", "ftp:x", ""})
    EXPECT_EQ(contentOf(user(text)), "(null)") << text;
}

TEST_F(UriWorld, TellsWhatWasOpened) {
  world_.file("/f/a.ttf", "abc");
  QXUri::ContentInfo info(nullptr);
  info.contentType = u"old";
  UnicodeString text(u"old");
  EXPECT_EQ(user("/none").getIStream(&info, &text), nullptr);
  EXPECT_EQ(utf8(info.contentType) + utf8(text), "oldold");
  delete user("/f/./a.ttf").getIStream(&info, &text);
  EXPECT_EQ(utf8(info.contentType), "");
  EXPECT_EQ(utf8(text), "/f/a.ttf");
  delete user("data:Font/WOFF;x=y,abc").getIStream(&info, &text);
  EXPECT_EQ(utf8(info.contentType), "font/woff");
  EXPECT_EQ(utf8(QXUri::ContentInfo(&info).contentType), "font/woff");
}

TEST_F(UriWorld, DataStreamsCanSeek) {
  const std::unique_ptr<std::istream> stream(
      user("data:;base64,AAECAw==").getIStream(nullptr, nullptr));
  ASSERT_NE(stream, nullptr);
  stream->seekg(0, std::ios::end);
  EXPECT_EQ(stream->tellg(), 4);
  stream->seekg(2);
  EXPECT_EQ(stream->get(), 2);
}

TEST_F(UriWorld, ModuleUriStandsBesideTheModule) {
  world_.setModulePath("/opt/service/");
  const auto at = [](const char* name) {
    return utf8(QXUri::getModuleUri("QXFontService13.dll", name, nullptr).uriText);
  };
  EXPECT_EQ(at("font-config.xml"), "/opt/service/font-config.xml");
  EXPECT_EQ(at("../x.xml"), "/opt/x.xml");
  EXPECT_EQ(at("/etc/x.xml"), "/etc/x.xml");
  EXPECT_EQ(at("http://h/x"), "http://h/x");
  world_.setModulePath("/opt/service");
  EXPECT_EQ(at("a"), "/opt/service/a");
  world_.setModulePath("");
  EXPECT_EQ(at("a"), "");
  EXPECT_EQ(at("/a"), "/a");
  EXPECT_TRUE(QXUri::getModuleUri(nullptr, "a", nullptr).isEmpty());
  EXPECT_TRUE(QXUri::getModuleUri("m.dll", nullptr, nullptr).isEmpty());
}

}  // namespace
}  // namespace QXCommonNS
