# Shared by the two Windows toolchain files, which set the triplet first.
set(CMAKE_SYSTEM_NAME Windows)
# The posix flavour has std::thread, which the program uses; everything is linked in, so that a DLL or program needs
# nothing but the system's own DLLs.
find_program(CMAKE_CXX_COMPILER NAMES ${triplet}-g++-posix ${triplet}-g++ REQUIRED)
find_program(CMAKE_C_COMPILER NAMES ${triplet}-gcc-posix ${triplet}-gcc REQUIRED)
set(CMAKE_RC_COMPILER ${triplet}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
