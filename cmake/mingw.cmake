# SPDX-License-Identifier: MIT
# Shared by the two Windows toolchain files, which set the triplet first.
set(CMAKE_SYSTEM_NAME Windows)
# The posix flavour has std::thread, which the program uses; everything is linked in, so that a DLL or program needs
# nothing but the system's own DLLs.
find_program(CMAKE_CXX_COMPILER NAMES ${triplet}-g++-posix ${triplet}-g++ REQUIRED)
find_program(CMAKE_C_COMPILER NAMES ${triplet}-gcc-posix ${triplet}-gcc REQUIRED)
# The DLL is linked with the run-time library of the win32 flavour, where there is one.
find_program(PAGESLICE_WIN32_COMPILER NAMES ${triplet}-g++-win32)
set(CMAKE_RC_COMPILER ${triplet}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Without the time of linking, so that two builds of one revision are the same.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
