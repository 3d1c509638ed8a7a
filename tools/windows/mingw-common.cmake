# What the two toolchain files share. The compilers with POSIX threads, by their full names: the others have no mutex.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${STRANDLINE_TARGET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${STRANDLINE_TARGET}-g++-posix)
set(CMAKE_RC_COMPILER ${STRANDLINE_TARGET}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${STRANDLINE_TARGET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# What is built needs the system's own libraries and nothing else.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/wine-run;${CMAKE_SYSTEM_PROCESSOR}")
