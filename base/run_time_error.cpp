#include "base/run_time_error.h"

#include <array>
#include <cerrno>
#include <string_view>

namespace quorvane {
namespace {

struct Entry {
  int number;
  std::string_view description;
};

constexpr std::array kErrors = {
    Entry{kErrorInvalidProcedureCall, "Invalid procedure call"},
    Entry{kErrorOverflow, "Overflow"},
    Entry{kErrorSubscriptOutOfRange, "Subscript out of range"},
    Entry{kErrorTypeMismatch, "Type mismatch"},
    Entry{kErrorFileNotFound, "File not found"},
    Entry{kErrorDiskFull, "Disk full"},
    Entry{kErrorInputPastEndOfFile, "Input past end of file"},
    Entry{kErrorPermissionDenied, "Permission denied"},
    Entry{kErrorPathFileAccess, "Path/File access error"},
    Entry{kErrorPathNotFound, "Path not found"},
    Entry{kErrorListFull, "Invalid property array index"},
};

}  // namespace

RunTimeError MakeRunTimeError(int number) {
  for (const Entry& entry : kErrors) {
    if (entry.number == number) {
      return {number, std::string(entry.description)};
    }
  }
  return {number, "Application-defined or object-defined error"};
}

RunTimeError RunTimeErrorOfErrno(int errnoValue) {
  switch (errnoValue) {
    case ENOENT:
      return MakeRunTimeError(kErrorFileNotFound);
    case ENOTDIR:
      return MakeRunTimeError(kErrorPathNotFound);
    case EACCES:
    case EPERM:
    case EROFS:
      return MakeRunTimeError(kErrorPermissionDenied);
    case ENOSPC:
      return MakeRunTimeError(kErrorDiskFull);
    default:
      return MakeRunTimeError(kErrorPathFileAccess);
  }
}

}  // namespace quorvane
