// The fast scan against the plain one, over random lexicons, patterns, lists and settings.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>

#include "base/text.h"
#include "tests/search/plain_scan.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {
namespace {

class Generator {
 public:
  explicit Generator(unsigned seed) : engine_(seed) {}

  int Below(int limit) { return static_cast<int>(engine_() % static_cast<unsigned>(limit)); }
  bool OneIn(int chance) { return Below(chance) == 0; }
  char Of(std::string_view characters) {
    return characters[static_cast<size_t>(Below(static_cast<int>(characters.size())))];
  }

  std::string Letters(int length, std::string_view alphabet) {
    std::string text;
    for (int i = 0; i < length; ++i) {
      text += Of(alphabet);
    }
    return text;
  }

  // A word over few letters, so that patterns hit; now and then odd, long or mirrored.
  std::string Word() {
    const std::string_view alphabet = OneIn(3) ? "abcdefghijklmnopqrstuvwxyz" : "aeglnrst";
    int length = 1 + Below(9);
    if (OneIn(12)) {
      length = 10 + Below(81);
    }
    std::string word = Letters(length, alphabet);
    if (OneIn(6)) {
      std::copy(word.begin(), word.begin() + length / 2, word.rbegin());
    }
    if (OneIn(5)) {
      word[static_cast<size_t>(Below(length))] = Of("ABEGSTZ'-*?#=!@$123~&.\xE9\xC9\xD7");
    }
    // A lexicon has at most 26 different initials; five of them are no letters.
    if (std::string_view("ABCEGIKLMNOPRSTUWYZ").find(Upper(word[0])) == std::string_view::npos) {
      word[0] = Of("aBceg[\\]^_");
    }
    return word;
  }

  std::vector<std::string> Words(bool large) {
    std::vector<std::string> words(static_cast<size_t>(large ? 70'000 : 1 + Below(OneIn(4) ? 1500 : 150)));
    for (std::string& word : words) {
      word = Word();
    }
    // The initials "[" to "_" lie behind Z in upper case and in front of A in lower case.
    const auto key = OneIn(2) ? FoldText : UpperText;
    std::sort(words.begin(), words.end(), [key](const std::string& a, const std::string& b) {
      return key(a) < key(b) || (key(a) == key(b) && a < b);
    });
    if (OneIn(3)) {  // Repeats, also of words at the ends of their blocks.
      for (int i = 0; i < 10; ++i) {
        const auto at = static_cast<size_t>(Below(static_cast<int>(words.size())));
        const std::string copy = words[at];
        words.insert(words.begin() + static_cast<std::ptrdiff_t>(at), copy);
      }
    }
    return words;
  }

  std::string PlainText(const std::vector<std::string>& words) {
    // Half of the time a word of the lexicon with some characters made wildcards.
    std::string text = OneIn(2) ? Letters(1 + Below(7), "aeglnrst?-@$',:#!=123")
                                : FoldText(words[static_cast<size_t>(Below(static_cast<int>(words.size())))]);
    for (char& c : text) {
      if (OneIn(4)) {
        c = Of("?@$',:#!=123?a");
      }
    }
    for (int i = Below(3); i > 0; --i) {
      const auto from = static_cast<size_t>(Below(static_cast<int>(text.size()) + 1));
      const auto gone = std::min(text.size() - from, static_cast<size_t>(Below(4)));
      text.replace(from, gone, "*");
    }
    return text;
  }

  std::string Text(const std::vector<std::string>& words) {
    switch (Below(8)) {
      case 0:
        return "%" + std::to_string(1 + Below(3)) + Letters(1 + Below(3), "aegst") + (OneIn(2) ? ">" : "");
      case 1:
        return ";" + Letters(1 + Below(4), "aeglnrst") + (OneIn(2) ? "~" : "");
      case 2:
        return "*" + Letters(1 + Below(3), "aeglnrst?@$'1212=") + "*";
      default:
        return PlainText(words);
    }
  }

  Condition AnyCondition(const std::vector<std::string>& words) {
    switch (Below(5)) {
      case 0:
        return {ConditionKind::With, Letters(1 + Below(3), "aeGlnrst")};
      case 1:
        return {ConditionKind::Without, Letters(1 + Below(2), "aeglNrst")};
      case 2:
        return {ConditionKind::From, Letters(1 + Below(12), "aeglnRst?-")};
      default:
        return {OneIn(2) ? ConditionKind::And : ConditionKind::Not,
                OneIn(3) ? "*" + Letters(1, "aelst") + "*" : Text(words)};
    }
  }

 private:
  std::mt19937 engine_;
};

// What a condition asks, of one word in lower case and without the scan's help.
bool Meets(const std::string& word, const Condition& condition, const CharacterLists& lists) {
  const std::string text = FoldText(condition.text);
  const auto in = [](const std::string& where, char c) { return std::count(where.begin(), where.end(), c); };
  std::ptrdiff_t missing = 0;
  switch (condition.kind) {
    case ConditionKind::With:
      return std::all_of(text.begin(), text.end(), [&](char c) { return in(word, c) >= in(text, c); });
    case ConditionKind::Without:
      return word.find_first_of(text) == std::string::npos;
    case ConditionKind::From:
      for (const char c : std::set<char>(word.begin(), word.end())) {
        missing += std::max<std::ptrdiff_t>(0, in(word, c) - (IsLetter(c) ? in(text, c) : 0));
      }
      return missing <= in(text, '?') + in(text, '-');
    default:
      ScanRequest request;
      request.prepared = PreparePattern(condition.text, WordType::WordList);
      request.lists = lists;
      return PlainFits(request, word) == (condition.kind == ConditionKind::And);
  }
}

int Cases() {
  const char* asked = std::getenv("QUORVANE_SCAN_CASES");
  return asked == nullptr ? 20000 : std::atoi(asked);
}

class Percentages : public ScanObserver {
 public:
  void Progress(int, int percent) override { seen.push_back(percent); }
  std::vector<int> seen;
};

class NoRandom : public RandomSource {
 public:
  double NextFraction() override { return 0; }
};

TEST(RandomScan, AgreesWithThePlainScan) {
  const TemporaryDirectory directory;
  Generator generator(20260507);
  NoRandom random;
  FoundNumbers found;
  int64_t matches = 0;
  const int cases = Cases();
  for (int done = 0; done < cases;) {
    // One lexicon of more than a chunk, for few patterns, since the plain scan takes its time.
    const bool large = done == 0;
    const std::vector<std::string> words = generator.Words(large);
    const std::string lines = Lines(words, generator.OneIn(3) ? "\n" : "\r\n");
    const size_t cut = generator.OneIn(3) ? 1 : 0;  // The last line needs no end.
    const LoadResult loaded = LoadLexicon(directory.Write("words.lex", lines.substr(0, lines.size() - cut)));
    ASSERT_TRUE(loaded.Usable()) << loaded.lastWord << " " << loaded.count;
    for (int i = large ? 60 : 0; i < 100; ++i, ++done) {
      ScanRequest request;
      std::string text = large && i == 60 ? "*" : generator.Text(words);  // All, past the last that may be a repeat.
      WordType type = WordType::WordList;
      if (generator.OneIn(6)) {
        type = generator.OneIn(2) ? WordType::Anagram : WordType::AnagramExact;
        text = generator.OneIn(2) ? generator.Letters(1 + generator.Below(10), "aeglnrst") : text;
      }
      request.lists = {generator.Letters(generator.Below(5), "aeGlnRst"),
                       generator.Letters(generator.Below(5), "aegLnrst"),
                       generator.Letters(generator.Below(8), "aeglNrst?-")};
      request.prepared = PreparePattern(text, type);
      if (request.prepared.refusal || request.prepared.randomCount) {
        continue;
      }
      request.palindromes = generator.OneIn(6);
      request.vectors = static_cast<VectorWidth>(generator.Below(static_cast<int>(WidestVectors()) + 1));
      if (generator.OneIn(4)) {
        request.minLength = 1 + generator.Below(8);
        request.maxLength = request.minLength + generator.Below(8);
      }
      Search asked{.lists = request.lists};
      for (int more = generator.OneIn(2) ? 0 : 1 + generator.Below(4); more > 0; --more) {
        asked.conditions.push_back(generator.AnyCondition(words));
      }
      const PreparedConditions conditions = PrepareConditions(asked);
      if (conditions.refusal) {
        continue;
      }
      request.conditions = conditions.all;
      const auto meetsAll = [&asked](const std::string& word) {
        return std::all_of(asked.conditions.begin(), asked.conditions.end(),
                           [&](const Condition& condition) { return Meets(word, condition, asked.lists); });
      };
      const size_t capacity = generator.OneIn(10) ? static_cast<size_t>(generator.Below(12)) : static_cast<size_t>(-1);
      const PlainResult plain = PlainScan(*loaded.lexicon, request, capacity, meetsAll);
      Percentages percentages;
      const ScanOutcome outcome = PerformScan(*loaded.lexicon, request, found, random, &percentages, capacity);
      const std::vector<WordNumber> fast(found.Span().begin(), found.Span().end());
      const bool tooLong = request.prepared.kind == PatternKind::AnagramExact && text.size() > 60;
      if (tooLong) {
        ASSERT_EQ(outcome.errors.size(), 1u);
        continue;
      }
      std::vector<std::string> said;
      std::transform(asked.conditions.begin(), asked.conditions.end(), std::back_inserter(said), ConditionText);
      ASSERT_EQ(fast, plain.found) << "pattern " << text << " kind " << static_cast<int>(request.prepared.kind)
                                   << " rack " << request.lists.scrabble << " include " << request.lists.include
                                   << " exclude " << request.lists.exclude << " conditions "
                                   << testing::PrintToString(said);
      ASSERT_EQ(outcome.truncated, plain.truncated) << text;
      ASSERT_EQ(outcome.listed, plain.listed) << text;
      ASSERT_EQ(percentages.seen, plain.progress) << text;
      matches += static_cast<int64_t>(fast.size());
    }
  }
  // The cases would prove nothing if next to none of them found anything.
  EXPECT_GT(matches, cases);
}

}  // namespace
}  // namespace quorvane::test
