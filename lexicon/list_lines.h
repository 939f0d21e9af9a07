// Word lists as lines of cells.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// What stands between the cells of a line.
enum class Separator {
  Found,  // One of those below but Any, found by itself.
  Any,    // A tab, a comma or a semicolon, whichever comes first; quotes are characters like others.
  Blank,  // One blank or more.
  Tab,    // A cell in quotes may hold separators, line ends and doubled quotes, as in CSV: so with the next two.
  Comma,
  Semicolon,
  None,  // A line is one cell.
};

struct SeparatorRow {
  Separator separator;
  std::string_view option;   // The name on the command line...
  std::string_view typed;    // ...or the character itself; empty where there is none.
  std::string_view meaning;  // "commas".
};
std::span<const SeparatorRow> Separators();
const SeparatorRow& RowOf(Separator separator);
// By name or character.
std::optional<Separator> SeparatorOfOption(std::string_view option);

// What separates the cells of the text's first 500 lines: the tab, comma or semicolon that at least half of them hold;
// the blank where nine of ten lines have a number beside a word; else nothing.
Separator FindSeparator(std::string_view text);

// One line, or the several that quotes make one.
struct ListLine {
  std::string_view text;    // Without its line end, LF or CR LF.
  size_t bytes = 0;         // With it.
  bool quoted = false;      // Some cell may stand in quotes.
  int64_t linesInside = 0;  // Line ends within quotes.
};

// Cells in quotes are read up to this many bytes: a stray quote does not make one cell of a whole list.
inline constexpr size_t kLongestQuotedCell = size_t{1} << 16;

// The first line of `rest`, which is not empty. `separator` is not Found, here and below.
ListLine FirstLine(std::string_view rest, Separator separator);
// Cell number `column`, counted from 1; nothing when the line has fewer. A view of the line or of `scratch`.
std::optional<std::string_view> CellOf(const ListLine& line, Separator separator, int column, std::string& scratch);
// The first `most` cells.
std::vector<std::string> CellsOf(const ListLine& line, Separator separator, size_t most);

}  // namespace quorvane
