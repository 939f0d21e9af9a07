// Figures that no command line shows, as one JSON object on standard output: medians of 9, in milliseconds. Usage:
// bench_probe LEXICON SCRATCH-FILE.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <numeric>
#include <span>
#include <vector>

#include "results/result_list.h"
#include "results/results_file.h"
#include "search/scan.h"

namespace {

using namespace quorvane;

constexpr int kRuns = 9;

double Median(const std::function<void()>& action) {
  std::vector<double> times;
  for (int i = 0; i < kRuns; ++i) {
    const auto start = std::chrono::steady_clock::now();
    action();
    times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
  }
  std::sort(times.begin(), times.end());
  return times[kRuns / 2];
}

class NoRandom : public RandomSource {
 public:
  double NextFraction() override { return 0; }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: bench_probe LEXICON SCRATCH-FILE\n");
    return 2;
  }
  const auto lexicon = LoadLexicon(argv[1]).lexicon;
  if (lexicon == nullptr) {
    std::fprintf(stderr, "bench_probe: no usable lexicon in %s\n", argv[1]);
    return 1;
  }
  // What reading 10 MB of memory takes: a sum over five bytes for each of 2,000,000 words.
  const std::vector<uint64_t> block(10'000'000 / sizeof(uint64_t), 1);
  volatile uint64_t sink = 0;
  const auto sum = [&sink](std::span<const uint64_t> numbers) {
    return Median([&] { sink = std::accumulate(numbers.begin(), numbers.end(), uint64_t{0}); });
  };
  const double read = sum(block);
  // And what reading the words themselves takes, where a search would read them.
  const size_t textSize = lexicon->Starts()[static_cast<size_t>(lexicon->count()) + 1];
  const double readText = sum({reinterpret_cast<const uint64_t*>(lexicon->Text()), textSize / sizeof(uint64_t)});

  ResultList results;
  NoRandom random;
  ScanRequest request;
  request.prepared = PreparePattern("*", WordType::WordList);
  const auto search = [&] {
    results.EndSearch({}, lexicon, PerformScan(*lexicon, request, results.BeginSearch(), random), false);
  };
  search();
  const double list = Median(search);
  const double sort = Median([&] { results.Sort(SortOrder::ShortestFirst, false); });
  bool saved = true;
  const double save = Median([&] { saved = saved && !WriteResultsAsLexicon(argv[2], results, SortOrder::Alphabetic); });
  std::printf(
      "{\"read_10mb_ms\": %.4f, \"read_text_ms\": %.4f, \"list_ms\": %.4f, \"sort_ms\": %.4f, \"save_ms\": %.4f}\n",
      read, readText, list, sort, save);
  return saved ? 0 : 1;
}
