#pragma once

// toml++, without its assertions. Some are of what an author's list may well hold, "[=" for one, and behind each of
// those stands the error that is meant. With NDEBUG they would be taken for granted instead, so that isn't seen by it.

#pragma push_macro("NDEBUG")
#undef NDEBUG
#define TOML_ASSERT(condition) static_assert(true)
#include <toml++/toml.h>
#pragma pop_macro("NDEBUG")
