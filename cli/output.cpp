#include "cli/output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

namespace quorvane::cli {

Output::Output() : writer_(std::make_unique<FileWriter>(stdout)) {
  std::setvbuf(stdout, nullptr, _IONBF, 0);
}

Output::~Output() = default;

void Output::Flush() {
  const int error = writer_->Finish();
  error_ = error_ == 0 ? error : error_;
}

int Output::Finish(int status) {
  Flush();
  if (error_ == 0 && std::fclose(stdout) != 0) {
    error_ = errno;
  }
  if (error_ == 0 || error_ == EPIPE) {
    return status;
  }
  Complain(std::string("standard output: ") + std::strerror(error_));
  return kFailed;
}

void Complain(std::string_view text) {
  Note("quorvane-cli: " + std::string(text));
}

void Note(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fputc('\n', stderr);
}

}  // namespace quorvane::cli
