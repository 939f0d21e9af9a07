// Brings the main window to its ready state.
#pragma once

#include "app/main_window.h"
#include "app/services.h"
#include "settings/start_up_read.h"

namespace quorvane {

class StartUp : private StartUpSite {
 public:
  StartUp(MainWindow& window, Services& services);

  // The load handler, in its fixed order. False when the program ended on the way (an unusable lexicon).
  bool Run();

 private:
  void BeginWindow();
  void OpenLog();
  bool ReadSettingsAndLexicon();
  void LogStart();
  void FillFontTable();
  void RestoreInput();

  void Apply(Setting setting, const std::string& value) override;
  void ApplyColourSetting(Setting setting, const std::string& value);
  void ShowBox(const std::string& title, const std::string& text, bool critical) override;
  Printers ListPrinters() override;

  MainWindow& window_;
  Services& services_;
  int minLength_ = 1;
};

}  // namespace quorvane
