#pragma once

#include <string>

namespace strandline::desk {

// Thrown where the run waits for something that no coming event can bring, or goes round without end while time stands
// still. It is no error of a procedure and no standard exception, so that whatever handles those lets it through to the
// program.
struct Stuck {
  std::string where;
};

}  // namespace strandline::desk
