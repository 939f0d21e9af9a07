// Text helpers, files, the program's directory, numbered errors and the version.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <set>
#include <vector>

#include "base/file.h"
#include "base/program_directory.h"
#include "base/text.h"
#include "base/version.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {
namespace {

namespace fs = std::filesystem;

// The names in a directory, in order: shows what a failed operation left behind.
std::vector<std::string> NamesIn(const std::string& directory) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(directory)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

using Names = std::vector<std::string>;

// Permissions mean nothing to root: for as long as this lives the process is somebody else.
class WithoutRoot {
 public:
  WithoutRoot() : wasRoot_(geteuid() == 0), isNot_(!wasRoot_ || seteuid(65534) == 0) {}
  ~WithoutRoot() {
    if (wasRoot_ && isNot_ && seteuid(0) != 0) {
      std::abort();
    }
  }
  explicit operator bool() const { return isNot_; }

 private:
  bool wasRoot_;
  bool isNot_;
};

void WriteNew(FileWriter& out) {
  out.Write("new");
}

TEST(Text, FoldsTheLettersOfTheCodePageAndNothingElse) {
  for (int code = 0; code < 256; ++code) {
    const char c = static_cast<char>(code);
    const bool letter = code >= 0xC0 ? code != 0xD7 && code != 0xF7 && code != 0xDF && code != 0xFF : IsLetter(c);
    EXPECT_EQ(Fold(c) != Upper(c), letter) << code;
    EXPECT_EQ(static_cast<unsigned char>(Fold(c)), letter ? code | 0x20 : code) << code;
    EXPECT_EQ(static_cast<unsigned char>(Upper(c)), letter ? code & ~0x20 : code) << code;
  }
}

TEST(Text, BytesAreReadAsWindows1252) {
  std::set<char16_t> seen;
  for (int code = 0; code < 256; ++code) {
    const char c = static_cast<char>(code);
    seen.insert(CodePointOf(c));
    EXPECT_EQ(ByteOf(CodePointOf(c), '\0'), c) << code;
    if (code < 0x80 || code > 0x9F) {
      EXPECT_EQ(CodePointOf(c), code);
    }
  }
  EXPECT_EQ(seen.size(), 256u);
  const struct {
    const char *bytes, *utf8;
  } cases[] = {{"caf\xE9", "caf\xC3\xA9"}, {"\x80", "\xE2\x82\xAC"}, {"\x81\x8D", "\u0081\u008D"}};
  for (const auto& [bytes, utf8] : cases) {
    EXPECT_EQ(Utf8FromBytes(bytes), utf8);
  }
  EXPECT_EQ(ByteOf(0x100), '?');
  EXPECT_EQ(ByteOf(0x80, '.'), '.') << "the control of that number is not in the code page";
  EXPECT_EQ(ByteOf(0x1F600, '#'), '#');
}

TEST(Text, ClassesHoldCharactersAndRanges) {
  const struct {
    const char *characterClass, *inside, *outside;
  } cases[] = {{"[abc]", "abc", "dA-[]"},
               {"[a-cx]", "abcx", "dwy-"},
               {"[!a-c]", "dA-!", "abc"},
               {"[-a]", "-a", "bc"},
               {"[]", "", "a-[]!"},
               {"[!~]", "a*[", "~"},
               {"[c-a]", "", "abc-"},
               {"[ab]c]", "ab", "c]"},
               {"[\xE0-\xFE]", "\xE9\xE0\xFE", "e\xDF\xFF"},
               {"[y-\x85]", "z~\x80", "a\x86\xE9"},
               {"[abc", "", "abc"},
               {"", "", "a"}};
  for (const auto& [characterClass, inside, outside] : cases) {
    for (const char* c = inside; *c != '\0'; ++c) {
      EXPECT_TRUE(InClass(characterClass, *c)) << characterClass << " " << *c;
    }
    for (const char* c = outside; *c != '\0'; ++c) {
      EXPECT_FALSE(InClass(characterClass, *c)) << characterClass << " " << *c;
    }
  }
}

TEST(Text, Numbers) {
  const struct {
    const char* text;
    int value;  // -1: refused.
  } cases[] = {{"0", 0},           {"42", 42},  {" 7 ", 7},   {"+3", 3},  {"999999999", 999999999},
               {"1000000000", -1}, {"", -1},    {"  ", -1},   {"-", -1},  {"1a", -1},
               {"1 2", -1},        {"1.5", -1}, {"0x10", -1}, {"--1", -1}};
  for (const auto& [text, value] : cases) {
    int parsed = 77;
    EXPECT_EQ(ParseInteger(text, parsed), value >= 0) << text;
    EXPECT_EQ(parsed, value >= 0 ? value : 77) << text;
  }
  int parsed = 0;
  EXPECT_TRUE(ParseInteger("-12", parsed));
  EXPECT_EQ(parsed, -12);
  EXPECT_EQ(FormatThousands(999) + " " + FormatThousands(1000) + " " + FormatThousands(-123456), "999 1,000 -123,456");
}

TEST(File, NamesAreFoundWhateverTheirCase) {
  const TemporaryDirectory directory;
  directory.Write("WORDS.txt", "old");
  fs::create_directory(directory.File("sub.lex"));
  EXPECT_EQ(FindIgnoringCase(directory.path(), "words.TXT"), "WORDS.txt");
  EXPECT_EQ(FindIgnoringCase(directory.path(), "words"), std::nullopt);
  EXPECT_EQ(FindIgnoringCase(directory.path(), "SUB.lex"), std::nullopt) << "a directory is no file";
  EXPECT_EQ(FindIgnoringCase(directory.File("none"), "words.txt"), std::nullopt);
  directory.Write("words.txt", "exact");
  EXPECT_EQ(FindIgnoringCase(directory.path(), "words.txt"), "words.txt");
  EXPECT_FALSE(FileExists(directory.File("sub.lex")));
}

TEST(File, ReplacesWholeFiles) {
  const TemporaryDirectory directory;
  std::mt19937 engine(1);
  // Pieces around the sizes at which the writer hands on what it holds.
  std::string expected;
  std::vector<std::string> pieces;
  for (const size_t size : {0u, 1u, 32767u, 32768u, 32769u, 262144u, 300000u, 2u, 500u, 700000u, 3u}) {
    pieces.push_back(std::string(size, static_cast<char>('a' + engine() % 26)));
    expected += pieces.back();
  }
  const auto writePieces = [&pieces](FileWriter& out) {
    for (const std::string& piece : pieces) {
      out.Write(piece);
    }
  };
  const std::string path = directory.File("out.txt");
  EXPECT_FALSE(ReplaceFile(path, writePieces));
  EXPECT_TRUE(ReadFile(path) == expected);
  chmod(path.c_str(), 0640);
  EXPECT_FALSE(ReplaceFile(path, WriteNew));
  EXPECT_EQ(ReadFile(path), "new");
  EXPECT_EQ(fs::status(path).permissions(), static_cast<fs::perms>(0640));
  EXPECT_EQ(NamesIn(directory.path()), Names{"out.txt"});
}

TEST(File, WhatKilledProcessesLeftBehindGoesAndTheLivingKeepTheirs) {
  const TemporaryDirectory directory;
  const pid_t child = fork();
  if (child == 0) {
    _exit(0);
  }
  waitpid(child, nullptr, 0);
  for (int i = 0; i < 200; ++i) {
    directory.Write(".quorvane-" + std::to_string(child) + "-" + std::to_string(i) + ".tmp", "half");
  }
  const std::string theirs = ".quorvane-" + std::to_string(getppid()) + "-0.tmp";
  directory.Write(theirs, "half");
  directory.Write(".quorvane-notes.tmp", "mine");
  EXPECT_FALSE(ReplaceFile(directory.File("out.txt"), WriteNew));
  EXPECT_EQ(NamesIn(directory.path()), (Names{theirs, ".quorvane-notes.tmp", "out.txt"}));
}

TEST(File, NobodyReadsATemporaryWhomTheFileDoesNotLet) {
  const TemporaryDirectory directory;
  const std::string path = directory.Write("out.txt", "old");
  chmod(path.c_str(), 0600);
  EXPECT_FALSE(ReplaceFile(path, [&](FileWriter&) {
    const Names names = NamesIn(directory.path());
    ASSERT_EQ(names.size(), 2u);
    EXPECT_EQ(fs::status(directory.File(names[0])).permissions(), static_cast<fs::perms>(0600)) << names[0];
  }));
}

TEST(File, AnOpenFileIsWrittenAtItsPosition) {
  const TemporaryDirectory directory;
  const std::string path = directory.File("out.txt");
  const int file = open(path.c_str(), O_WRONLY | O_CREAT, 0666);
  fs::create_symlink("/dev/fd/" + std::to_string(file), directory.File("link"));
  EXPECT_EQ(write(file, "before ", 7), 7);
  EXPECT_FALSE(ReplaceFile(directory.File("link"), WriteNew));
  EXPECT_EQ(write(file, " after", 6), 6);
  close(file);
  EXPECT_EQ(ReadFile(path), "before new after");
  EXPECT_EQ(ReplaceFile(directory.File("link"), WriteNew)->reason, "Bad file descriptor");
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  EXPECT_FALSE(ReplaceFile("/proc/self/fd/" + std::to_string(ends[1]), WriteNew));
  char text[4] = "";
  EXPECT_EQ(read(ends[0], text, sizeof text), 3);
  close(ends[0]);
  close(ends[1]);
}

TEST(File, ReplacesWhatALinkPointsTo) {
  const TemporaryDirectory directory;
  fs::create_directory(directory.File("real"));
  const std::string target = directory.Write("real/file.txt", "old");
  fs::create_symlink("real/file.txt", directory.File("link"));
  fs::create_symlink("link", directory.File("link2"));
  EXPECT_FALSE(ReplaceFile(directory.File("link2"), WriteNew));
  EXPECT_EQ(ReadFile(target), "new");
  EXPECT_TRUE(fs::is_symlink(directory.File("link")));
  EXPECT_TRUE(fs::is_symlink(directory.File("link2")));
  EXPECT_EQ(NamesIn(directory.path()), (Names{"link", "link2", "real"}));
  EXPECT_EQ(NamesIn(directory.File("real")), Names{"file.txt"});
}

TEST(File, AFailureLeavesTheOldFileAndNothingElse) {
  const TemporaryDirectory directory;
  const std::string old = directory.Write("old.txt", "old");
  fs::create_directory(directory.File("folder"));
  fs::create_symlink("turn", directory.File("round"));
  fs::create_symlink("round", directory.File("turn"));
  const auto writeMuch = [](FileWriter& out) {
    for (int i = 0; i < 100; ++i) {
      out.Write(std::string(10000, 'x'));
    }
  };
  const struct {
    std::string path;
    int number;
    const char* reason;
  } cases[] = {
      {directory.File("folder"), kErrorPathFileAccess, "Is a directory"},
      {directory.File("none/x.txt"), kErrorFileNotFound, "No such file or directory"},
      {directory.File("old.txt/x.txt"), kErrorPathNotFound, "Not a directory"},
      {directory.File("round"), kErrorPathFileAccess, "Too many levels of symbolic links"},
      {"/dev/full", kErrorDiskFull, "No space left on device"},
  };
  for (const auto& [path, number, reason] : cases) {
    SCOPED_TRACE(path);
    const auto error = ReplaceFile(path, writeMuch);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->error.number, number);
    EXPECT_EQ(error->Text(), path + ": " + reason);
  }
  for (const std::string& path : {old, directory.File("fresh.txt")}) {
    std::optional<FileError> error;
    {
      const FileSizeLimit limit(300000);
      error = ReplaceFile(path, writeMuch);
    }
    ASSERT_TRUE(error) << path;
    EXPECT_EQ(error->error.number, kErrorPathFileAccess);
    EXPECT_EQ(error->reason, "File too large");
  }
  EXPECT_EQ(NamesIn(directory.path()), (Names{"folder", "old.txt", "round", "turn"}));
  EXPECT_EQ(ReadFile(old), "old");
}

TEST(File, WhatMayNotBeWrittenIsNotReplaced) {
  const TemporaryDirectory directory;
  const std::string guarded = directory.Write("guarded.txt", "old");
  const std::string closed = directory.File("closed");
  fs::create_directory(closed);
  chmod(directory.path().c_str(), 0777);
  chmod(guarded.c_str(), 0444);
  chmod(closed.c_str(), 0555);
  std::optional<FileError> errors[2];
  {
    const WithoutRoot user;
    if (!user) {
      GTEST_SKIP() << "runs as root and can't be anyone else";
    }
    errors[0] = ReplaceFile(guarded, WriteNew);
    errors[1] = ReplaceFile(JoinPath(closed, "x.txt"), WriteNew);
  }
  for (const auto& error : errors) {
    ASSERT_TRUE(error);
    EXPECT_EQ(error->error.number, kErrorPermissionDenied);
    EXPECT_EQ(error->reason, "Permission denied");
  }
  EXPECT_EQ(ReadFile(guarded), "old");
  EXPECT_EQ(NamesIn(directory.path()), (Names{"closed", "guarded.txt"}));
  EXPECT_EQ(NamesIn(closed), Names{});
}

// A home, a data directory and an installation with a lexicon and a help file.
struct Installation {
  TemporaryDirectory root;
  ProgramDirectoryInput input{"", "", root.File("app/bin"), root.File("xdg"), root.File("home")};

  Installation() {
    for (const char* name : {"app/bin", "app/share/quorvane", "xdg", "home", "named", "env"}) {
      fs::create_directories(root.File(name));
    }
    root.Write("app/share/quorvane/words.lex", "installed\r\n");
    root.Write("app/share/quorvane/Quorvane.hlp", "help");
  }
};

TEST(ProgramDirectory, CopiesTheLexiconAndReadsTheHelpWhereItIs) {
  Installation here;
  const std::string path = SettleProgramDirectory(here.input).path;
  const auto help = [&] { return OwnOrInstalled(path, here.input.executableDirectory, "Quorvane.hlp"); };
  EXPECT_EQ(NamesIn(path), Names{"words.lex"});
  EXPECT_EQ(help(), here.root.File("app/share/quorvane/Quorvane.hlp"));
  here.root.Write("xdg/quorvane/words.lex", "mine\r\n");
  here.root.Write("xdg/quorvane/Quorvane.hlp", "mine");
  EXPECT_FALSE(SettleProgramDirectory(here.input).problem);
  EXPECT_EQ(ReadFile(JoinPath(path, "words.lex")), "mine\r\n");
  EXPECT_EQ(help(), JoinPath(path, "Quorvane.hlp"));
  fs::remove_all(here.root.File("app/share"));
  fs::remove_all(path);
  EXPECT_FALSE(SettleProgramDirectory(here.input).problem) << "nothing installed, nothing to copy";
  EXPECT_EQ(NamesIn(path), Names{});
  EXPECT_EQ(help(), JoinPath(path, "Quorvane.hlp"));
}

TEST(ProgramDirectory, SaysWhatCouldNotBeMade) {
  {
    Installation here;
    here.input.xdgDataHome = here.root.Write("xdg/file", "");
    const ProgramDirectory settled = SettleProgramDirectory(here.input);
    EXPECT_EQ(settled.path, here.root.File("xdg/file/quorvane")) << "never silently another place";
    ASSERT_TRUE(settled.problem);
    EXPECT_EQ(settled.problem->Text(), here.root.File("xdg/file/quorvane") + ": Not a directory");
  }
  {
    Installation here;
    fs::create_directories(here.root.File("xdg/quorvane/words.lex.new/full"));
    const ProgramDirectory settled = SettleProgramDirectory(here.input);
    ASSERT_TRUE(settled.problem);
    EXPECT_EQ(settled.problem->path, here.root.File("xdg/quorvane/words.lex"));
    EXPECT_FALSE(fs::exists(here.root.File("xdg/quorvane/words.lex")));
  }
  Installation here;
  chmod(here.root.path().c_str(), 0755);
  chmod(here.root.File("xdg").c_str(), 0555);
  ProgramDirectory settled;
  {
    const WithoutRoot user;
    if (!user) {
      GTEST_SKIP() << "runs as root and can't be anyone else";
    }
    settled = SettleProgramDirectory(here.input);
  }
  ASSERT_TRUE(settled.problem);
  EXPECT_EQ(settled.problem->error.number, kErrorPermissionDenied);
  EXPECT_EQ(settled.problem->Text(), here.root.File("xdg/quorvane") + ": Permission denied");
}

TEST(Version, Texts) {
  EXPECT_EQ(VersionText(3, 3, 0) + " " + VersionText(3, 0, 12), "3.3 3.0.12");
  EXPECT_EQ(BuildDate("Mar  5 2026") + ", " + BuildDate("Dec 31 2026"), "05 Mar 2026, 31 Dec 2026");
}

}  // namespace
}  // namespace quorvane::test
