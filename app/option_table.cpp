#include "app/option_table.h"

#include <algorithm>
#include <array>

namespace quorvane {
namespace {

constexpr int kListRegionTwips = 3540;
constexpr int kLiteratiListRegionTwips = 8900;

std::optional<std::string> SwitchLog(OptionSite&, EventLog& log, bool on) {
  if (!on) {
    log.SwitchOff();
    return std::nullopt;
  }
  const auto error = log.SwitchOn();
  return error ? std::optional("The Log File could not be written: " + error->Text()) : std::nullopt;
}

constexpr std::array kRows = {
    OptionRow{Option::AutoSave, Setting::SaveToFile, "", "", "", "",
              [](OptionSite& site, EventLog&, bool on) { site.SetAutoSave(on); }},
    OptionRow{Option::Literati, Setting::Literati, "", "", "", "",
              [](OptionSite& site, EventLog&, bool on) {
                site.SetListRegionTwips(on ? kLiteratiListRegionTwips : kListRegionTwips);
              }},
    OptionRow{Option::Timer, Setting::TimerInd, "menTimer", "Use &timer", "The timer has been activated.",
              "The timer has been deactivated.", [](OptionSite& site, EventLog&, bool) { site.ShowTimer(""); }},
    OptionRow{Option::Log, Setting::WriteToLogFile, "menWriteToLog", "Write to &log file",
              "The Log File has been activated.", "The Log File has been deactivated.",
              [](OptionSite&, EventLog& log, bool on) { log.SetIndicator(on); }, SwitchLog},
    OptionRow{Option::ListBold, Setting::ListBold, "", "", "", "",
              [](OptionSite& site, EventLog&, bool on) { site.SetListBold(on); }},
    OptionRow{Option::ListItalic, Setting::ListItalic, "", "", "", "",
              [](OptionSite& site, EventLog&, bool on) { site.SetListItalic(on); }},
    OptionRow{Option::WideScreen, Setting::WideScreen, "menWideScreen", "&Wide Screen",
              "Wide screen mode has been set.", "Normal-width screen mode has been set.",
              [](OptionSite& site, EventLog&, bool on) { site.SetWide(on); }},
    OptionRow{Option::LiveResults, Setting::LiveResults, "menLiveResults", "&Results while typing",
              "Results are shown while you type.", "Results are shown when you ask for them.",
              [](OptionSite& site, EventLog&, bool on) { site.SetLiveResults(on); }, nullptr, Menu::Workbench,
              "Ctrl+R"},
    OptionRow{Option::Reading, Setting::Reading, "menReading", "&Say what is searched",
              "What is searched is said beside the letter count.", "What is searched is not said.",
              [](OptionSite& site, EventLog&, bool on) { site.SetReading(on); }, nullptr, Menu::Workbench},
    OptionRow{Option::KeepHistory, Setting::KeepHistory, "menKeepHistory", "&Keep the searches", "Searches are kept.",
              "Searches are not kept.", [](OptionSite& site, EventLog&, bool on) { site.KeepHistory(on); },
              [](OptionSite& site, EventLog&, bool on) { return site.SwitchHistory(on); }, Menu::Workbench},
};
static_assert(
    [] {
      for (size_t i = 0; i < kRows.size(); ++i) {
        if (kRows[i].option != static_cast<Option>(i)) {
          return false;
        }
      }
      return true;
    }(),
    "the rows stand in the order of the options");

}  // namespace

std::span<const OptionRow> Options() {
  return kRows;
}

const OptionRow& RowOf(Option option) {
  return kRows[static_cast<size_t>(option)];
}

const OptionRow* OptionOf(Setting setting) {
  const auto* row = std::find_if(kRows.begin(), kRows.end(), [&](const OptionRow& r) { return r.setting == setting; });
  return row == kRows.end() ? nullptr : row;
}

}  // namespace quorvane
