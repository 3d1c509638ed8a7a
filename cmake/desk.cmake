# What runs without Windows: the desk and its program, the tests, bench/ and fuzz/.

find_package(GIF REQUIRED)
find_package(PNG REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(TURBOJPEG REQUIRED IMPORTED_TARGET libturbojpeg)
pkg_check_modules(SDL2 REQUIRED IMPORTED_TARGET sdl2)
find_package(nlohmann_json REQUIRED)
find_package(GTest REQUIRED)
find_package(OpenSSL 3 REQUIRED)
find_path(TOMLPLUSPLUS toml++/toml.h REQUIRED)

include(resources/embed.cmake)

strandline_floor(strandline_wrappers FOLDERS platform/wrappers USES strandline_core)
strandline_floor(strandline_looks FOLDERS platform/looks USES strandline_core)
strandline_floor(strandline_deskplatform FOLDERS platform/desk platform/desk/raster
                 USES strandline_core strandline_wrappers strandline_looks
                 WITH GIF::GIF PNG::PNG PkgConfig::TURBOJPEG PkgConfig::SDL2 PRECOMPILED ${STRANDLINE_SEAM_HEADERS})
strandline_embed_images(strandline_deskplatform)

# The program for authors of ad libraries; the desk verifies by the same code.
strandline_floor(strandline_adtool FOLDERS adtool EXCEPT adtool/main.cpp USES strandline_deskplatform OpenSSL::Crypto)
add_executable(strandline-ads adtool/main.cpp)
target_link_libraries(strandline-ads PRIVATE strandline_adtool)

strandline_floor(strandline_play FOLDERS play USES strandline_wordsim strandline_wrappers nlohmann_json::nlohmann_json
                 PRECOMPILED ${STRANDLINE_JSON_HEADERS})
strandline_floor(strandline_deskprogram FOLDERS desk EXCEPT desk/main.cpp
                 USES strandline_deskplatform strandline_play strandline_adtool PRECOMPILED ${STRANDLINE_JSON_HEADERS})
add_executable(strandline-desk desk/main.cpp)
target_link_libraries(strandline-desk PRIVATE strandline_deskprogram)

# The tests are compiled once, fast, for they are neither measured nor shipped, and linked to the plain libraries and to
# their sanitized twins.
enable_testing()
file(GLOB_RECURSE test_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/*.cpp)
# Those of the other world, which the cross compiler builds.
list(FILTER test_sources EXCLUDE REGEX "/tests/(win32|server|script|wordhost)/|_win32\\.cpp$")
# The locales of hosts in other countries; a machine needn't have them.
set(locales ${CMAKE_CURRENT_BINARY_DIR}/locales)
set(locale_files)
foreach(locale IN ITEMS de_DE tr_TR)
  add_custom_command(OUTPUT ${locales}/${locale}.UTF-8/LC_NUMERIC
    COMMAND ${CMAKE_COMMAND} -E make_directory ${locales}
    COMMAND localedef -i ${locale} -f UTF-8 ${locales}/${locale}.UTF-8
    VERBATIM)
  list(APPEND locale_files ${locales}/${locale}.UTF-8/LC_NUMERIC)
endforeach()
add_custom_target(strandline_test_locales DEPENDS ${locale_files})
add_library(strandline_test_objects OBJECT EXCLUDE_FROM_ALL ${test_sources})
add_dependencies(strandline_test_objects strandline_test_locales)
target_link_libraries(strandline_test_objects PUBLIC strandline_deskprogram GTest::gtest GTest::gmock)
target_compile_definitions(strandline_test_objects PRIVATE STRANDLINE_LOCALES="${locales}"
  STRANDLINE_SOURCE_DIR="${CMAKE_SOURCE_DIR}" STRANDLINE_DESK_PROGRAM="$<TARGET_FILE:strandline-desk>"
  STRANDLINE_ADS_PROGRAM="$<TARGET_FILE:strandline-ads>")
target_compile_options(strandline_test_objects PRIVATE -O0 -g0)
target_precompile_headers(strandline_test_objects PRIVATE <gtest/gtest.h> <functional> <optional> <string> <vector>
                          "${CMAKE_SOURCE_DIR}/tests/support/world.h")
function(strandline_test_program name library)
  add_executable(${name} $<TARGET_OBJECTS:strandline_test_objects>)
  target_link_libraries(${name} PRIVATE ${library} GTest::gtest GTest::gmock GTest::gtest_main PNG::PNG)
  add_dependencies(${name} strandline-desk strandline-ads)
endfunction()
strandline_test_program(strandline_tests strandline_deskprogram)
if(STRANDLINE_SANITIZED_TWINS)
  strandline_test_program(strandline_tests_sanitized strandline_deskprogram_sanitized)
endif()
if(STRANDLINE_BENCH)
  find_package(benchmark REQUIRED)
  pkg_check_modules(LUA REQUIRED IMPORTED_TARGET lua5.4)
  file(GLOB bench_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/bench/*.cpp)
  add_executable(strandline_bench ${bench_sources} tests/support/allocations.cpp)
  target_link_libraries(strandline_bench PRIVATE strandline_deskprogram benchmark::benchmark
                        PkgConfig::SDL2 PkgConfig::LUA)
  # Measured against where it is there.
  find_library(LIBYUV yuv)
  find_path(LIBYUV_HEADERS libyuv.h)
  if(LIBYUV AND LIBYUV_HEADERS)
    target_link_libraries(strandline_bench PRIVATE ${LIBYUV})
    target_compile_definitions(strandline_bench PRIVATE STRANDLINE_HAS_LIBYUV)
  endif()
endif()

if(STRANDLINE_FUZZ)
  file(GLOB fuzz_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/fuzz/*.cpp)
  foreach(source IN LISTS fuzz_sources)
    get_filename_component(name ${source} NAME_WE)
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE strandline_deskprogram)
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  endforeach()
endif()
