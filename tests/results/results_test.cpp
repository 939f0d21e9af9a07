// The result list with its orders and cases, the summary texts, the results file and the statistics.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "base/text.h"
#include "results/result_list.h"
#include "results/results_file.h"
#include "results/search_run.h"
#include "results/sorting.h"
#include "results/statistics.h"
#include "results/summary.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {
namespace {

using Words = std::vector<std::string>;

std::shared_ptr<const Lexicon> Load(const Words& words) {
  const TemporaryDirectory directory;
  const LoadResult loaded = LoadLexicon(directory.Write("words.lex", Lines(words)));
  EXPECT_TRUE(loaded.Usable());
  return loaded.lexicon;
}

// Lists all words of the lexicon whose numbers are given, as a scan would.
void Fill(ResultList& list, const std::shared_ptr<const Lexicon>& lexicon, const std::vector<WordNumber>& numbers,
          bool upperCase, ScanOutcome outcome = {}) {
  FoundNumbers& found = list.BeginSearch();
  for (const WordNumber number : numbers) {
    found.Add(number);
  }
  outcome.listed = outcome.truncated ? outcome.listed : numbers.size();
  list.EndSearch({}, lexicon, outcome, upperCase);
}

Words WordsOf(const WordSequence& sequence) {
  Words words;
  for (size_t i = 0; i < sequence.numbers.size(); ++i) {
    words.push_back(sequence.Word(i));
  }
  return words;
}

Words EntriesOf(const ResultList& list) {
  Words entries;
  for (size_t i = 0; i < list.EntryCount(); ++i) {
    entries.push_back(list.Entry(i));
  }
  return entries;
}

// The sort as a person would do it by hand: for each length one pass over all words.
Words PassesByLength(const Words& words, bool longestFirst) {
  Words sorted;
  for (size_t i = 1; i <= 90; ++i) {
    const size_t length = longestFirst ? 91 - i : i;
    std::copy_if(words.begin(), words.end(), std::back_inserter(sorted),
                 [length](const std::string& word) { return word.size() == length; });
  }
  return sorted;
}

Words InCase(Words words, bool upperCase) {
  for (std::string& word : words) {
    word = upperCase ? UpperText(word) : FoldText(word);
  }
  return words;
}

// A narrowed list against the search that has the condition from the start, and what was found against itself.
TEST(ResultList, NarrowsAsAConditionDoes) {
  std::mt19937 engine(23);
  const auto text = [&engine](std::string_view characters, size_t longest) {
    std::string made;
    for (auto length = 1 + engine() % longest; length > 0; --length) {
      made += characters[engine() % characters.size()];
    }
    return made;
  };
  Words words(100'000);  // More than one chunk of a scan.
  for (std::string& word : words) {
    word = text("abcde", 1) + text("abcdeABC-", 9);
  }
  std::sort(words.begin(), words.end(), [](const std::string& a, const std::string& b) {
    return std::pair(FoldText(a), a) < std::pair(FoldText(b), b);
  });
  words.erase(std::unique(words.begin(), words.end()), words.end());
  const auto lexicon = LoadLexiconBytes(Lines(words)).lexicon;
  ASSERT_NE(lexicon, nullptr);
  class NoRandom : public RandomSource {
    double NextFraction() override { return 0; }
  } random;
  const auto run = [&](const Search& search, ResultList& list) {
    const SearchRun prepared(search);
    prepared.List(lexicon, random, {}, list);
  };
  int kept = 0;
  for (int i = 0; i < 120; ++i) {
    Search search;
    search.text = "*" + text("abc?@1", 3) + (i % 2 == 0 ? "*" : "");
    const std::string pattern = i % 9 == 0 ? ";" + text("abc", 3) : text("abc?@#*12", 5);
    Search narrower = search;
    narrower.conditions = {{ConditionKind::And, pattern}};
    const PreparedConditions conditions = PrepareConditions(narrower);
    if (SearchRun(narrower).Prepared().refusal) {
      continue;
    }
    SCOPED_TRACE(search.text + " and " + pattern);
    ResultList wanted;
    run(narrower, wanted);
    ResultList list;
    run(search, list);
    const Words found = WordsOf(list.FoundWords());
    const auto order = static_cast<SortOrder>(engine() % 3);
    list.Sort(static_cast<SortOrder>(engine() % 3), true);
    list.Narrow(pattern, conditions.all.front());
    list.Sort(order, false);
    wanted.Sort(order, false);
    ASSERT_EQ(EntriesOf(list), EntriesOf(wanted));
    ASSERT_EQ(WordsOf(list.Shown()), EntriesOf(list));
    ASSERT_EQ(WordsOf(list.FoundWords()), found);
    ASSERT_EQ(list.WholeCount(), found.size());
    if (const std::string start = text("abc", 2); list.EntryCount() > 0) {
      ASSERT_EQ(list.FindPrefix(start, 0), wanted.FindPrefix(start, 0));
      ASSERT_EQ(list.Find(list.Entry(list.EntryCount() - 1)), wanted.Find(list.Entry(list.EntryCount() - 1)));
    }
    list.KeepNarrowed();
    ASSERT_EQ(EntriesOf(list), EntriesOf(wanted));
    ASSERT_EQ(WordsOf(list.WordsIn(order)), WordsOf(wanted.WordsIn(order)));
    ASSERT_EQ(ConditionTexts(*list.MadeBy()), ConditionTexts(narrower));
    kept += list.FoundCount() > 0 ? 1 : 0;
  }
  EXPECT_GT(kept, 40);
}

TEST(ResultList, SortsLikePassesOverEveryLength) {
  std::mt19937 engine(17);
  const std::string characters = "abcABC'\xE9\xC9\xD7\xF7\xFF\xDF-";
  Words words(400);
  for (std::string& word : words) {
    for (auto length = 1 + engine() % (engine() % 9 == 0 ? 90 : 8); length > 0; --length) {
      word += word.empty() ? 'a' : characters[engine() % characters.size()];
    }
  }
  const auto lexicon = Load(words);
  ResultList list;
  for (int round = 0; round < 200; ++round) {
    std::vector<WordNumber> numbers(round % 5 == 0 ? words.size() : engine() % 120);
    const bool fromTheFirst = engine() % 3 == 0;
    Words found;
    for (WordNumber& number : numbers) {
      number = 1 + static_cast<WordNumber>((fromTheFirst ? found.size() : engine()) % words.size());
      found.push_back(words[number - 1]);
    }
    const bool upperAtSearch = round % 3 == 0;
    Fill(list, lexicon, numbers, upperAtSearch);
    // As found: the lexicon's own case, or upper.
    const Words listed = upperAtSearch ? InCase(found, true) : found;
    ASSERT_EQ(EntriesOf(list), listed);
    ASSERT_EQ(WordsOf(list.FoundWords()), listed);
    ASSERT_EQ(WordsOf(list.FoundWordsCopy()), listed);
    const auto longest =
        std::max_element(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.size() < b.size(); });
    ASSERT_EQ(list.LongestFound(), longest == found.end() ? 0 : static_cast<int>(longest->size()));
    Words copy = listed;
    for (int sort = 0; sort < 4; ++sort) {
      const bool upper = engine() % 2 == 0;
      const auto order = static_cast<SortOrder>(engine() % 3);
      list.Sort(order, upper);
      if (order == SortOrder::Alphabetic) {
        ASSERT_EQ(EntriesOf(list), InCase(found, upper));
      } else {
        copy = InCase(PassesByLength(found, order == SortOrder::LongestFirst), upper);
        ASSERT_EQ(EntriesOf(list), copy);
      }
      // The copy is that of the last length sort; what was found never changes.
      ASSERT_EQ(WordsOf(list.FoundWordsCopy()), copy);
      ASSERT_EQ(WordsOf(list.FoundWords()), listed);
    }
  }
}

TEST(ResultList, WhatWasTypedIsFoundAsAWalkFindsIt) {
  std::mt19937 engine(23);
  const auto some = [&engine](size_t below) { return engine() % below; };
  const auto text = [&](std::string start, size_t longest) {
    for (size_t length = some(longest); length > 0; --length) {
      start += "abAB\xE9\xC9-"[some(7)];
    }
    return start;
  };
  int ordered = 0;
  for (int round = 0; round < 150; ++round) {
    Words words(1 + some(60));
    for (std::string& word : words) {
      word = text(some(9) == 0 ? "A" : some(2) == 0 ? "aabbaabb" : "a", 12);
    }
    const auto inOrder = [](const auto& a, const auto& b) { return FoldText(a) < FoldText(b); };
    if (round % 4 != 0) {
      std::sort(words.begin(), words.end(), inOrder);
    }
    const auto lexicon = Load(words);
    ASSERT_EQ(lexicon->sorted(), std::is_sorted(words.begin(), words.end(), inOrder));
    std::vector<WordNumber> numbers;
    for (size_t i = 0; i < words.size(); ++i) {
      if (some(3) != 0) {
        numbers.push_back(static_cast<WordNumber>(i + 1));
      }
    }
    if (round % 5 == 0) {
      std::shuffle(numbers.begin(), numbers.end(), engine);
    }
    ResultList list;
    ScanOutcome outcome;
    outcome.truncated = round % 3 == 0 && !numbers.empty();
    outcome.listed = some(numbers.size() + 1);
    Fill(list, lexicon, numbers, round % 2 == 0, outcome);
    if (some(2) == 0) {
      list.Sort(static_cast<SortOrder>(some(3)), some(2) == 0);
    }
    const Words entries = EntriesOf(list);
    ordered += lexicon->sorted() && entries.size() > 9;
    for (int search = 0; search < 80 && !entries.empty(); ++search) {
      const std::string typed = search == 0 ? "  *** l" : text(some(2) == 0 ? "aabbaabb" : "a", 4);
      const size_t from = some(entries.size());
      std::optional<size_t> walked;
      for (size_t k = 0; k < entries.size() && !walked; ++k) {
        const size_t i = (from + k) % entries.size();
        walked = FoldText(entries[i]).starts_with(FoldText(typed)) ? std::optional(i) : std::nullopt;
      }
      ASSERT_EQ(list.FindPrefix(typed, from), walked) << typed << " from " << from << " in round " << round;
    }
  }
  EXPECT_GT(ordered, 50);
}

TEST(ResultList, EmptyAndCleared) {
  ResultList list;
  list.Sort(SortOrder::LongestFirst, true);
  EXPECT_EQ(list.EntryCount(), 0u);
  EXPECT_EQ(list.LongestFound(), 0);
  const auto lexicon = Load({"ab", "b"});
  Fill(list, lexicon, {1, 2}, true);
  list.Sort(SortOrder::ShortestFirst, true);
  list.Clear();
  EXPECT_EQ(list.FoundCount() + list.EntryCount() + list.FoundWordsCopy().numbers.size(), 0u);
  Fill(list, lexicon, {1, 2}, false);
  EXPECT_EQ(EntriesOf(list), (Words{"ab", "b"})) << "nothing of the search before is left";
  EXPECT_EQ(WordsOf(list.FoundWordsCopy()), (Words{"ab", "b"}));
}

TEST(Summary, Texts) {
  Search search{"a*", WordType::WordList, "full anagram", {false, 5, 5}, {}};
  EXPECT_EQ(SummaryLog(1, search), "1 full anagram found using pattern 'a*'  (of length 5 letters)");
  search = {"q!=", WordType::WordList, "word", {false, 3, 5}, {"", "ab", "c?"}, {{ConditionKind::Not, "*s"}}};
  EXPECT_EQ(SummaryStatus(3, search), "3 words found  (of 3 to 5 letters in length)");
  EXPECT_EQ(EmptyListText(search),
            "Nothing found. In force: 3 to 5 letters; Exclusion list [ab]; Scrabble list [c?]; not: *s");
  const std::pair<int64_t, const char*> times[] = {
      {0, "Time = 0.00s"},    {4, "Time = 0.00s"},    {5, "Time = 0.01s"},     {94, "Time = 0.09s"},
      {1234, "Time = 1.23s"}, {1235, "Time = 1.24s"}, {9995, "Time = 10.00s"}, {123456, "Time = 123.46s"}};
  for (const auto& [milliseconds, text] : times) {
    EXPECT_EQ(TimeText(milliseconds), text);
  }
  EXPECT_EQ(PositionText(3, 5, 65535), "Word # 3\r\nLength : 5");
  EXPECT_EQ(PositionText(3, 5, 65536), " \r\nLength : 5");
}

TEST(ResultsFile, Bytes) {
  const CharacterLists lists{"aB", "xY", "T-"};
  const Words words = {"caf\xE9", "Cat", "dog"};
  const std::string body = "\r\n--- START OF LIST ---\r\ncaf\xE9\r\nCat\r\ndog\r\n--- END OF LIST ---\r\n";
  const struct {
    const char *typed, *noun;
    size_t count;
    std::string head;
  } cases[] = {
      {"a*b", "word", 3, "3 words found matching the word pattern \"a*b\"\r\n"},
      {"A-b", "palindrome", 3, "3 palindromes found matching the word pattern \"A-b\"\r\n"},
      {"#!=", "word", 3,
       "3 words found matching the word pattern \"#!=\"\r\n # stands for [ab]\r\n ! stands for [xy]\r\n"
       " = stands for [t-]\r\n"},
      {"!*", "word", 1, "1 word found matching the word pattern \"!*\"\r\n ! stands for [xy]\r\n"},
      {"%2ss>", "sequenced word", 3, "3 sequenced words found (2 or more of 'ss')\r\n"},
      {"%2sS", "sequenced word", 3, "3 sequenced words found (2 of 'sS')\r\n"},
      {";pnt~", "letter choice", 3, "3 letter choices found matching the word pattern \";pnt~\"\r\n"},
      {"~3", "Random word", 3, "3 Random words found\r\n"},
  };
  const std::vector<WordNumber> numbers[] = {{}, {3}, {}, {1, 2, 3}};
  const TemporaryDirectory directory;
  const std::string path = directory.Write("outlist.txt", "what was there before, and longer than what follows");
  const auto lexicon = Load(words);
  for (const auto& [typed, noun, count, head] : cases) {
    SCOPED_TRACE(head);
    ResultList list;
    Fill(list, lexicon, numbers[count], false);
    EXPECT_FALSE(WriteResultsFile(path, {typed, {}, noun, {}, lists}, list, SortOrder::Alphabetic));
    const std::string one = "\r\n--- START OF LIST ---\r\ndog\r\n--- END OF LIST ---\r\n";
    EXPECT_EQ(ReadFile(path), head + (count == 3 ? body : count == 1 ? one : ""));
  }
  EXPECT_EQ(WritingStatus(0, {"", {}, "full anagram", {}, {}}), "Writing 0 full anagrams to file ...");
}

TEST(ResultsFile, FollowsOrderAndCase) {
  const TemporaryDirectory directory;
  const std::string path = directory.File("new.lex");
  const auto lexicon = Load({"Apple", "at", "caf\xE9", std::string(90, 'd')});
  const std::string d90(90, 'd');
  const std::string D90(90, 'D');
  const struct {
    bool upperAtSearch;
    SortOrder order;
    bool upperAtSort;
    Words written;
  } cases[] = {
      {false, SortOrder::Alphabetic, true, {"Apple", "at", "caf\xE9", d90}},
      {true, SortOrder::Alphabetic, false, {"APPLE", "AT", "CAF\xC9", D90}},
      {false, SortOrder::ShortestFirst, false, {"at", "caf\xE9", "apple", d90}},
      {true, SortOrder::LongestFirst, false, {d90, "apple", "caf\xE9", "at"}},
      {false, SortOrder::LongestFirst, true, {D90, "APPLE", "CAF\xC9", "AT"}},
  };
  for (const auto& [upperAtSearch, order, upperAtSort, written] : cases) {
    ResultList list;
    Fill(list, lexicon, {1, 2, 3, 4}, upperAtSearch);
    list.Sort(order, upperAtSort);
    EXPECT_FALSE(WriteResultsAsLexicon(path, list, order));
    EXPECT_EQ(ReadFile(path), Lines(written));
    EXPECT_EQ(WordsOf(list.WordsIn(order)), written);
  }
}

TEST(ResultsFile, ManyWordsMakeALexiconAgain) {
  std::mt19937 engine(23);
  Words words(140000);
  for (std::string& word : words) {
    word = std::string(1 + engine() % 12, static_cast<char>('a' + engine() % 26));
    word.back() = static_cast<char>('a' + engine() % 26);
  }
  std::sort(words.begin(), words.end());
  const auto lexicon = Load(words);
  std::vector<WordNumber> odd;
  Words expected;
  for (WordNumber number = 1; number <= words.size(); number += 2) {
    odd.push_back(number);
    expected.push_back(words[number - 1]);
  }
  ResultList list;
  Fill(list, lexicon, odd, false);
  const TemporaryDirectory directory;
  const std::string path = directory.File("new.lex");
  ASSERT_FALSE(WriteResultsAsLexicon(path, list, SortOrder::Alphabetic));
  const LoadResult loaded = LoadLexicon(path);
  ASSERT_EQ(loaded.outcome, LoadOutcome::Ok);
  ASSERT_EQ(loaded.count, static_cast<int32_t>(expected.size()));
  for (size_t i = 0; i < expected.size(); ++i) {
    ASSERT_EQ(loaded.lexicon->Word(static_cast<WordNumber>(i + 1)), expected[i]);
  }
}

TEST(Statistics, Counts) {
  const auto lexicon = Load({"ab", "Abc", "b", "m", "mm", std::string(25, 'm'), std::string(26, 'm'),
                             std::string(60, 'm'), std::string(61, 'm'), std::string(90, 'm'), "z", "[z", "_"});
  const auto letters = CountByLetter(*lexicon);
  for (const StatisticsRow& row : letters) {
    const int expected = row.label == "A" ? 2 : row.label == "B" ? 1 : row.label == "M" ? 7 : row.label == "Z" ? 3 : 0;
    EXPECT_EQ(row.count, expected) << row.label;
  }
  EXPECT_EQ(letters.front().label + letters[12].label + letters.back().label, "AMZ");
  for (const StatisticsRow& row : CountByLength(*lexicon)) {
    const int expected = row.label == "1"     ? 4
                         : row.label == "2"   ? 3
                         : row.label == "3"   ? 1
                         : row.label == "25"  ? 1
                         : row.label == "26+" ? 2  // Words over 60 are counted in no row.
                                              : 0;
    EXPECT_EQ(row.count, expected) << row.label;
  }
  const auto shortWords = Load({"ab", "b"});
  EXPECT_EQ(CountByLength(*shortWords).back().label, "26+");
  EXPECT_EQ(CountByLength(*shortWords).back().count, 0);
}

}  // namespace
}  // namespace quorvane::test
