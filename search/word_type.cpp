#include "search/word_type.h"

#include <array>

namespace quorvane {
namespace {

constexpr std::string_view kPalindromePrompt = "Please enter a word selection for a palindrome.";
constexpr std::string_view kAnagramPrompt = "Please enter an anagram selection (no wildcards).";

constexpr std::array kFacts = {
    WordTypeFacts{WordType::WordList, "word", "word", "&Words", kWordPrompt,  //
                  "rbQuorvane", "&Word List", "Regular word list", "", "menWordTypeWordList", "F9: &Word List", 9},
    WordTypeFacts{WordType::Palindrome, "palindrome", "palindrome", "Pali&ndrome", kPalindromePrompt,  //
                  "rbPalindrome", "Pali&ndrome", "Returns only palindromes", "", "menWordTypePalindrome",
                  "F10: &Palindrome", 10},
    WordTypeFacts{WordType::Anagram, "anagram", "full anagram", "&Anagrams", kAnagramPrompt,  //
                  "rbAnagram", "&Anagram", "Returns all anagrams (some or all letters)", "Anagram, all words",
                  "menWordTypeAnagram", "F11: &Anagram (All words)", 11},
    WordTypeFacts{WordType::AnagramExact, "exact", "exact-length anagram", "&Anagrams", kAnagramPrompt,  //
                  "rbAnagramExact", "Anagra&m", "Return all exact-length anagrams", "Anagram, exact length only",
                  "menWordTypeAnagramExact", "F12: Anagra&m (Exact length)", 12},
};

static_assert([] {
  for (size_t i = 0; i < kFacts.size(); ++i) {
    if (kFacts[i].type != static_cast<WordType>(i)) {
      return false;
    }
  }
  return true;
}());

}  // namespace

std::span<const WordTypeFacts> WordTypes() {
  return kFacts;
}

const WordTypeFacts& FactsOf(WordType type) {
  return kFacts[static_cast<size_t>(type)];
}

std::optional<WordType> WordTypeOfOption(std::string_view option) {
  for (const WordTypeFacts& facts : kFacts) {
    if (facts.option == option) {
      return facts.type;
    }
  }
  return std::nullopt;
}

}  // namespace quorvane
