// Brings the main window to its ready state.
#pragma once

#include "app/file_controller.h"
#include "app/option_controller.h"
#include "app/search_controller.h"
#include "settings/start_up_read.h"

namespace quorvane {

// What the start needs of the window, besides what the commands need of it.
class StartUpView : public virtual View {
 public:
  virtual void SelectOrder(SortOrder order) = 0;
  virtual void SetLengths(int min, int max) = 0;
  virtual void SelectAnyLength() = 0;
  virtual void SetFixedWidth(bool fixed) = 0;

  virtual void ShowText(const std::string& text, size_t caret) = 0;
  virtual void ShowInput() = 0;
  virtual void FocusPattern() = 0;
  virtual void ClearPosition() = 0;
  virtual void ShowCaption(const std::string& caption) = 0;
  virtual void ShowLexicon(const std::string& name) = 0;
  virtual void ShowResource(const std::string& setting) = 0;
  virtual void ShowList(ListKind kind, const std::string& list) = 0;
  virtual void ShowListCaption(ListKind kind, const std::string& caption) = 0;
  virtual ColourScheme& Colours() = 0;
  virtual void Leave() = 0;
};

class StartUp : private StartUpSite {
 public:
  StartUp(StartUpView& view, Session& session, Services& services, FileController& files, OptionController& options);

  // The load handler, in its fixed order. False when the program ended on the way (an unusable lexicon).
  bool Run();

 private:
  void BeginWindow();
  void OpenLog();
  bool ReadSettingsAndLexicon();
  void LogStart();
  void CountFonts();
  void RestoreInput();

  bool Apply(Setting setting, const std::string& value) override;
  bool ApplyColour(Setting setting, const std::string& value);
  void ShowBox(const std::string& title, const std::string& text, bool critical) override;
  Printers ListPrinters() override;

  StartUpView& view_;
  Session& session_;
  Services& services_;
  FileController& files_;
  OptionController& options_;
  std::string lexiconSetting_;
  int minLength_ = 1;
};

}  // namespace quorvane
