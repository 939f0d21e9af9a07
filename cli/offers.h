// What a shell can offer for a value that is being typed, kept at the parser's options.
#pragma once

#include <CLI/CLI.hpp>

#include "cli/choices.h"

namespace quorvane::cli {

enum class OfferKind { Nothing, Words, Files, Directories, LexiconFiles, Lexicons, Searches };

struct Offer {
  OfferKind kind = OfferKind::Nothing;
  Choices words{};
};

// Fixes the offer to an option, as a check that finds no fault.
CLI::Validator Offers(const Offer& offer);
// What is fixed to it.
Offer OfferOf(CLI::Option& option);

}  // namespace quorvane::cli
