// The lines of a file descriptor, as they come.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane::cli {

class LineReader {
 public:
  // `beforeWaiting` is called each time that no whole line is left and more has to be read.
  LineReader(int descriptor, size_t longest, std::function<void()> beforeWaiting);

  struct Line {
    std::string_view text;  // Without its end, LF or CR LF; until the next call.
    bool tooLong = false;   // Of more than `longest` characters; the text is cut.
  };
  // The next line; the last may lack its end. Nothing at the end and after an error.
  std::optional<Line> Next();
  // The errno value of what ended the reading; 0 for the end.
  int error() const { return error_; }

 private:
  bool Fill();
  Line Take(size_t end, size_t next);

  const int descriptor_;
  const size_t longest_;
  const std::function<void()> beforeWaiting_;
  std::string buffer_;
  size_t begin_ = 0;  // What is not handed out yet.
  bool skipping_ = false;
  bool ended_ = false;
  int error_ = 0;
};

}  // namespace quorvane::cli
