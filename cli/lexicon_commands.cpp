#include "cli/lexicon_commands.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "base/program_directory.h"
#include "base/text.h"
#include "cli/json.h"
#include "cli/output.h"
#include "lexicon/lexicon_name.h"
#include "lexicon/load_report.h"
#include "results/statistics.h"

namespace quorvane::cli {
namespace {

const char* NameOf(LoadOutcome outcome) {
  switch (outcome) {
    case LoadOutcome::Ok:
      return "ok";
    case LoadOutcome::Capacity:
      return "capacity";
    case LoadOutcome::NotSorted:
    case LoadOutcome::NotSortedError:
      return "notalpha";
    case LoadOutcome::ListError:
      break;
  }
  return "list_err";
}

std::string PadLeft(const std::string& text, size_t width) {
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + text;
}

template <class Rows>
void WriteTable(Output& output, const char* title, const Rows& rows) {
  output.Write(std::string(title) + "\n");
  for (const StatisticsRow& row : rows) {
    output.Write(PadLeft(row.label, 5) + PadLeft(std::to_string(row.count), 10) + "\n");
  }
}

std::string LexiconsThere(const std::string& directory) {
  std::string names;
  for (const std::string& name : LexiconFilesIn(directory)) {
    names += (names.empty() ? "" : ", ") + name;
  }
  return "lexicons of the program's directory: " + (names.empty() ? "none" : names);
}

}  // namespace

std::string DescribeLoad(const std::string& path, const LoadResult& loaded) {
  std::string text = path + ": " + ReportOf(loaded).boxText;
  if (loaded.outcome == LoadOutcome::ListError) {
    text += " Word #" + std::to_string(loaded.count) + " '" + QuotedText(loaded.lastWord) + "' (error " +
            std::to_string(loaded.error.number) + ", " + loaded.error.description + ")";
  }
  if (const std::string_view cause = CauseOf(loaded); !cause.empty()) {
    text += " " + std::string(cause);
  }
  return text;
}

std::optional<std::string> LexiconPath(const std::string& lexicon, const std::string& dataDir) {
  std::error_code ignored;
  if (lexicon.find('/') != std::string::npos || (!lexicon.empty() && std::filesystem::exists(lexicon, ignored))) {
    return lexicon;
  }
  const ProgramDirectory directory = SettleProgramDirectory(ProgramDirectoryInputOfProcess(dataDir));
  if (directory.problem) {
    Complain(directory.problem->Text());
  }
  if (lexicon.empty()) {
    return JoinPath(directory.path, kDefaultLexiconName);
  }
  if (auto path = LexiconNamed(directory.path, lexicon)) {
    return path;
  }
  Complain("can't read " + lexicon + ": " + std::strerror(ENOENT));
  Note(LexiconsThere(directory.path));
  return std::nullopt;
}

int ShowStatistics(const std::string& lexicon, const std::string& dataDir) {
  const auto found = LexiconPath(lexicon, dataDir);
  if (!found) {
    return kFailed;
  }
  const std::string& path = *found;
  Output output;
  const LoadResult loaded = LoadLexicon(path);
  if (loaded.outcome != LoadOutcome::Ok) {
    Complain(DescribeLoad(path, loaded));
  }
  if (!loaded.Usable()) {
    return kFailed;
  }
  output.Write(std::to_string(loaded.count) + " word" + std::string(PluralS(loaded.count)) + " in " + path + "\n\n");
  WriteTable(output, "Count by letter", CountByLetter(*loaded.lexicon));
  output.Write("\n");
  WriteTable(output, "Count by length", CountByLength(*loaded.lexicon));
  return output.Finish(kFound);
}

int ListLexicons(const std::string& dataDir) {
  Output output;
  const ProgramDirectory directory = SettleProgramDirectory(ProgramDirectoryInputOfProcess(dataDir));
  if (directory.problem) {
    Complain(directory.problem->Text());
    return kFailed;
  }
  const std::vector<std::string> names = LexiconFilesIn(directory.path);
  for (const std::string& name : names) {
    const std::string path = JoinPath(directory.path, name);
    const auto irregular = NotRegular(path);
    const LoadResult loaded = irregular ? LoadResult{} : LoadLexicon(path, kLexiconCapacity, TextSource::Map);
    if (loaded.outcome != LoadOutcome::Ok) {
      Complain(irregular ? irregular->Text() : DescribeLoad(path, loaded));
    }
    if (loaded.Usable()) {
      output.Write(PadLeft(FormatThousands(loaded.count), 9) + "  " + name + "\n");
    }
  }
  return output.Finish(names.empty() ? kNothingFound : kFound);
}

int ListLexiconNames(const std::string& dataDir) {
  Output output;
  const std::vector<std::string> names = LexiconFilesIn(ProgramDirectoryPath(ProgramDirectoryInputOfProcess(dataDir)));
  for (const std::string& name : names) {
    output.Write(name + "\n");
  }
  return output.Finish(names.empty() ? kNothingFound : kFound);
}

int CheckLexicon(const std::string& path, bool json) {
  Output output;
  const LoadResult loaded = LoadLexicon(path);
  if (json) {
    output.Write(JsonObject()
                     .Text("outcome", NameOf(loaded.outcome))
                     .Text("message", ReportOf(loaded).boxText)
                     .Number("count", loaded.count)
                     .Text("word", loaded.lastWord)
                     .Numbers("letter_start", loaded.letterStart)
                     .Numbers("length_count", loaded.lengthCount)
                     .Line());
  } else if (loaded.outcome == LoadOutcome::Ok) {
    output.Write(path + ": " + std::to_string(loaded.count) + " word" + std::string(PluralS(loaded.count)) +
                 ", usable\n");
  } else {
    output.Write(DescribeLoad(path, loaded) + "\n");
  }
  return output.Finish(loaded.Usable() ? kFound : kFailed);
}

}  // namespace quorvane::cli
