#include "base/vector_width.h"

namespace quorvane {

VectorWidth WidestVectors() {
#ifdef QUORVANE_WIDER_VECTORS
  // These two have "pext", but take a hundred steps for it.
  const bool slow = __builtin_cpu_is("znver1") != 0 || __builtin_cpu_is("znver2") != 0;
  if (slow || __builtin_cpu_supports("avx2") == 0 || __builtin_cpu_supports("bmi2") == 0) {
    return VectorWidth::Base;
  }
  const bool wide = __builtin_cpu_supports("avx512bw") != 0 && __builtin_cpu_supports("avx512vl") != 0 &&
                    __builtin_cpu_supports("avx512vbmi2") != 0;
  return wide ? VectorWidth::Avx512 : VectorWidth::Avx2;
#else
  return VectorWidth::Base;
#endif
}

}  // namespace quorvane
