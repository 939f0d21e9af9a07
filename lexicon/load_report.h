// What a user is told and what the log is told about the outcome of a load. One place for the window and the command
// line.
#pragma once

#include <string>
#include <string_view>

#include "lexicon/lexicon.h"

namespace quorvane {

struct LoadReport {
  std::string boxText;  // Of the message box; for ListError the first sentence of the problem dialog; for Ok empty.
  std::string logCode;
  std::string logText;
};

LoadReport ReportOf(const LoadResult& result);

// What is wrong with the whole file, where the line at which reading stopped gives it away; else empty.
std::string_view CauseOf(const LoadResult& result);

// The fixed texts of the problem dialog, top to bottom.
struct LexiconProblemTexts {
  static constexpr const char* kCaption = "Problem with Lexicon file";
  static constexpr const char* kPoint =
      "There appears to be a problem with the Lexicon file, specifically at the following point:";
  static constexpr const char* kWordNumber = "Word #";
  static constexpr const char* kIllegalCharacter =
      "It may have an illegal character (e.g. an accented letter) at the start of it; if so, remove it and try again.";
  static constexpr const char* kCheckFile =
      "Check to see if the words.lex file exists.  If not, download it from the Quorvane homepage.";
  static constexpr const char* kPersist = "If this problem recurs, please click on the link below to report the issue.";
  static constexpr const char* kContact =
      "Click here to fill in an online form with comments, bug reports & suggestions";
};

}  // namespace quorvane
