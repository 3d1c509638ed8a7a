#include "desk/pointer_picture.h"

#include <string_view>

namespace strandline::deskprogram {

namespace {

// X the edge, . the face.
constexpr std::string_view kArrow[] = {
    "X",          "XX",          "X.X",     "X..X",     "X...X",    "X....X",    "X.....X",   "X......X", "X.......X",
    "X........X", "X.....XXXXX", "X..X..X", "X.X X..X", "XX  X..X", "X    X..X", "     X..X", "      XX",
};
constexpr std::uint32_t kEdge = 0x000000;
constexpr std::uint32_t kFace = 0xFFFFFF;

}  // namespace

void DrawPointer(desk::Surface& picture, Point tip) {
  int y = tip.y;
  for (const std::string_view row : kArrow) {
    int x = tip.x;
    for (const char kind : row) {
      const bool isInside = x >= 0 && y >= 0 && x < picture.width && y < picture.height;
      if (isInside && kind != ' ') *picture.At(x, y) = kind == 'X' ? kEdge : kFace;
      ++x;
    }
    ++y;
  }
}

}  // namespace strandline::deskprogram
