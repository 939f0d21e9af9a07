#include "lexicon/load_kernel_code.h"

namespace quorvane {

extern const LoadKernel kLoadKernelAvx2;
const LoadKernel kLoadKernelAvx2{
    FindLines, Measure, FindLong, CollectHeads, BitmapsOf64<kSetBits>, BitmapsOf64<kEndingBits>};

}  // namespace quorvane
