#include "app/start/single_instance.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <ctime>

namespace quorvane {
namespace {

constexpr std::time_t kYoungSeconds = 2;

}  // namespace

SingleInstance::SingleInstance()
    : path_(QDir(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)).filePath("quorvane.lock")),
      lock_(path_) {
  lock_.setStaleLockTime(0);
}

bool SingleInstance::RemoveAbandoned() const {
  const QByteArray path = QFile::encodeName(path_);
  const int descriptor = open(path.constData(), O_RDWR | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) {
    return false;
  }
  struct stat held {};
  struct stat there {};
  // Its owner keeps it locked. One that was made just now may not be so yet.
  const bool abandoned = fstat(descriptor, &held) == 0 && std::time(nullptr) - held.st_mtime > kYoungSeconds &&
                         flock(descriptor, LOCK_EX | LOCK_NB) == 0 && stat(path.constData(), &there) == 0 &&
                         held.st_ino == there.st_ino && held.st_dev == there.st_dev;
  const bool removed = abandoned && unlink(path.constData()) == 0;
  close(descriptor);
  return removed;
}

SingleInstance::Outcome SingleInstance::Claim() {
  struct stat status {};
  if (lstat(QFile::encodeName(path_).constData(), &status) == 0 && !S_ISREG(status.st_mode)) {
    return Outcome::NoLock;
  }
  if (lock_.tryLock(0) || (lock_.error() == QLockFile::LockFailedError && RemoveAbandoned() && lock_.tryLock(0))) {
    return Outcome::First;
  }
  return lock_.error() == QLockFile::LockFailedError ? Outcome::Second : Outcome::NoLock;
}

}  // namespace quorvane
