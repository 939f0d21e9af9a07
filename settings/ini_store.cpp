#include "settings/ini_store.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

#include "base/qt_text.h"

namespace quorvane {
namespace {

QString KeyOf(std::string_view application, std::string_view section, std::string_view key) {
  const QString path = FromText(section) + "/" + FromText(key);
  return application == kApplicationName ? path : FromText(application) + "/" + path;
}

}  // namespace

QString SettingsFileName() {
  const QString named = qEnvironmentVariable("QUORVANE_SETTINGS");
  return named.isEmpty() ? QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
                               .filePath("Quorvane/Quorvane.conf")
                         : named;
}

IniStore::IniStore(const QString& fileName, std::function<void(const FileError&)> onFailure)
    : settings_(fileName, QSettings::IniFormat), onFailure_(std::move(onFailure)) {
  settings_.setFallbacksEnabled(false);
}

std::string IniStore::Get(std::string_view application, std::string_view section, std::string_view key,
                          std::string_view defaultValue) const {
  const QVariant value = settings_.value(KeyOf(application, section, key));
  switch (value.typeId()) {
    case QMetaType::QString:
      return ToText(value.toString());
    case QMetaType::QStringList:  // A hand-written value with commas.
      return ToText(value.toStringList().join(", "));
    default:
      return std::string(defaultValue);
  }
}

void IniStore::Save(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view value) {
  const QString name = KeyOf(application, section, key);
  const QString text = FromText(value);
  const QVariant stored = settings_.value(name);
  if (stored.typeId() == QMetaType::QString && stored.toString() == text) {
    return;
  }
  settings_.setValue(name, text);
  changed_ = true;
  if (batches_ == 0) {
    Sync();
  }
}

void IniStore::EndBatch() {
  if (--batches_ == 0 && changed_) {
    Sync();
  }
}

bool IniStore::Flush() {
  Sync();
  return !failed_;
}

void IniStore::Sync() {
  changed_ = false;
  const QFileInfo before(settings_.fileName());
  const QDateTime lastModified = before.lastModified();
  const qint64 lastSize = before.size();
  settings_.sync();
  if (failed_) {
    return;
  }
  // A damaged line leaves the status at FormatError although writing works: what counts is an access error, or a file
  // that is not there.
  const QFileInfo after(settings_.fileName());
  const bool unchanged = !after.isFile() || (after.lastModified() == lastModified && after.size() == lastSize &&
                                             settings_.status() != QSettings::NoError);
  if (settings_.status() != QSettings::AccessError && !unchanged) {
    return;
  }
  failed_ = true;
  const std::string path = ToText(settings_.fileName());
  const char* reason = after.isDir() ? "it is a directory" : "it can't be written to";
  onFailure_({MakeRunTimeError(kErrorPathFileAccess), path, reason});
}

}  // namespace quorvane
