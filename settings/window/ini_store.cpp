#include "settings/window/ini_store.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryDir>
#include <QThread>
#include <QUrl>
#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "base/window/qt_text.h"

namespace quorvane {
namespace {

constexpr int kLockTries = 50;
constexpr unsigned kLockMilliseconds = 10;  // Between two of them.

// Keeps other writers of files in the folder waiting. It is the folder itself that is locked: a lock of that kind
// leaves no file and goes with its process. Where it can't be had in time the writer goes on without it.
class FolderLock {
 public:
  explicit FolderLock(const std::filesystem::path& folder) : folder_(open(folder.c_str(), O_RDONLY | O_CLOEXEC)) {
    for (int i = 0; i < kLockTries && flock(folder_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK; ++i) {
      QThread::msleep(kLockMilliseconds);
    }
  }
  ~FolderLock() { close(folder_); }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  const int folder_;
};

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

QMap<QString, QVariant> ValuesOf(const QSettings& settings) {
  QMap<QString, QVariant> values;
  for (const QString& key : settings.allKeys()) {
    values[key] = settings.value(key);
  }
  return values;
}

// The keys without the slashes between section and key: in a file without sections they come and go.
QSet<QString> KeysIn(const QMap<QString, QVariant>& values) {
  QSet<QString> keys;
  for (QString key : values.keys()) {
    keys.insert(key.remove('/'));
  }
  return keys;
}

// A file of bytes under a name that nobody else uses: QSettings takes a file that it has seen for unchanged when size
// and time are the same. Gone with the object.
class ScratchFile {
 public:
  explicit ScratchFile(const std::string& bytes) : path_(folder_.filePath("settings.conf")) {
    if (!folder_.isValid()) {
      error_ =
          FileError{MakeRunTimeError(kErrorPathFileAccess), ToText(QDir::tempPath()), ToText(folder_.errorString())};
    } else {
      error_ = ReplaceFile(ToText(path_), [&bytes](FileWriter& out) { out.Write(bytes); });
    }
  }
  const QString& Path() const { return path_; }
  const std::optional<FileError>& Error() const { return error_; }

 private:
  const QTemporaryDir folder_;
  const QString path_;
  std::optional<FileError> error_;
};

}  // namespace

QString SettingsFileName() {
  const QString named = qEnvironmentVariable("QUORVANE_SETTINGS");
  return named.isEmpty() ? QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
                               .filePath("Quorvane/Quorvane.conf")
                         : named;
}

IniStore::IniStore(const QString& fileName, std::function<void(const FileError&)> onFailure)
    : fileName_(fileName), onFailure_(std::move(onFailure)) {
  if (NotSmallRegular(ToText(fileName))) {
    return;
  }
  const std::string bytes = BytesOf(fileName);
  misread_ = MisreadPaths(bytes);
  const ScratchFile scratch(bytes);
  values_ = ValuesOf(QSettings(scratch.Error() ? fileName : scratch.Path(), QSettings::IniFormat));
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
  } else if (!told_) {
    told_ = true;
    onFailure_(*error);
  }
}

std::optional<FileError> IniStore::Write() {
  const std::string path = ToText(fileName_);
  if (auto error = NotSmallRegular(path)) {
    return error;
  }
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::absolute(path, error).parent_path();
  if (std::filesystem::create_directories(folder, error); error) {
    return FileErrorOfErrno(folder.string(), error.value());
  }
  const FolderLock lock(folder);
  // What can't be read is not replaced by the little that is known of it.
  if (const FileHandle readable(std::fopen(path.c_str(), "rb")); readable == nullptr && errno != ENOENT) {
    return FileErrorOfErrno(path, errno);
  }
  const std::string before = BytesOf(fileName_);  // Somebody may have changed the file meanwhile.
  const ScratchFile made(before);
  if (made.Error()) {
    return made.Error();
  }
  QSettings settings(made.Path(), QSettings::IniFormat);
  values_ = ValuesOf(settings);
  misread_.unite(MisreadPaths(before));
  for (const QString& key : misread_) {
    settings.remove(key);
  }
  for (auto change = changes_.cbegin(); change != changes_.cend(); ++change) {
    settings.setValue(change.key(), change.value());
  }
  settings.sync();
  const std::string bytes = BytesOf(made.Path());
  const ScratchFile copy(bytes);
  if (copy.Error()) {
    return copy.Error();
  }
  auto written = ValuesOf(QSettings(copy.Path(), QSettings::IniFormat));
  // A disk that is nearly full gives a file that breaks off, and no error.
  bool whole = bytes.ends_with('\n') && KeysIn(written) == KeysIn(ValuesOf(settings));
  for (auto change = changes_.cbegin(); change != changes_.cend(); ++change) {
    whole = whole && written.value(change.key()) == change.value();
  }
  if (!whole) {
    return FileError{MakeRunTimeError(kErrorDiskFull), path, "it could not be written whole"};
  }
  auto failure = ReplaceFile(path, [&bytes](FileWriter& out) { out.Write(bytes); });
  if (!failure) {
    values_ = std::move(written);
  }
  return failure;
}

}  // namespace quorvane
