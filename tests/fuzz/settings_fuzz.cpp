// What the start makes of damaged settings and of any old initialisation file.
#include <array>
#include <filesystem>
#include <map>
#include <regex>

#include "settings/settings_table.h"
#include "settings/start_up_read.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/map_store.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::fuzz {
namespace {

namespace fs = std::filesystem;

// Values that name no file outside the program's directory.
std::string Value(FuzzedDataProvider& data) {
  constexpr std::array kValues = {"Yes", "NotFound", "", "Fixed", "0", "61", "99999999999", "&H8000000F"};
  const bool any = data.ConsumeBool();
  std::string value = any ? data.ConsumeRandomLengthString(40) : data.PickValueInArray(kValues);
  std::erase_if(value, [](char c) { return c == '/' || c == '\\' || c == '\0'; });
  return value;
}

bool IsRepaired(const SettingRow& row, const std::string& value) {
  static const std::map<Repair, std::regex> kForms = {{Repair::YesNo, std::regex("Yes|No")},
                                                      {Repair::Length, std::regex("[1-9]|[1-5][0-9]|60")},
                                                      {Repair::Colour, std::regex("&H[0-9a-fA-F]{8}")},
                                                      {Repair::Letters, std::regex("[a-zA-Z]*")},
                                                      {Repair::LettersOrNone, std::regex("[a-zA-Z]*")},
                                                      {Repair::Tiles, std::regex("[a-zA-Z?-]*")}};
  const auto form = kForms.find(row.repair);
  return form == kForms.end() || std::regex_match(value, form->second);
}

class Site : public StartUpSite {
 public:
  bool Apply(Setting setting, const std::string& value) override {
    Demand(IsRepaired(RowOf(setting), value), "repaired before it is applied: " + value);
    applied[setting] = value;
    return true;
  }
  void ShowBox(const std::string&, const std::string&, bool) override {}
  Printers ListPrinters() override { return {{"Office"}, std::nullopt}; }
  std::map<Setting, std::string> applied;
};

// A directory that holds a lexicon and the old file, nothing else.
std::string Home(const std::string& oldFile) {
  static const test::TemporaryDirectory home;
  for (const auto& entry : fs::directory_iterator(home.path())) {
    fs::remove_all(entry.path());
  }
  home.Write("words.lex", "cat\n");
  home.Write("quorvane.ini", oldFile);
  return home.path();
}

std::map<Setting, std::string> Start(const std::string& directory, SettingsStore& store) {
  EventLog log(
      directory + "/quorvane.log", [] { return std::tm{}; }, [](const FileError&) {});
  log.Open();
  Site site;
  StartUpRead(directory, store, log, site).Run();
  return site.applied;
}

}  // namespace
}  // namespace quorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  using namespace quorvane;
  using namespace quorvane::fuzz;
  FuzzedDataProvider data(bytes, size);
  test::MapStore store;
  for (const SettingRow& row : SettingRows()) {
    const std::string value = Value(data);
    const std::string repaired = Repaired(row.setting, value);
    Demand(IsRepaired(row, repaired), "repaired: " + value + " -> " + repaired);
    Demand(Repaired(row.setting, repaired) == repaired, "a repaired value stays: " + value + " -> " + repaired);
    SaveSetting(store, row.setting, value);
  }
  std::string oldFile;
  while (data.remaining_bytes() > 0) {
    const auto rows = SettingRows();
    oldFile += std::string(rows[data.ConsumeIntegralInRange<size_t>(0, rows.size() - 1)].key) + "=" + Value(data) +
               data.PickValueInArray({"\r\n", "\n", ",", "=", "\n;", "\n["});
  }
  const std::string home = Home(oldFile);
  Start(home, store);
  Demand(!fs::exists(home + "/quorvane.ini"), "an old file is taken over once");
  // The list's font alone may change at a second start; it has changed by the third.
  Start(home, store);
  const auto second = store.values;
  const auto applied = Start(home, store);
  Demand(store.values == second, "what a start has stored stays");
  Demand(Start(home, store) == applied, "what a start applies stays");
  return 0;
}
