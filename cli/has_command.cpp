#include "cli/has_command.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>

#include "cli/lexicon_commands.h"
#include "cli/make_command.h"
#include "cli/output.h"
#include "lexicon/word_index.h"

namespace quorvane::cli {
namespace {

std::shared_ptr<const Lexicon> LexiconOf(const HasArguments& arguments) {
  if (!arguments.wordLists.empty()) {
    return LexiconOfLists(arguments.wordLists);
  }
  const auto path = LexiconPath(arguments.lexicon, arguments.dataDir);
  if (!path) {
    return nullptr;
  }
  const LoadResult loaded = LoadLexicon(*path);
  if (loaded.outcome != LoadOutcome::Ok) {
    Complain(DescribeLoad(*path, loaded));
  }
  return loaded.lexicon;
}

bool Takes(const std::vector<std::string>& values, const std::string& value) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

}  // namespace

int Has(const HasArguments& arguments) {
  if (Takes(arguments.words, "-") && Takes(arguments.wordLists, "-")) {
    Complain("standard input is either the words or the list");
    return kFailed;
  }
  Output output;
  const auto lexicon = LexiconOf(arguments);
  if (lexicon == nullptr) {
    return kFailed;
  }
  const WordIndex index(*lexicon);
  int status = kFound;
  const auto answer = [&](const std::string& word) {
    const bool has = index.Has(word);
    output.Write(word + (has ? ": yes\n" : ": no\n"));
    status = has ? status : kNothingFound;
  };
  for (const std::string& word : arguments.words) {
    if (word != "-") {
      answer(word);
      continue;
    }
    for (std::string line; !output.Failed() && std::getline(std::cin, line);) {
      answer(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line);
      output.Flush();
    }
    if (std::ferror(stdin) != 0) {
      Complain(std::string("can't read standard input: ") + std::strerror(errno));
      return output.Finish(kFailed);
    }
  }
  return output.Finish(status);
}

}  // namespace quorvane::cli
