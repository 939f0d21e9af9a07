#include "lexicon/load_kernel.h"

namespace quorvane {

// Each in a file of its own, compiled for its width.
extern const LoadKernel kLoadKernelBase;
extern const LoadKernel kLoadKernelAvx2;
extern const LoadKernel kLoadKernelAvx512;

const LoadKernel& LoadKernelFor([[maybe_unused]] VectorWidth width) {
#ifdef QUORVANE_WIDER_VECTORS
  if (width != VectorWidth::Base) {
    return width == VectorWidth::Avx2 ? kLoadKernelAvx2 : kLoadKernelAvx512;
  }
#endif
  return kLoadKernelBase;
}

}  // namespace quorvane
