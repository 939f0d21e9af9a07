// One instance a user.
#pragma once

#include <QLockFile>
#include <QString>

#include "base/file.h"

namespace quorvane {

inline constexpr const char* kSecondInstanceText =
    "Quorvane is already running on this machine.\n\r       Only one such instance is allowed.";

class SingleInstance {
 public:
  enum class Outcome { First, Second, NoLock };

  // A lock in the user's runtime folder. It is never stale by age; that of a process that is gone is taken over, and so
  // is an empty or damaged one that no process holds.
  SingleInstance();
  Outcome Claim();
  QString LockPath() const { return path_; }

 private:
  // Whether a lock file stood there that no process holds, and was removed.
  bool RemoveAbandoned() const;

  QString path_;
  QLockFile lock_;
};

}  // namespace quorvane
