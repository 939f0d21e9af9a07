// The scan against a plain matcher that is written from what the pattern characters mean, and shares nothing with the
// engine's.
#include <algorithm>
#include <array>
#include <vector>

#include "lexicon/lexicon.h"
#include "search/scan.h"
#include "tests/fuzz/fuzz.h"

namespace quorvane::fuzz {
namespace {

// The lexicons and patterns here hold these letters alone beyond a-z.
std::string Lower(std::string text) {
  for (char& c : text) {
    c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c == '\xC9' ? '\xE9' : c;
  }
  return text;
}

bool In(std::string_view characters, char c) {
  return characters.find(c) != std::string_view::npos;
}

constexpr std::array<std::pair<char, std::string_view>, 4> kStandFor = {
    {{'@', "aeiou"}, {'\'', "bdfhklt"}, {',', "gjpqy"}, {':', "aceimnorsuvwxz"}}};

struct Lists {
  std::string include, exclude, rack;  // In lower case.
};

// Tries one word. What a digit stands for and which tiles are left lives as long as this.
class Trial {
 public:
  explicit Trial(const Lists& lists) : lists_(lists), tiles_(lists.rack) {}

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

  const Lists& lists_;
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
bool Matches(const std::string& word, const std::string& typed, WordType type, const Lists& lists) {
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

bool IsRefused(const std::string& typed, WordType type) {
  if (In("%;", typed[0])) {
    return false;
  }
  const auto asterisks = std::count(typed.begin(), typed.end(), '*');
  const bool anagram = type == WordType::Anagram || type == WordType::AnagramExact;
  return asterisks > 2 || (asterisks == 2 && typed.size() < 3) ||
         (anagram && typed.find_first_of("*?-$@123#!',:") != std::string::npos);
}

// Words in the order of their initials, each line one.
std::vector<std::string> Words(FuzzedDataProvider& data) {
  std::vector<std::string> words;
  while (data.remaining_bytes() > 0 && words.size() < 300) {
    std::string word = TextOf(data, "abcdegiklnostyzABEZ", 1);
    word += TextOf(data, "aabcdeegiklnorstuyzABEZ'-~1?@!\xE9\xC9", 12);
    if (word.empty()) {
      continue;
    }
    if (data.ConsumeIntegralInRange(0, 15) == 0) {
      word += std::string(data.ConsumeIntegralInRange<size_t>(10, 76), word.back());
    }
    if (!In("'-~1?@!\xE9\xC9", word[0])) {
      words.push_back(word);
    }
  }
  std::stable_sort(words.begin(), words.end(),
                   [](const std::string& a, const std::string& b) { return Lower(a)[0] < Lower(b)[0]; });
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

class NoRandom : public RandomSource {
 public:
  double NextFraction() override { return 0; }
};

std::vector<WordNumber> Plain(const std::vector<std::string>& words, const std::string& typed, WordType type,
                              const ScanRequest& request) {
  const Lists lists{Lower(request.lists.include), Lower(request.lists.exclude), Lower(request.lists.scrabble)};
  std::vector<WordNumber> found;
  for (size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    const int length = static_cast<int>(word.size());
    const bool repeat = !found.empty() && words[found.back() - 1] == word;
    const bool mirrored = !request.palindromes || std::equal(word.begin(), word.end(), word.rbegin());
    if (length >= request.minLength && length <= request.maxLength && !repeat && mirrored &&
        Matches(Lower(word), Lower(typed), type, lists)) {
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
  const WordType type =
      data.PickValueInArray({WordType::WordList, WordType::Palindrome, WordType::Anagram, WordType::AnagramExact});
  const std::string typed = Typed(data);
  ScanRequest request;
  request.lists = {TextOf(data, "aeGlnRst", 5), TextOf(data, "aegLnrst", 5), TextOf(data, "aegBlNrst?-", 8)};
  request.palindromes = type == WordType::Palindrome;
  if (data.ConsumeBool()) {
    request.minLength = data.ConsumeIntegralInRange(1, 12);
    request.maxLength = request.minLength + data.ConsumeIntegralInRange(0, 20);
  }
  const std::vector<std::string> words = Words(data);
  // An anagram of letters behind a "=" looks at the words with the rack's initials alone, which is told elsewhere.
  if (typed.empty() || words.empty() || (IsAnagram(type) && typed[0] == '=')) {
    return 0;
  }
  request.prepared = PreparePattern(typed, type);
  Demand(request.prepared.refusal.has_value() == IsRefused(typed, type), "refused: " + typed);
  if (request.prepared.refusal) {
    return 0;
  }
  std::string text;
  for (const std::string& word : words) {
    text += word + "\n";
  }
  const MemoryFile file(text);
  const LoadResult loaded = LoadLexicon(file.Path());
  Demand(loaded.Usable(), "the lexicon");
  NoRandom random;
  FoundNumbers found;
  PerformScan(*loaded.lexicon, request, found, random);
  const std::vector<WordNumber> fast(found.Span().begin(), found.Span().end());
  Demand(fast == Plain(words, typed, type, request), "found with " + typed + ", " + request.lists.include + "/" +
                                                         request.lists.exclude + "/" + request.lists.scrabble +
                                                         " in\n" + text);
  return 0;
}
