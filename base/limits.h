// Limits that several subjects share.
#pragma once

namespace quorvane {

inline constexpr int kLongestLengthOffered = 60;  // Characters: what length lists, stored lengths and counts go up to.

}  // namespace quorvane
