// Standard output with its failures: a reader that has gone ends the program quietly, anything else is an error.
#pragma once

#include <memory>
#include <string_view>

#include "base/file.h"

namespace quorvane::cli {

inline constexpr int kFound = 0;
inline constexpr int kNothingFound = 1;
inline constexpr int kFailed = 2;

class Output {
 public:
  Output();
  ~Output();
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  void Write(std::string_view text) { writer_->Write(text); }
  FileWriter& Writer() { return *writer_; }
  // Hands on what is held, for a reader that waits for it.
  void Flush();
  // Whether something could not be written; nothing more will be.
  bool Failed() const { return error_ != 0; }
  // Writes what is held. The status to end with: `status`, or kFailed with a message when the output failed.
  int Finish(int status);

 private:
  std::unique_ptr<FileWriter> writer_;
  int error_ = 0;
};

// A message on standard error, "quorvane-cli: TEXT".
void Complain(std::string_view text);
// A line on standard error as it stands.
void Note(std::string_view text);

}  // namespace quorvane::cli
