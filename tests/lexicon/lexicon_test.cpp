// Loading, indexing and checking of lexicon files; what is said of each outcome; names of lexicon files.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <random>
#include <vector>

#include "base/text.h"
#include "lexicon/lexicon.h"
#include "lexicon/lexicon_name.h"
#include "lexicon/load_report.h"
#include "tests/support/temporary_directory.h"

namespace quorvane {

void PrintTo(LoadOutcome outcome, std::ostream* out) {
  constexpr const char* kNames[] = {"Ok", "Capacity", "NotSorted", "NotSortedError", "ListError"};
  *out << kNames[static_cast<int>(outcome)];
}

namespace test {
namespace {

using Words = std::vector<std::string>;

LoadResult LoadBytes(std::string_view bytes, int32_t capacity = kLexiconCapacity) {
  const TemporaryDirectory directory;
  return LoadLexicon(directory.Write("words.lex", bytes), capacity);
}

// One word a line for each of the first `runs` initials of A to Z and "[".
Words Runs(int runs) {
  Words words;
  for (int i = 0; i < runs; ++i) {
    words.push_back(std::string(1, static_cast<char>('A' + i)) + "x");
  }
  return words;
}

Words With(Words words, const std::string& last) {
  words.push_back(last);
  return words;
}

// The load word by word, as a plain reader of lines would do it.
LoadResult PlainLoad(const Words& lines, int32_t capacity) {
  LoadResult result;
  int runs = 0;
  int previous = '?' + 256;
  const auto fail = [&] {
    if (runs >= 27) {
      result.outcome = LoadOutcome::NotSortedError;
    } else if (result.count > capacity) {
      result.outcome = LoadOutcome::Capacity;
      result.count = capacity;
    }
    return result;
  };
  for (const std::string& line : lines) {
    if (++result.count > capacity) {
      return fail();
    }
    result.lastWord = line.substr(0, 200);
    if (line.size() > 90) {
      return fail();
    }
    ++result.lengthCount[line.size()];
    if (line.empty()) {
      ++runs;
      return fail();
    }
    const int initial = static_cast<unsigned char>(Fold(line[0]));
    if (initial != previous) {
      ++runs;
      const int index = static_cast<unsigned char>(Upper(line[0])) - 65;
      if (index < 0 || index > 30) {
        return fail();
      }
      result.letterStart[static_cast<size_t>(index)] = result.count - 1;
      previous = initial;
    }
  }
  result.letterStart[0] = 0;
  result.letterStart[26] = result.count;
  for (int index = 26; index >= Upper(lines.front()[0]) - 64; --index) {
    const auto i = static_cast<size_t>(index);
    result.letterStart[i] = result.letterStart[i] == 0 ? result.letterStart[i + 1] : result.letterStart[i];
  }
  result.outcome = runs <= 26 ? LoadOutcome::Ok : LoadOutcome::NotSorted;
  return result;
}

TEST(Lexicon, FailuresAreDecidedInOrder) {
  const std::string longWord(91, 'a');
  const std::string unsortedBox = "Word list is not sorted alphabetically.  You must sort it or use another list";
  const std::string problemBox =
      "There appears to be a problem with the Lexicon file, specifically at the following point:";
  std::string fullChunk;
  for (int line = 0; line < 8382; ++line) {
    fullChunk += std::string(line < 190 ? 85 : line == 190 ? 44 : 1, 'a') + "\n";
  }
  fullChunk += "a";
  const struct {
    const char* name;
    std::string bytes;
    int32_t capacity;
    LoadOutcome outcome;
    int error;
    int32_t count;
    std::string word;
  } cases[] = {
      {"empty file", "", 99, LoadOutcome::ListError, 62, 0, ""},
      {"empty first line", "\r\nab\r\n", 99, LoadOutcome::ListError, 5, 1, ""},
      {"empty line", "ab\r\n\r\ncd\r\n", 99, LoadOutcome::ListError, 5, 2, ""},
      {"line ends alone", std::string(10'000, '\n'), 20'000, LoadOutcome::ListError, 5, 1, ""},
      {"90 characters", longWord.substr(1) + "\r\n", 99, LoadOutcome::Ok, 0, 1, longWord.substr(1)},
      {"91 characters", "ab\r\n" + longWord + "\r\nac\r\n", 99, LoadOutcome::ListError, 9, 2, longWord},
      {"a line longer than what is looked at together", "ab\n" + std::string(40'000, 'a'), 999, LoadOutcome::ListError,
       9, 2, std::string(200, 'a')},
      {"a full chunk from the last word of a block on", fullChunk, 9999, LoadOutcome::Ok, 0, 8383, "a"},
      {"digit first", "ab\r\n1st\r\nc\r\n", 99, LoadOutcome::ListError, 9, 2, "1st"},
      {"before A", "@a\r\n", 99, LoadOutcome::ListError, 9, 1, "@a"},
      {"after the underscore", "z\r\n`a\r\n", 99, LoadOutcome::ListError, 9, 2, "`a"},
      {"26 runs", Lines(Runs(26)), 99, LoadOutcome::Ok, 0, 26, "Zx"},
      {"27 runs", Lines(Runs(27)), 99, LoadOutcome::NotSorted, 0, 27, "[x"},
      {"illegal initial as 27th run", Lines(With(Runs(26), "1")), 99, LoadOutcome::NotSortedError, 9, 27, "1"},
      {"empty line as 27th run", Lines(With(Runs(26), "")), 99, LoadOutcome::NotSortedError, 5, 27, ""},
      {"long word as 27th run", Lines(With(Runs(26), longWord)), 99, LoadOutcome::ListError, 9, 27, longWord},
      {"long word after 27 runs", Lines(With(Runs(27), longWord)), 99, LoadOutcome::NotSortedError, 9, 28, longWord},
      {"as many as fit", "a\r\nb\r\nc\r\nd\r\ne\r\n", 5, LoadOutcome::Ok, 0, 5, "e"},
      {"one too many", "a\r\nb\r\nc\r\nd\r\ne\r\nf\r\ng\r\n", 5, LoadOutcome::Capacity, 9, 5, "e"},
      {"empty line past the capacity", "a\nb\nc\nd\ne\n\n", 5, LoadOutcome::Capacity, 9, 5, "e"},
      {"long word past the capacity", "a\nb\nc\nd\ne\n" + longWord, 5, LoadOutcome::Capacity, 9, 5, "e"},
      {"27 runs and the capacity", Lines(With(Runs(27), "[y")), 27, LoadOutcome::NotSortedError, 9, 28, "[x"},
      {"26 runs and the capacity", Lines(With(Runs(26), "[y")), 26, LoadOutcome::Capacity, 9, 26, "Zx"},
  };
  for (const auto& [name, bytes, capacity, outcome, error, count, word] : cases) {
    SCOPED_TRACE(name);
    const LoadResult loaded = LoadBytes(bytes, capacity);
    EXPECT_EQ(loaded.outcome, outcome);
    EXPECT_EQ(loaded.error.number, error);
    EXPECT_EQ(loaded.count, count);
    EXPECT_EQ(loaded.lastWord, word);
    EXPECT_EQ(loaded.Usable(), outcome == LoadOutcome::Ok || outcome == LoadOutcome::Capacity);
    const LoadReport report = ReportOf(loaded);
    const std::string number = std::to_string(count);
    const std::string err = "Err=" + std::to_string(error);
    const std::map<LoadOutcome, Words> reports = {
        {LoadOutcome::Ok, {"", "", ""}},
        {LoadOutcome::Capacity,
         {"Word list exceeds 2,000,000 words.", "ARRAY_OF",
          "Max # of input words in array reached; last word read was '" + word + "', #" + number + ": " + err}},
        {LoadOutcome::NotSorted, {unsortedBox + ".", "NOTALPHA", "Word list was not sorted alphabetically"}},
        {LoadOutcome::NotSortedError,
         {unsortedBox + " before you can use this utility.", "NOTALPHA", "Word list was not sorted alphabetically"}},
        {LoadOutcome::ListError,
         {problemBox, "LIST_ERR", "Word list error at word #" + number + " (" + word + ").  " + err}}};
    EXPECT_EQ((Words{report.boxText, report.logCode, report.logText}), reports.at(outcome));
  }
}

TEST(Lexicon, FilesThatCanNotBeReadAreWordZero) {
  const TemporaryDirectory directory;
  std::filesystem::create_directory(directory.File("folder.lex"));
  const std::string closed = directory.Write("closed.lex", "ab\r\n");
  chmod(closed.c_str(), 0);
  chmod(directory.path().c_str(), 0755);
  const struct {
    std::string path;
    int error;
    const char* log;
  } cases[] = {
      {directory.File("none.lex"), 53, "Word list error at word #0 ().  Err=53"},
      {directory.File("closed.lex/x.lex"), 76, "Word list error at word #0 ().  Err=76"},
      {directory.File("folder.lex"), 75, "Word list error at word #0 ().  Err=75"},
      {closed, 70, "Word list error at word #0 ().  Err=70"},
  };
  for (const auto& [path, error, log] : cases) {
    SCOPED_TRACE(path);
    // Permissions mean nothing to root.
    const bool becameOther = geteuid() == 0 && seteuid(65534) == 0;
    const bool wasRoot = geteuid() == 0;
    const LoadResult loaded = LoadLexicon(path);
    if (becameOther) {
      ASSERT_EQ(seteuid(0), 0);
    }
    if (error == 70 && wasRoot) {
      continue;
    }
    EXPECT_EQ(loaded.outcome, LoadOutcome::ListError);
    EXPECT_EQ(loaded.error.number, error);
    EXPECT_EQ(ReportOf(loaded).logText, log);
    EXPECT_FALSE(loaded.Usable());
  }
}

TEST(Lexicon, AnInitialBeginsAnywhereInTheText) {
  for (size_t at = 32'700; at < 32'840; ++at) {  // Around 32,768, where one part of the text that is worked on ends.
    std::string text = std::string(1 + (at - 2) % 3, 'a') + "\n";
    int32_t words = 1;
    for (; text.size() < at; ++words) {
      text += "aa\n";
    }
    EXPECT_EQ(LoadLexiconBytes(text + "b\n").lexicon->letterStart()[1], words) << at;
  }
}

TEST(Lexicon, AgreesWithAPlainReader) {
  const TemporaryDirectory directory;
  std::mt19937 engine(7);
  const auto below = [&engine](size_t limit) { return static_cast<size_t>(engine() % limit); };
  const std::string initials = "aAbBcdefghijklmnopqrstuvwxyzZ[\\]^_";
  const std::string inside = "abcdefghijklmnopqrstuvwxyzABZ'- .\xE9\xC9\xD7\xFF\x80";
  std::map<LoadOutcome, int> outcomes;
  for (int round = 0; round < 3000; ++round) {
    // Every number of words around the 64 of a block, now and then more than are worked on at once; often few initials.
    const size_t most = below(30) == 0 ? 4000 : 200;
    Words lines(1 + below(most));
    const size_t ofInitials = below(2) == 0 ? 1 + below(4) : initials.size();
    for (std::string& line : lines) {
      line = initials[below(ofInitials)];
      for (size_t more = below(8) == 0 ? below(90) : below(9); more > 0; --more) {
        line += inside[below(inside.size())];
      }
    }
    std::sort(lines.begin(), lines.end(),
              [](const std::string& a, const std::string& b) { return FoldText(a) < FoldText(b); });
    if (below(3) == 0) {
      std::shuffle(lines.begin(), lines.end(), engine);
    }
    if (below(3) == 0) {
      const Words odd = {"", std::string(91, 'q'), std::string(400, 'a'), "1", "\xE9", "{", "?"};
      lines[below(lines.size())] = odd[below(odd.size())];
    }
    std::string bytes;
    const size_t ends = below(3);
    for (const std::string& line : lines) {
      bytes += line + (ends == 0 || (ends == 1 && below(2) == 0) ? "\n" : "\r\n");
    }
    if (!lines.back().empty() && below(2) == 0) {
      bytes.resize(bytes.size() - (bytes.ends_with("\r\n") ? 2 : 1));
    }
    const int32_t capacity = static_cast<int32_t>(below(2) == 0 ? 1 + below(most) : most);
    const LoadResult plain = PlainLoad(lines, capacity);
    const LoadResult loaded =
        LoadLexicon(directory.Write("words.lex", bytes), capacity, below(2) == 0 ? TextSource::Read : TextSource::Map,
                    {}, static_cast<VectorWidth>(below(static_cast<size_t>(WidestVectors()) + 1)));
    ASSERT_EQ(loaded.outcome, plain.outcome) << bytes;
    ASSERT_EQ(loaded.count, plain.count) << bytes;
    ASSERT_EQ(loaded.lastWord, plain.lastWord) << bytes;
    ASSERT_EQ(loaded.letterStart, plain.letterStart) << bytes;
    ASSERT_EQ(loaded.lengthCount, plain.lengthCount) << bytes;
    ++outcomes[loaded.outcome];
    if (!loaded.Usable()) {
      continue;
    }
    const Lexicon& lexicon = *loaded.lexicon;
    ASSERT_EQ(lexicon.count(), plain.count);
    ASSERT_EQ(lexicon.letterStart(), plain.letterStart);
    ASSERT_EQ(lexicon.lengthCount(), plain.lengthCount);
    for (WordNumber number = 1; number <= static_cast<WordNumber>(plain.count); ++number) {
      ASSERT_EQ(lexicon.Word(number), lines[number - 1]);
      ASSERT_EQ(lexicon.FoldedWord(number), FoldText(lines[number - 1]));
      LetterSet letters = 0;
      uint32_t ending = 0;
      uint32_t others = 0;  // Where no letter stands in it.
      for (const char c : lines[number - 1]) {
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        letters |= letter ? 1u << (Fold(c) - 'a' + 1) : 1u;
        ending = (ending << 5 | (letter ? static_cast<uint32_t>(Fold(c) - 'a' + 1) : 0)) & 0x7FFF;
        others = (others << 5 | (letter ? 0 : 31u)) & 0x7FFF;
      }
      ASSERT_EQ(lexicon.Bitmaps().Letters(number), letters) << lines[number - 1];
      ASSERT_EQ(lexicon.Bitmaps().Ending(number) & ~others, ending) << lines[number - 1];
    }
  }
  for (const auto outcome : {LoadOutcome::Ok, LoadOutcome::Capacity, LoadOutcome::NotSorted,
                             LoadOutcome::NotSortedError, LoadOutcome::ListError}) {
    EXPECT_GT(outcomes[outcome], 30) << "cases of outcome " << static_cast<int>(outcome);
  }
}

TEST(LexiconName, ListsTheLexiconsOfADirectory) {
  const TemporaryDirectory directory;
  for (const char* name : {"b.lex", "A.LEX", "a.lex", "c.Lex", "words.txt", "x.lex.bak", "odd\\name.lex", "lex"}) {
    directory.Write(name, "a\r\n");
  }
  std::filesystem::create_directory(directory.File("folder.lex"));
  std::filesystem::create_symlink("b.lex", directory.File("link.lex"));
  EXPECT_EQ(LexiconFilesIn(directory.path()), (Words{"A.LEX", "a.lex", "b.lex", "c.Lex", "link.lex"}));
  EXPECT_EQ(LexiconFilesIn(directory.File("none")), Words{});
}

}  // namespace
}  // namespace test
}  // namespace quorvane
