#include "cli/line_reader.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace quorvane::cli {
namespace {

constexpr size_t kPiece = size_t{1} << 16;

}  // namespace

LineReader::LineReader(int descriptor, size_t longest, std::function<void()> beforeWaiting)
    : descriptor_(descriptor), longest_(longest), beforeWaiting_(std::move(beforeWaiting)) {}

std::optional<LineReader::Line> LineReader::Next() {
  size_t searched = begin_;
  for (;;) {
    const size_t end = buffer_.find('\n', searched);
    if (end != std::string::npos) {
      return Take(end, end + 1);
    }
    if (buffer_.size() - begin_ > longest_ + 1) {
      // Enough to know that it is too long.
      buffer_.resize(begin_ + longest_ + 1);
      skipping_ = true;
    }
    buffer_.erase(0, begin_);
    begin_ = 0;
    searched = buffer_.size();
    if (!Fill()) {
      break;
    }
  }
  if (error_ != 0 || buffer_.empty()) {
    return std::nullopt;
  }
  return Take(buffer_.size(), buffer_.size());
}

// Reads on; false when there is no more.
bool LineReader::Fill() {
  if (ended_) {
    return false;
  }
  beforeWaiting_();
  const size_t held = buffer_.size();
  buffer_.resize(held + kPiece);
  ssize_t got = 0;
  do {
    got = read(descriptor_, buffer_.data() + held, kPiece);
  } while (got < 0 && errno == EINTR);
  error_ = got < 0 ? errno : 0;
  ended_ = got <= 0;
  buffer_.resize(held + static_cast<size_t>(got > 0 ? got : 0));
  return !ended_;
}

LineReader::Line LineReader::Take(size_t end, size_t next) {
  std::string_view text = std::string_view(buffer_).substr(begin_, end - begin_);
  begin_ = next;
  if (text.ends_with('\r')) {
    text.remove_suffix(1);
  }
  const bool tooLong = std::exchange(skipping_, false) || text.size() > longest_;
  return {text.substr(0, longest_), tooLong};
}

}  // namespace quorvane::cli
