// The per-user settings store: text values under (application, section, key).
#pragma once

#include <string>
#include <string_view>

namespace quorvane {

inline constexpr std::string_view kApplicationName = "Quorvane";

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // The stored text, or `defaultValue` when the key is absent. A key that is present but empty is not absent.
  virtual std::string Get(std::string_view application, std::string_view section, std::string_view key,
                          std::string_view defaultValue) const = 0;
  // Whether the value is not what whoever wrote it by hand meant: cut, or with characters taken for escapes.
  virtual bool IsDamaged(std::string_view /*application*/, std::string_view /*section*/,
                         std::string_view /*key*/) const {
    return false;
  }
  // Creates or replaces the value. Nothing is ever deleted. A store that can't be written keeps the value in memory.
  virtual void Save(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view value) = 0;

  // Brings everything to the disk at once, even inside a batch; false when that failed.
  virtual bool Flush() { return true; }

 private:
  friend class SettingsBatch;
  virtual void BeginBatch() {}
  virtual void EndBatch() {}
};

// While one lives saves are collected; they reach the disk together when the outermost goes.
class SettingsBatch {
 public:
  explicit SettingsBatch(SettingsStore& store) : store_(store) { store_.BeginBatch(); }
  ~SettingsBatch() { store_.EndBatch(); }
  SettingsBatch(const SettingsBatch&) = delete;
  SettingsBatch& operator=(const SettingsBatch&) = delete;

 private:
  SettingsStore& store_;
};

}  // namespace quorvane
