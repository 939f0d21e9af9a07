// An open file under a lock, for files that several programs change.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>

namespace quorvane {

class LockedFile {
 public:
  // `flags` as of open(), a new file being its owner's alone; `lock` as of flock(). Another program's lock is waited
  // for a second at most. Where the file is replaced meanwhile, the new one is locked.
  LockedFile(const std::string& path, int flags, int lock);
  ~LockedFile() { Close(); }
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;

  // 0 or an errno value.
  int Error() const { return error_; }
  int Descriptor() const { return descriptor_; }
  off_t Size() const;
  // 0 or an errno value.
  int ReadAll(std::string& bytes) const;

 private:
  bool Lock(int lock, std::chrono::steady_clock::time_point end) const;
  bool IsAt(const std::string& path) const;
  void Close();

  int descriptor_ = -1;
  int error_ = 0;
};

}  // namespace quorvane
