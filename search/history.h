// The history: the searches that were asked for, kept in a file of the program's directory.
//
// A search is a line of JSON. What else the file holds (records of a newer version, lines that are no record) stays as
// it stands. Several programs may use one file: each change is made under a lock, of the file as it is then.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/file.h"
#include "search/search.h"

namespace quorvane {

inline constexpr const char* kHistoryName = "history.jsonl";
inline constexpr size_t kHistoryKept = 500;                     // Searches without a name.
inline constexpr uintmax_t kMostHistory = uintmax_t{16} << 20;  // In bytes; a larger file is left alone.

struct HistoryEntry {
  Search search;
  std::string lexicon;          // As it is stored or was given.
  std::string order = "alpha";  // The option's name.
  bool upperCase = false;
  int64_t count = 0;  // Of the words found.
  std::string time;   // ISO 8601, local: "2026-11-21T22:08:03+01:00".
  std::string name;   // Empty without one.
};

// As in HistoryEntry::time.
std::string LocalTimeText(std::time_t time);
// The entry as it stands in the file, on one line without an end.
std::string JsonOf(const HistoryEntry& entry);
// Two searches are the same when this is the same.
std::string SearchKey(const Search& search);

struct HistoryRead {
  std::optional<FileError> error;  // Then no entry was read. A file that is not there is none.
  int64_t unreadable = 0;          // Lines that are no record, or cut.
  int64_t unknown = 0;             // Records of a newer version.

  // What a user should know, in one sentence; empty for nothing.
  std::string Text() const;
};

class History {
 public:
  // Reads the file, which is not changed.
  HistoryRead Load(const std::string& path);

  // Newest last; without what others added since the last call that read the file: Load and those that change it, but
  // for Append.
  const std::vector<HistoryEntry>& Entries() const { return entries_; }
  // For a list to look at, newest first: a search in a lexicon once, with the count and the time of its last entry; one
  // that has several names once for each.
  std::vector<HistoryEntry> Distinct() const;
  // The newest of that name; null when there is none.
  const HistoryEntry* Named(std::string_view name) const;

  // Writes one line. The file is as it was when that fails. A failure is told once, until it is another one.
  std::optional<FileError> Append(HistoryEntry entry);

  // Each rewrites the file, whole or not at all. Of entries without a name Tidy keeps the last 500, and of the same
  // search in the same lexicon the last one; where that changes nothing that Entries() holds, the file isn't read.
  std::optional<FileError> Tidy();
  // Of `entry` and all entries of its search in its lexicon without a name, the last one stays and gets the name; ""
  // takes it away.
  std::optional<FileError> Name(const HistoryEntry& entry, const std::string& name);
  // With all entries of its search in its lexicon that have no name.
  std::optional<FileError> Forget(const HistoryEntry& entry);
  // All that Entries() holds: what others added meanwhile stays.
  std::optional<FileError> ForgetAll();

 private:
  struct Line;
  std::optional<FileError> Change(const std::function<void(std::vector<Line>&)>& change);
  HistoryRead TakeOver(const std::vector<Line>& lines);

  std::string path_;
  std::vector<HistoryEntry> entries_;
  std::string told_;  // The last failure of Append.
};

}  // namespace quorvane
