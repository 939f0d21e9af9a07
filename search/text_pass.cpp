#include "search/text_pass.h"

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

namespace quorvane {

// Each in a file of its own, compiled for its width.
void TextPassAvx2(const TextProgram& program, const char* text, const char* end, unsigned firstBit, uint64_t* bits);
void TextPassAvx512(const TextProgram& program, const char* text, const char* end, unsigned firstBit, uint64_t* bits);

TextPassKernel TextPassKernelFor([[maybe_unused]] VectorWidth width) {
#ifdef QUORVANE_WIDER_VECTORS
  if (width != VectorWidth::Base) {
    return width == VectorWidth::Avx2 ? TextPassAvx2 : TextPassAvx512;
  }
#endif
  return nullptr;
}

namespace {

constexpr size_t kBlockWords = LetterBitmaps::kBlockWords;

TextSymbol SymbolOf(LetterSet letters) {
  const LetterClass byHalves(letters);
  TextSymbol symbol{};
  std::copy(byHalves.aToO.begin(), byHalves.aToO.end(), symbol.aToO);
  std::copy(byHalves.pToZ.begin(), byHalves.pToZ.end(), symbol.pToZ);
  symbol.single = std::popcount(letters) == 1;
  symbol.letter = static_cast<char>('a' - 1 + std::countr_zero(letters));
  return symbol;
}

}  // namespace

std::optional<TextProgram> TextPass::Compile(const TextQuestion& question) {
  if (question.steps.empty() || question.steps.size() > TextProgram::kMostSteps ||
      std::max(question.minTimes, question.maxTimes) > TextProgram::kMostTimes) {
    return std::nullopt;
  }
  std::optional<TextProgram> program(std::in_place);
  std::vector<LetterSet> symbols;
  for (const TextQuestion::Step& step : question.steps) {
    const auto known = std::find(symbols.begin(), symbols.end(), step.letters);
    const auto symbol = static_cast<size_t>(known - symbols.begin());
    if (known == symbols.end()) {
      if (symbols.size() == TextProgram::kMostSymbols) {
        return std::nullopt;
      }
      symbols.push_back(step.letters);
      program->symbols[symbol] = SymbolOf(step.letters);
    }
    program->steps[program->stepCount++] = {static_cast<uint8_t>(symbol), step.later};
  }
  program->symbolCount = symbols.size();
  program->fromStart = question.fromStart;
  program->toEnd = question.toEnd;
  program->minTimes = question.minTimes;
  program->maxTimes = question.maxTimes;
  return program;
}

TextPass::TextPass(const TextQuestion& question, VectorWidth vectors)
    : kernel_(TextPassKernelFor(vectors)), program_(kernel_ == nullptr ? std::nullopt : Compile(question)) {}

bool TextPass::IsWorth(const Survivors& survivors, size_t wordsOfALook) const {
  const auto blocks = survivors.Blocks();
  if (!program_ || blocks.empty()) {
    return false;
  }
  return survivors.Count() * wordsOfALook >= (blocks.back() - blocks.front() + size_t{1}) * kBlockWords;
}

void TextPass::Keep(const Lexicon& lexicon, Survivors& survivors,
                    const std::function<bool(std::string_view word)>& fits) const {
  const size_t firstBlock = survivors.Blocks().front();
  // Word 0 has no line, and behind the last word there is none.
  const WordNumber first = std::max(survivors.First(firstBlock), WordNumber{1});
  const WordNumber last =
      std::min(survivors.First(survivors.Blocks().back()) + static_cast<WordNumber>(kBlockWords) - 1,
               static_cast<WordNumber>(lexicon.count()));
  const char* text = lexicon.FoldedText();
  std::array<uint64_t, Survivors::kBlocks + 2> fitting;
  kernel_(*program_, text + lexicon.Starts()[first], text + lexicon.Starts()[last + 1], first % kBlockWords,
          fitting.data());
  const uint64_t* others = lexicon.Bitmaps().Row(survivors.First(), 0);
  survivors.Narrow([&](size_t block, uint64_t bits) {
    uint64_t kept = bits & fitting[block - firstBlock] & ~others[block];
    for (uint64_t rest = bits & others[block]; rest != 0; rest &= rest - 1) {
      const auto i = static_cast<unsigned>(std::countr_zero(rest));
      kept |= static_cast<uint64_t>(fits(lexicon.FoldedWord(survivors.First(block) + i))) << i;
    }
    return kept;
  });
}

}  // namespace quorvane
