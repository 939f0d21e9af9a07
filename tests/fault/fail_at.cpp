// Preloaded into a program: the FAULT_AT-th write, close, rename or flush of a file fails with the errno value
// FAULT_ERROR or, when that is 0, the process is killed there. Of a write the first half is done. A strike makes the
// file FAULT_MARK.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

int Number(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? 0 : std::atoi(value);
}

bool Now() {
  static int left = Number("FAULT_AT");
  return --left == 0;
}

void Strike() {
  const int mark = open(std::getenv("FAULT_MARK"), O_WRONLY | O_CREAT, 0666);
  close(mark);
  if (Number("FAULT_ERROR") == 0) {
    kill(getpid(), SIGKILL);
  }
  errno = Number("FAULT_ERROR");
}

template <class Function>
Function* Real(Function*, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

ssize_t write(int file, const void* bytes, size_t size) {
  static auto* const real = Real(&write, "write");
  if (!Now()) {
    return real(file, bytes, size);
  }
  real(file, bytes, size / 2);
  Strike();
  return -1;
}

size_t fwrite(const void* bytes, size_t size, size_t count, FILE* file) {
  static auto* const real = Real(&fwrite, "fwrite");
  if (!Now()) {
    return real(bytes, size, count, file);
  }
  const size_t written = real(bytes, size, count / 2, file);
  Strike();
  return written;
}

int close(int file) {
  static auto* const real = Real(&close, "close");
  const bool now = Now();
  const int result = real(file);
  return now ? Strike(), -1 : result;
}

int fclose(FILE* file) {
  static auto* const real = Real(&fclose, "fclose");
  const bool now = Now();
  const int result = real(file);
  return now ? Strike(), EOF : result;
}

int rename(const char* from, const char* to) noexcept {
  static auto* const real = Real(&rename, "rename");
  return Now() ? Strike(), -1 : real(from, to);
}

int fsync(int file) {
  static auto* const real = Real(&fsync, "fsync");
  return Now() ? Strike(), -1 : real(file);
}

}  // extern "C"
