#include "app/option_controller.h"

#include "app/frm_about.h"
#include "app/frm_help.h"
#include "base/program_directory.h"
#include "base/window/qt_text.h"
#include "results/window/frm_info.h"
#include "settings/window/frm_colour_choice.h"

namespace quorvane {

OptionController::OptionController(OptionView& view, Session& session, Services& services)
    : view_(view), session_(session), services_(services) {}

void OptionController::Apply(Option option, bool on) {
  session_.options[option] = on;
  RowOf(option).apply(view_, services_.log, on);
}

void OptionController::Set(Option option, bool on) {
  const OptionRow& row = RowOf(option);
  SaveYesNo(services_.settings, row.setting, on);
  session_.options[option] = on;
  std::optional<std::string> problem;
  if (row.change != nullptr) {
    problem = row.change(view_, services_.log, on);
  } else {
    row.apply(view_, services_.log, on);
  }
  const std::string_view status = on ? row.statusOn : row.statusOff;
  if (problem || !status.empty()) {
    view_.ShowStatus(problem.value_or(std::string(status)));
  }
  view_.UpdateCommands();
}

void OptionController::Toggle(Option option) {
  Set(option, !session_.options[option]);
}

void OptionController::ClearLog() {
  if (const auto error = services_.log.Clear()) {
    const std::string text = "The Log File could not be cleared: " + error->Text();
    services_.door.Show(view_.Window(), text);
    view_.ShowStatus(text);
    return;
  }
  view_.ShowStatus("The Log File has been cleared.");
}

void OptionController::ChooseColour(ColourElement element, bool fromSample) {
  const ColourElementRow& row = RowOf(element);
  const SettingRow& custom = RowOf(row.custom);
  const std::string stored = fromSample ? GetSettingWithOtherDefault(services_.settings, row.custom)
                                        : GetSetting(services_.settings, row.custom);
  ColourExchange exchange;
  exchange.caption = row.caption;
  exchange.current = view_.Colours().Colour(element);
  exchange.defaultColour = row.windowDefault;
  exchange.custom = PadCustomColour(stored, fromSample ? custom.otherDefault : custom.defaultValue);
  FrmColourChoice dialog(exchange, view_.Window());
  services_.door.Run(dialog);
  view_.Colours().Apply(element, exchange.current);
  const SettingsBatch batch(services_.settings);
  SaveSetting(services_.settings, row.colour, exchange.current);
  SaveSetting(services_.settings, row.custom, exchange.custom);
}

void OptionController::ResetColours() {
  const SettingsBatch batch(services_.settings);
  for (const ColourElement element : ResetOrder()) {
    const std::string colour(RowOf(element).resetColour);
    view_.Colours().Apply(element, colour);
    SaveSetting(services_.settings, RowOf(element).colour, colour);
  }
}

void OptionController::ShowHelp() {
  const std::string path = OwnOrInstalled(services_.programDirectory, ExecutableDirectory(), kHelpFileName);
  if (const auto text = ReadHelp(path)) {
    FrmHelp help(*text, view_.Window());
    services_.door.Run(help);
  } else {
    services_.door.Show(view_.Window(), "The help file was not found.  It was expected here:\r\n\r\n" + path);
  }
}

void OptionController::ShowAbout() {
  FrmAbout about(services_, session_, view_.Window());
  services_.door.Run(about);
}

void OptionController::CountByLetter() {
  const std::unique_ptr<FrmInfo> info(FrmInfo::ByLetter(*session_.lexicon, view_.Window()));
  services_.door.Run(*info);
}

void OptionController::CountByLength() {
  const std::unique_ptr<FrmInfo> info(FrmInfo::ByLength(*session_.lexicon, view_.Window()));
  services_.door.Run(*info);
}

void OptionController::ShowWildcards() {
  const std::unique_ptr<FrmInfo> info(FrmInfo::Wildcards(view_.Window()));
  services_.door.Run(*info);
}

}  // namespace quorvane
