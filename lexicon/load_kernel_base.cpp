#include "lexicon/load_kernel_code.h"

namespace quorvane {

extern const LoadKernel kLoadKernelBase;
const LoadKernel kLoadKernelBase{
    FindLines, Measure, FindLong, CollectHeads, BitmapsOf64<kSetBits>, BitmapsOf64<kEndingBits>};

}  // namespace quorvane
