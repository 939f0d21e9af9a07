// Limits and names that several subjects share.
#pragma once

#include <string_view>

namespace quorvane {

inline constexpr int kLongestLengthOffered = 60;  // Characters: what length lists, stored lengths and counts go up to.

// How the file begins that a first start makes where results will be saved.
inline constexpr std::string_view kDummyFileStart = "Dummy file - ";

}  // namespace quorvane
