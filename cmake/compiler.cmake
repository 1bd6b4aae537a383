# SPDX-License-Identifier: MIT
# What every target of this project is compiled with: language level, warnings, sanitizers, coverage.

add_library(pageslice_compiler INTERFACE)
target_compile_features(pageslice_compiler INTERFACE cxx_std_17)

if(MSVC)
  target_compile_options(pageslice_compiler INTERFACE /W4 /permissive- /utf-8 $<$<BOOL:${PAGESLICE_WERROR}>:/WX>)
else()
  # GCC and Clang share this list, so that clang-tidy can read GCC's command lines.
  target_compile_options(pageslice_compiler INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${PAGESLICE_WERROR}>:-Werror>
    # `text` has virtual functions and, to keep its layout, no virtual destructor. Clang warns of that wherever a vector
    # holds slices, which are never deleted through a base.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-delete-non-abstract-non-virtual-dtor>)
endif()

if(PAGESLICE_HARDEN AND UNIX AND NOT APPLE AND NOT PAGESLICE_SANITIZE)
  include(CheckCXXCompilerFlag)
  check_cxx_compiler_flag(-fcf-protection PAGESLICE_HAS_CF_PROTECTION) # x86 only
  target_compile_options(pageslice_compiler INTERFACE -fstack-protector-strong -fstack-clash-protection
    $<$<BOOL:${PAGESLICE_HAS_CF_PROTECTION}>:-fcf-protection>)
  if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE") # as a distribution has set it
    # Takes optimization to mean anything, and the C library warns without.
    target_compile_options(pageslice_compiler INTERFACE
      $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE$<SEMICOLON>-D_FORTIFY_SOURCE=2>)
  endif()
  target_link_options(pageslice_compiler INTERFACE -Wl,-z,relro -Wl,-z,now)
endif()

if(PAGESLICE_SANITIZE)
  set(flags -fsanitize=${PAGESLICE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
    $<$<CXX_COMPILER_ID:Clang>:-fsanitize-ignorelist=${CMAKE_CURRENT_LIST_DIR}/sanitize-ignore.txt>)
  target_compile_options(pageslice_compiler INTERFACE ${flags})
  target_link_options(pageslice_compiler INTERFACE ${flags})
endif()

if(PAGESLICE_COVERAGE)
  # Counted atomically, because some tests run threads.
  target_compile_options(pageslice_compiler INTERFACE -fprofile-instr-generate -fprofile-update=atomic
    -fcoverage-mapping)
  target_link_options(pageslice_compiler INTERFACE -fprofile-instr-generate)
endif()

# What a host in C has to link besides the static library.
set(pageslice_runtime ${CMAKE_CXX_IMPLICIT_LINK_LIBRARIES})
list(FILTER pageslice_runtime INCLUDE REGEX "^(std)?c\\+\\+")

# Makes a header-only library of the machine that builds usable by TARGET, also when it builds for another system,
# whose compiler must not see the rest of that machine's headers.
function(pageslice_use_headers target folder header package)
  find_path(PAGESLICE_${folder}_DIR ${folder}/${header} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)
  if(NOT PAGESLICE_${folder}_DIR)
    message(FATAL_ERROR "The program takes ${folder}/${header} (Debian: ${package}); -DPAGESLICE_BUILD_PROGRAM=OFF does without")
  endif()
  if(CMAKE_CROSSCOMPILING)
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/headers)
    file(CREATE_LINK ${PAGESLICE_${folder}_DIR}/${folder} ${PROJECT_BINARY_DIR}/headers/${folder} SYMBOLIC)
    target_include_directories(${target} SYSTEM PRIVATE ${PROJECT_BINARY_DIR}/headers)
  else()
    target_include_directories(${target} SYSTEM PRIVATE ${PAGESLICE_${folder}_DIR})
  endif()
endfunction()
