// Options, the log, colours, help and what the program tells of itself.
#pragma once

#include "app/option_table.h"
#include "app/services.h"
#include "app/session.h"
#include "settings/window/colour_scheme.h"

namespace quorvane {

// What these commands need of the window.
class OptionView : public OptionSite {
 public:
  virtual ColourScheme& Colours() = 0;
};

class OptionController {
 public:
  // All outlive the controller.
  OptionController(OptionView& view, Session& session, Services& services);

  // Puts a stored option into effect.
  void Apply(Option option, bool on);
  // Changes, stores and applies an option, and says so.
  void Set(Option option, bool on);
  void Toggle(Option option);
  void ClearLog();
  // A click on a sample has its own default for a custom colour that is not stored.
  void ChooseColour(ColourElement element, bool fromSample = false);
  void ResetColours();
  void ShowHelp();
  void ShowAbout();
  void CountByLetter();
  void CountByLength();
  void ShowWildcards();

 private:
  OptionView& view_;
  Session& session_;
  Services& services_;
};

}  // namespace quorvane
