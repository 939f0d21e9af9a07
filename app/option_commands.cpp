#include <QAction>

#include "app/colour_scheme.h"
#include "app/commands.h"
#include "app/frm_about.h"
#include "app/frm_help.h"
#include "app/main_window.h"
#include "base/window/qt_text.h"
#include "results/window/frm_info.h"
#include "results/window/result_options_panel.h"
#include "settings/settings_table.h"
#include "settings/window/frm_colour_choice.h"

namespace quorvane {

// The tick of a menu item has flipped by the time its command runs.
void Commands::ToggleTimer() {
  const bool on = window_.Item("menTimer")->isChecked();
  SaveYesNo(services_.settings, Setting::TimerInd, on);
  window_.ShowStatus(on ? "The timer has been activated." : "The timer has been deactivated.");
  window_.ShowTimer("");
}

void Commands::ToggleLog() {
  const bool on = window_.Item("menWriteToLog")->isChecked();
  SaveYesNo(services_.settings, Setting::WriteToLogFile, on);
  if (!on) {
    services_.log.SwitchOff();
  } else if (const auto error = services_.log.SwitchOn()) {
    window_.ShowStatus("The Log File could not be written: " + error->Text());
    return;
  }
  window_.ShowStatus(on ? "The Log File has been activated." : "The Log File has been deactivated.");
}

void Commands::ToggleWideScreen() {
  const bool wide = window_.Item("menWideScreen")->isChecked();
  SaveYesNo(services_.settings, Setting::WideScreen, wide);
  window_.SetWide(wide);
  window_.ShowStatus(wide ? "Wide screen mode has been set." : "Normal-width screen mode has been set.");
}

void Commands::ClearLog() {
  if (const auto error = services_.log.Clear()) {
    const std::string text = "The Log File could not be cleared: " + error->Text();
    services_.door.Show(&window_, text);
    window_.ShowStatus(text);
    return;
  }
  window_.ShowStatus("The Log File has been cleared.");
}

void Commands::RefreshClearLogCaption() {
  window_.Item("menClearLog")->setText(FromText(services_.log.ClearCaption()));
}

void Commands::SetAutoSave(bool on) {
  SaveYesNo(services_.settings, Setting::SaveToFile, on);
}

void Commands::ChooseColour(ColourElement element, bool fromSample) {
  const ColourElementRow& row = RowOf(element);
  const SettingRow& custom = RowOf(row.custom);
  const std::string stored = fromSample ? GetSettingWithOtherDefault(services_.settings, row.custom)
                                        : GetSetting(services_.settings, row.custom);
  ColourExchange exchange;
  exchange.caption = row.caption;
  exchange.current = window_.session.colours[static_cast<size_t>(element)];
  exchange.defaultColour = row.windowDefault;
  exchange.custom = PadCustomColour(stored, fromSample ? custom.otherDefault : custom.defaultValue);
  FrmColourChoice dialog(exchange, &window_);
  services_.door.Run(dialog);
  ApplyColour(window_, element, exchange.current);
  services_.settings.BeginBatch();
  SaveSetting(services_.settings, row.colour, exchange.current);
  SaveSetting(services_.settings, row.custom, exchange.custom);
  services_.settings.EndBatch();
}

void Commands::ResetColours() {
  services_.settings.BeginBatch();
  for (const ColourElement element : ResetOrder()) {
    const std::string colour(RowOf(element).resetColour);
    ApplyColour(window_, element, colour);
    SaveSetting(services_.settings, RowOf(element).colour, colour);
  }
  services_.settings.EndBatch();
}

void Commands::ShowHelp() {
  const std::string path = JoinPath(services_.programDirectory, kHelpFileName);
  if (const auto text = ReadHelp(path)) {
    FrmHelp help(*text, &window_);
    services_.door.Run(help);
  } else {
    services_.door.Show(&window_, "The help file was not found.  It was expected here:\r\n\r\n" + path);
  }
}

void Commands::ShowAbout() {
  FrmAbout about(services_, window_.session, &window_);
  services_.door.Run(about);
}

void Commands::CountByLetter() {
  const std::unique_ptr<FrmInfo> info(FrmInfo::ByLetter(*window_.session.lexicon, &window_));
  services_.door.Run(*info);
}

void Commands::CountByLength() {
  const std::unique_ptr<FrmInfo> info(FrmInfo::ByLength(*window_.session.lexicon, &window_));
  services_.door.Run(*info);
}

void Commands::ShowWildcards() {
  const std::unique_ptr<FrmInfo> info(FrmInfo::Wildcards(&window_));
  services_.door.Run(*info);
}

}  // namespace quorvane
