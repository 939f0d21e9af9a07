// The preparation of a typed text, the sets made of it, and the matcher's operations.

#include <gtest/gtest.h>

#include "search/match.h"
#include "search/pattern.h"

namespace quorvane::test {
namespace {

constexpr const char* kOneAsterisk =
    "The input word may have just one asterisk, or must be in the format '*xxx*', where xxx is the string lo look for "
    "within a word.";
constexpr const char* kAnagramsOnly =
    "When using the Anagram option, you can input only alphabetic characters; no wildcards are allowed.";

TEST(Pattern, Preparation) {
  const WordType word = WordType::WordList;
  const WordType anagram = WordType::Anagram;
  const WordType exact = WordType::AnagramExact;
  const struct {
    const char* text;
    WordType type;
    const char* pattern;  // Of no meaning where the text is refused, as the kind.
    int kind;
    const char* box = "";
    const char* status = "";
    int randomCount = -1;
  } cases[] = {
      {"A-b?", word, "a?b?", 0},
      {"@$'123#!,:=", word, "@$'123#!,:=", 0},
      {"*ing", word, "*ing", 1},
      {"-*?", word, "?*?", 1},
      {"*ell*", word, "*ell*", 2},
      {"*c*t", word, "*c*t", 8},
      {"a*b*c", word, "a*b*c", 8},
      {"**a", word, "**a", 8},
      {"**", word, "", 0, kOneAsterisk, "Please enter a word selection."},
      {"*a*b*", word, "", 0, kOneAsterisk, "Please enter a word selection."},
      {"Listen", exact, "listen", 10},
      {"a=b", exact, "a=b", 10},
      {"list?n", anagram, "", 0, kAnagramsOnly, "Please enter an anagram selection."},
      {"a*", exact, "", 0, kAnagramsOnly, "Please enter an anagram selection."},
      {"*a*b*", anagram, "", 0, kOneAsterisk, "Please enter a word selection."},
      {"%2SS>", word, "%2ss>", 11},
      {";PNT~", word, ";pnt~", 13},
      {"~12", word, "~12", 0, "", "", 12},
      {"~", word, "~", 0, "", "", 1},
      {"~0012", word, "~0012", 0, "", "", 12},
      {"\xC9t\xC9", word, "\xE9t\xE9", 0},
  };
  for (const auto& [text, type, pattern, kind, box, status, randomCount] : cases) {
    SCOPED_TRACE(text);
    const PreparedPattern prepared = PreparePattern(text, type);
    if (*box != '\0') {
      ASSERT_TRUE(prepared.refusal);
      EXPECT_EQ(prepared.refusal->boxText, box);
      EXPECT_EQ(prepared.refusal->statusText, status);
      continue;
    }
    EXPECT_FALSE(prepared.refusal);
    EXPECT_EQ(prepared.text, pattern);
    EXPECT_EQ(static_cast<int>(prepared.kind), kind);
    EXPECT_EQ(prepared.randomCount.value_or(-1), randomCount);
  }
}

TEST(Pattern, SortedLists) {
  const struct {
    std::string text;
    const char* sorted;
  } cases[] = {{"banana", "abn"},
               {"[banana]", "abn"},
               {"[]", ""},
               {"", ""},
               {"[a?-b]", "-?ab"},
               {"tea", "aet"},
               {"aAbB", "ABab"},
               {"a=b", "=ab"},
               {"[b", "[b"},
               {"[", "["},
               {std::string(60, 'z') + "a", "z"},
               {"[" + std::string(59, 'z') + "ab]", "az"}};
  for (const auto& [text, sorted] : cases) {
    EXPECT_EQ(SortList(text), sorted) << text;
  }
}

TEST(Pattern, FirstLetters) {
  const CharacterLists lists{"qaZ", "xyz", "tEa"};
  const CharacterLists blank{"", "", "c?b"};
  const CharacterLists dash{"m", "", "c-b"};
  const CharacterLists none;
  const WordType word = WordType::WordList;
  const struct {
    const char* text;
    WordType type;
    const CharacterLists& lists;
    const char* letters;
  } cases[] = {{"c?t", word, none, "C"},
               {"*ing", word, none, "&"},
               {"-at", word, none, "&"},
               {"1221", word, none, "&"},
               {"!at", word, lists, "&"},
               {"\xE9t", word, none, "&"},
               {"@b", word, none, "AEIOU"},
               {"$b", word, none, "BCDFGHJKLMNPQRSTVWXYZ"},
               {"'b", word, none, "BDFHKLT"},
               {"#b", word, lists, "AQZ"},
               {"#b", word, none, ""},
               {"#b", word, dash, "M"},
               {"=b", word, lists, "AET"},
               {"=b", word, none, ""},
               {"=b", word, blank, "&"},
               {"=b", word, dash, "&"},
               {"tease", WordType::Anagram, none, "AEST"},
               {"a=b", WordType::Anagram, lists, "=AB"},
               {";ab", WordType::Anagram, none, "&"}};
  for (const auto& [text, type, charLists, letters] : cases) {
    const PreparedPattern prepared = PreparePattern(text, type);
    const Initials initials = FirstLetters(prepared, charLists);
    EXPECT_EQ(initials.wholeLexicon ? "&" : initials.letters, letters) << text;
  }
}

bool Matches(std::string_view pattern, std::string_view word, const CharacterLists& lists) {
  Matcher matcher(lists);
  EXPECT_EQ(pattern.size(), word.size());
  for (size_t i = 0; i < pattern.size(); ++i) {
    matcher.MatchChar(pattern[i], word[i]);
  }
  return matcher.MatchFlag();
}

TEST(Matcher, OneCharacterClasses) {
  const CharacterLists lists{"aQ", "xY", ""};
  const CharacterLists none;
  const struct {
    char pattern;
    const CharacterLists& lists;
    std::string matched;  // Of all 256 characters...
    bool inverted;        // ...or all but these.
  } cases[] = {
      {'a', none, "a", false},      {'z', none, "z", false},
      {'?', none, "", true},        {'@', none, "aeiou@", false},
      {'$', none, "aeiou", true},   {'\'', none, "bdfhklt'", false},
      {',', none, "gjpqy,", false}, {':', none, "aceimnorsuvwxz:", false},
      {'#', lists, "aq#", false},   {'#', none, "#", false},
      {'!', lists, "xy~", true},    {'!', none, "~", true},
      {'1', none, "", true},        {'=', none, "=", false},
      {'*', none, "*", false},
  };
  for (const auto& [pattern, charLists, matched, inverted] : cases) {
    for (int code = 0; code < 256; ++code) {
      const char c = static_cast<char>(code);
      const bool named = matched.find(c) != std::string::npos;
      EXPECT_EQ(Matches({&pattern, 1}, {&c, 1}, charLists), named != inverted) << pattern << " against " << code;
    }
  }
}

TEST(Matcher, DigitsAndTiles) {
  const struct {
    const char *pattern, *word, *rack;
    bool matches;
  } cases[] = {
      {"1221", "abba", "", true},
      {"1221", "abca", "", false},
      {"1a1", "bab", "", true},
      {"1a1", "aab", "", false},
      {"11", "a1", "", true} /* a digit also stands for itself */,
      {"===", "abc", "ab?", true},
      {"===", "cab", "ab-", true},
      {"====", "abcd", "ab?", false},
      {"==", "aa", "ab", false},
      {"===", "xyz", "-?-", true},
      {"==", "ax", "a?", true},
      {"==", "xa", "a?", true},
      {"==", "-a", "a-", true},
      {"==", "==", "", true} /* a tile sign matches itself and takes none */,
      {"==", "a[", "a", false},
  };
  for (const auto& [pattern, word, rack, matches] : cases) {
    EXPECT_EQ(Matches(pattern, word, {"", "", rack}), matches) << pattern << " " << word << " " << rack;
  }
}

}  // namespace
}  // namespace quorvane::test
