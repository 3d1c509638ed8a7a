#pragma once

namespace strandline_mutants_sample {

enum class Size { kSmall, kLarge };

// Four per piece, and none for less than two.
int Price(int pieces);
Size SizeOf(char sign);
int Rounds(bool isQuick);
void Count(int& counted);

// No test asks for it.
inline int Forgotten() { return 1; }

}  // namespace strandline_mutants_sample
