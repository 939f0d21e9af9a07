#include "results/search_command.h"

#include <array>
#include <cstdint>

#include "base/file.h"
#include "base/program_directory.h"
#include "base/text.h"
#include "lexicon/lexicon_name.h"
#include "search/conditions.h"

namespace quorvane {
namespace {

constexpr std::string_view kProgram = "quorvane-cli find";

// Means the same in every shell wherever it stands in a word.
bool IsPlain(char c) {
  return IsLetter(c) || IsDigit(c) || std::string_view("_-./,:+@").find(c) != std::string_view::npos;
}

bool IsControl(int32_t codePoint) {
  return (codePoint < 0x20 && codePoint != '\n') || (codePoint >= 0x7F && codePoint < 0xA0);
}

// Pieces of a word, each in quotes of its kind.
class QuotedWord {
 public:
  void Quote(std::string_view bytes) { Add(Kind::Quoted, bytes); }
  // A character that means something between single quotes, in some shell.
  void Escape(char c) { Add(Kind::None, std::string{'\\', c}); }
  void Name(std::string_view bytes) {
    for (const char c : bytes) {
      const auto code = static_cast<unsigned char>(c);
      Add(Kind::Named, std::string{'\\', Digit(code >> 6), Digit(code >> 3), Digit(code)});
    }
  }
  std::string Text() {
    Add(Kind::None, "");
    return text_;
  }

 private:
  enum class Kind { None, Quoted, Named };

  static char Digit(unsigned number) { return static_cast<char>('0' + (number & 7)); }

  void Add(Kind kind, std::string_view bytes) {
    constexpr std::array<std::string_view, 3> kBegin = {"", "'", "\"$(printf '"};
    constexpr std::array<std::string_view, 3> kEnd = {"", "'", "')\""};
    if (kind != kind_) {
      text_ += kEnd[static_cast<size_t>(kind_)];
      text_ += kBegin[static_cast<size_t>(kind)];
      kind_ = kind;
    }
    text_ += bytes;
  }

  std::string text_;
  Kind kind_ = Kind::None;
};

class Line {
 public:
  void Option(std::string_view name) { text_ += " --" + std::string(name); }
  // A value that could be taken for an option, or for none, stands behind "=".
  void Option(std::string_view name, std::string_view value) {
    Option(name);
    text_ += (value.starts_with('-') ? "=" : " ") + ShellWord(value);
  }
  void Words(std::string_view words) { text_ += words; }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

void SayLexicon(const SearchCommand& command, Line& line) {
  const size_t slash = command.lexicon.rfind('/');
  const std::string name = slash == std::string::npos ? command.lexicon : command.lexicon.substr(slash + 1);
  if (command.lexicon.empty()) {
    return;
  }
  const bool usualName = name == kDefaultLexiconName;
  const bool inside = JoinPath(command.directory, name) == command.lexicon &&
                      (usualName || LexiconNamed(command.directory, name) == command.lexicon);
  if (!inside) {
    line.Option(kLexiconOption, command.lexicon);
    return;
  }
  if (command.directory != command.usualDirectory) {
    line.Option(kDataDirOption, command.directory);
  }
  if (!usualName) {
    line.Option(kLexiconOption, name);
  }
}

}  // namespace

std::string ShellWord(std::string_view text) {
  bool plain = !text.empty();
  QuotedWord word;
  for (size_t i = 0; i < text.size();) {
    const size_t start = i;
    const int32_t codePoint = NextCodePoint(text, i);
    if (codePoint < 0) {
      i = start + 1;
    }
    const std::string_view bytes = text.substr(start, i - start);
    plain = plain && IsPlain(bytes[0]);
    if (codePoint < 0 || IsControl(codePoint)) {
      word.Name(bytes);
    } else if (codePoint == '\'' || codePoint == '\\') {
      word.Escape(bytes[0]);
    } else {
      word.Quote(bytes);
    }
  }
  return plain ? std::string(text) : text.empty() ? "''" : word.Text();
}

std::string CommandOf(const SearchCommand& command) {
  const Search& search = command.search;
  Line line;
  line.Words(kProgram);
  SayLexicon(command, line);
  if (search.mode != WordType{}) {
    line.Option(kTypeOption, FactsOf(search.mode).option);
  }
  if (!search.lengths.any) {
    line.Option(kLengthOption, LengthText(search.lengths));
  }
  for (const ListKind kind : kListKinds) {
    const std::string& list = search.lists.Of(kind);
    if (FoldText(list) != FactsOf(kind).usual) {
      line.Option(FactsOf(kind).option, list);
    }
  }
  for (const Condition& condition : search.conditions) {
    line.Option(FactsOf(condition.kind).option, condition.text);
  }
  if (command.order != SortOrder{}) {
    line.Option(kSortOption, RowOf(command.order).option);
  }
  if (command.upperCase) {
    line.Option(kUpperOption);
  }
  line.Words(" -- ");
  // "-" is the patterns of standard input; alone it means what "?" means.
  line.Words(ShellWord(search.text == "-" ? "?" : search.text));
  return line.Text();
}

}  // namespace quorvane
