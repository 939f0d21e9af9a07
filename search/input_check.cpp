#include "search/input_check.h"

#include <algorithm>

#include "base/text.h"
#include "search/wildcards.h"

namespace quorvane {
namespace {

constexpr std::string_view kDigits = "123";  // Each may stand only where the one before it does.
constexpr size_t kMaxRandomLength = 5;       // "~" and four digits.
constexpr size_t kMaxSequenceLength = 11;    // "%", a digit, eight letters and ">".

constexpr std::string_view kRandomHelp = "'~' allows display of random words - specify a number [default 1]";
constexpr std::string_view kNoSequenceNumber = "'%' allows selection on sequences - enter a number";
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

bool ForbidsAnagrams(char c) {
  const Wildcard* wildcard = FindWildcard(c);
  return wildcard != nullptr && wildcard->ForbidsAnagrams();
}

class Check {
 public:
  Check(InputAnswer& answer, const CharacterLists& lists)
      : answer_(answer), text_(answer.text), controls_(answer.controls), lists_(lists) {}

  // A text that a step replaces is checked anew from the start; what the step had to say of it comes behind what the
  // new text has to say.
  void Run() {
    do {
      replaced_ = false;
      RunOnce();
    } while (replaced_);
    if (caretOfFirstChange_) {
      answer_.caret = std::min(*caretOfFirstChange_, text_.size());
    }
    for (; !refusals_.empty(); refusals_.pop_back()) {
      Say(refusals_.back());
      answer_.beeps += kBeepsOfRefusal;
    }
  }

 private:
  void RunOnce() {
    switch (text_.empty() ? '\0' : text_.front()) {
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

  void Say(std::string_view status) { answer_.statusTexts.emplace_back(status); }

  void Refuse(std::string_view status) { refusals_.emplace_back(status); }

  // Puts another text into the box. False when it is the same text.
  bool Replace(std::string text, size_t caret) {
    if (text == text_) {
      return false;
    }
    caretOfFirstChange_ = caretOfFirstChange_.value_or(caret);
    text_ = std::move(text);
    replaced_ = true;
    return true;
  }

  bool ReplaceByPart(size_t length) { return Replace(text_.substr(0, length), length); }

  // A text rebuilt from the characters that `keep` (called with each character and its position from 1) keeps. The
  // caret goes to the position before the last one dropped.
  template <class Keep>
  bool Filter(Keep keep) {
    std::string kept;
    size_t caret = text_.size();
    for (size_t i = 0; i < text_.size(); ++i) {
      if (keep(text_[i], i + 1)) {
        kept += text_[i];
      } else {
        caret = i;
      }
    }
    return Replace(std::move(kept), caret);
  }

  void StartSpecialMode(PatternKind kind, std::string_view noun, std::string_view help) {
    controls_.noun = noun;
    answer_.kind = static_cast<int>(kind);
    Say(help);
  }

  // Random words and letter sequences are searched in the word list only.
  void WordListOnly() {
    controls_.palindrome = false;
    controls_.anagrams = false;
    SelectWordType(controls_, WordType::WordList);
  }

  void RandomWords() {
    controls_.canSearch = true;
    controls_.saveAsLexicon = false;
    WordListOnly();
    StartSpecialMode(PatternKind::Random, kRandomNoun, kRandomHelp);
    if (Filter([](char c, size_t position) { return position == 1 || (IsDigit(c) && position <= kMaxRandomLength); })) {
      return;
    }
    controls_.letters = std::to_string(RandomCount(text_)) + " random words";
  }

  void LetterSequence() {
    WordListOnly();
    StartSpecialMode(PatternKind::Sequence, kSequenceNoun, kNoSequenceNumber);
    controls_.letters.clear();
    answer_.caret = text_.size();
    const bool number = text_.size() > 1 && text_[1] >= '1' && text_[1] <= '9';
    if (text_.size() >= 3 && !number) {
      answer_.logTexts.push_back("No number specified in % option: " + text_);
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
    controls_.canSearch = text_.size() > 2;
    if (text_.size() == 1) {
      return;
    }
    const std::string number = text_.substr(1, 1);
    const std::string counts = number + " count" + std::string(PluralS(number[0] - '0'));
    Say(kSequenceLettersHelp);
    if (text_.size() == 2) {
      controls_.letters = "Words with " + counts + " of ...";
      return;
    }
    const SequenceParts parts = SplitSequence(text_);
    Say("Add more letters or an optional '>' (specifies " + number + " or more)");
    controls_.letters = "Words with " + std::string(parts.orMore ? ">=" : "") + counts + " of '" + parts.letters + "'";
  }

  void LetterChoice() {
    StartSpecialMode(PatternKind::LetterChoice, kLetterChoiceNoun, kLetterChoiceHelp);
    // Of several "~" at the end the last goes, and the next, each time with the help anew.
    if (text_.ends_with("~~")) {
      const size_t kept = text_.find_last_not_of('~') + 2;
      for (size_t more = text_.size() - 1; more > kept; --more) {
        Say(kLetterChoiceHelp);
      }
      caretOfFirstChange_ = caretOfFirstChange_.value_or(text_.size() - 1);
      ReplaceByPart(kept);
      return;
    }
    const size_t size = text_.size();
    const bool replaced = Filter([size](char c, size_t position) {
      return position == 1 || IsLetter(c) || (c == '~' && position == size && size > 2);
    });
    if (replaced) {
      return;
    }
    controls_.canSearch = size > 1;
    if (size > 1) {
      Say(text_.ends_with('~') ? kAnyOrderHelp : kInOrderHelp);
    }
  }

  static std::string_view AllowedDigits(std::string_view text) {
    return kDigits.substr(0, !Holds(text, '1') ? 1 : !Holds(text, '2') ? 2 : 3);
  }

  void PlainPattern() {
    controls_.canSearch = true;
    controls_.palindrome = true;
    controls_.noun = FactsOf(controls_.selected).noun;
    const std::string_view digits = AllowedDigits(text_);
    const auto allowed = [digits](char c) {
      const Wildcard* wildcard = FindWildcard(c);
      return IsLetter(c) ||
             (wildcard != nullptr &&
              (wildcard->stands == Stands::SameCharacter ? Holds(digits, c) : wildcard->InPlainPattern()));
    };
    const auto lastAllowed = std::find_if(text_.rbegin(), text_.rend(), allowed);
    if (lastAllowed != text_.rbegin()) {
      ReplaceByPart(static_cast<size_t>(text_.rend() - lastAllowed));
      return;
    }
    if (Filter([&allowed](char c, size_t) { return allowed(c); })) {
      return;
    }
    ExplainLastCharacter();
    const size_t asterisks = Count(text_, '*');
    answer_.kind = static_cast<int>(asterisks);
    if (TrimBeyondLimits(asterisks, Count(text_, '='))) {
      return;
    }
    if (const size_t pair = text_.find("**"); pair != std::string::npos) {
      Replace(text_.substr(0, pair + 1) + text_.substr(pair + 2), pair + 1);
      Refuse(kAdjacentAsterisks);
    } else {
      CountLetters(asterisks);
      AllowAnagrams(std::none_of(text_.begin(), text_.end(), ForbidsAnagrams));
    }
  }

  // More tiles than there are, or a third asterisk: last characters go, each with its refusal, until the limits hold. A
  // digit that the shorter text does not allow goes without one.
  bool TrimBeyondLimits(size_t asterisks, size_t tiles) {
    const std::string tilesRefusal = "There " + TilesThereAre() + " defined in the 'Scrabble' string";
    std::string text = text_;
    size_t ones = Count(text, '1');
    size_t twos = Count(text, '2');
    for (;;) {
      if (tiles > lists_.scrabble.size()) {
        Refuse(tilesRefusal);
      } else if (asterisks > 2) {
        Refuse(kThirdAsterisk);
      } else {
        break;
      }
      const char last = text.back();
      text.pop_back();
      asterisks -= last == '*' ? 1 : 0;
      tiles -= last == '=' ? 1 : 0;
      const bool lastOne = last == '1' && --ones == 0;
      const bool lastTwo = last == '2' && --twos == 0;
      if (lastOne || lastTwo) {
        std::erase_if(text, [lastOne](char c) { return c == '3' || (lastOne && c == '2'); });
        twos = lastOne ? 0 : twos;
      }
    }
    const size_t size = text.size();
    return Replace(std::move(text), size);
  }

  void ExplainLastCharacter() {
    const Wildcard* wildcard = text_.empty() ? nullptr : FindWildcard(text_.back());
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
    if (text_.empty()) {
      controls_.letters.clear();
      return;
    }
    const auto count = static_cast<int64_t>(text_.size() - asterisks);
    controls_.letters = std::string("(") + (asterisks > 0 ? "min. " : "") + std::to_string(count) + " letter" +
                        std::string(PluralS(count)) + ")";
  }

  void AllowAnagrams(bool allowed) {
    controls_.anagrams = allowed;
    if (!allowed && IsAnagram(controls_.selected)) {
      SelectWordType(controls_, WordType::WordList);
      Refuse(kAnagramCancelled);
    }
  }

  InputAnswer& answer_;
  std::string& text_;
  InputControls& controls_;
  const CharacterLists& lists_;
  bool replaced_ = false;
  // Where the caret goes: what the first change says, since it speaks last.
  std::optional<size_t> caretOfFirstChange_;
  std::vector<std::string> refusals_;  // Of texts that were replaced, the outermost first.
};

}  // namespace

InputAnswer CheckInput(InputQuestion question, const CharacterLists& lists) {
  InputAnswer answer;
  answer.text = std::move(question.text);
  answer.caret = question.caret;
  answer.controls = std::move(question.controls);
  if (answer.caret > answer.text.size()) {
    answer.error = MakeRunTimeError(kErrorInvalidProcedureCall);
  } else {
    Check(answer, lists).Run();
  }
  return answer;
}

void SelectWordType(InputControls& controls, WordType type) {
  controls.selected = type;
  controls.noun = FactsOf(type).noun;
}

}  // namespace quorvane
