# SPDX-License-Identifier: MIT
set(triplet x86_64-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
# Debian keeps the 64-bit loader off the path when it is the only one installed.
find_program(PAGESLICE_WINE wine64 PATHS /usr/lib/wine)
if(PAGESLICE_WINE)
  # A prefix of its own leaves the developer's alone.
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_COMMAND} -E env WINEDEBUG=-all WINEPREFIX=${CMAKE_BINARY_DIR}/wine
    ${PAGESLICE_WINE})
endif()
