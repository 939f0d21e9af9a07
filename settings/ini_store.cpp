#include "settings/ini_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryDir>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <sstream>

#include "base/qt_text.h"

namespace quorvane {
namespace {

QString KeyOf(std::string_view application, std::string_view section, std::string_view key) {
  const QString path = FromText(section) + "/" + FromText(key);
  return application == kApplicationName ? path : FromText(application) + "/" + path;
}

std::string BytesOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

// A ";" outside quotes begins a comment; a backslash escapes, unless it stands for itself or for a character's code.
bool IsMisread(std::string_view written) {
  for (size_t i = written.find('\\'); i != std::string_view::npos; i = written.find('\\', i + 2)) {
    const char next = i + 1 < written.size() ? written[i + 1] : '\0';
    if (next != '\\' && next != 'x' && next != '"') {
      return true;
    }
  }
  return !written.starts_with('"') && written.find(';') != std::string_view::npos;
}

// The keys with their sections, "Section/Key", whose values are misread.
QSet<QString> MisreadKeys(const std::string& bytes) {
  QSet<QString> keys;
  std::istringstream text(bytes);
  std::string section;
  for (std::string line; std::getline(text, line);) {
    const size_t equals = line.find('=');
    if (line.starts_with('[')) {
      section = line.substr(1, line.find(']') - 1);
    } else if (equals != std::string::npos && IsMisread(std::string_view(line).substr(equals + 1))) {
      keys.insert(FromText(section + "/" + line.substr(0, equals)));
    }
  }
  return keys;
}

qsizetype LinesOfKeys(const std::string& bytes) {
  qsizetype lines = 0;
  std::istringstream text(bytes);
  for (std::string line; std::getline(text, line);) {
    lines += line.find('=') != std::string::npos ? 1 : 0;
  }
  return lines;
}

}  // namespace

QString SettingsFileName() {
  const QString named = qEnvironmentVariable("QUORVANE_SETTINGS");
  return named.isEmpty() ? QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
                               .filePath("Quorvane/Quorvane.conf")
                         : named;
}

IniStore::IniStore(const QString& fileName, std::function<void(const FileError&)> onFailure)
    : file_(fileName, QSettings::IniFormat),
      misread_(MisreadKeys(BytesOf(fileName))),
      onFailure_(std::move(onFailure)) {
  file_.setFallbacksEnabled(false);
}

std::string IniStore::Get(std::string_view application, std::string_view section, std::string_view key,
                          std::string_view defaultValue) const {
  const QVariant value = Value(KeyOf(application, section, key));
  switch (value.typeId()) {
    case QMetaType::QString:
      return ToText(value.toString());
    case QMetaType::QStringList:  // A hand-written value with commas.
      return ToText(value.toStringList().join(", "));
    default:
      return std::string(defaultValue);
  }
}

bool IniStore::IsDamaged(std::string_view application, std::string_view section, std::string_view key) const {
  return misread_.contains(KeyOf(application, section, key));
}

void IniStore::Save(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view value) {
  const QString name = KeyOf(application, section, key);
  const QString text = FromText(value);
  misread_.remove(name);
  const QVariant stored = Value(name);
  if (stored.typeId() == QMetaType::QString && stored.toString() == text) {
    return;
  }
  changes_[name] = text;
  if (batches_ == 0) {
    Sync();
  }
}

void IniStore::EndBatch() {
  if (--batches_ == 0) {
    Sync();
  }
}

bool IniStore::Flush() {
  Sync();
  return changes_.isEmpty();
}

void IniStore::Sync() {
  if (changes_.isEmpty()) {
    return;
  }
  const auto error = Write();
  if (!error) {
    changes_.clear();
    file_.sync();
  } else if (!told_) {
    told_ = true;
    onFailure_(*error);
  }
}

std::optional<FileError> IniStore::Write() {
  const std::string path = ToText(file_.fileName());
  file_.sync();  // Somebody may have changed the file meanwhile.
  // What can't be read is not replaced by the little that is known of it.
  if (const FileHandle readable(std::fopen(path.c_str(), "rb")); readable == nullptr && errno != ENOENT) {
    return FileErrorOfErrno(path, errno);
  }
  const QTemporaryDir folder;
  if (!folder.isValid()) {
    return FileError{MakeRunTimeError(kErrorPathFileAccess), ToText(folder.path()), ToText(folder.errorString())};
  }
  const QString scratch = folder.filePath("settings.conf");
  QSettings settings(scratch, QSettings::IniFormat);
  for (const QString& key : file_.allKeys()) {
    settings.setValue(key, file_.value(key));
  }
  for (auto change = changes_.cbegin(); change != changes_.cend(); ++change) {
    settings.setValue(change.key(), change.value());
  }
  settings.sync();
  const std::string bytes = BytesOf(scratch);
  // A disk that is nearly full gives a file that breaks off, and no error: each key has its line.
  if (!bytes.ends_with('\n') || LinesOfKeys(bytes) != settings.allKeys().size()) {
    return FileError{MakeRunTimeError(kErrorDiskFull), ToText(scratch), "it could not be written whole"};
  }
  QFileInfo(file_.fileName()).dir().mkpath(".");
  return ReplaceFile(path, [&bytes](FileWriter& out) { out.Write(bytes); });
}

}  // namespace quorvane
