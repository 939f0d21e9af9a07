// Lexicons made of word lists.

#include "lexicon/lexicon_maker.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <filesystem>
#include <random>
#include <set>
#include <thread>
#include <vector>

#include "lexicon/word_list_reader.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {
namespace {

using Words = std::vector<std::string>;

TEST(LexiconMaker, ReadsWordLists) {
  const std::string ninety(90, 'x');
  const struct {
    const char* name;
    std::vector<std::string> lists;
    Words words;
    int64_t lines;
    int64_t left[4];  // Empty, too long, other characters, repeated.
  } cases[] = {
      {"line ends", {"b\na\r\nc"}, {"a", "b", "c"}, 3, {}},
      {"nothing", {""}, {}, 0, {}},
      {"case", {"Zoo\nALPHA\nbeta\n"}, {"alpha", "beta", "zoo"}, 3, {}},
      {"repeats, also by case and across lists", {"cat\nCat\n", "dog\ncat\n"}, {"cat", "dog"}, 4, {0, 0, 0, 2}},
      {"repeats by accent", {"re\nr\xC3\xA9\n"}, {"re"}, 2, {0, 0, 0, 1}},
      {"first column", {"one 1\ntwo\t2\nthree,3\nfour;4\nfive, 5;6\n"}, {"five", "four", "one", "three", "two"}, 5, {}},
      {"nothing in the first column", {" lead\n\n,\n\t\n\r\nword\n"}, {"word"}, 6, {5}},
      {"byte-order mark", {"\uFEFFword\n"}, {"word"}, 1, {}},
      {"byte-order mark before an accent", {"\xEF\xBB\xBF\xC3\x89t\xC3\xA9\r\n"}, {"ete"}, 1, {}},
      {"UTF-8", {"\xC3\xA9t\xC3\xA9\nna\xC3\xAFve\n\xC3\x85ngstr\xC3\xB6m\n"}, {"angstrom", "ete", "naive"}, 3, {}},
      {"Latin-1", {"\xE9t\xE9\nna\xEFve\n\xC5ngstr\xF6m\n"}, {"angstrom", "ete", "naive"}, 3, {}},
      {"each list has its own encoding", {"\xE9t\xE9\n", "caf\xC3\xA9\n"}, {"cafe", "ete"}, 2, {}},
      {"letters that become two",
       {"stra\u00DFe\n\u00E6on\n\u0153uvre\n\u00DEor\n"},
       {"aeon", "oeuvre", "strasse", "thor"},
       4,
       {}},
      {"letters beyond Latin-1",
       {"\u0141\u00F3d\u017A\n\u010Das\n\u0218i\n\u1EA1\u1EF9\u1E9E\n\u0195\n"},
       {"ayss", "cas", "lodz", "si"},
       5,
       {0, 0, 1}},
      {"accents behind their letters", {"e\xCC\x81te\xCC\x81\n"}, {"ete"}, 1, {}},
      {"other characters", {"can't\nco-op\nx2\n\u03B1\u03B2\n3\u00D74\nab\u20AC\nok\n"}, {"ok"}, 7, {0, 0, 6}},
      {"other characters in Latin-1", {"a\xD7z\na\xF7z\na\xA0z\na\x9Cz\n"}, {}, 4, {0, 0, 4}},
      {"longest word", {ninety + "\n" + ninety + "y\n"}, {ninety}, 2, {0, 1}},
      {"too long once folded", {std::string(89, 'x') + "\xC3\x9F\n"}, {}, 1, {0, 1}},
  };
  for (const auto& [name, lists, words, lines, left] : cases) {
    SCOPED_TRACE(name);
    LexiconMaker maker({Separator::Any, 1, false, Phrases::FirstWord});
    for (const std::string& list : lists) {
      maker.AddList(list);
    }
    const MadeLexicon made = maker.Finish();
    EXPECT_EQ(made.text, Lines(words));
    EXPECT_EQ(made.report.Lines(), lines);
    EXPECT_EQ(made.problem.empty(), !words.empty());
    constexpr LineKind kKinds[] = {LineKind::Empty, LineKind::TooLong, LineKind::OtherCharacters, LineKind::Repeated};
    for (size_t i = 0; i < std::size(kKinds); ++i) {
      EXPECT_EQ(made.report.Of(kKinds[i]).count, left[i]) << i;
    }
  }
}

// A list under options: its words, and every line of it in the report.
TEST(LexiconMaker, OptionsSayWhatIsAWord) {
  const std::string table =
      "Word,Count\n\"ice cream\",1\n\"New\nYork\", 2\n \"a\"\"b\" ,3\r\ncafe,4\r\nCaf\u00E9,5\n6\n";
  const MakerOptions join{.phrases = Phrases::Join};
  const struct {
    MakerOptions options;
    std::string list;
    Words words;
    const char* report;
  } cases[] = {
      {{.heading = true, .phrases = Phrases::Join},
       table,
       {"cafe", "icecream"},
       "7 lines, 1 more within quotes: 1 word, 1 joined ('ice cream' becomes icecream), 1 heading ('Word,Count'), "
       "1 repeated ('cafe'), 3 left out: 3 with characters other than letters ('New\\x0AYork', 'a\"b', '6')"},
      {{.column = 2},
       "a;the end;\nb;Cat\nc\n",
       {"cat"},
       "3 lines: 1 word, 2 left out: 1 of several words ('the end'), 1 without that column ('c')"},
      {{.column = 2}, "   12 the\n 9 end\n100  of\n", {"end", "of", "the"}, "3 lines: 3 words"},
      {{.column = 3}, "a\tb\n", {}, "1 line: 0 words, 1 left out: 1 without that column ('a\\x09b')"},
      {{},
       "ice cream\n  sea \nrose garden\n",
       {"sea"},
       "3 lines: 1 word, 2 left out: 2 of several words ('ice cream', 'rose garden')"},
      {{},
       "cat, \"a\ndog; x, b\nowl, c\n",
       {"cat", "owl"},
       "3 lines: 2 words, 1 left out: 1 of several words ('dog; x')"},
      {{Separator::Tab},
       "\"lone\tx\nword\ty\n",
       {"word"},
       "2 lines: 1 word, 1 left out: 1 with characters other than letters ('\"lone')"},
      {{Separator::None, 1, false, Phrases::FirstWord},
       "New York\nnew\nsea, ice\n",
       {"new", "sea"},
       "3 lines: 0 words, 2 cut to the first word ('New York' becomes new, 'sea, ice' becomes sea), 1 repeated "
       "('new')"},
      {join, "newyork\nNew  York\n", {"newyork"}, "2 lines: 1 word, 1 repeated ('newyork')"},
      {join,
       std::string("\xFF\xFEi\0c\0e\0\n\0\xE9\0t\0\xE9\0\n\0\x00\xD8\n\0x\0", 24),
       {"ete", "ice", "x"},
       "4 lines: 3 words, 1 left out: 1 with characters other than letters ('\uFFFD')"},
      {join,
       std::string("\xFE\xFF\0i\0c\0e\0 \0a\0g\0e\0", 17),
       {},
       "1 line: 0 words, 1 left out: 1 with characters other than letters ('ice age\uFFFD')"},
      {{},
       std::string(300'000, '\xE9'),
       {},
       "1 line: 0 words, 1 left out: 1 longer than 90 letters "
       "('\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9"
       "\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9...')"},
  };
  for (const auto& [options, list, words, report] : cases) {
    SCOPED_TRACE(report);
    LexiconMaker maker(options);
    maker.AddList(list);
    const MadeLexicon made = maker.Finish();
    EXPECT_EQ(made.text, Lines(words));
    EXPECT_EQ(TextOf(made.report), report);
  }
}

TEST(WordCollector, KeepsEachWordOnceAndCountsTheOthers) {
  std::mt19937 random(7);
  for (const size_t room : {5, 60, 100000}) {
    WordCollector collector(room);
    MakeReport report;
    std::set<std::string> words;
    for (int i = 0; i < 3000; ++i) {
      // Many share the letters that are compared first.
      std::string word(random() % 4 == 0 ? 12 : random() % 3, 'q');
      for (size_t length = word.size() + 1 + random() % 4; word.size() < length;) {
        word += static_cast<char>('a' + random() % 3);
      }
      words.insert(word);
      const LineKind kind = random() % 2 == 0 ? LineKind::Word : LineKind::Joined;
      report.Count(kind, word, word);
      collector.Add(word, kind, report);
    }
    EXPECT_EQ(collector.Finish(report), Lines(words));
    EXPECT_EQ(report.Words(), static_cast<int64_t>(words.size()));
    EXPECT_EQ(report.Lines(), 3000);
  }
}

TEST(Preview, ShowsTheFirstLinesAndWhatSeparatesThem) {
  std::string list = "Word;Count\n\"sea; side\";" + std::string(300, '9') + "\n";
  for (int i = 0; i < 100'100; ++i) {
    list += "cat;1\n";
  }
  const MakerPreview preview = Preview(list, {.heading = true}, 3);
  EXPECT_EQ(preview.separator, Separator::Semicolon);
  const std::vector<Words> lines = {{"Word", "Count"}, {"sea; side", std::string(200, '9')}, {"cat", "1"}};
  EXPECT_EQ(preview.lines, lines);
  EXPECT_EQ(TextOf(preview.report),
            "100,000 lines: 1 word, 1 heading ('Word;Count'), 99,997 repeated ('cat'), 1 left out: 1 of several words "
            "('sea; side')");
}

TEST(ReadWordList, RefusesWhatIsNoList) {
  const TemporaryDirectory directory;
  const std::string pipe = directory.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string large = directory.Write("large", "");
  std::filesystem::resize_file(large, kMostListBytes + 1);
  const std::string line = directory.Write("line", std::string(kHeadBytes - 3, 'x') + "\nabcdef\n");
  const struct {
    std::string path;
    const char* reason;
  } cases[] = {
      {directory.path(), "Is a directory"},
      {pipe, "it is a pipe, not a file"},
      {large, "it is larger than 1 GB, the most that a lexicon is made of"},
      {directory.File("none"), "No such file or directory"},
      {directory.Write("gz", "\x1F\x8B\x08"), "it is compressed (gzip); unpack it first, with gunzip"},
      {directory.Write("zip", "PK\x03\x04"), "it is compressed (zip); unpack it first, with unzip"},
      {directory.Write("xz", std::string("\xFD"
                                         "7zXZ\0",
                                         6)),
       "it is compressed (xz); unpack it first, with unxz"},
      {directory.Write("bz2", "BZh91AY&SY"), "it is compressed (bzip2); unpack it first, with bunzip2"},
      {directory.Write("zst", "\x28\xB5\x2F\xFD"), "it is compressed (zstd); unpack it first, with unzstd"},
  };
  for (const auto& [path, reason] : cases) {
    SCOPED_TRACE(reason);
    const WordListRead read = ReadWordList(path, Pipes::Refused);
    ASSERT_TRUE(read.error);
    EXPECT_EQ(read.error->Text(), path + ": " + reason);
  }
  EXPECT_EQ(ReadWordList(directory.Write("word", "BZhivago\n"), Pipes::Refused).bytes, "BZhivago\n");
  EXPECT_EQ(ReadWordListHead(line).bytes, std::string(kHeadBytes - 3, 'x') + "\n");
  EXPECT_TRUE(ReadWordListHead(large).error);
  // A list that is being written is read until it was seen to change.
  std::atomic<bool> seen = false;
  std::thread writer([&] {
    for (const FileHandle file(std::fopen(line.c_str(), "ab")); !seen;) {
      std::fputs("word\n", file.get());
      std::fflush(file.get());
    }
  });
  for (int i = 0; i < 100'000 && !seen; ++i) {
    const WordListRead read = ReadWordList(line, Pipes::Refused);
    seen = read.error && read.error->reason == "it changed while it was read; try again when it is complete";
  }
  EXPECT_TRUE(seen.exchange(true));
  writer.join();
}

TEST(LexiconMaker, AFullDiskIsAnError) {
  MadeLexicon made;
  made.text = "ab\r\n";
  const auto error = WriteLexiconFile("/dev/full", made);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Text(), "/dev/full: No space left on device");
}

}  // namespace
}  // namespace quorvane::test
