#include "results/export.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace quorvane {
namespace {

constexpr std::array kFormats = {
    ExportFormatRow{ExportFormat::Lines, "lines", "Plain lines", ".txt", "", '\0', "", "\n"},
    ExportFormatRow{ExportFormat::Csv, "csv", "CSV", ".csv", "word,length", ',', "", "\r\n"},
    ExportFormatRow{ExportFormat::Tsv, "tsv", "Tab-separated", ".tsv", "word\tlength", '\t', "", "\n"},
    ExportFormatRow{ExportFormat::Comma, "comma", "One line with commas", ".txt", "", '\0', ", ", "\n"},
};

static_assert([] {
  for (size_t i = 0; i < kFormats.size(); ++i) {
    if (kFormats[i].format != static_cast<ExportFormat>(i)) {
      return false;
    }
  }
  return true;
}());

constexpr std::string_view kCutOff = "...";
constexpr size_t kReportEvery = size_t{1} << 16;  // Words between two reports of progress.

// A field of a row, in quotation marks where it needs them.
void AppendField(std::string& text, std::string_view field, char column) {
  const bool plain = std::none_of(field.begin(), field.end(),
                                  [column](char c) { return c == column || c == '"' || c == '\r' || c == '\n'; });
  if (plain) {
    text += field;
    return;
  }
  text += '"';
  for (const char c : field) {
    text += c;
    text.append(c == '"' ? 1 : 0, '"');
  }
  text += '"';
}

void AppendWord(std::string& text, const WordSequence& words, size_t i, const ExportFormatRow& row) {
  const std::string word = words.Word(i);
  const std::string utf8 = Utf8FromBytes(word);
  if (!row.between.empty() && i > 0) {
    text += row.between;
  }
  if (row.column != '\0') {
    AppendField(text, utf8, row.column);
    text += row.column;
    text += std::to_string(word.size());
  } else {
    text += utf8;
  }
  if (row.between.empty()) {
    text += row.lineEnd;
  }
}

std::string HeadingOf(const ExportFormatRow& row) {
  return row.heading.empty() ? "" : std::string(row.heading).append(row.lineEnd);
}

}  // namespace

std::span<const ExportFormatRow> ExportFormats() {
  return kFormats;
}

const ExportFormatRow& RowOf(ExportFormat format) {
  return kFormats[static_cast<size_t>(format)];
}

std::optional<ExportFormat> ExportFormatOfOption(std::string_view option) {
  for (const ExportFormatRow& row : kFormats) {
    if (row.option == option) {
      return row.format;
    }
  }
  return std::nullopt;
}

void WriteExport(FileWriter& out, const WordSequence& words, ExportFormat format, const ExportSettings& settings,
                 const WriteProgress& progress) {
  const ExportFormatRow& row = RowOf(format);
  if (format == ExportFormat::Lines && settings.stored) {
    WriteWords(out, words, row.lineEnd, progress);
    return;
  }
  if (settings.heading) {
    out.Write(HeadingOf(row));
  }
  const size_t count = words.numbers.size();
  std::string text;
  for (size_t i = 0; i < count; ++i) {
    if ((i + 1) % kReportEvery == 0 && progress) {
      progress(static_cast<int>(100 * (i + 1) / count));
    }
    text.clear();
    AppendWord(text, words, i, row);
    out.Write(text);
  }
  if (!row.between.empty()) {
    out.Write(row.lineEnd);
  }
}

std::optional<FileError> ExportToFile(const std::string& path, const WordSequence& words, ExportFormat format,
                                      const ExportSettings& settings, const WriteProgress& progress) {
  return ReplaceFile(path, [&](FileWriter& out) { WriteExport(out, words, format, settings, progress); });
}

std::string Preview(const WordSequence& words, ExportFormat format, size_t lines) {
  const ExportFormatRow& row = RowOf(format);
  if (lines == 0) {
    return "";
  }
  std::string text = HeadingOf(row);
  const size_t count = words.numbers.size();
  const size_t shown = std::min(count, lines - (text.empty() ? 0 : 1));
  for (size_t i = 0; i < shown; ++i) {
    AppendWord(text, words, i, row);
  }
  if (shown < count) {
    text.append(row.between).append(kCutOff).append(row.between.empty() ? row.lineEnd : "");
  }
  if (!row.between.empty()) {
    text += row.lineEnd;
  }
  return text;
}

}  // namespace quorvane
