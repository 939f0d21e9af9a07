// The check of the typed text: typed key by key, pasted, and checked again.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string_view>

#include "base/text.h"
#include "search/input_check.h"

namespace quorvane::test {
namespace {

enum class How { Typed, Pasted };
constexpr How kTyped = How::Typed;
constexpr How kPasted = How::Pasted;
constexpr WordType kWord = WordType::WordList;
constexpr WordType kPalindrome = WordType::Palindrome;
constexpr WordType kAnagram = WordType::Anagram;
constexpr WordType kExact = WordType::AnagramExact;

// Status texts that stand in many rows.
constexpr const char* kRandomHelp = "'~' allows display of random words - specify a number [default 1]";
constexpr const char* kNumberHelp = "'%' allows selection on sequences - enter a number";
constexpr const char* kLettersHelp = "Enter up to 8 letters, followed by an optional '>'";
constexpr const char* kMoreThan2 = "Add more letters or an optional '>' (specifies 2 or more)";
constexpr const char* kChoiceHelp = "';' allows selection of letter(s) in a word";
constexpr const char* kInOrder = "Letters will be found in order typed unless you add '~' at the end";
constexpr const char* kAnyOrder = "Letters will be searched in any order";
constexpr const char* kThirdAsterisk = "A maximum of two asterisks may be entered";
constexpr const char* kAdjacent = "Can't enter two asterisks next to each other";
constexpr const char* kNoTiles = "There are no characters defined in the 'Scrabble' string";
constexpr const char* kCancelled = "Anagram option cancelled due to wildcard input; enter word selection";

// A pattern box with its controls, as a person sees them.
struct Box {
  InputQuestion state;
  int kind = 0;
  CharacterLists lists;
  std::string status;
  int beeps = 0;
  std::vector<std::string> logTexts;

  Box(WordType type, CharacterLists characterLists) : lists(std::move(characterLists)) {
    SelectWordType(state.controls, type);
  }

  void Change(const std::string& text, size_t caret) {
    state.text = text;
    state.caret = caret;
    const InputAnswer answer = CheckInput(state, lists);
    EXPECT_FALSE(answer.error);
    state = {answer.text, answer.caret, answer.controls};
    kind = answer.kind;
    status = answer.statusTexts.empty() ? status : answer.LastStatus();
    beeps += answer.beeps;
    logTexts.insert(logTexts.end(), answer.logTexts.begin(), answer.logTexts.end());
  }

  void Enter(How how, const std::string& text) {
    if (how == kPasted) {
      Change(text, text.size());
      return;
    }
    for (const char c : text) {
      std::string typed = state.text;
      typed.insert(state.caret, 1, c);
      Change(typed, state.caret + 1);
    }
  }

  // What may be used: search, anagrams, palindrome, save as lexicon.
  std::string Allowed() const {
    const InputControls& controls = state.controls;
    return std::string() + (controls.canSearch ? 'S' : '-') + (controls.anagrams ? 'A' : '-') +
           (controls.palindrome ? 'P' : '-') + (controls.saveAsLexicon ? 'L' : '-');
  }
};

struct Case {
  How how;
  const char *input, *text, *letters, *status;
  const char* allowed = "SAPL";  // Search, anagrams, palindrome, save as lexicon.
  int beeps = 0;
  WordType type = kWord;
  WordType selected = kWord;
  const char* rack = "";
};

void Try(const Case& row, int kind, std::string_view noun) {
  SCOPED_TRACE(std::string(row.how == kTyped ? "typed " : "pasted ") + row.input);
  Box box(row.type, {"aBc", "", row.rack});
  box.Enter(row.how, row.input);
  EXPECT_EQ(box.state.text, row.text);
  EXPECT_EQ(box.state.controls.letters, row.letters);
  EXPECT_EQ(box.status, row.status);
  EXPECT_EQ(box.kind, kind);
  EXPECT_EQ(box.Allowed(), row.allowed);
  EXPECT_EQ(box.beeps, row.beeps);
  EXPECT_EQ(box.state.controls.noun, noun);
  EXPECT_EQ(box.state.controls.selected, row.selected);
}

TEST(InputCheck, PlainPatterns) {
  const Case cases[] = {
      {kTyped, "", "", "", ""},
      {kTyped, "a", "a", "(1 letter)", ""},
      {kTyped, "aBc", "aBc", "(3 letters)", ""},
      {kTyped, "*", "*", "(min. 0 letters)", "'*' stands for zero or more characters", "S-PL"},
      {kTyped, "a?", "a?", "(2 letters)", "'?' stands for any character", "S-PL"},
      {kTyped, "'", "'", "(1 letter)", "' stands for any letter with an ascender [bdfhklt]", "S-PL"},
      {kTyped, "#", "#", "(1 letter)", "'#' currently stands for including any of [abc]", "S-PL"},
      {kTyped, "!", "!", "(1 letter)", "'!' currently stands for excluding any of []", "S-PL"},
      {kTyped, "=", "=", "(1 letter)", "'=' currently stands for exactly any of [t-]", "S-PL", 0, kWord, kWord, "T-"},
      {kTyped, "a2", "a", "(1 letter)", ""},
      {kTyped, "a1b2c3", "a1b2c3", "(6 letters)", "'3' stands for any character; every '3' denotes the same character",
       "S-PL"},
      {kTyped, "a b&c\xE9.", "abc", "(3 letters)", ""},
      {kTyped, "a**", "a*", "(min. 1 letter)", kAdjacent, "S-PL", 4},
      {kTyped, "a*b*c*", "a*b*c", "(min. 3 letters)", kThirdAsterisk, "S-PL", 4},
      {kTyped, "=", "", "", kNoTiles, "SAPL", 4},
      {kTyped, "a==", "a=", "(2 letters)", "There is only 1 character defined in the 'Scrabble' string", "S-PL", 4,
       kWord, kWord, "x"},
      {kTyped, "listen", "listen", "(6 letters)", "", "SAPL", 0, kAnagram, kAnagram},
      {kTyped, "listen", "listen", "(6 letters)", "", "SAPL", 0, kExact, kExact},
      {kTyped, "li?", "li?", "(3 letters)", kCancelled, "S-PL", 4, kAnagram},
      {kTyped, "li=", "li=", "(3 letters)", kCancelled, "S-PL", 4, kExact, kWord, "ab"},
      {kTyped, "li=", "li", "(2 letters)", kNoTiles, "SAPL", 4, kExact, kExact},
      {kPasted, "", "", "", ""},
      {kPasted, "ab&c", "abc", "(3 letters)", ""},
      {kPasted, "a\r\nb", "ab", "(2 letters)", ""},
      {kPasted, "21", "21", "(2 letters)", "'1' stands for any character; every '1' denotes the same character",
       "S-PL"},
      {kPasted, "a2b3", "ab", "(2 letters)", ""},
      {kPasted, "a*b*c*d", "a*b*c", "(min. 3 letters)", kThirdAsterisk, "S-PL", 8},
      {kPasted, "a***", "a*", "(min. 1 letter)", kThirdAsterisk, "S-PL", 8},
      {kPasted, "=21", "", "", kNoTiles, "SAPL", 8},
      {kPasted, "==ab", "", "", kNoTiles, "SAPL", 16},
      {kPasted, "lis?ten", "lis?ten", "(7 letters)", kCancelled, "S-PL", 4, kAnagram},
  };
  for (const Case& row : cases) {
    const auto asterisks = std::count(row.text, row.text + std::string_view(row.text).size(), '*');
    const char* noun = row.selected == kAnagram      ? "full anagram"
                       : row.selected == kExact      ? "exact-length anagram"
                       : row.selected == kPalindrome ? "palindrome"
                                                     : "word";
    Try(row, static_cast<int>(asterisks), noun);
  }
}

TEST(InputCheck, RandomWords) {
  const Case cases[] = {
      {kTyped, "~", "~", "1 random words", kRandomHelp, "S---"},
      {kTyped, "~0", "~0", "0 random words", kRandomHelp, "S---"},
      {kTyped, "~007", "~007", "7 random words", kRandomHelp, "S---"},
      {kTyped, "~12345", "~1234", "1234 random words", kRandomHelp, "S---"},
      {kTyped, "~a", "~", "1 random words", kRandomHelp, "S---"},
      {kTyped, "~2", "~2", "2 random words", kRandomHelp, "S---", 0, kPalindrome},
      {kPasted, "~12345", "~1234", "1234 random words", kRandomHelp, "S---"},
      {kPasted, "~a1b2c3", "~12", "12 random words", kRandomHelp, "S---"},
      {kPasted, "~abcde6", "~", "1 random words", kRandomHelp, "S---"},
      {kPasted, "~~3", "~3", "3 random words", kRandomHelp, "S---", 0, kAnagram},
  };
  for (const Case& row : cases) {
    Try(row, 12, "Random word");
  }
}

TEST(InputCheck, LetterSequences) {
  const Case cases[] = {
      {kTyped, "%", "%", "", kNumberHelp, "---L"},
      {kTyped, "%0", "%", "", kNumberHelp, "---L"},
      {kTyped, "%x1", "%1", "Words with 1 count of ...", kLettersHelp, "---L"},
      {kTyped, "%1", "%1", "Words with 1 count of ...", kLettersHelp, "---L"},
      {kTyped, "%2", "%2", "Words with 2 counts of ...", kLettersHelp, "---L", 0, kPalindrome},
      {kTyped, "%1s", "%1s", "Words with 1 count of 's'", "Add more letters or an optional '>' (specifies 1 or more)",
       "S--L"},
      {kTyped, "%2sS", "%2sS", "Words with 2 counts of 'sS'", kMoreThan2, "S--L"},
      {kTyped, "%2ab>c>", "%2ab>", "Words with >=2 counts of 'ab'", kMoreThan2, "S--L"},
      {kTyped, "%2a1-b", "%2ab", "Words with 2 counts of 'ab'", kMoreThan2, "S--L"},
      {kTyped, "%2abcdefghi>", "%2abcdefgh>", "Words with >=2 counts of 'abcdefgh'", kMoreThan2, "S--L"},
      {kPasted, "%2abcdefghi>", "%2abcdefgh", "Words with 2 counts of 'abcdefgh'", kMoreThan2, "S--L"},
      {kPasted, "%2ab>c", "%2ab>", "Words with >=2 counts of 'ab'", kMoreThan2, "S--L"},
      {kPasted, "%21>", "%2", "Words with 2 counts of ...", kLettersHelp, "---L"},
      {kPasted, "%x1", "%", "", kNumberHelp, "---L"},
      {kPasted, "%%2ab", "%", "", kNumberHelp, "---L", 0, kExact},
  };
  for (const Case& row : cases) {
    Try(row, 11, "sequenced word");
  }
  Box box(kWord, {});
  box.Enter(kTyped, "%x");
  EXPECT_EQ(box.logTexts.size(), 0u);
  box.Enter(kPasted, "%x1");
  EXPECT_EQ(box.logTexts, std::vector<std::string>{"No number specified in % option: %x1"});
}

TEST(InputCheck, LetterChoices) {
  const Case cases[] = {
      {kTyped, ";", ";", "", kChoiceHelp, "-APL"},
      {kTyped, ";~", ";", "", kChoiceHelp, "-APL"},
      {kTyped, ";pNt", ";pNt", "", kInOrder},
      {kTyped, ";pnt~", ";pnt~", "", kAnyOrder},
      {kTyped, ";pn~t", ";pnt", "", kInOrder},
      {kTyped, ";a?*b", ";ab", "", kInOrder},
      {kTyped, ";ab", ";ab", "", kInOrder, "SAPL", 0, kAnagram, kAnagram},
      {kPasted, ";p~n1t~", ";pnt~", "", kAnyOrder},
      {kPasted, ";ab~~~", ";ab~", "", kAnyOrder},
      {kPasted, ";~~", ";", "", kChoiceHelp, "-APL"},
  };
  for (const Case& row : cases) {
    Try(row, 13, "letter choice");
  }
}

TEST(InputCheck, PlaceOfTheCaret) {
  const struct {
    const char* text;
    size_t caret;
    const char* kept;
    size_t keptCaret;
  } cases[] = {
      {"abc", 1, "abc", 1},      {"a&bc", 2, "abc", 1},     {"abc&", 4, "abc", 3},   {"a&b&c", 5, "abc", 3},
      {"a**b", 3, "a*b", 2},     {"a*b*c*", 6, "a*b*c", 5}, {"a=b", 2, "a", 1},      {"~1a2", 3, "~12", 2},
      {"~12345", 6, "~1234", 5}, {"%x12", 2, "%", 1},       {"%2a1b", 4, "%2ab", 3}, {";a1b", 3, ";ab", 2},
      {";ab~~", 4, ";ab~", 4},   {"%2ab", 3, "%2ab", 4},    {"a&bc&", 5, "abc", 3},  {"a2bc3", 5, "abc", 3},
      {"a**b*", 5, "a*b", 3},
  };
  for (const auto& [text, caret, kept, keptCaret] : cases) {
    SCOPED_TRACE(text);
    Box box(kWord, {});
    box.Change(text, caret);
    EXPECT_EQ(box.state.text, kept);
    EXPECT_EQ(box.state.caret, keptCaret);
  }
}

TEST(InputCheck, ACaretOutsideTheTextIsAnError) {
  const InputAnswer answer = CheckInput({"a&b", 4, {}}, {});
  ASSERT_TRUE(answer.error);
  EXPECT_EQ(answer.error->number, 5);
  EXPECT_EQ(answer.error->description, "Invalid procedure call");
  EXPECT_EQ(answer.text, "a&b") << "the box keeps what it holds";
}

bool Only(std::string_view text, std::string_view characters) {
  return text.find_first_not_of(characters) == std::string_view::npos;
}

// Whether a text is one that the check may leave: the rules of each mode, written down once more.
bool IsClean(std::string_view text, size_t tiles) {
  constexpr std::string_view kDigits = "0123456789";
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  const char mode = text.empty() ? '\0' : text[0];
  if (mode == '~') {
    return text.size() <= 5 && Only(text.substr(1), kDigits);
  }
  if (mode == '%' || mode == ';') {
    const size_t head = mode == '%' ? 2 : 1;
    if (mode == '%' && text.size() > 1 && !Only(text.substr(1, 1), "123456789")) {
      return false;
    }
    std::string_view letters = text.substr(std::min(head, text.size()));
    if (letters.size() > 1 && letters.back() == (mode == '%' ? '>' : '~')) {
      letters.remove_suffix(1);
    }
    return Only(letters, kLetters) && (mode == ';' || letters.size() <= 8);
  }
  const auto holds = [text](const char* part) { return text.find(part) != std::string_view::npos; };
  const auto count = [text](char c) { return static_cast<size_t>(std::count(text.begin(), text.end(), c)); };
  return Only(text, std::string(kLetters) + "*?-@$',:#!=123") && count('*') <= 2 && count('=') <= tiles &&
         !holds("**") && (!holds("2") || holds("1")) && (!holds("3") || holds("2"));
}

// Whatever is entered, the text that stays follows the rules of its mode, and a check of it changes nothing.
TEST(InputCheck, ACleanTextStaysAsItIs) {
  std::mt19937 engine(5);
  const auto below = [&engine](size_t limit) { return static_cast<size_t>(engine() % limit); };
  const std::string characters = "abcZ**?-?@$',:#!==112344>~%; &.\x80\xE9\r\n0";
  const std::string firsts = "~%%;a*1";
  int texts = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    for (size_t length = below(14); length > 0; --length) {
      text += characters[below(characters.size())];
    }
    if (below(2) == 0) {
      text.insert(0, 1, firsts[below(firsts.size())]);
      text.insert(1, below(2), '2');
    }
    InputQuestion question{text, text.size(), {}};
    const CharacterLists lists{"ab", "", std::string(below(4), 'e')};
    SelectWordType(question.controls, WordTypes()[below(4)].type);
    const InputAnswer first = CheckInput(question, lists);
    SCOPED_TRACE(text + " -> " + first.text);
    ASSERT_LE(first.caret, first.text.size());
    ASSERT_TRUE(IsClean(first.text, lists.scrabble.size()));
    const bool special = first.text.starts_with('%') || first.text.starts_with(';');
    ASSERT_EQ(first.controls.canSearch, !special || std::any_of(first.text.begin(), first.text.end(), IsLetter));
    const InputAnswer again = CheckInput({first.text, first.caret, first.controls}, lists);
    ASSERT_EQ(again.text, first.text);
    ASSERT_EQ(again.kind, first.kind);
    ASSERT_EQ(again.controls.letters, first.controls.letters);
    ASSERT_EQ(again.controls.noun, first.controls.noun);
    ASSERT_EQ(again.controls.selected, first.controls.selected);
    ASSERT_EQ(again.controls.canSearch, first.controls.canSearch);
    ASSERT_EQ(again.controls.anagrams, first.controls.anagrams);
    ASSERT_EQ(again.controls.palindrome, first.controls.palindrome);
    ASSERT_EQ(again.controls.saveAsLexicon, first.controls.saveAsLexicon);
    ASSERT_EQ(again.beeps, 0);
    ASSERT_TRUE(again.logTexts.empty());
    texts += first.beeps > 0 || first.text != text ? 1 : 0;
  }
  EXPECT_GT(texts, 10000) << "texts that needed a change";
}

}  // namespace
}  // namespace quorvane::test
