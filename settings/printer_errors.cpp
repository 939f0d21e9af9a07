#include "settings/printer_errors.h"

#include <array>

namespace quorvane {
namespace {

constexpr std::array<std::string_view, 6> kTexts = {
    "Invalid printer picture.",
    "Printer error - check connections to your printer and that it can cope with this kind of printing.",
    "Printer cannot cope with a specified property - check that the printer is capable of this kind of printing.",
    "Problem getting printer information from the system; ensure printer is set up correctly.",
    "Invalid picture type.",
    "Can't print the image to this printer.  Ensure that your printer is capable of printing this kind of information "
    "- if not, perhaps an upgrade is needed.",
};

}  // namespace

std::string PrinterErrorText(std::string_view place, int number) {
  std::string text = std::string(place) + "/" + std::to_string(number) + ": " +
                     std::string(kTexts[static_cast<size_t>(number - kFirstPrinterError)]);
  if (number == kPrinterFailed && place == "PS") {
    text.pop_back();
    text += ", or that a printer has been defined - will ignore.";
  } else if (number == kPrinterFailed && place == "PFL") {
    text += " - will ignore.";
  }
  return text;
}

}  // namespace quorvane
