# What is built for Windows with the cross compiler: the library as a DLL, and the programs that prove it under Wine.

enable_language(C RC)
set(STRANDLINE_CACHE "$ENV{HOME}/.cache/strandline" CACHE PATH "Where tools/windows keeps what it fetches")
set(STRANDLINE_IDL "${STRANDLINE_CACHE}/idl/usr/include/wine/wine/windows" CACHE PATH "The folder of oaidl.idl")
set(STRANDLINE_STDOLE "/usr/lib/x86_64-linux-gnu/wine/x86_64-windows" CACHE PATH "The folder of stdole2.tlb")
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(idl_width -m32)
  set(linker_emulation i386pe)
else()
  set(idl_width -m64)
  set(linker_emulation i386pep)
endif()

# The numbered images as resources, of the DLL and of a test module that has nothing but resources.
file(GLOB images CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/images/*.gif ${CMAKE_SOURCE_DIR}/resources/images/*.bmp)
set(image_lines "")
foreach(image IN LISTS images)
  get_filename_component(number ${image} NAME_WE)
  string(APPEND image_lines "${number} CUSTOM \"${image}\"\n")
endforeach()
file(CONFIGURE OUTPUT images.rc CONTENT "${image_lines}" @ONLY)

# The seam on the real services, and what a host of the library needs of them.
strandline_floor(strandline_looks FOLDERS platform/looks USES strandline_core)
strandline_floor(strandline_win32 FOLDERS platform/win32
                 USES strandline_core strandline_looks gdi32 ole32 oleaut32 uuid PRECOMPILED ${STRANDLINE_SEAM_HEADERS})
strandline_floor(strandline_win32host FOLDERS platform/win32/host USES strandline_win32)

# The DLL: server/ around the core, its type library and the images built in.
add_custom_command(
  OUTPUT strandline_com.h strandline_com.c strandline.tlb
  DEPENDS ${CMAKE_SOURCE_DIR}/server/strandline.idl
  COMMAND ${STRANDLINE_TARGET}-widl ${idl_width} -I ${STRANDLINE_IDL} -L ${STRANDLINE_STDOLE} -h -o strandline_com.h
          ${CMAKE_SOURCE_DIR}/server/strandline.idl
  COMMAND ${STRANDLINE_TARGET}-widl ${idl_width} -I ${STRANDLINE_IDL} -L ${STRANDLINE_STDOLE} -u -o strandline_com.c
          ${CMAKE_SOURCE_DIR}/server/strandline.idl
  COMMAND ${STRANDLINE_TARGET}-widl ${idl_width} -I ${STRANDLINE_IDL} -L ${STRANDLINE_STDOLE} -t -o strandline.tlb
          ${CMAKE_SOURCE_DIR}/server/strandline.idl
  VERBATIM)
add_custom_target(strandline_interfaces DEPENDS strandline_com.h strandline_com.c strandline.tlb)
strandline_floor(strandline_server FOLDERS server USES strandline_win32)
target_include_directories(strandline_server SYSTEM PUBLIC ${CMAKE_CURRENT_BINARY_DIR})
add_dependencies(strandline_server strandline_interfaces)

file(CONFIGURE OUTPUT strandline_resources.rc
     CONTENT "#include \"${CMAKE_SOURCE_DIR}/server/strandline.rc\"\n#include \"images.rc\"\n" @ONLY)
add_library(strandline SHARED server/exports/exports.cpp server/exports/older_windows.cpp server/strandline.def
            ${CMAKE_CURRENT_BINARY_DIR}/strandline_resources.rc)
set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/strandline_resources.rc PROPERTIES
  OBJECT_DEPENDS "${CMAKE_SOURCE_DIR}/server/strandline.rc;${CMAKE_CURRENT_BINARY_DIR}/strandline.tlb;${CMAKE_CURRENT_BINARY_DIR}/images.rc;${images}"
  INCLUDE_DIRECTORIES "${CMAKE_CURRENT_BINARY_DIR}")
set_target_properties(strandline PROPERTIES PREFIX "")
target_link_libraries(strandline PRIVATE strandline_server)
target_link_options(strandline PRIVATE -s)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  target_link_options(strandline PRIVATE -Wl,--enable-stdcall-fixup)
endif()

# Word with real windows. nlohmann's headers need nothing of the machine that they are installed on.
file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/include)
file(CREATE_LINK /usr/include/nlohmann ${CMAKE_CURRENT_BINARY_DIR}/include/nlohmann SYMBOLIC)
strandline_floor(strandline_wrappers FOLDERS platform/wrappers USES strandline_core)
strandline_floor(strandline_play FOLDERS play USES strandline_wordsim strandline_wrappers
                 PRECOMPILED ${STRANDLINE_JSON_HEADERS})
target_include_directories(strandline_play SYSTEM PUBLIC ${CMAKE_CURRENT_BINARY_DIR}/include)
strandline_floor(strandline_wordhost FOLDERS wordhost EXCEPT wordhost/main.cpp
                 USES strandline_play strandline_win32host)
add_executable(strandline-host wordhost/main.cpp ${CMAKE_CURRENT_BINARY_DIR}/images.rc)
target_link_libraries(strandline-host PRIVATE strandline_wordhost)
add_dependencies(strandline-host strandline)

# The tool's writer of ad libraries, without what needs packages that the cross compiler hasn't.
add_library(strandline_adtool STATIC adtool/module_writer.cpp adtool/resource_section.cpp)
target_link_libraries(strandline_adtool PUBLIC strandline_core)

# A module of resources alone, for the tests.
file(CONFIGURE OUTPUT module.rc CONTENT "${image_lines}STRINGTABLE\nBEGIN\n  7 \"seventh\"\nEND\n" @ONLY)
add_custom_command(
  OUTPUT images.dll
  DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/module.rc ${images}
  COMMAND ${CMAKE_RC_COMPILER} -c 65001 module.rc -O coff -o module.o
  COMMAND ${STRANDLINE_TARGET}-ld -m ${linker_emulation} -shared --entry 0 --no-seh -s -o images.dll module.o
  VERBATIM)
add_custom_target(strandline_test_module ALL DEPENDS images.dll)

# A module whose code leaves a trace when it runs, which it never may.
if(EXISTS ${CMAKE_SOURCE_DIR}/tests/win32/noisy_module/noisy.cpp)
  add_library(strandline_noisy_module SHARED tests/win32/noisy_module/noisy.cpp ${CMAKE_CURRENT_BINARY_DIR}/images.rc)
  set_target_properties(strandline_noisy_module PROPERTIES PREFIX "" OUTPUT_NAME noisy)
  add_dependencies(strandline_test_module strandline_noisy_module)
endif()

# The tests, which Debian's package of googletest comes to as sources.
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(/usr/src/googletest ${CMAKE_CURRENT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
file(GLOB test_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/contract/*.cpp ${CMAKE_SOURCE_DIR}/tests/win32/*.cpp
     ${CMAKE_SOURCE_DIR}/tests/server/*.cpp ${CMAKE_SOURCE_DIR}/tests/wordhost/*.cpp)
list(FILTER test_sources EXCLUDE REGEX "_desk\\.cpp$")
# A host has strings of its own.
file(CONFIGURE OUTPUT tests.rc CONTENT "${image_lines}STRINGTABLE\nBEGIN\n  4711 \"the host's own\"\nEND\n" @ONLY)
add_executable(strandline_win32_tests ${test_sources} ${CMAKE_CURRENT_BINARY_DIR}/tests.rc)
target_link_libraries(strandline_win32_tests PRIVATE strandline_server strandline_wordhost strandline_adtool gtest gmock)
target_compile_options(strandline_win32_tests PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-O0 -g0>)
target_precompile_headers(strandline_win32_tests PRIVATE $<$<COMPILE_LANGUAGE:CXX>:<gtest/gtest.h$<ANGLE-R>>)
add_dependencies(strandline_win32_tests strandline strandline_test_module)

# What the scripts of tests/script can't do themselves: windows, collections, sinks. It lies beside the DLL.
file(GLOB helper_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/script/helper/*.cpp)
add_library(strandline_script_helper SHARED ${helper_sources} tests/script/helper/helper.def)
set_target_properties(strandline_script_helper PROPERTIES PREFIX "")
target_link_libraries(strandline_script_helper PRIVATE strandline_win32)
target_link_options(strandline_script_helper PRIVATE -s)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  target_link_options(strandline_script_helper PRIVATE -Wl,--enable-stdcall-fixup)
endif()

# What the library costs on Windows; no test of anything.
file(GLOB bench_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/bench/windows/*.cpp)
add_executable(strandline_win32_bench EXCLUDE_FROM_ALL ${bench_sources})
target_link_libraries(strandline_win32_bench PRIVATE strandline_win32host strandline_wordsim)
