// Scans over small lexicons, checked by hand; random words, truncation, errors, repeats and progress.

#include <gtest/gtest.h>

#include <sstream>

#include "search/scan.h"
#include "search/search_texts.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {
namespace {

using Words = std::vector<std::string>;

Words Split(const std::string& text) {
  std::istringstream stream(text);
  Words words;
  for (std::string word; stream >> word;) {
    words.push_back(word);
  }
  return words;
}

std::shared_ptr<const Lexicon> Load(const Words& words, int32_t capacity = kLexiconCapacity) {
  const TemporaryDirectory directory;
  const LoadResult loaded = LoadLexicon(directory.Write("words.lex", Lines(words)), capacity);
  EXPECT_TRUE(loaded.Usable()) << loaded.count << " " << loaded.lastWord;
  return loaded.lexicon;
}

class Fractions : public RandomSource {
 public:
  explicit Fractions(std::vector<double> fractions = {}) : fractions_(std::move(fractions)) {}
  double NextFraction() override { return fractions_.at(taken_++); }
  size_t taken() const { return taken_; }

 private:
  std::vector<double> fractions_;
  size_t taken_ = 0;
};

class Steps : public ScanObserver {
 public:
  void Progress(int index, int percent) override {
    indices.push_back(index);
    percentages.push_back(percent);
  }
  std::vector<int> indices;
  std::vector<int> percentages;
};

// A search with everything that it depends on, and what came of it.
struct Search {
  explicit Search(const std::string& words) : lexicon(Load(Split(words))) {}
  explicit Search(std::shared_ptr<const Lexicon> loaded) : lexicon(std::move(loaded)) {}

  std::string Run(const std::string& text, WordType type = WordType::WordList) {
    request.prepared = PreparePattern(text, type);
    EXPECT_FALSE(request.prepared.refusal) << text;
    request.palindromes = request.palindromes || type == WordType::Palindrome;
    outcome = PerformScan(*lexicon, request, found, random, &steps, capacity, wasTruncated);
    std::string joined;
    for (const WordNumber number : found.Span()) {
      joined += (joined.empty() ? "" : " ") + std::string(lexicon->Word(number));
    }
    return joined;
  }

  std::shared_ptr<const Lexicon> lexicon;
  ScanRequest request;
  Fractions random;
  Steps steps;
  size_t capacity = std::numeric_limits<size_t>::max();
  bool wasTruncated = false;
  FoundNumbers found;
  ScanOutcome outcome;
};

TEST(Scan, FindsWhatFits) {
  constexpr WordType kWord = WordType::WordList;
  constexpr WordType kPalindrome = WordType::Palindrome;
  constexpr WordType kAnagram = WordType::Anagram;
  constexpr WordType kExact = WordType::AnagramExact;
  const struct {
    const char *words, *text, *found;
    WordType type = kWord;
    CharacterLists lists{};  // Include, exclude, Scrabble.
    int min = kAnyMinLength;
    int max = kAnyMaxLength;
  } cases[] = {
      // No asterisk.
      {"aba abb abba abca bbbb", "1221", "abba bbbb"},
      {"can't canlt canst cant", "can't", "can't canlt"},
      {"bat cat hat", "!at", "hat", kWord, {"", "bC", ""}},
      {"at to tt xy", "==", "at to tt", kWord, {"", "", "t?"}},
      // Asterisks.
      {"ing king ringer sing", "*ing", "ing king sing"},
      {"aaa aab aba", "=*=*", "aab aba", kWord, {"", "", "ab"}},
      {"abab abxab xabx", "?*ab*2", "xabx"},
      // Anagrams, sequences, letter choices.
      {"at ate eat tea teat tee", "tea", "at ate eat tea", kAnagram},
      {"at ate Eat tea teat tee", "TEA", "ate Eat tea", kExact},
      {"ass assess possess sss ssss", "%2SS>", "assess possess sss ssss"},
      {"aba banana", ";aaa~", "banana"},
      // Palindromes, lengths, repeats.
      {"ab'ba ab'b aba", "*'*", "ab'ba aba", kPalindrome},
      {"ab ab ac ab ab", "a?", "ab ac ab"},
      {"a ab abc abcd", "*", "ab abc", kWord, {}, 2, 3},
      // Initials that are no letters.
      {"zoo [x \\x ]x ^x _x", "?x", "[x \\x ]x ^x _x"},
  };
  for (const auto& [words, text, found, type, lists, min, max] : cases) {
    SCOPED_TRACE(std::string(text) + " in " + words);
    Search search{std::string(words)};
    search.request.lists = lists;
    search.request.minLength = min;
    search.request.maxLength = max;
    EXPECT_EQ(search.Run(text, type), found);
    EXPECT_TRUE(search.outcome.errors.empty());
    EXPECT_FALSE(search.outcome.truncated);
    EXPECT_EQ(search.outcome.listed, search.found.size());
  }
}

TEST(Scan, LongWords) {
  const std::string x70(70, 'x');
  const std::string x90(90, 'x');
  Search search(Load({x70.substr(10), x70, x90}));
  EXPECT_EQ(search.Run("x*"), x70.substr(10) + " " + x70 + " " + x90);
  EXPECT_EQ(search.Run(x70), x70) << "a plain pattern needs no sorted letters";
  EXPECT_EQ(search.Run(std::string(90, '?')), x90);
  EXPECT_EQ(search.Run(x90, WordType::Anagram), x70.substr(10) + " " + x70 + " " + x90);
  search.request.maxLength = 60;
  EXPECT_EQ(search.Run("x*"), x70.substr(10));
}

TEST(Scan, AtTheCapacityTheIndexIsUnfinished) {
  Search search(Load({"ab", "mb", "zb", "zc"}, 3));
  EXPECT_EQ(search.Run("*"), "ab mb zb");
  EXPECT_EQ(search.Run("a?"), "") << "the entries that were never filled stay 0";
  EXPECT_EQ(search.Run("z?"), "");
}

TEST(Scan, RandomWords) {
  const struct {
    const char* name;
    std::vector<double> fractions;
    bool palindromes;
    const char* found;
  } cases[] = {
      {"in the order drawn", {0.99, 0.25, 0.75}, false, "dad ab cod"},
      {"halves go to the even number", {0.125, 0.375, 0.875, 0.625}, false, "bob dad bob"},
      {"number 0 lists nothing", {0.0, 0.12, 0.3}, false, "ab"},
      {"a repeat of the last is dropped", {0.25, 0.26, 0.0, 0.25, 0.5, 0.25}, false, "ab bob ab"},
      {"palindromes only", {0.25, 0.5, 0.75, 0.5, 0.99}, true, "bob dad"},
      {"none asked for", {}, false, ""},
  };
  for (const auto& [name, fractions, palindromes, found] : cases) {
    SCOPED_TRACE(name);
    Search search("ab bob cod dad");
    search.random = Fractions(fractions);
    search.request.palindromes = palindromes;
    search.request.minLength = search.request.maxLength = 9;  // Speaks of other searches.
    EXPECT_EQ(search.Run("~" + std::to_string(fractions.size())), found);
    EXPECT_EQ(search.random.taken(), fractions.size());
    EXPECT_TRUE(search.steps.indices.empty());
  }
}

TEST(Scan, AListThatRefusesEntriesCutsTheScreenOnly) {
  const struct {
    const char* words;
    WordType type;
    size_t capacity;
    const char* found;
    size_t listed;
    bool truncated;
  } cases[] = {
      {"ab ac ad", WordType::WordList, 3, "ab ac ad", 3, false},
      {"ab ac ad ae", WordType::WordList, 3, "ab ac ad ae", 3, true},
      {"ab ac ac ad ad", WordType::WordList, 3, "ab ac ad", 3, false},
      // Once an entry was refused, neither repeats nor words that are no palindromes are dropped.
      {"ab ac ac ad ad ad", WordType::WordList, 1, "ab ac ac ad ad ad", 1, true},
      {"aa ab bab bad bb bb", WordType::Palindrome, 1, "aa bab bad bb bb", 1, true},
      {"aa ab bab", WordType::Palindrome, 0, "aa ab bab", 0, true},
  };
  for (const auto& [words, type, capacity, found, listed, truncated] : cases) {
    SCOPED_TRACE(words);
    Search search{std::string(words)};
    search.capacity = capacity;
    EXPECT_EQ(search.Run("*", type), found);
    EXPECT_EQ(search.outcome.listed, listed);
    EXPECT_EQ(search.outcome.truncated, truncated);
  }
}

TEST(Scan, OnlyARandomRequestKeepsTheListTruncated) {
  for (const size_t capacity : {std::numeric_limits<size_t>::max(), size_t{9}}) {
    Search search("ab ba");
    search.capacity = capacity;
    search.wasTruncated = true;
    EXPECT_EQ(search.Run("*"), "ab ba");
    EXPECT_FALSE(search.outcome.truncated);
    EXPECT_EQ(search.outcome.listed, 2u);
    search.random = Fractions({0.5, 0.5, 0.99});
    EXPECT_EQ(search.Run("~3"), "ab ab ba");
    EXPECT_TRUE(search.outcome.truncated);
    EXPECT_EQ(search.outcome.listed, 0u);
  }
}

TEST(Scan, Errors) {
  const std::string a61(61, 'a');
  const struct {
    std::string text;
    WordType type;
    const char* found;
    int number;
    const char* stage;  // Null: any.
    const char* status;
  } cases[] = {
      {"%a", WordType::WordList, "", 13, "C", "Error #13 processing word ''"},
      {"%ss>", WordType::WordList, "", 13, "C", "Error #13 processing word ''"},
      {a61, WordType::AnagramExact, "", 9, nullptr, "Error #9 processing word ''"},
      {"b=a", WordType::Anagram, "ab ba", 9, "1J", "Error #9 processing word ''"},
  };
  for (const auto& [text, type, found, number, stage, status] : cases) {
    SCOPED_TRACE(text);
    Search search("ab ba " + std::string(61, 'c'));
    EXPECT_EQ(search.Run(text, type), found);
    ASSERT_EQ(search.outcome.errors.size(), 1u);
    const ScanError& error = search.outcome.errors[0];
    EXPECT_EQ(error.error.number, number);
    EXPECT_EQ(error.stage, stage == nullptr ? error.stage : stage);
    EXPECT_EQ(ReportOf(error).statusText, status);
  }
}

// The words "a", four letters and so on: all different, all of the first block.
Words Different(int count) {
  Words words;
  for (int i = 0; i < count; ++i) {
    std::string word = "a    ";
    for (int rest = i, place = 4; place > 0; --place, rest /= 26) {
      word[static_cast<size_t>(place)] = static_cast<char>('a' + rest % 26);
    }
    words.push_back(word);
  }
  return words;
}

TEST(Scan, RepeatsAreDroppedUpToALimit) {
  for (const auto& [different, found] : {std::pair{32698, 32699}, {32699, 32702}, {32705, 32708}}) {
    for (const size_t capacity : {std::numeric_limits<size_t>::max(), size_t{40000}}) {
      SCOPED_TRACE(different);
      Words words = Different(different);
      words.insert(words.end(), 3, "azzzzz");
      Search search(Load(words));
      search.capacity = capacity;
      search.Run("a*");
      EXPECT_EQ(search.found.size(), static_cast<size_t>(found));
    }
  }
}

TEST(Scan, Progress) {
  const auto every = [](int from, int to, int step) {
    std::vector<int> indices;
    for (; from <= to; from += step) {
      indices.push_back(from);
    }
    return indices;
  };
  const auto words = [](int a, int b) {
    Words all = Different(a + b);
    for (size_t i = static_cast<size_t>(a); i < all.size(); ++i) {
      all[i][0] = 'b';
    }
    return all;
  };
  std::vector<int> vowels = every(0, 20, 2);
  vowels.insert(vowels.end(), 4, 40);
  const struct {
    const char* name;
    Words words;
    const char* text;
    std::vector<int> indices;
  } cases[] = {
      {"too few words for a step", words(19, 0), "*", {}},
      {"the whole lexicon", words(45, 0), "*", every(0, 44, 2)},
      {"the first block", words(20, 20), "a*", every(0, 20, 2)},
      {"the second block with both ends", words(20, 20), "b*", every(20, 40, 2)},
      {"a block with a border inside a step", words(21, 20), "b*", every(22, 40, 2)},
      {"an absent letter", words(20, 20), "c*", {40}},
      {"a block for each vowel", words(20, 20), "@*", vowels},
      {"words that are skipped count", words(20, 20), "ab", every(0, 20, 2)},
  };
  for (const auto& [name, lexicon, text, indices] : cases) {
    SCOPED_TRACE(name);
    Search search(Load(lexicon));
    search.Run(text);
    EXPECT_EQ(search.steps.indices, indices);
    for (size_t i = 0; i < search.steps.indices.size(); ++i) {
      EXPECT_EQ(search.steps.percentages[i], search.steps.indices[i] * 100 / static_cast<int>(lexicon.size()));
    }
  }
  // From 1,000 words on the percentage runs ahead: 1000 of 1001 words are shown as 100 %.
  Search search(Load(words(1001, 0)));
  search.Run("*");
  EXPECT_EQ(search.steps.indices, every(0, 1000, 50));
  EXPECT_EQ(search.steps.percentages[1], 4);
  EXPECT_EQ(search.steps.percentages[19], 94);
  EXPECT_EQ(search.steps.percentages[20], 100);
}

TEST(SearchTexts, OfReports) {
  EXPECT_EQ(ProgressStatus(35), "Looking up entries ... 35% complete");
  EXPECT_EQ(ProgressCaption(100), "100% of lexicon scan complete");
  const ScanReport error = ReportOf(ScanError{MakeRunTimeError(9), "word", "3J"});
  EXPECT_EQ(error.boxText,
            "Error #9 (Subscript out of range)\r\noccurred while processing the word 'word' at position '3J'");
  EXPECT_EQ(error.statusText, "Error #9 processing word 'word'");
  EXPECT_EQ(error.logCode, "ERROR-LB");
  EXPECT_EQ(error.logText, error.boxText);
  const ScanReport cut = TruncationReport(5, 12, "egg");
  EXPECT_EQ(cut.boxText,
            "Your operating system (usually Win 95, 98 or ME) cannot display all the words found.\r\n"
            "Maximum number of entries (5) displayed on the screen.\r\n"
            "However, if you save this list, all 12 words will be saved.");
  EXPECT_EQ(cut.statusText, "5 words found (screen list truncated)");
  EXPECT_EQ(cut.logCode, "LIST_O/F");
  EXPECT_EQ(cut.logText, "Max # of screen list entries reached; last word listed was 'egg'");
  EXPECT_EQ(TruncationReport(0, 1, "").statusText, "0 word found (screen list truncated)");
}

}  // namespace
}  // namespace quorvane::test
