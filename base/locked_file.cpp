#include "base/locked_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <thread>

namespace quorvane {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kLongestWait = std::chrono::seconds(1);
constexpr auto kBetweenTries = std::chrono::microseconds(200);

}  // namespace

LockedFile::LockedFile(const std::string& path, int flags, int lock) {
  const auto end = Clock::now() + kLongestWait;
  do {
    Close();
    descriptor_ = open(path.c_str(), flags | O_CLOEXEC, 0600);
    if (descriptor_ < 0 || !Lock(lock, end)) {
      error_ = errno;
      return;
    }
  } while (!IsAt(path));
}

off_t LockedFile::Size() const {
  struct stat status {};
  return fstat(descriptor_, &status) == 0 ? status.st_size : 0;
}

int LockedFile::ReadAll(std::string& bytes) const {
  bytes.resize(static_cast<size_t>(Size()));
  size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t got = pread(descriptor_, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
    if (got < 0 && errno != EINTR) {
      return errno;
    }
    if (got == 0) {
      break;
    }
    done += static_cast<size_t>(std::max<ssize_t>(got, 0));
  }
  bytes.resize(done);
  return 0;
}

bool LockedFile::Lock(int lock, Clock::time_point end) const {
  while (flock(descriptor_, lock | LOCK_NB) != 0) {
    if ((errno != EWOULDBLOCK && errno != EINTR) || Clock::now() > end) {
      return false;
    }
    std::this_thread::sleep_for(kBetweenTries);
  }
  return true;
}

bool LockedFile::IsAt(const std::string& path) const {
  struct stat mine {};
  struct stat there {};
  return fstat(descriptor_, &mine) == 0 && stat(path.c_str(), &there) == 0 && mine.st_dev == there.st_dev &&
         mine.st_ino == there.st_ino;
}

void LockedFile::Close() {
  if (descriptor_ >= 0) {
    close(descriptor_);
  }
  descriptor_ = -1;
}

}  // namespace quorvane
