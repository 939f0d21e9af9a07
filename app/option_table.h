// The one table of options, the choices that are on or off: what stores them, what shows them, what they do.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "app/menu.h"
#include "app/view.h"
#include "settings/event_log.h"
#include "settings/settings_table.h"

namespace quorvane {

enum class Option {
  AutoSave,
  Literati,
  Timer,
  Log,
  ListBold,
  ListItalic,
  WideScreen,
  LiveResults,
  Reading,
  KeepHistory
};

// What an option acts on.
class OptionSite : public virtual View {
 public:
  virtual void SetAutoSave(bool on) = 0;
  virtual void SetListRegionTwips(int height) = 0;
  virtual void SetListBold(bool on) = 0;
  virtual void SetListItalic(bool on) = 0;
  virtual void SetWide(bool on) = 0;
  virtual void SetLiveResults(bool on) = 0;
  virtual void SetReading(bool on) = 0;
  virtual void KeepHistory(bool on) = 0;
  // A change of it: asks what becomes of what is kept. What to say of it, where that is more than the status text.
  virtual std::optional<std::string> SwitchHistory(bool on) = 0;
};

struct OptionRow {
  Option option;
  Setting setting;
  // Of its menu item; empty for an option that a control of a panel shows.
  std::string_view item;
  std::string_view caption;
  // What the status line says of a change; empty where it keeps its text.
  std::string_view statusOn;
  std::string_view statusOff;
  // What it does, at start and at each change; null for nothing at once.
  void (*apply)(OptionSite& site, EventLog& log, bool on);
  // What a change does instead, where that is more: the text of what went wrong, if anything did.
  std::optional<std::string> (*change)(OptionSite& site, EventLog& log, bool on) = nullptr;
  Menu menu = Menu::Options;
  std::string_view shortcut{};
};

std::span<const OptionRow> Options();
const OptionRow& RowOf(Option option);
// Null for a setting that is no option.
const OptionRow* OptionOf(Setting setting);

}  // namespace quorvane
