#include "settings/window/ini_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>
#include <cerrno>
#include <cstdio>
#include <sstream>

#include "base/window/qt_text.h"

namespace quorvane {
namespace {

constexpr int kLockMilliseconds = 500;

QString KeyOf(std::string_view application, std::string_view section, std::string_view key) {
  const QString path = FromText(section) + "/" + FromText(key);
  return application == kApplicationName ? path : FromText(application) + "/" + path;
}

std::string BytesOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

// The section whose values are paths: half a path may name another file of the user's.
constexpr const char* kPathSection = "Locations";

// Whether a path written by hand is read as another: a ";" outside quotes begins a comment, a "," makes a list, and a
// backslash escapes unless it stands for itself.
bool IsMisread(QStringView written) {
  for (qsizetype i = written.indexOf('\\'); i >= 0; i = written.indexOf('\\', i + 2)) {
    const QChar next = i + 1 < written.size() ? written[i + 1] : QChar();
    if (next != '\\' && next != '"') {
      return true;
    }
  }
  return !written.startsWith('"') && (written.contains(';') || written.contains(','));
}

// The keys of paths that are misread, "Section/Key".
QSet<QString> MisreadPaths(const std::string& bytes) {
  QSet<QString> keys;
  QString section;
  QString text = QString::fromUtf8(bytes);
  for (const QString& whole : text.remove(QChar(QChar::ByteOrderMark)).replace('\r', '\n').split('\n')) {
    const QString line = whole.trimmed();
    const qsizetype equals = line.indexOf('=');
    if (line.startsWith('[')) {
      section = line.mid(1, line.indexOf(']') - 1).trimmed();
    } else if (equals > 0 && section == kPathSection && IsMisread(QStringView(line).mid(equals + 1).trimmed())) {
      keys.insert(section + "/" + QUrl::fromPercentEncoding(line.left(equals).trimmed().toUtf8()));
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
      misread_(MisreadPaths(BytesOf(fileName))),
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
  const QDir folder = QFileInfo(file_.fileName()).dir();
  folder.mkpath(".");
  QLockFile lock(file_.fileName() + ".lock");
  lock.tryLock(kLockMilliseconds);
  file_.sync();  // Somebody may have changed the file meanwhile.
  // What can't be read is not replaced by the little that is known of it.
  if (const FileHandle readable(std::fopen(path.c_str(), "rb")); readable == nullptr && errno != ENOENT) {
    return FileErrorOfErrno(path, errno);
  }
  const std::string before = BytesOf(file_.fileName());
  misread_.unite(MisreadPaths(before));
  const QTemporaryDir scratch(folder.filePath("settings-XXXXXX"));
  if (!scratch.isValid()) {
    return FileError{MakeRunTimeError(kErrorPathFileAccess), path, ToText(scratch.errorString())};
  }
  const QString made = scratch.filePath("settings.conf");
  if (auto error = ReplaceFile(ToText(made), [&before](FileWriter& out) { out.Write(before); })) {
    return error;
  }
  QSettings settings(made, QSettings::IniFormat);
  for (const QString& key : misread_) {
    settings.remove(key);
  }
  for (auto change = changes_.cbegin(); change != changes_.cend(); ++change) {
    settings.setValue(change.key(), change.value());
  }
  settings.sync();
  const std::string bytes = BytesOf(made);
  // A disk that is nearly full gives a file that breaks off, and no error: each key has its line.
  if (!bytes.ends_with('\n') || LinesOfKeys(bytes) < settings.allKeys().size()) {
    return FileError{MakeRunTimeError(kErrorDiskFull), path, "it could not be written whole"};
  }
  return ReplaceFile(path, [&bytes](FileWriter& out) { out.Write(bytes); });
}

}  // namespace quorvane
