#include "lexicon/list_lines.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace quorvane {
namespace {

constexpr size_t kLinesLookedAt = 500;
constexpr size_t kBytesLookedAt = size_t{1} << 16;

constexpr std::array kSeparators = {
    SeparatorRow{Separator::Found, "auto", "", "found by itself"},
    SeparatorRow{Separator::Any, "any", "", "tabs, commas and semicolons"},
    SeparatorRow{Separator::Blank, "blank", " ", "blanks"},
    SeparatorRow{Separator::Tab, "tab", "\t", "tabs"},
    SeparatorRow{Separator::Comma, "comma", ",", "commas"},
    SeparatorRow{Separator::Semicolon, "semicolon", ";", "semicolons"},
    SeparatorRow{Separator::None, "none", "", "nothing"},
};

constexpr std::string_view kAnySeparators = "\t,;";

// The separating characters.
std::string_view CharactersOf(Separator separator) {
  return separator == Separator::Any ? kAnySeparators : RowOf(separator).typed;
}

bool TakesQuotes(Separator separator) {
  return separator == Separator::Tab || separator == Separator::Comma || separator == Separator::Semicolon;
}

// Where the quoted cell whose first quote stands at `from` is closed; npos when it is none.
size_t ClosingQuote(std::string_view text, size_t from) {
  const std::string_view looked = text.substr(0, from + kLongestQuotedCell);
  size_t at = looked.find('"', from + 1);
  while (at != std::string_view::npos && at + 1 < text.size() && text[at + 1] == '"') {
    at = looked.find('"', at + 2);
  }
  return at;
}

// A cell of a line that may hold quotes: its quotes, if it has any, and where it ends.
struct QuotedCell {
  size_t open = std::string_view::npos;
  size_t close = 0;
  size_t end = 0;  // At a separator, a line feed or the end of the text.
};

QuotedCell ReadQuotedCell(std::string_view text, size_t start, char separator) {
  QuotedCell cell;
  const size_t first = text.find_first_not_of(' ', start);
  size_t from = start;
  if (first != std::string_view::npos && text[first] == '"') {
    const size_t close = ClosingQuote(text, first);
    if (close != std::string_view::npos) {
      cell.open = first;
      cell.close = close;
      from = close + 1;
    }
  }
  while (from < text.size() && text[from] != separator && text[from] != '\n') {
    ++from;
  }
  cell.end = from;
  return cell;
}

// What stands between the quotes, with doubled ones single, and what follows them.
std::string_view Unquoted(std::string_view text, const QuotedCell& cell, std::string& scratch) {
  scratch.clear();
  for (size_t i = cell.open + 1; i < cell.close; ++i) {
    scratch += text[i];
    i += text[i] == '"' ? 1 : 0;
  }
  return scratch.append(text.substr(cell.close + 1, cell.end - cell.close - 1));
}

// Calls `take` with each cell until it says false.
template <class Take>
void WalkCells(const ListLine& line, Separator separator, std::string& scratch, Take take) {
  const std::string_view separators = CharactersOf(separator);
  const std::string_view text = line.text;
  size_t start = separator == Separator::Blank ? std::min(text.find_first_not_of(' '), text.size()) : 0;
  for (;;) {
    size_t end = 0;
    std::string_view content;
    if (line.quoted) {
      const QuotedCell cell = ReadQuotedCell(text, start, separators.front());
      end = cell.end;
      content = cell.open == std::string_view::npos ? text.substr(start, end - start) : Unquoted(text, cell, scratch);
    } else {
      end = separators.empty() ? text.size() : std::min(text.find_first_of(separators, start), text.size());
      content = text.substr(start, end - start);
    }
    if (!take(content) || end == text.size()) {
      return;
    }
    start = end + 1;
    if (separator == Separator::Blank) {
      start = text.find_first_not_of(' ', start);
      if (start == std::string_view::npos) {
        return;
      }
    }
  }
}

bool IsNumber(std::string_view cell) {
  return !cell.empty() && cell.find_first_not_of("0123456789.,%+-") == std::string_view::npos &&
         std::any_of(cell.begin(), cell.end(), IsDigit);
}

// "12 the", "the 12", but neither "the end" nor "1 2".
bool IsWordWithNumber(const ListLine& line) {
  const std::vector<std::string> cells = CellsOf(line, Separator::Blank, 8);
  const auto numbers = std::count_if(cells.begin(), cells.end(), IsNumber);
  return numbers > 0 && static_cast<size_t>(numbers) < cells.size();
}

}  // namespace

std::span<const SeparatorRow> Separators() {
  return kSeparators;
}

const SeparatorRow& RowOf(Separator separator) {
  return kSeparators[static_cast<size_t>(separator)];
}

std::optional<Separator> SeparatorOfOption(std::string_view option) {
  for (const SeparatorRow& row : kSeparators) {
    if (option == row.option || (!option.empty() && option == row.typed)) {
      return row.separator;
    }
  }
  return std::nullopt;
}

Separator FindSeparator(std::string_view text) {
  constexpr std::array kCandidates = {Separator::Tab, Separator::Semicolon, Separator::Comma};
  std::array<size_t, kCandidates.size()> with{};
  size_t lines = 0;
  size_t numbered = 0;
  text = text.substr(0, kBytesLookedAt);
  while (!text.empty() && lines < kLinesLookedAt) {
    const ListLine line = FirstLine(text, Separator::None);
    text.remove_prefix(line.bytes);
    if (line.text.empty()) {
      continue;
    }
    ++lines;
    for (size_t i = 0; i < kCandidates.size(); ++i) {
      with[i] += line.text.find(CharactersOf(kCandidates[i])) != std::string_view::npos ? 1 : 0;
    }
    numbered += IsWordWithNumber(line) ? 1 : 0;
  }
  const auto most = std::max_element(with.begin(), with.end());
  if (lines > 0 && *most * 2 >= lines) {
    return kCandidates[static_cast<size_t>(most - with.begin())];
  }
  return lines > 0 && numbered * 10 >= lines * 9 ? Separator::Blank : Separator::None;
}

ListLine FirstLine(std::string_view rest, Separator separator) {
  ListLine line;
  size_t end = std::min(rest.find('\n'), rest.size());
  line.quoted = TakesQuotes(separator) && rest.substr(0, end).find('"') != std::string_view::npos;
  if (line.quoted) {
    const char character = CharactersOf(separator).front();
    QuotedCell cell = ReadQuotedCell(rest, 0, character);
    while (cell.end < rest.size() && rest[cell.end] == character) {
      cell = ReadQuotedCell(rest, cell.end + 1, character);
    }
    line.linesInside = std::count(rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(cell.end), '\n');
    end = cell.end;
  }
  line.bytes = std::min(end + 1, rest.size());
  line.text = rest.substr(0, end);
  if (line.text.ends_with('\r')) {
    line.text.remove_suffix(1);
  }
  return line;
}

std::optional<std::string_view> CellOf(const ListLine& line, Separator separator, int column, std::string& scratch) {
  std::optional<std::string_view> found;
  WalkCells(line, separator, scratch, [&](std::string_view cell) {
    if (--column == 0) {
      found = cell;
    }
    return column > 0;
  });
  return found;
}

std::vector<std::string> CellsOf(const ListLine& line, Separator separator, size_t most) {
  std::vector<std::string> cells;
  std::string scratch;
  WalkCells(line, separator, scratch, [&](std::string_view cell) {
    cells.emplace_back(cell);
    return cells.size() < most;
  });
  return cells;
}

}  // namespace quorvane
