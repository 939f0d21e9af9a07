#include "search/word_type.h"

namespace quorvane {
namespace {

constexpr std::string_view kWordPrompt = "Please enter a word selection.";
constexpr std::string_view kPalindromePrompt = "Please enter a word selection for a palindrome.";
constexpr std::string_view kAnagramPrompt = "Please enter an anagram selection (no wildcards).";

constexpr std::array kFacts = {
    WordTypeFacts{WordType::WordList, "word", "word", "&Words", kWordPrompt},
    WordTypeFacts{WordType::Palindrome, "palindrome", "palindrome", "Pali&ndrome", kPalindromePrompt},
    WordTypeFacts{WordType::Anagram, "anagram", "full anagram", "&Anagrams", kAnagramPrompt},
    WordTypeFacts{WordType::AnagramExact, "exact", "exact-length anagram", "&Anagrams", kAnagramPrompt},
};

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
