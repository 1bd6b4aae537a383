# SPDX-License-Identifier: MIT
set(triplet i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
# Runs once tests/windows/run-x86 has set it up.
set(PAGESLICE_WINE ${CMAKE_CURRENT_LIST_DIR}/../tests/windows/wine32 CACHE FILEPATH "32-bit Wine")
set(CMAKE_CROSSCOMPILING_EMULATOR ${PAGESLICE_WINE})
