// Load and each kind of search, with vectors of each width (in bytes) that the machine has, and sorting, over the
// lexicon named by QUORVANE_BENCH_LEXICON (make_bench_lexicon makes one); the history, in the directory for temporary
// files.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "results/result_list.h"
#include "results/results_file.h"
#include "search/history.h"
#include "search/scan.h"

namespace quorvane {
namespace {

std::string LexiconPath() {
  const char* path = std::getenv("QUORVANE_BENCH_LEXICON");
  return path == nullptr ? "bench.lex" : path;
}

std::shared_ptr<const Lexicon> TheLexicon() {
  static const std::shared_ptr<const Lexicon> lexicon = LoadLexicon(LexiconPath()).lexicon;
  return lexicon;
}

class NoRandom : public RandomSource {
 public:
  double NextFraction() override { return 0.5; }
};

struct Case {
  const char* name;
  const char* text;
  WordType type = WordType::WordList;
};

constexpr Case kCases[] = {
    {"c?t", "c?t"},
    {"?a?e?", "?a?e?"},
    {"*ing", "*ing"},
    {"un*able", "un*able"},
    {"*ell*", "*ell*"},
    {"s*t*r", "s*t*r"},
    {"1221", "1221"},
    {"@$@$@", "@$@$@"},
    {"*@$@$@$*", "*@$@$@$*"},
    {"*q*", "*q*"},
    {"*e*", "*e*"},
    {"*", "*"},
    {"%2ss>", "%2ss>"},
    {";pnt", ";pnt"},
    {";tnp~", ";tnp~"},
    {"anagram listenings", "listenings", WordType::Anagram},
    {"exact anagram listen", "listen", WordType::AnagramExact},
    {"palindrome *", "*", WordType::Palindrome},
    {"====", "===="},
};

void Load(benchmark::State& state, VectorWidth vectors) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(LoadLexicon(LexiconPath(), kLexiconCapacity, TextSource::Read, {}, vectors));
  }
}

void FindWords(benchmark::State& state, const Case& searched, VectorWidth vectors) {
  const auto lexicon = TheLexicon();
  if (lexicon == nullptr) {
    state.SkipWithError("no lexicon: set QUORVANE_BENCH_LEXICON");
    return;
  }
  ScanRequest request;
  request.prepared = PreparePattern(searched.text, searched.type);
  request.lists.scrabble = "retains";
  request.palindromes = searched.type == WordType::Palindrome;
  request.vectors = vectors;
  FoundNumbers found;
  NoRandom random;
  for (auto _ : state) {
    PerformScan(*lexicon, request, found, random);
    benchmark::DoNotOptimize(found.Span().data());
  }
  state.counters["found"] = static_cast<double>(found.size());
}

void Sort(benchmark::State& state) {
  const auto lexicon = TheLexicon();
  if (lexicon == nullptr) {
    state.SkipWithError("no lexicon: set QUORVANE_BENCH_LEXICON");
    return;
  }
  ResultList results;
  NoRandom random;
  ScanRequest request;
  request.prepared = PreparePattern("*", WordType::WordList);
  results.EndSearch({}, lexicon, PerformScan(*lexicon, request, results.BeginSearch(), random), false);
  for (auto _ : state) {
    results.Sort(state.range(0) != 0 ? SortOrder::LongestFirst : SortOrder::ShortestFirst, false);
  }
}
BENCHMARK(Sort)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// A history as full as it is kept, in a file of its own that goes with it.
struct FullHistory {
  FullHistory() {
    std::filesystem::remove(path);
    history.Load(path);
    for (size_t i = 0; i < kHistoryKept; ++i) {
      history.Append(Entry(i));
    }
  }
  ~FullHistory() { std::filesystem::remove(path); }
  FullHistory(const FullHistory&) = delete;
  FullHistory& operator=(const FullHistory&) = delete;

  static HistoryEntry Entry(size_t number) {
    HistoryEntry entry;
    entry.search.text = "un*able" + std::to_string(number);
    entry.search.lists = {"ABCDEFGHIJKLMNOPQRSTUVWXYZ", "aeiou", "retains?"};
    entry.search.conditions = {{ConditionKind::Not, "*s"}};
    entry.lexicon = "words.lex";
    entry.time = LocalTimeText(std::time(nullptr));
    return entry;
  }

  const std::string path = std::filesystem::temp_directory_path() / "quorvane_bench_history.jsonl";
  History history;
};

void AppendToHistory(benchmark::State& state) {
  FullHistory full;
  for (auto _ : state) {
    full.history.Append(FullHistory::Entry(0));
  }
}
BENCHMARK(AppendToHistory)->Iterations(2000)->Unit(benchmark::kMillisecond);

// What a start does, over a history that is as it should be.
void ReadHistory(benchmark::State& state) {
  const FullHistory full;
  for (auto _ : state) {
    History history;
    history.Load(full.path);
    history.Tidy();
    benchmark::DoNotOptimize(history.Distinct());
  }
}
BENCHMARK(ReadHistory)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  using quorvane::VectorWidth;
  for (const auto vectors : {VectorWidth::Base, VectorWidth::Avx2, VectorWidth::Avx512}) {
    if (vectors > quorvane::WidestVectors()) {
      break;
    }
    const std::string bytes = "/" + std::to_string(16 << static_cast<int>(vectors)) + "/";
    const auto add = [](const std::string& name, auto run) {
      benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMillisecond);
    };
    add("Load" + bytes, [vectors](benchmark::State& state) { quorvane::Load(state, vectors); });
    for (const auto& searched : quorvane::kCases) {
      add("Search" + bytes + searched.name,
          [&searched, vectors](benchmark::State& state) { quorvane::FindWords(state, searched, vectors); });
    }
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
