#pragma once

// A world in which the modules that reach Word hold their Word and their store, without a Main2 that uses them.

#include <gtest/gtest.h>

#include <memory>

#include "tests/support/world.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"
#include "wordaccess/CommonWordWindowFunctions.h"

namespace strandline {

class WordAccessTest : public testing::Test {
 protected:
  // Begins another world with this Word.
  World& Begin(const WorldOptions& options) {
    mWorld.reset();
    mWorld = std::make_unique<World>(options);
    mWorld->Load();
    CommonWordInteractionFunctions::Initialize(mWorld->Application());
    CommonPropertyFunctions::properties(mWorld->word.Properties());
    mWorld->did.Clear();
    return *mWorld;
  }
  World& Begin(const char16_t* version) { return Begin(ForWord(version)); }
  World& TheWorld() { return mWorld ? *mWorld : Begin(u"11.0"); }
  Doings& Did() { return TheWorld().did; }
  wordsim::WordWorld& Word() { return TheWorld().word; }

 private:
  std::unique_ptr<World> mWorld;
};

}  // namespace strandline
