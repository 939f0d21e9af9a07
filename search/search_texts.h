// The texts that a search shows while and after it runs.
#pragma once

#include <string>
#include <string_view>

#include "search/scan.h"

namespace quorvane {

inline constexpr std::string_view kLookingUp = "Looking up lexicon entries ...";
inline constexpr std::string_view kTruncatedEntry = "  *** LIST TRUNCATED ***";

std::string ProgressStatus(int percent);   // "Looking up entries ... 35% complete"
std::string ProgressCaption(int percent);  // "35% of lexicon scan complete"

// What a failed or cut-off scan tells the user and the log. Lines of a box are parted by CR LF.
struct ScanReport {
  std::string boxText;
  std::string statusText;
  std::string logCode;
  std::string logText;
};
ScanReport ReportOf(const ScanError& error);
ScanReport TruncationReport(size_t listed, size_t found, std::string_view lastListedWord);

}  // namespace quorvane
