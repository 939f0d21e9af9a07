// The faults that the program knows by number.
#pragma once

#include <string>

namespace quorvane {

struct RunTimeError {
  int number = 0;
  std::string description;
};

inline constexpr int kErrorInvalidProcedureCall = 5;
inline constexpr int kErrorOverflow = 6;
inline constexpr int kErrorSubscriptOutOfRange = 9;
inline constexpr int kErrorTypeMismatch = 13;
inline constexpr int kErrorFileNotFound = 53;
inline constexpr int kErrorDiskFull = 61;
inline constexpr int kErrorInputPastEndOfFile = 62;
inline constexpr int kErrorPermissionDenied = 70;
inline constexpr int kErrorPathFileAccess = 75;
inline constexpr int kErrorPathNotFound = 76;
inline constexpr int kErrorListFull = 381;

// The error of that number with its fixed description ("Subscript out of range"); an unknown number is described as
// "Application-defined or object-defined error".
RunTimeError MakeRunTimeError(int number);

// The error that an `errno` value of a file operation stands for. Anything not listed is 75, path/file access error.
RunTimeError RunTimeErrorOfErrno(int errnoValue);

}  // namespace quorvane
