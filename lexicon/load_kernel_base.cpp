#include "lexicon/load_kernel_code.h"

namespace quorvane {

extern const LoadKernel kLoadKernelBase;
const LoadKernel kLoadKernelBase{FindLines, Measure, FindLong, SetsOfHeads, BitmapsOf64};

}  // namespace quorvane
