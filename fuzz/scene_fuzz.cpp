// Any bytes as a scene: the parser gives commands or one line that says what is wrong, and its own usage of a form
// never breaks.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "play/scene_command.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace strandline::play;
  const ParsedScene scene = ParseScene({reinterpret_cast<const char*>(data), size});
  if (scene.error.empty() != (scene.errorLine == 0)) std::abort();
  if (scene.error.find('\n') != std::string::npos) std::abort();
  for (const Command& command : scene.commands) {
    if (Usage(*command.form).empty() || command.line <= 0) std::abort();
  }
  return 0;
}
