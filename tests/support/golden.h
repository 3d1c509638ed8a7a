#pragma once

// Pictures that are right because somebody has looked at them. They stand in tests/golden; a comparison is exact. On a
// mismatch the build's folder golden-failures/ gets the actual picture, the expected one, and one of the differences.
//
// With STRANDLINE_UPDATE_GOLDEN=1 in the environment the actual picture becomes the expected one, and the test passes.

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "platform/desk/raster/surface.h"

namespace strandline {

// `name` without folder and ending.
testing::AssertionResult IsGolden(const desk::Surface& actual, const std::string& name);

// The pixels of a PNG; nothing when it can't be read.
std::optional<desk::Surface> ReadPng(const std::string& path);

}  // namespace strandline
