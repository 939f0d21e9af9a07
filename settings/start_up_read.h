// Reading the settings at start: in a fixed order, each value repaired, written back and applied.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/run_time_error.h"
#include "settings/event_log.h"
#include "settings/old_ini_file.h"
#include "settings/settings_table.h"

namespace quorvane {

// What the read needs of the program around it: where values go, who is told, which printers there are.
class StartUpSite {
 public:
  struct Printers {
    std::vector<std::string> names;
    std::optional<int> error;  // The number of a printer error, 481 to 486.
    bool silent = false;       // Which printers there are could not be found out.
  };

  virtual ~StartUpSite() = default;
  // False when nothing takes the value.
  virtual bool Apply(Setting setting, const std::string& value) = 0;
  virtual void ShowBox(const std::string& title, const std::string& text, bool critical) = 0;
  virtual Printers ListPrinters() = 0;
};

// What `Setting::LexiconFile` stands for once resolved.
struct LexiconChoice {
  std::string setting;  // As stored.
  std::string path;
};

class StartUpRead {
 public:
  StartUpRead(std::string programDirectory, SettingsStore& store, EventLog& log, StartUpSite& site);

  // The whole read. An old initialisation file is read and applied, converted and deleted first, when there is one.
  LexiconChoice Run();

 private:
  void ReadStore();
  // One step of the read, by its row.
  void Read(const SettingRow& row);
  void ReadLexicon();
  void ReadSaveFile();
  void ReadPrinter();
  void Store(const SettingRow& row, const std::string& value);
  void Apply(const SettingRow& row, const std::string& value);
  void ReadOldFile();
  void Convert(const OldIniFile& old);
  void RetireOldList();
  void CheckSaveFile(const std::string& name, std::string_view dummyLine, bool old);
  void Report(const RunTimeError& error, std::string_view label);
  void ReportErrors(const std::string& text);

  const std::string directory_;
  SettingsStore& store_;
  EventLog& log_;
  StartUpSite& site_;
  LexiconChoice lexicon_;
  std::string last_;  // The value read last.
};

}  // namespace quorvane
