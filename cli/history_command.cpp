#include "cli/history_command.h"

#include <algorithm>
#include <set>

#include "base/program_directory.h"
#include "base/text.h"
#include "cli/output.h"
#include "search/conditions.h"
#include "search/history.h"

namespace quorvane::cli {
namespace {

std::string ProgramDirectoryOf(const std::string& dataDir) {
  const ProgramDirectory directory = SettleProgramDirectory(ProgramDirectoryInputOfProcess(dataDir));
  if (directory.problem) {
    Complain(directory.problem->Text());
  }
  return directory.path;
}

// False, with a message, when there is a history that can't be read.
bool Load(const std::string& path, History& history) {
  const HistoryRead read = history.Load(path);
  if (const std::string text = read.Text(); !text.empty()) {
    Complain(text);
  }
  return !read.error;
}

// "2026-11-21T22:08:03+01:00  c?t  (word, of length 3-5; not: *s; 8 in words.lex)  'name'".
std::string LineOf(const HistoryEntry& entry) {
  const Search& search = entry.search;
  std::string text = entry.time + "  " + search.text + "  (" + std::string(FactsOf(search.mode).option);
  if (!search.lengths.any) {
    text += ", of length " + std::to_string(search.lengths.min) + "-" + std::to_string(search.lengths.max);
  }
  for (const Condition& condition : search.conditions) {
    text += "; " + ConditionText(condition);
  }
  text += "; " + FormatThousands(entry.count) + " in " + entry.lexicon + ")";
  if (!entry.name.empty()) {
    text += "  '" + QuotedText(entry.name) + "'";
  }
  return text + "\n";
}

bool HasControls(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
}

// Whether there is one.
bool WriteNames(const History& history, Output& output) {
  std::set<std::string> names;
  for (const HistoryEntry& entry : history.Entries()) {
    if (!entry.name.empty() && !HasControls(entry.name) && names.insert(entry.name).second) {
      output.Write(entry.name + "\n");
    }
  }
  return !names.empty();
}

}  // namespace

int ShowHistory(const std::string& dataDir, HistoryForm form) {
  Output output;
  History history;
  const std::string directory = form == HistoryForm::Names
                                    ? ProgramDirectoryPath(ProgramDirectoryInputOfProcess(dataDir))
                                    : ProgramDirectoryOf(dataDir);
  if (!Load(JoinPath(directory, kHistoryName), history)) {
    return kFailed;
  }
  if (form == HistoryForm::Names) {
    return output.Finish(WriteNames(history, output) ? kFound : kNothingFound);
  }
  for (const HistoryEntry& entry : history.Entries()) {
    output.Write(form == HistoryForm::Json ? JsonOf(entry) + "\n" : LineOf(entry));
  }
  return output.Finish(history.Entries().empty() ? kNothingFound : kFound);
}

bool TakeNamed(FindArguments& arguments) {
  const std::string directory = ProgramDirectoryOf(arguments.dataDir);
  const std::string path = JoinPath(directory, kHistoryName);
  History history;
  if (!Load(path, history)) {
    return false;
  }
  const HistoryEntry* entry = history.Named(arguments.named);
  if (entry == nullptr) {
    Complain("no search is named '" + QuotedText(arguments.named) + "' in " + path);
    return false;
  }
  arguments.asked.search = entry->search;
  arguments.asked.pattern = entry->search.text;
  if (arguments.lexicon.empty() && arguments.wordLists.empty()) {
    arguments.lexicon = ResolvePath(directory, entry->lexicon);
  }
  if (const auto order = SortOrderOfOption(entry->order); order && arguments.order == SortOrder::Alphabetic) {
    arguments.order = *order;
  }
  arguments.upper = arguments.upper || entry->upperCase;
  return true;
}

}  // namespace quorvane::cli
