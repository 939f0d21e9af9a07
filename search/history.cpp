#include "search/history.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <map>
#include <set>
#include <utility>

#include "base/locked_file.h"
#include "base/text.h"
#include "search/conditions.h"
#include "search/length_range.h"
#include "search/search_json.h"

namespace quorvane {
namespace {

constexpr int kVersion = 1;
constexpr const char* kVersionKey = "v";
constexpr const char* kUpper = "upper";
constexpr const char* kCount = "count";
constexpr std::string_view kBytes = "_bytes";  // Behind the key of a text that is not UTF-8, which is read as 8-bit.

struct TextMember {
  std::string key;
  std::string HistoryEntry::*text;
};
const std::array<TextMember, 4>& TextMembers() {
  static const std::array<TextMember, 4> members = {{{"time", &HistoryEntry::time},
                                                     {"lexicon", &HistoryEntry::lexicon},
                                                     {"sort", &HistoryEntry::order},
                                                     {"name", &HistoryEntry::name}}};
  return members;
}

Json ObjectOf(const HistoryEntry& entry) {
  Json object = {{kVersionKey, kVersion}, {kUpper, entry.upperCase}, {kCount, entry.count}};
  PutSearch(entry.search, object);
  for (const auto& [key, member] : TextMembers()) {
    const std::string& text = entry.*member;
    if (!text.empty()) {
      object[IsUtf8(text) ? key : key + std::string(kBytes)] = IsUtf8(text) ? text : Utf8FromBytes(text);
    }
  }
  return object;
}

bool IsKnownKey(std::string_view key) {
  const auto& members = TextMembers();
  return IsSearchKey(key) || key == kVersionKey || key == kUpper || key == kCount ||
         std::any_of(members.begin(), members.end(), [&](const TextMember& member) {
           return key.starts_with(member.key) &&
                  (key.size() == member.key.size() || key.substr(member.key.size()) == kBytes);
         });
}

// Of a version that this program does not know.
bool IsForeign(const Json& object) {
  const auto version = object.find(kVersionKey);
  if (version != object.end() && version->is_number_integer() && *version > kVersion) {
    return true;
  }
  return std::any_of(object.items().begin(), object.items().end(),
                     [](const auto& item) { return !IsKnownKey(item.key()); });
}

std::optional<HistoryEntry> EntryOf(const Json& object) {
  auto search = SearchOf(object);
  if (!search || !object.contains("pattern")) {
    return std::nullopt;
  }
  HistoryEntry entry;
  entry.search = *std::move(search);
  for (const auto& [key, member] : TextMembers()) {
    std::string utf8;
    const std::string bytesKey = key + std::string(kBytes);
    const auto bytes = TakeText(object, bytesKey.c_str(), utf8) ? BytesFromUtf8(utf8) : std::nullopt;
    if (!bytes || !TakeText(object, key.c_str(), entry.*member)) {
      return std::nullopt;
    }
    if (object.contains(bytesKey)) {
      entry.*member = *bytes;
    }
  }
  const auto upper = object.find(kUpper);
  const auto count = object.find(kCount);
  if ((upper != object.end() && !upper->is_boolean()) || (count != object.end() && !count->is_number_integer())) {
    return std::nullopt;
  }
  entry.upperCase = upper != object.end() && upper->get<bool>();
  entry.count = count != object.end() ? count->get<int64_t>() : 0;
  return entry;
}

// Two entries are the same when this is the same.
std::string EntryKey(const HistoryEntry& entry) {
  return SearchKey(entry.search) + "\n" + entry.lexicon;
}

// Picks the entries that Tidy keeps, asked newest first.
class Tidying {
 public:
  bool Keeps(const HistoryEntry& entry) {
    return !entry.name.empty() || (seen_.insert(EntryKey(entry)).second && ++kept_ <= kHistoryKept);
  }

 private:
  std::set<std::string> seen_;
  size_t kept_ = 0;
};

FileError TooLarge(const std::string& path) {
  return {MakeRunTimeError(kErrorPathFileAccess), path,
          "it is larger than " + std::to_string(kMostHistory >> 20) + " MB and is left alone"};
}

std::optional<FileError> ErrorOf(const std::string& path, int errnoValue) {
  return errnoValue == 0 ? std::nullopt : std::optional(FileErrorOfErrno(path, errnoValue));
}

// 0 or an errno value; a line that can't be written whole is taken back.
int WriteAtEnd(int descriptor, off_t size, std::string_view line) {
  for (std::string_view rest = line; !rest.empty();) {
    const ssize_t written = write(descriptor, rest.data(), rest.size());
    if (written < 0 && errno != EINTR) {
      const int error = errno;
      return ftruncate(descriptor, size) == 0 ? error : errno;
    }
    rest.remove_prefix(static_cast<size_t>(std::max<ssize_t>(written, 0)));
  }
  return 0;
}

}  // namespace

struct History::Line {
  std::string text;  // As it stands.
  std::optional<HistoryEntry> entry;
  bool unknown = false;  // A record of a newer version.

  explicit Line(std::string_view line) : text(line) {
    const Json object = Json::parse(line, nullptr, false);
    if (!object.is_object()) {
      return;
    }
    unknown = IsForeign(object);
    if (!unknown) {
      entry = EntryOf(object);
    }
  }

  // Whether it is that entry, or one of the same search without a name.
  bool IsOf(const HistoryEntry& wanted) const {
    return entry && (entry->name.empty() || entry->name == wanted.name) && EntryKey(*entry) == EntryKey(wanted);
  }

  static std::vector<Line> Of(std::string_view bytes) {
    std::vector<Line> lines;
    while (!bytes.empty()) {
      const size_t end = std::min(bytes.find('\n'), bytes.size());
      if (end > 0) {
        lines.emplace_back(bytes.substr(0, end));
      }
      bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return lines;
  }
};

std::string LocalTimeText(std::time_t time) {
  std::tm local{};
  localtime_r(&time, &local);
  std::array<char, 64> text{};
  const size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S%z", &local);
  std::string iso(text.data(), length);
  if (iso.size() > 5) {
    iso.insert(iso.size() - 2, ":");
  }
  return iso;
}

std::string JsonOf(const HistoryEntry& entry) {
  return ObjectOf(entry).dump();
}

std::string SearchKey(const Search& search) {
  std::string key;
  const auto add = [&key](std::string_view text) { key += std::to_string(text.size()) + ":" + std::string(text); };
  for (const std::string& text :
       {search.text, search.noun, search.lists.include, search.lists.exclude, search.lists.scrabble}) {
    add(text);
  }
  add(FactsOf(search.mode).option);
  add(search.lengths.any ? "" : LengthText(search.lengths));
  for (const ConditionFacts& facts : ConditionKinds()) {
    for (const Condition& condition : search.conditions) {
      if (condition.kind == facts.kind) {
        add(facts.option);
        add(condition.text);
      }
    }
  }
  return key;
}

std::string HistoryRead::Text() const {
  if (error) {
    return "The history can't be read: " + error->Text();
  }
  if (unreadable == 0) {
    return {};
  }
  return FormatThousands(unreadable) + " line" + std::string(PluralS(unreadable)) +
         " of the history can't be read; what the file holds is kept";
}

HistoryRead History::TakeOver(const std::vector<Line>& lines) {
  HistoryRead read;
  entries_.clear();
  for (const Line& line : lines) {
    if (line.entry) {
      entries_.push_back(*line.entry);
    } else {
      ++(line.unknown ? read.unknown : read.unreadable);
    }
  }
  return read;
}

HistoryRead History::Load(const std::string& path) {
  path_ = path;
  entries_.clear();
  HistoryRead read;
  read.error = NotRegular(path);
  if (read.error) {
    return read;
  }
  const LockedFile file(path, O_RDONLY, LOCK_SH);
  if (file.Error() != 0) {
    read.error = file.Error() == ENOENT ? std::nullopt : ErrorOf(path, file.Error());
    return read;
  }
  if (static_cast<uintmax_t>(file.Size()) > kMostHistory) {
    read.error = TooLarge(path);
    return read;
  }
  std::string bytes;
  if (const int error = file.ReadAll(bytes); error != 0) {
    read.error = ErrorOf(path, error);
    return read;
  }
  return TakeOver(Line::Of(bytes));
}

const HistoryEntry* History::Named(std::string_view name) const {
  const auto found = std::find_if(entries_.rbegin(), entries_.rend(),
                                  [&](const HistoryEntry& entry) { return !name.empty() && entry.name == name; });
  return found == entries_.rend() ? nullptr : &*found;
}

std::optional<FileError> History::Append(HistoryEntry entry) {
  std::string line = JsonOf(entry) + "\n";
  auto failure = NotRegular(path_);
  if (!failure) {
    const LockedFile file(path_, O_RDWR | O_CREAT | O_APPEND, LOCK_EX);
    failure = ErrorOf(path_, file.Error());
    if (!failure) {
      const off_t size = file.Size();
      char last = '\n';
      // A line that was cut stays a line of its own.
      if (size > 0 && pread(file.Descriptor(), &last, 1, size - 1) == 1 && last != '\n') {
        line.insert(0, "\n");
      }
      const bool fits = static_cast<uintmax_t>(size) + line.size() <= kMostHistory;
      failure = fits ? ErrorOf(path_, WriteAtEnd(file.Descriptor(), size, line)) : TooLarge(path_);
    }
  }
  if (!failure) {
    entries_.push_back(std::move(entry));
    told_.clear();
  } else if (std::exchange(told_, failure->Text()) == failure->Text()) {
    failure.reset();
  }
  return failure;
}

std::optional<FileError> History::Change(const std::function<void(std::vector<Line>&)>& change) {
  if (auto failure = NotRegular(path_)) {
    return failure;
  }
  const LockedFile file(path_, O_RDWR, LOCK_EX);
  if (file.Error() == ENOENT) {
    return std::nullopt;
  }
  if (file.Error() != 0) {
    return ErrorOf(path_, file.Error());
  }
  if (static_cast<uintmax_t>(file.Size()) > kMostHistory) {
    return TooLarge(path_);
  }
  std::string bytes;
  if (const int error = file.ReadAll(bytes); error != 0) {
    return ErrorOf(path_, error);
  }
  std::vector<Line> lines = Line::Of(bytes);
  change(lines);
  std::string changed;
  for (const Line& line : lines) {
    changed += line.text + "\n";
  }
  if (changed != bytes) {
    if (auto failure = ReplaceFile(path_, [&changed](FileWriter& out) { out.Write(changed); })) {
      return failure;
    }
  }
  TakeOver(lines);
  return std::nullopt;
}

std::vector<HistoryEntry> History::Distinct() const {
  struct Group {
    const HistoryEntry* last = nullptr;
    std::set<std::string> names;
    bool named = false;
  };
  std::map<std::string, Group> groups;
  std::vector<Group*> groupOf;
  for (const HistoryEntry& entry : entries_) {
    Group& group = groups[EntryKey(entry)];
    group.last = &entry;
    group.names.insert(entry.name);
    group.named = group.named || !entry.name.empty();
    groupOf.push_back(&group);
  }
  std::vector<HistoryEntry> distinct;
  for (size_t i = entries_.size(); i-- > 0;) {
    Group& group = *groupOf[i];
    if (entries_[i].name.empty() == !group.named && group.names.erase(entries_[i].name) > 0) {
      distinct.push_back(entries_[i]);
      distinct.back().count = group.last->count;
      distinct.back().time = group.last->time;
    }
  }
  return distinct;
}

std::optional<FileError> History::Tidy() {
  Tidying known;
  if (std::all_of(entries_.rbegin(), entries_.rend(), [&](const HistoryEntry& entry) { return known.Keeps(entry); })) {
    return std::nullopt;
  }
  return Change([](std::vector<Line>& lines) {
    Tidying tidying;
    std::vector<Line> newestFirst;
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
      if (!line->entry || tidying.Keeps(*line->entry)) {
        newestFirst.push_back(std::move(*line));
      }
    }
    lines.assign(std::make_move_iterator(newestFirst.rbegin()), std::make_move_iterator(newestFirst.rend()));
  });
}

std::optional<FileError> History::Name(const HistoryEntry& entry, const std::string& name) {
  return Change([&](std::vector<Line>& lines) {
    std::vector<Line> newestFirst;
    bool found = false;
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
      if (!line->IsOf(entry)) {
        newestFirst.push_back(std::move(*line));
      } else if (!std::exchange(found, true)) {
        line->entry->name = name;
        newestFirst.emplace_back(JsonOf(*line->entry));
      }
    }
    lines.assign(std::make_move_iterator(newestFirst.rbegin()), std::make_move_iterator(newestFirst.rend()));
  });
}

std::optional<FileError> History::Forget(const HistoryEntry& entry) {
  return Change(
      [&](std::vector<Line>& lines) { std::erase_if(lines, [&](const Line& line) { return line.IsOf(entry); }); });
}

std::optional<FileError> History::ForgetAll() {
  std::set<std::string> known;
  for (const HistoryEntry& entry : entries_) {
    known.insert(JsonOf(entry));
  }
  return Change([&known](std::vector<Line>& lines) {
    std::erase_if(lines, [&](const Line& line) { return line.entry && known.contains(JsonOf(*line.entry)); });
  });
}

}  // namespace quorvane
