#include "search/input_check.h"

#include <algorithm>

#include "base/text.h"
#include "search/wildcards.h"

namespace quorvane {
namespace {

constexpr std::string_view kWildcardCharacters = "$-@',:123=#!?";
constexpr std::string_view kPlainCharacters = "*!-$@',:?=#";
constexpr size_t kMaxRandomLength = 5;     // "~" and four digits.
constexpr size_t kMaxSequenceLength = 11;  // "%", a digit, eight letters and ">".

constexpr std::string_view kRandomHelp = "'~' allows display of random words - specify a number [default 1]";
constexpr std::string_view kSequenceLettersHelp = "Enter up to 8 letters, followed by an optional '>'";
constexpr std::string_view kLetterChoiceHelp = "';' allows selection of letter(s) in a word";
constexpr std::string_view kInOrderHelp = "Letters will be found in order typed unless you add '~' at the end";
constexpr std::string_view kAnyOrderHelp = "Letters will be searched in any order";
constexpr std::string_view kAdjacentAsterisks = "Can't enter two asterisks next to each other";
constexpr std::string_view kThirdAsterisk = "A maximum of two asterisks may be entered";
constexpr std::string_view kAnagramCancelled = "Anagram option cancelled due to wildcard input; enter word selection";

size_t Count(std::string_view text, char c) {
  return static_cast<size_t>(std::count(text.begin(), text.end(), c));
}

bool Holds(std::string_view text, char c) {
  return text.find(c) != std::string_view::npos;
}

class Check {
 public:
  Check(InputState& state, const CharacterLists& lists, InputMessages& messages)
      : state_(state), lists_(lists), messages_(messages) {}

  // A text that a step replaces is checked anew from the start; what the step had to say of it comes behind what the
  // new text has to say.
  void Run() {
    do {
      replaced_ = false;
      RunOnce();
    } while (replaced_);
    if (caretOfFirstChange_) {
      state_.caret = std::min(*caretOfFirstChange_, state_.text.size());
    }
    for (; !refusals_.empty(); refusals_.pop_back()) {
      Say(refusals_.back());
      messages_.beeps += kBeepsOfRefusal;
    }
  }

 private:
  void RunOnce() {
    switch (state_.text.empty() ? '\0' : state_.text.front()) {
      case '~':
        RandomWords();
        break;
      case '%':
        LetterSequence();
        break;
      case ';':
        LetterChoice();
        break;
      default:
        PlainPattern();
    }
  }

  void Say(std::string_view status) { messages_.statusTexts.emplace_back(status); }

  void Refuse(std::string_view status) { refusals_.emplace_back(status); }

  // Puts another text into the box. False when it is the same text.
  bool Replace(std::string text, size_t caret) {
    if (text == state_.text) {
      return false;
    }
    caretOfFirstChange_ = caretOfFirstChange_.value_or(caret);
    state_.text = std::move(text);
    replaced_ = true;
    return true;
  }

  bool ReplaceByPart(size_t length) { return Replace(state_.text.substr(0, length), length); }

  // A text rebuilt from the characters that `keep` (called with each character and its position from 1) keeps. The
  // caret goes to the position before the last one dropped.
  template <class Keep>
  bool Filter(Keep keep) {
    std::string kept;
    size_t caret = state_.text.size();
    for (size_t i = 0; i < state_.text.size(); ++i) {
      if (keep(state_.text[i], i + 1)) {
        kept += state_.text[i];
      } else {
        caret = i;
      }
    }
    return Replace(std::move(kept), caret);
  }

  void StartSpecialMode(PatternKind kind, std::string_view noun, std::string_view help) {
    state_.noun = noun;
    state_.patternKind = static_cast<int>(kind);
    Say(help);
  }

  // Random words and letter sequences are searched in the word list only.
  void WordListOnly() {
    state_.palindrome = false;
    state_.anagrams = false;
    SelectWordType(state_, WordType::WordList);
  }

  void RandomWords() {
    state_.canSearch = true;
    state_.saveAsLexicon = false;
    WordListOnly();
    StartSpecialMode(PatternKind::Random, "Random word", kRandomHelp);
    if (Filter([](char c, size_t position) { return position == 1 || (IsDigit(c) && position <= kMaxRandomLength); })) {
      return;
    }
    int count = 1;
    ParseInteger(state_.text.size() > 1 ? state_.text.substr(1) : "1", count);
    state_.randomCount = count;
    state_.letters = std::to_string(count) + " random words";
  }

  void LetterSequence() {
    WordListOnly();
    StartSpecialMode(PatternKind::Sequence, "sequenced word", kNoSequenceNumber);
    state_.letters.clear();
    state_.caret = state_.text.size();
    const std::string& text = state_.text;
    const bool number = text.size() > 1 && text[1] >= '1' && text[1] <= '9';
    if (text.size() >= 3 && !number) {
      messages_.logTexts.push_back("No number specified in % option: " + text);
      Say(kNoSequenceNumber);
      Replace("%", 1);
      return;
    }
    bool ended = false;
    const bool replaced = Filter([&ended, number](char c, size_t position) {
      if (position <= 3) {
        return position == 1 || (position == 2 ? number : IsLetter(c));
      }
      const bool kept =
          !ended && position <= kMaxSequenceLength && (c == '>' || (IsLetter(c) && position < kMaxSequenceLength));
      ended = ended || (kept && c == '>');
      return kept;
    });
    if (!replaced) {
      DescribeSequence();
    }
  }

  // The texts for a clean letter sequence.
  void DescribeSequence() {
    std::string_view rest = state_.text;
    rest.remove_prefix(1);
    state_.canSearch = rest.size() > 1;
    if (rest.empty()) {
      return;
    }
    const std::string number(rest.substr(0, 1));
    const std::string counts = number + " count" + std::string(PluralS(number[0] - '0'));
    Say(kSequenceLettersHelp);
    if (rest.size() == 1) {
      state_.letters = "Words with " + counts + " of ...";
      return;
    }
    rest.remove_prefix(1);
    const bool orMore = rest.back() == '>';
    if (orMore) {
      rest.remove_suffix(1);
    }
    Say("Add more letters or an optional '>' (specifies " + number + " or more)");
    state_.letters = "Words with " + std::string(orMore ? ">=" : "") + counts + " of '" + std::string(rest) + "'";
  }

  void LetterChoice() {
    StartSpecialMode(PatternKind::LetterChoice, "letter choice", kLetterChoiceHelp);
    if (state_.text.ends_with("~~")) {
      ReplaceByPart(state_.text.size() - 1);
      return;
    }
    const size_t size = state_.text.size();
    const bool replaced = Filter([size](char c, size_t position) {
      return position == 1 || IsLetter(c) || (c == '~' && position == size && size > 2);
    });
    if (replaced) {
      return;
    }
    state_.canSearch = size > 1;
    if (size > 1) {
      Say(state_.text.ends_with('~') ? kAnyOrderHelp : kInOrderHelp);
    }
  }

  static std::string_view AllowedDigits(std::string_view text) {
    const std::string_view digits = "123";
    return digits.substr(0, !Holds(text, '1') ? 1 : !Holds(text, '2') ? 2 : 3);
  }

  void PlainPattern() {
    state_.canSearch = true;
    state_.palindrome = true;
    state_.noun = FactsOf(state_.selected).noun;
    const std::string_view digits = AllowedDigits(state_.text);
    const auto allowed = [digits](char c) { return IsLetter(c) || Holds(kPlainCharacters, c) || Holds(digits, c); };
    const auto lastAllowed = std::find_if(state_.text.rbegin(), state_.text.rend(), allowed);
    if (lastAllowed != state_.text.rbegin()) {
      ReplaceByPart(static_cast<size_t>(state_.text.rend() - lastAllowed));
      return;
    }
    if (Filter([&allowed](char c, size_t) { return allowed(c); })) {
      return;
    }
    ExplainLastCharacter();
    const std::string& text = state_.text;
    const size_t asterisks = Count(text, '*');
    state_.patternKind = static_cast<int>(asterisks);
    if (TrimBeyondLimits(asterisks, Count(text, '='))) {
      return;
    }
    if (const size_t pair = text.find("**"); pair != std::string::npos) {
      Replace(text.substr(0, pair + 1) + text.substr(pair + 2), pair + 1);
      Refuse(kAdjacentAsterisks);
    } else {
      CountLetters(asterisks);
      AllowAnagrams(asterisks == 0 && text.find_first_of(kWildcardCharacters) == std::string::npos);
    }
  }

  // More tiles than there are, or a third asterisk: last characters go, each with its refusal, until the limits hold. A
  // digit that the shorter text does not allow goes without one.
  bool TrimBeyondLimits(size_t asterisks, size_t tiles) {
    std::string text = state_.text;
    for (;;) {
      if (tiles > lists_.scrabble.size()) {
        Refuse("There " + TilesThereAre() + " defined in the 'Scrabble' string");
      } else if (asterisks > 2) {
        Refuse(kThirdAsterisk);
      } else {
        break;
      }
      asterisks -= text.back() == '*' ? 1 : 0;
      tiles -= text.back() == '=' ? 1 : 0;
      text.pop_back();
      std::erase_if(text, [digits = AllowedDigits(text)](char c) { return c >= '1' && c <= '3' && !Holds(digits, c); });
    }
    const size_t size = text.size();
    return Replace(std::move(text), size);
  }

  void ExplainLastCharacter() {
    const Wildcard* wildcard = state_.text.empty() ? nullptr : FindWildcard(state_.text.back());
    if (wildcard == nullptr) {
      return;
    }
    std::string help(wildcard->statusText);
    for (const ListKind kind : kListKinds) {
      if (FactsOf(kind).wildcard == wildcard->character) {
        help += BracketForm(lists_.Of(kind));
      }
    }
    Say(help);
  }

  std::string TilesThereAre() const {
    switch (lists_.scrabble.size()) {
      case 0:
        return "are no characters";
      case 1:
        return "is only 1 character";
      default:
        return "are only " + std::to_string(lists_.scrabble.size()) + " characters";
    }
  }

  void CountLetters(size_t asterisks) {
    if (state_.text.empty()) {
      state_.letters.clear();
      return;
    }
    const auto count = static_cast<int64_t>(state_.text.size() - asterisks);
    state_.letters = std::string("(") + (asterisks > 0 ? "min. " : "") + std::to_string(count) + " letter" +
                     std::string(PluralS(count)) + ")";
  }

  void AllowAnagrams(bool allowed) {
    state_.anagrams = allowed;
    if (!allowed && IsAnagram(state_.selected)) {
      SelectWordType(state_, WordType::WordList);
      Refuse(kAnagramCancelled);
    }
  }

  InputState& state_;
  const CharacterLists& lists_;
  InputMessages& messages_;
  bool replaced_ = false;
  // Where the caret goes: what the first change says, since it speaks last.
  std::optional<size_t> caretOfFirstChange_;
  std::vector<std::string> refusals_;  // Of texts that were replaced, the outermost first.
};

}  // namespace

InputMessages CheckInput(InputState& state, const CharacterLists& lists) {
  InputMessages messages;
  if (state.caret > state.text.size()) {
    messages.error = MakeRunTimeError(kErrorInvalidProcedureCall);
    return messages;
  }
  Check(state, lists, messages).Run();
  return messages;
}

void SelectWordType(InputState& state, WordType type) {
  state.selected = type;
  state.noun = FactsOf(type).noun;
}

}  // namespace quorvane
