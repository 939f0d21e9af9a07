#include "search/search_texts.h"

#include "base/text.h"

namespace quorvane {

std::string ProgressStatus(int percent) {
  return "Looking up entries ... " + std::to_string(percent) + "% complete";
}

std::string ProgressCaption(int percent) {
  return std::to_string(percent) + "% of lexicon scan complete";
}

ScanReport ReportOf(const ScanError& error) {
  const std::string number = "Error #" + std::to_string(error.error.number);
  const std::string text = number + " (" + error.error.description + ")\r\noccurred while processing the word '" +
                           error.word + "' at position '" + error.stage + "'";
  return {text, number + " processing word '" + error.word + "'", "ERROR-LB", text};
}

ScanReport TruncationReport(size_t listed, size_t found, std::string_view lastListedWord) {
  const std::string entries = std::to_string(listed);
  return {
      "Your operating system (usually Win 95, 98 or ME) cannot display all the words found.\r\n"
      "Maximum number of entries (" +
          entries + ") displayed on the screen.\r\nHowever, if you save this list, all " + std::to_string(found) +
          " words will be saved.",
      entries + " word" + std::string(PluralS(static_cast<int64_t>(found))) + " found (screen list truncated)",
      "LIST_O/F", "Max # of screen list entries reached; last word listed was '" + std::string(lastListedWord) + "'"};
}

}  // namespace quorvane
