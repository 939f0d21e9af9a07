#include "app/start/single_instance.h"

#include <QDir>
#include <QStandardPaths>

namespace quorvane {

SingleInstance::SingleInstance()
    : path_(QDir(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)).filePath("quorvane.lock")),
      lock_(path_) {
  lock_.setStaleLockTime(0);
}

SingleInstance::Outcome SingleInstance::Claim() {
  if (lock_.tryLock(0)) {
    return Outcome::First;
  }
  return lock_.error() == QLockFile::LockFailedError ? Outcome::Second : Outcome::NoLock;
}

}  // namespace quorvane
