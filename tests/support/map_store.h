// A settings store in memory.
#pragma once

#include <map>
#include <string>

#include "settings/settings_store.h"

namespace quorvane::test {

class MapStore : public SettingsStore {
 public:
  std::string Get(std::string_view, std::string_view section, std::string_view key,
                  std::string_view otherwise) const override {
    const auto found = values.find(std::string(section) + "/" + std::string(key));
    return found == values.end() ? std::string(otherwise) : found->second;
  }
  void Save(std::string_view, std::string_view section, std::string_view key, std::string_view value) override {
    values[std::string(section) + "/" + std::string(key)] = value;
  }
  std::map<std::string, std::string> values;
};

}  // namespace quorvane::test
