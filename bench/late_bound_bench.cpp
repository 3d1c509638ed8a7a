// A late-bound read on the desk, nobody recording, beside a field read by name in Lua.

#include <benchmark/benchmark.h>

#include <lua.hpp>

#include "platform/desk/desk.h"
#include "tests/support/allocations.h"
#include "wordsim/word_world.h"

namespace strandline::bench {
namespace {

void LateBoundRead(benchmark::State& state) {
  desk::Desk desk;
  wordsim::WordWorld world(desk.Services(), desk.Host(), desk.Canvas(), desk.Clock(), {});
  const Object productState = world.ProductState();
  const std::size_t before = AllocationsSoFar();
  for (auto _ : state) benchmark::DoNotOptimize(productState.Get("lumivexEnabled").ToBoolean());
  state.counters["allocations"] = static_cast<double>(AllocationsSoFar() - before);
}

void LateBoundReadOfAText(benchmark::State& state) {
  desk::Desk desk;
  wordsim::WordWorld world(desk.Services(), desk.Host(), desk.Canvas(), desk.Clock(), {});
  const Object productState = world.ProductState();
  const std::size_t before = AllocationsSoFar();
  for (auto _ : state) benchmark::DoNotOptimize(productState.Get("productName").ToText());
  state.counters["allocations"] = static_cast<double>(AllocationsSoFar() - before);
}

void LuaFieldReadByName(benchmark::State& state) {
  lua_State* lua = luaL_newstate();
  lua_newtable(lua);
  lua_pushboolean(lua, 1);
  lua_setfield(lua, -2, "lumivexEnabled");
  for (auto _ : state) {
    lua_getfield(lua, -1, "lumivexEnabled");
    benchmark::DoNotOptimize(lua_toboolean(lua, -1));
    lua_pop(lua, 1);
  }
  lua_close(lua);
}

BENCHMARK(LateBoundRead);
BENCHMARK(LateBoundReadOfAText);
BENCHMARK(LuaFieldReadByName);

}  // namespace
}  // namespace strandline::bench
