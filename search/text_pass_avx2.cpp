#include "search/text_pass_code.h"

namespace quorvane {

void TextPassAvx2(const TextProgram& program, const char* text, const char* end, unsigned firstBit, uint64_t* bits) {
  Pass(program, firstBit, bits).Run(text, end);
}

}  // namespace quorvane
