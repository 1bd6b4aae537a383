# SPDX-License-Identifier: MIT
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_FLAGS_INIT "-m32")
set(CMAKE_CXX_FLAGS_INIT "-m32")
# Not every 64-bit kernel runs 32-bit programs; where the loader does not start, they are emulated, which takes long.
execute_process(COMMAND /lib/ld-linux.so.2 --version RESULT_VARIABLE native OUTPUT_QUIET ERROR_QUIET)
find_program(PAGESLICE_QEMU NAMES qemu-i386 qemu-i386-static)
if(PAGESLICE_QEMU AND NOT native EQUAL 0)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${PAGESLICE_QEMU})
endif()
