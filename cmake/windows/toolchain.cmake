# SPDX-License-Identifier: MIT
# Debian's cross compiler for 64-bit Windows. Everything is linked in, so that a program needs no library beside it.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

# Libraries are those of the target or built from their sources; nothing of this machine's is linked.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# pkg-config would find this machine's libmdb.
set(CMAKE_DISABLE_FIND_PACKAGE_PkgConfig ON)
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR})

# Where the programs run that the build itself starts, and the tests.
find_program(ZOR_WINE NAMES wine64 wine PATHS /usr/lib/wine)
if(ZOR_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${ZOR_WINE})
endif()
