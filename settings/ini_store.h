// The settings store on QSettings: one file in INI form, one group a section.
#pragma once

#include <QSettings>
#include <functional>
#include <string>

#include "base/file.h"
#include "settings/settings_store.h"

namespace quorvane {

class IniStore : public SettingsStore {
 public:
  // `onFailure` is called once, when the file can't be written; choices then live in memory until the end.
  IniStore(const QString& fileName, std::function<void(const FileError&)> onFailure);

  std::string Get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view defaultValue) const override;
  void Save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view value) override;
  void BeginBatch() override { ++batches_; }
  void EndBatch() override;
  bool Flush() override;

  QString FileName() const { return settings_.fileName(); }

 private:
  void Sync();

  QSettings settings_;
  std::function<void(const FileError&)> onFailure_;
  int batches_ = 0;
  bool changed_ = false;
  bool failed_ = false;
};

// The file that QUORVANE_SETTINGS names, or else Quorvane/Quorvane.conf in the user's configuration folder.
QString SettingsFileName();

}  // namespace quorvane
