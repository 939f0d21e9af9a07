// The settings store on QSettings: one file in INI form, one group a section.
#pragma once

#include <QMap>
#include <QSet>
#include <QVariant>
#include <functional>
#include <optional>
#include <string>

#include "base/file.h"
#include "settings/settings_store.h"

namespace quorvane {

// QSettings reads the bytes and makes those of a changed file, in scratch files in the temporary folder; the file
// itself is replaced like every other of the program's: whole or not at all. What was read or written last is what
// holds until the next save, which looks at the file again. A file that is no regular one or too large for one is left
// alone.
class IniStore : public SettingsStore {
 public:
  // `onFailure` is called once, when the file can't be read or written; choices then live in memory until it can.
  IniStore(const QString& fileName, std::function<void(const FileError&)> onFailure);

  std::string Get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view defaultValue) const override;
  bool IsDamaged(std::string_view application, std::string_view section, std::string_view key) const override;
  void Save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view value) override;
  bool Flush() override;

  QString FileName() const { return fileName_; }

 private:
  void BeginBatch() override { ++batches_; }
  void EndBatch() override;
  QVariant Value(const QString& name) const { return changes_.value(name, values_.value(name)); }
  void Sync();
  std::optional<FileError> Write();

  const QString fileName_;
  QMap<QString, QVariant> values_;   // What the file held when it was read or written last.
  QMap<QString, QVariant> changes_;  // What is not in the file yet.
  // The keys of paths that were misread and not saved since; the first write takes them out of the file.
  QSet<QString> misread_;
  std::function<void(const FileError&)> onFailure_;
  int batches_ = 0;
  bool told_ = false;
};

// The file that QUORVANE_SETTINGS names, or else Quorvane/Quorvane.conf in the user's configuration folder.
QString SettingsFileName();

}  // namespace quorvane
