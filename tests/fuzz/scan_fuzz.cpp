// The scan against a plain matcher that is written from what the pattern characters mean, and shares nothing with the
// engine's.
#include <algorithm>
#include <array>
#include <vector>

#include "base/text.h"
#include "lexicon/lexicon.h"
#include "search/scan.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::fuzz {
namespace {

bool In(std::string_view characters, char c) {
  return characters.find(c) != std::string_view::npos;
}

constexpr std::array<std::pair<char, std::string_view>, 4> kStandFor = {
    {{'@', "aeiou"}, {'\'', "bdfhklt"}, {',', "gjpqy"}, {':', "aceimnorsuvwxz"}}};

// Tries one word. What a digit stands for and which tiles are left lives as long as this.
class Trial {
 public:
  explicit Trial(const CharacterLists& lists) : lists_(lists), tiles_(lists.scrabble) {}

  bool Fits(char p, char c) {
    for (const auto& [wildcard, letters] : kStandFor) {
      if (p == wildcard && In(letters, c)) {
        return true;
      }
    }
    if (p >= '1' && p <= '3') {
      char& bound = digits[static_cast<size_t>(p - '1')];
      bound = bound == '\0' ? c : bound;
      return bound == c || p == c;
    }
    return p == c || In("?-", p) || (p == '$' && !In("aeiou", c)) || (p == '#' && In(lists_.include, c)) ||
           (p == '!' && c != '~' && !In(lists_.exclude, c)) || (p == '=' && TakeTile(c));
  }

  // Every character is tried, also behind one that does not fit.
  bool All(std::string_view pattern, std::string_view text) {
    bool fit = true;
    for (size_t i = 0; i < pattern.size(); ++i) {
      fit = Fits(pattern[i], text[i]) && fit;
    }
    return fit;
  }

  // Somewhere in the text, from the left; each place begins with the digits as they are now, but with the tiles left.
  bool Somewhere(std::string_view pattern, std::string_view text) {
    const auto before = digits;
    for (size_t at = 0; at + pattern.size() <= text.size(); ++at) {
      digits = before;
      size_t i = 0;
      while (i < pattern.size() && Fits(pattern[i], text[at + i])) {
        ++i;
      }
      if (i == pattern.size()) {
        return true;
      }
    }
    return false;
  }

  std::array<char, 3> digits{};

 private:
  bool TakeTile(char c) {
    for (const char tile : {c, '-', '?'}) {
      if (const size_t at = tiles_.find(tile); at != std::string::npos) {
        tiles_.erase(at, 1);
        return true;
      }
    }
    return false;
  }

  const CharacterLists& lists_;
  std::string tiles_;
};

bool HasLetters(std::string word, std::string_view letters, bool anyOrder) {
  size_t from = 0;
  for (const char c : letters) {
    const size_t at = word.find(c, anyOrder ? 0 : from);
    if (at == std::string::npos) {
      return false;
    }
    word[at] = '*';
    from = at;
  }
  return true;
}

bool MatchesSequence(const std::string& word, std::string sequence) {
  const int times = sequence[1] - '0';
  const bool orMore = sequence.back() == '>';
  sequence = sequence.substr(2, sequence.size() - 2 - (orMore ? 1 : 0));
  int count = 0;
  for (size_t at = word.find(sequence); at != std::string::npos; at = word.find(sequence, at + 1)) {
    ++count;
  }
  return count == times || (orMore && count > times);
}

// `typed` is in lower case.
bool Matches(const std::string& word, const std::string& typed, WordType type, const CharacterLists& lists) {
  if (typed[0] == '%') {
    return MatchesSequence(word, typed);
  }
  if (typed[0] == ';') {
    const bool anyOrder = typed.back() == '~';
    return HasLetters(word, std::string_view(typed).substr(1, typed.size() - 1 - (anyOrder ? 1 : 0)), anyOrder);
  }
  if (type == WordType::Anagram || type == WordType::AnagramExact) {
    return (type == WordType::Anagram || word.size() == typed.size()) && HasLetters(typed, word, true);
  }
  Trial trial(lists);
  const size_t first = typed.find('*');
  if (first == std::string::npos) {
    return word.size() == typed.size() && trial.All(typed, word);
  }
  const size_t last = typed.rfind('*');
  const size_t behind = typed.size() - last - 1;
  const size_t between = last == first ? 0 : last - first - 1;
  if (word.size() < first + between + behind) {
    return false;
  }
  const bool front = trial.All(std::string_view(typed).substr(0, first), word);
  const bool back =
      trial.All(std::string_view(typed).substr(last + 1), std::string_view(word).substr(word.size() - behind));
  return front && back &&
         (last == first || trial.Somewhere(std::string_view(typed).substr(first + 1, between),
                                           std::string_view(word).substr(first, word.size() - first - behind)));
}

// Words in the order of their initials, each line one.
std::vector<std::string> Words(FuzzedDataProvider& data) {
  std::vector<std::string> words;
  while (data.remaining_bytes() > 0 && words.size() < 300) {
    std::string word(1, data.PickValueInArray({'a', 'b', 'c', 'e', 'g', 'l', 'n', 's', 'z', 'A', 'B', 'Z'}));
    word += TextOf(data, "aabcdeegiklnorstuyzABEZ'-~1?@!\xE9\xC9", 12);
    word += std::string(data.ConsumeBool() ? data.ConsumeIntegralInRange<size_t>(0, 76) : 0, word.back());
    words.push_back(word);
  }
  std::stable_sort(words.begin(), words.end(),
                   [](const std::string& a, const std::string& b) { return FoldText(a)[0] < FoldText(b)[0]; });
  return words;
}

std::string Typed(FuzzedDataProvider& data) {
  switch (data.ConsumeIntegralInRange(0, 7)) {
    case 0:
      return "%" + std::to_string(data.ConsumeIntegralInRange(1, 3)) + TextOf(data, "abest", 1) + "a" +
             TextOf(data, "abest", 3) + (data.ConsumeBool() ? ">" : "");
    case 1:
      return ";" + TextOf(data, "abestlno", 5) + "e" + (data.ConsumeBool() ? "~" : "");
    case 2:
      return TextOf(data, "aabegilnosty", 60);
    default:
      return TextOf(data, "aAbdegilnosty\xE9**?-@$',:#!=123", 10);
  }
}

struct NoRandom : RandomSource {
  double NextFraction() override { return 0; }
};

std::vector<WordNumber> Plain(const std::vector<std::string>& words, const std::string& typed, WordType type,
                              const ScanRequest& request) {
  const CharacterLists lists{FoldText(request.lists.include), FoldText(request.lists.exclude),
                             FoldText(request.lists.scrabble)};
  std::vector<WordNumber> found;
  for (size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    const int length = static_cast<int>(word.size());
    const bool repeat = !found.empty() && words[found.back() - 1] == word;
    const bool mirrored = !request.palindromes || std::equal(word.begin(), word.end(), word.rbegin());
    if (length >= request.minLength && length <= request.maxLength && !repeat && mirrored &&
        Matches(FoldText(word), FoldText(typed), type, lists)) {
      found.push_back(static_cast<WordNumber>(i + 1));
    }
  }
  return found;
}

}  // namespace
}  // namespace quorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  using namespace quorvane;
  using namespace quorvane::fuzz;
  FuzzedDataProvider data(bytes, size);
  const WordType type = static_cast<WordType>(data.ConsumeIntegralInRange(0, 3));
  const std::string typed = Typed(data);
  ScanRequest request;
  request.lists = {TextOf(data, "aeGlnRst", 5), TextOf(data, "aegLnrst", 5), TextOf(data, "aegBlNrst?-", 8)};
  request.palindromes = type == WordType::Palindrome;
  if (data.ConsumeBool()) {
    request.minLength = data.ConsumeIntegralInRange(1, 12);
    request.maxLength = request.minLength + data.ConsumeIntegralInRange(0, 20);
  }
  const std::vector<std::string> words = Words(data);
  request.prepared = PreparePattern(typed, type);
  // An anagram of letters behind a "=" looks at the words with the rack's initials alone, which is told elsewhere.
  if (typed.empty() || words.empty() || request.prepared.refusal || (IsAnagram(type) && typed[0] == '=')) {
    return 0;
  }
  const std::string text = test::Lines(words);
  const MemoryFile file(text);
  const LoadResult loaded = LoadLexicon(file.Path());
  Demand(loaded.Usable(), "the lexicon");
  NoRandom random;
  FoundNumbers found;
  PerformScan(*loaded.lexicon, request, found, random);
  const std::vector<WordNumber> fast(found.Span().begin(), found.Span().end());
  Demand(fast == Plain(words, typed, type, request), "found with " + typed + " in\n" + text);
  return 0;
}
