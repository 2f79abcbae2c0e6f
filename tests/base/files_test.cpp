#include "base/files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>

#include "support/temp_folder.h"

namespace zelvo {
namespace {

namespace fs = std::filesystem;

/// The office hears which file it was, and the program what kind of trouble.
template <class T>
void expectRefused(const Result<T>& result, Trouble trouble, std::string_view named) {
  ASSERT_FALSE(result.ok()) << named;
  EXPECT_EQ(result.error().trouble, trouble) << result.error().message;
  EXPECT_NE(result.error().message.find(named), std::string::npos) << result.error().message;
}

std::size_t entriesIn(const std::string& folder) {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}

unsigned rightsOf(const std::string& path) {
  struct stat state {};
  return ::stat(path.c_str(), &state) == 0 ? state.st_mode & 0777u : 0;
}

/// While it stands, no file can grow beyond so many bytes: as a full disk would have it.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  void (*handler_)(int);
  rlimit before_{};
};

TEST(Paths, FindFilesWhateverTheirCase) {
  const TempFolder folder;
  folder.write("Docs/Phi.TXT", "x");
  folder.write("Docs/Ärger.rtf", "x");
  struct Row {
    std::string name;
    std::string found;
  };
  for (const Row& row : {Row{"\\docs\\phi.txt", "Docs/Phi.TXT"},
                         {"DOCS/ärger.RTF", "Docs/Ärger.rtf"},
                         {"\\docs\\new.txt", "Docs/new.txt"},
                         {"none\\deeper\\x", "none/deeper/x"},
                         {"", ""}}) {
    const std::string expected = row.found.empty() ? folder.path() : folder.file(row.found);
    EXPECT_EQ(joinPath(folder.path() + "\\", row.name), expected) << row.name;
  }
  folder.write("Docs/phi.txt", "y");
  EXPECT_EQ(joinPath(folder.path(), "Docs/phi.txt"), folder.file("Docs/phi.txt")) << "as written comes first";
}

TEST(Paths, ComeApartAtEitherSeparator) {
  EXPECT_EQ(folderOf("C:\\data/docs\\a.rtf"), "C:\\data/docs");
  EXPECT_EQ(fileNameOf("C:\\data/docs\\a.rtf"), "a.rtf");
  EXPECT_EQ(folderOf("a.rtf"), "");
  EXPECT_EQ(folderOf("/a.rtf"), "/");
  EXPECT_EQ(fileNameOf("docs\\"), "");
  EXPECT_EQ(withoutEndSeparator("\\data\\/"), "\\data");
  EXPECT_EQ(withoutEndSeparator("/"), "/");
}

TEST(Folders, AreMadeFoundAndListed) {
  const TempFolder folder;
  EXPECT_TRUE(makeFolder(folder.path() + "\\a\\b\\").ok());
  EXPECT_TRUE(makeFolder(folder.path() + "/A/B").ok()) << "it is there already";
  EXPECT_TRUE(folderExists(folder.file("a/b")));
  for (const auto* name : {"a/zeta.RTF", "a/Alpha.rtf", "a/beta.rtf.bak", "a/noext"})
    folder.write(name, "");
  using Names = std::vector<std::string>;
  EXPECT_EQ(listFiles(folder.file("A"), "*.rtf"), (Names{"Alpha.rtf", "zeta.RTF"}));
  EXPECT_EQ(listFiles(folder.file("a"), "?ETA*.*"), (Names{"beta.rtf.bak", "zeta.RTF"}));
  EXPECT_EQ(listFiles(folder.file("a"), "*.*").size(), 4u);
  EXPECT_EQ(listFiles(folder.file("a"), "*a*a"), Names{});
  EXPECT_EQ(listFiles(folder.file("nowhere"), "*"), Names{});
  EXPECT_FALSE(makeFolder(folder.file("a/noext")).ok());
  EXPECT_FALSE(makeFolder(folder.file("a/noext/c")).ok());
  EXPECT_FALSE(makeFolder("").ok());
}

TEST(FileExists, IsTrueForFilesOnly) {
  const TempFolder folder;
  folder.write("Def.txt", "");
  EXPECT_TRUE(FileExists(folder.file("def.TXT")));
  for (const auto& path : {std::string(), std::string("  "), folder.path(), folder.file("other.txt")})
    EXPECT_FALSE(FileExists(path)) << path;
}

TEST(Reading, TakesEveryKindOfTextFile) {
  const TempFolder folder;
  struct Row {
    std::string_view bytes;
    std::vector<std::string> lines;
  };
  const Row rows[] = {
      {"", {}},
      {"a\r\nb\n\nc", {"a", "b", "", "c"}},
      {"a\r\n", {"a"}},
      {"\n", {""}},
      {"\xEF\xBB\xBF"
       "Zelvo",
       {"Zelvo"}},
      {"Mu\xC3\xB1oz", {"Muñoz"}},
      {"Mu\xF1oz \x80", {"Muñoz €"}},
  };
  for (const Row& row : rows) {
    folder.write("list.txt", row.bytes);
    EXPECT_EQ(readLines(folder.file("LIST.txt")).valueOr({"refused"}), row.lines) << row.bytes;
  }
}

TEST(Reading, RefusesWhatIsNoSuchFile) {
  const TempFolder folder;
  expectRefused(readText(folder.path()), Trouble::BadInput, folder.path());
  expectRefused(readText(folder.file("gone.txt")), Trouble::NotFound, "gone.txt");
  expectRefused(readBytes(""), Trouble::NotFound, "no name");
  folder.write("def.txt", "12345");
  fs::create_symlink(folder.file("gone.txt"), folder.file("link.txt"));
  expectRefused(readText(folder.file("link.txt")), Trouble::NotFound, "link.txt");
  expectRefused(readText(folder.file("def.txt/x")), Trouble::NotFound, "def.txt/x");
  expectRefused(readBytes(folder.file("def.txt"), 4), Trouble::BadInput, "4 bytes");
  EXPECT_EQ(readBytes(folder.file("def.txt"), 5).valueOr(""), "12345");
  EXPECT_EQ(readBytes(folder.file("def.txt"), SIZE_MAX).valueOr(""), "12345");
  folder.write("huge.txt", "");
  fs::resize_file(folder.file("huge.txt"), 100u << 20);
  expectRefused(readText(folder.file("huge.txt")), Trouble::BadInput, "longer");
  expectRefused(readBytes("/dev/zero", 1u << 20), Trouble::BadInput, "longer");
}

TEST(Reading, TakesFilesOfEveryLengthWhole) {
  const TempFolder folder;
  for (const std::size_t length : {0u, 511u, 16383u, 16384u, 16385u, 49151u, 49152u, 49153u, 3000001u}) {
    std::string bytes(length, 'x');
    for (std::size_t i = 0; i < length; ++i)
      bytes[i] = static_cast<char>('a' + i % 23);
    ASSERT_TRUE(replaceFile(folder.file("roll.txt"), bytes));
    EXPECT_TRUE(readBytes(folder.file("roll.txt")).valueOr("none") == bytes) << length;
  }
}

TEST(ReplaceFile, PutsTheWholeFileInPlaceAndKeepsItsRights) {
  const TempFolder folder;
  folder.write("Zelvo.ini", "old");
  fs::permissions(folder.file("Zelvo.ini"), fs::perms{0640});
  EXPECT_TRUE(writeLines(folder.file("zelvo.INI"), {"new", "", "é"}).ok());
  EXPECT_EQ(folder.read("Zelvo.ini"), "new\r\n\r\né\r\n");
  EXPECT_EQ(rightsOf(folder.file("Zelvo.ini")), 0640u);
  EXPECT_EQ(entriesIn(folder.path()), 1u);

  EXPECT_TRUE(replaceFile(folder.file("Zelvo.ini"), "x", Access::OwnerOnly).ok());
  EXPECT_TRUE(replaceFile(folder.file("Users.Set"), "y", Access::OwnerOnly).ok());
  EXPECT_EQ(rightsOf(folder.file("Zelvo.ini")), 0600u);
  EXPECT_EQ(rightsOf(folder.file("Users.Set")), 0600u);

  fs::create_symlink("Users.Set", folder.file("Linked.Set"));
  EXPECT_TRUE(replaceFile(folder.file("Linked.Set"), "through").ok());
  EXPECT_TRUE(fs::is_symlink(folder.file("Linked.Set")));
  EXPECT_EQ(folder.read("Users.Set"), "through");
}

TEST(ReplaceFile, RefusedItLeavesEverythingAsItWas) {
  const TempFolder folder;
  folder.write("def.txt", "old");
  folder.write("locked.txt", "old");
  fs::permissions(folder.file("locked.txt"), fs::perms{0444});
  fs::create_directory(folder.file("sub"));
  fs::create_symlink(folder.file("gone.txt"), folder.file("link.txt"));
  const std::size_t before = entriesIn(folder.path());

  expectRefused(replaceFile(folder.file("sub"), "x"), Trouble::BadInput, "sub");
  expectRefused(replaceFile(folder.file("locked.txt"), "x"), Trouble::ReadOnly, "locked.txt");
  expectRefused(replaceFile(folder.file("link.txt"), "x"), Trouble::NotFound, "link.txt");
  expectRefused(replaceFile(folder.file("no/such.txt"), "x"), Trouble::NotFound, "such.txt");
  expectRefused(replaceFile(folder.file("def.txt/x"), "x"), Trouble::NotFound, "def.txt/x");
  expectRefused(replaceFile(folder.file(std::string(300, 'n')), "x"), Trouble::BadInput, "nnn");
  expectRefused(replaceFile("", "x"), Trouble::NotFound, "no name");
  {
    const SmallDisk disk(1000);
    expectRefused(replaceFile(folder.file("def.txt"), std::string(5000, 'x')), Trouble::Full, "def.txt");
    expectRefused(appendLine(folder.file("def.txt"), std::string(5000, 'x')), Trouble::Full, "def.txt");
  }
  EXPECT_EQ(folder.read("def.txt"), "old");
  EXPECT_EQ(folder.read("locked.txt"), "old");
  EXPECT_EQ(entriesIn(folder.path()), before) << "nothing is left beside";
}

TEST(AppendLine, EndsEachLineAndTheOneBefore) {
  const TempFolder folder;
  const std::string log = folder.file("session.log");
  EXPECT_TRUE(appendLine(log, "one").ok());
  EXPECT_TRUE(appendLine(log, "two").ok());
  EXPECT_EQ(folder.read("session.log"), "one\r\ntwo\r\n");
  folder.write("session.log", "typed by hand");
  EXPECT_TRUE(appendLine(log, "three").ok());
  EXPECT_EQ(folder.read("session.log"), "typed by hand\r\nthree\r\n");
  expectRefused(appendLine("/dev/full", "x"), Trouble::Full, "disk is full");
  expectRefused(appendLine(folder.path(), "x"), Trouble::BadInput, folder.path());
}

TEST(CopyFile, CopiesWholeFilesOnly) {
  const TempFolder folder;
  std::string database(3u << 20, 'd');
  database.back() = 'e';
  folder.write("db4.mdb", database);
  fs::permissions(folder.file("db4.mdb"), fs::perms{0600});
  EXPECT_TRUE(copyFile(folder.file("DB4.mdb"), folder.file("copy.mdb")).ok());
  EXPECT_TRUE(folder.read("copy.mdb") == database);
  EXPECT_EQ(rightsOf(folder.file("copy.mdb")), 0600u) << "a copy shows no more than its original";

  folder.write("copy.mdb", "older backup");
  {
    const SmallDisk disk(1u << 20);
    expectRefused(copyFile(folder.file("db4.mdb"), folder.file("copy.mdb")), Trouble::Full, "copy.mdb");
  }
  EXPECT_EQ(folder.read("copy.mdb"), "older backup");
  EXPECT_EQ(entriesIn(folder.path()), 2u);
  expectRefused(copyFile(folder.file("db4.mdb"), folder.file("DB4.MDB")), Trouble::BadInput, "itself");
  expectRefused(copyFile(folder.path(), folder.file("x")), Trouble::BadInput, folder.path());
  expectRefused(copyFile(folder.file("gone.mdb"), folder.file("copy.mdb")), Trouble::NotFound, "gone.mdb");
  expectRefused(copyFile(folder.file("db4.mdb"), folder.path()), Trouble::BadInput, folder.path());
}

TEST(DeleteAndRename, ActOnFilesOnly) {
  const TempFolder folder;
  folder.write("Old.txt", "1");
  folder.write("taken.txt", "2");
  fs::create_directory(folder.file("sub"));
  EXPECT_TRUE(renameFile(folder.file("old.txt"), folder.file("TAKEN.txt")).ok());
  EXPECT_EQ(folder.read("taken.txt"), "1");
  expectRefused(renameFile(folder.file("old.txt"), folder.file("x.txt")), Trouble::NotFound, "old.txt");
  expectRefused(renameFile(folder.file("taken.txt"), folder.file("sub")), Trouble::BadInput, "sub");
  expectRefused(renameFile(folder.file("sub"), folder.file("x")), Trouble::BadInput, "sub");
  expectRefused(renameFile(folder.file("taken.txt"), ""), Trouble::NotFound, "no name");
  expectRefused(deleteFile(folder.file("sub")), Trouble::BadInput, "sub");
  expectRefused(deleteFile(folder.file("gone.txt")), Trouble::NotFound, "gone.txt");
  EXPECT_TRUE(deleteFile(folder.file("TAKEN.TXT")).ok());
  EXPECT_EQ(entriesIn(folder.path()), 1u);
}

}  // namespace
}  // namespace zelvo
