// Found words in the forms that other programs read.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "results/results_file.h"

namespace quorvane {

enum class ExportFormat { Lines, Csv, Tsv, Comma };

struct ExportFormatRow {
  ExportFormat format;
  std::string_view option;  // The name on the command line.
  std::string_view caption;
  std::string_view extension;  // Of a file, with its point.
  std::string_view heading;    // The first line; empty for none.
  char column;                 // Stands between a word and its length; 0 where words stand alone.
  std::string_view between;    // Stands between words that share one line; empty where each has its own.
  std::string_view lineEnd;    // At most two characters.
};

std::span<const ExportFormatRow> ExportFormats();
const ExportFormatRow& RowOf(ExportFormat format);
std::optional<ExportFormat> ExportFormatOfOption(std::string_view option);

struct ExportSettings {
  bool heading = true;  // Whether the heading of a format that has one is written.
  bool stored = false;  // Plain lines in the lexicon's own 8-bit characters instead of UTF-8.
};

// Writes the words; all but stored lines in UTF-8. Where lengths are written, they are in characters, and a word that
// holds the column's character, a quotation mark or a line end stands in quotation marks, its own doubled (RFC 4180).
// Words that share a line make one even when there are none.
void WriteExport(FileWriter& out, const WordSequence& words, ExportFormat format, const ExportSettings& settings = {},
                 const WriteProgress& progress = {});

// Replaces the file by the words; on failure it is as it was.
std::optional<FileError> ExportToFile(const std::string& path, const WordSequence& words, ExportFormat format,
                                      const ExportSettings& settings = {}, const WriteProgress& progress = {});

// The first `lines` lines in UTF-8, or the first `lines` words of one line; "..." stands for what was cut off.
std::string Preview(const WordSequence& words, ExportFormat format, size_t lines);

}  // namespace quorvane
