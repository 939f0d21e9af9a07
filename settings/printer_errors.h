// The texts of printer errors: one family for all places that touch the printer.
#pragma once

#include <string>
#include <string_view>

namespace quorvane {

inline constexpr int kFirstPrinterError = 481;
inline constexpr int kLastPrinterError = 486;
inline constexpr int kPrinterFailed = 482;  // What this platform reports; it tells no finer kinds apart.

inline bool IsPrinterError(int number) {
  return number >= kFirstPrinterError && number <= kLastPrinterError;
}

// Place + "/" + number + ": " + the fixed text. Places: "RS" the settings read, "LI" start-up, "PS" and "PFL" the
// printer set-up, "FP" the print command, "NP" its page breaks.
std::string PrinterErrorText(std::string_view place, int number);

}  // namespace quorvane
