// The input check over sequences of edits: the pattern language's limits hold behind each, and a second look at an
// answer changes nothing.
#include <algorithm>
#include <regex>

#include "search/input_check.h"
#include "tests/fuzz/fuzz.h"

namespace quorvane::fuzz {
namespace {

constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";

bool IsPlain(std::string_view text, size_t tiles) {
  const auto count = [text](char c) { return static_cast<size_t>(std::count(text.begin(), text.end(), c)); };
  return text.find_first_not_of(std::string(kLetters) + "*?-@$',:#!=123") == std::string_view::npos &&
         count('*') <= 2 && text.find("**") == std::string_view::npos && count('=') <= tiles &&
         (count('2') == 0 || count('1') > 0) && (count('3') == 0 || count('2') > 0);
}

bool InsideTheLanguage(const std::string& text, size_t tiles) {
  static const std::regex kRandom("~[0-9]{0,4}");
  static const std::regex kSequence("%([1-9]([a-zA-Z]{1,8}>?)?)?");
  if (text.starts_with(';')) {
    const size_t behind = text.find_first_not_of(kLetters, 1);
    return behind == std::string::npos || (text[behind] == '~' && behind > 1 && behind + 1 == text.size());
  }
  return text.starts_with('~')   ? text.size() <= 5 && std::regex_match(text, kRandom)
         : text.starts_with('%') ? text.size() <= 11 && std::regex_match(text, kSequence)
                                 : IsPlain(text, tiles);
}

InputAnswer CheckedAnswer(const InputQuestion& asked, const CharacterLists& lists) {
  const InputAnswer answer = CheckInput(asked, lists);
  Demand(!answer.error, "no error where the caret lies in the text");
  Demand(answer.caret <= answer.text.size(), "the caret lies in the text");
  Demand(InsideTheLanguage(answer.text, lists.scrabble.size()), "inside the language: " + answer.text);
  Demand(!IsAnagram(answer.controls.selected) || answer.controls.anagrams, "what is selected is allowed");
  const InputAnswer again = CheckInput({answer.text, answer.caret, answer.controls}, lists);
  // A letter sequence puts the caret to its end at each look.
  Demand(again.text == answer.text && (again.caret == answer.caret || answer.text[0] == '%') &&
             again.kind == answer.kind && again.beeps == 0 && again.logTexts.empty(),
         "a clean text comes back as it is: " + asked.text + " -> " + answer.text + " -> " + again.text);
  const InputControls& a = answer.controls;
  const InputControls& b = again.controls;
  Demand(a.selected == b.selected && a.noun == b.noun && a.letters == b.letters && a.canSearch == b.canSearch &&
             a.anagrams == b.anagrams && a.palindrome == b.palindrome && a.saveAsLexicon == b.saveAsLexicon,
         "and so do the controls: " + answer.text);
  return answer;
}

}  // namespace
}  // namespace quorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  using namespace quorvane;
  using namespace quorvane::fuzz;
  FuzzedDataProvider data(bytes, size);
  const CharacterLists lists{TextOf(data, "abcABC", 4), TextOf(data, "abcABC", 4), TextOf(data, "abcABC?-", 4)};
  InputQuestion question;
  while (data.remaining_bytes() > 0) {
    std::string& text = question.text;
    const size_t at = data.ConsumeIntegralInRange<size_t>(0, text.size());
    const int edit = data.ConsumeIntegralInRange(0, 4);
    if (edit == 0) {
      const auto type = static_cast<WordType>(data.ConsumeIntegralInRange(0, 3));
      if (IsAnagram(type) ? question.controls.anagrams : question.controls.palindrome) {
        SelectWordType(question.controls, type);
      }
    } else if (edit == 1) {
      text.erase(at, data.ConsumeIntegralInRange<size_t>(1, 4));
      question.caret = at;
    } else {
      const std::string typed =
          edit == 2 ? data.ConsumeRandomLengthString(20) : TextOf(data, "aeStz**?-@$',:#!==112233%~;>09 .", 6);
      text.insert(at, typed);
      question.caret = at + typed.size();
    }
    InputAnswer answer = CheckedAnswer(question, lists);
    question = {std::move(answer.text), answer.caret, std::move(answer.controls)};
  }
  return 0;
}
