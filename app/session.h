// The state of a run: what the window owns besides its controls.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "lexicon/lexicon.h"
#include "search/input_check.h"
#include "settings/colours.h"

namespace quorvane {

struct Session {
  std::shared_ptr<const Lexicon> lexicon;
  std::string lexiconSetting;  // As stored.
  std::string lexiconPath;
  bool lexiconIsDefault = false;

  InputQuestion input;   // As the last check left it.
  CharacterLists lists;  // As stored.
  bool scanActive = false;
  bool listTruncated = false;  // Left by the last scan.
  bool saveAsLexiconAllowed = false;

  std::string printerName = "(undefined)";
  std::array<std::string, kColourElements> colours;  // By ColourElement.
  std::string lastSaveFailure;                       // The failure of autosave that was shown last.
  std::vector<std::string> fontTable;

  bool stopFlag = false;   // The program is leaving by its own command.
  bool abortFlag = false;  // Nothing sets it; it is tested once after the lexicon is loaded.
  bool ended = false;      // The shutdown has run.
};

inline constexpr size_t kMaxFontTable = 3000;
inline constexpr int64_t kMostPrintable = 32767;

}  // namespace quorvane
