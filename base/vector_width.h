// Which vectors the machine computes with. The program is built for those of 16 bytes; what gains from wider ones is
// compiled for them, too, in files of its own, and chosen when the program starts.
#pragma once

namespace quorvane {

enum class VectorWidth { Base, Avx2, Avx512 };  // 16, 32 and 64 bytes.

// The widest that this machine has. Avx2 stands for AVX2 and BMI2 with a quick "pext", Avx512 for AVX-512 BW, VL
// and VBMI2, too.
VectorWidth WidestVectors();

}  // namespace quorvane
