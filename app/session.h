// The state of a run: what the window owns besides its controls.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "lexicon/lexicon.h"
#include "search/input_check.h"
#include "settings/settings_table.h"

namespace quorvane {

enum class Option;

struct Session {
  std::shared_ptr<const Lexicon> lexicon;
  std::string lexiconPath;
  InputControls input;  // As the last check left them.
  bool scanActive = false;
  // Those that a walk through the history shows; without one the stored lists count.
  std::optional<CharacterLists> walkedLists;
  std::map<Option, bool> options;  // As applied; an option that is missing is off.
  std::string printerName{kUndefinedPrinter};
  std::string lastSaveFailure;  // The failure of autosave that was shown last.
  size_t fontCount = 0;         // Of the installed font families, counted up to kMaxFonts.

  bool stopFlag = false;   // The program is leaving by its own command.
  bool abortFlag = false;  // Nothing sets it; it is tested once after the lexicon is loaded.
  bool ended = false;      // The shutdown has run.
  int exitStatus = 0;      // What the process ends with.
};

inline constexpr size_t kMaxFonts = 3000;
inline constexpr size_t kMostPrintable = 32767;

}  // namespace quorvane
