#include "cli/make_command.h"

#include <cstdio>

#include "cli/choices.h"
#include "cli/output.h"
#include "lexicon/word_list_reader.h"

namespace quorvane::cli {
namespace {

// Without options of its own a list's word is what stands in front of the first blank, tab, comma or semicolon.
constexpr MakerOptions kFirstWords{Separator::Any, 1, false, Phrases::FirstWord};

// What the lists hold, reported; nothing, with a message, when that is no lexicon.
std::optional<MadeLexicon> Make(const std::vector<std::string>& inputs, const MakerOptions& options,
                                const std::string& consequence) {
  LexiconMaker maker(options);
  for (const std::string& input : inputs) {
    const WordListRead read = input == "-" ? ReadWordList(stdin, "standard input") : ReadWordList(input, Pipes::Read);
    if (read.error) {
      Complain("can't read " + read.error->Text());
      return std::nullopt;
    }
    maker.AddList(read.bytes);
  }
  MadeLexicon made = maker.Finish();
  Note(TextOf(made.report));
  if (!made.problem.empty()) {
    Complain(made.problem + consequence);
    return std::nullopt;
  }
  return made;
}

}  // namespace

std::optional<std::string> MakeArguments::Settle() {
  const auto phrases = PhrasesOfOption(phrasesName);
  if (!phrases) {
    return "--phrases: '" + phrasesName + "' is none of " + Listed(ChoicesOf(PhrasesRows()), "and");
  }
  options = kFirstWords;
  options.column = column;
  options.heading = heading;
  options.phrases = *phrases;
  if (column < 1) {
    return "--column: columns are counted from 1";
  }
  if (separatorName.empty()) {
    const bool firstWords = column == 1 && *phrases == Phrases::FirstWord;
    options.separator = firstWords ? Separator::Any : Separator::Found;
    return std::nullopt;
  }
  const auto separator = SeparatorOfOption(separatorName);
  if (!separator) {
    return "--separator: '" + separatorName + "' is none of " + Listed(ChoicesOf(Separators()), "and");
  }
  options.separator = *separator;
  return std::nullopt;
}

int MakeLexicon(const MakeArguments& arguments) {
  const auto made = Make(arguments.inputs, arguments.options, "; nothing was written");
  if (!made) {
    return kFailed;
  }
  if (const auto error = WriteLexiconFile(arguments.output, *made)) {
    Complain("can't write " + error->Text());
    return kFailed;
  }
  return kFound;
}

std::shared_ptr<const Lexicon> LexiconOfLists(const std::vector<std::string>& inputs) {
  const auto made = Make(inputs, kFirstWords, "");
  return made ? LoadLexiconBytes(made->text).lexicon : nullptr;
}

}  // namespace quorvane::cli
