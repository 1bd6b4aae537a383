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

# Makes a header-only library of the machine that builds usable by TARGET, also when it builds for another system,
# whose compiler must not see the rest of that machine's headers.
function(pageslice_use_headers target folder header)
  find_path(PAGESLICE_${folder}_DIR ${folder}/${header} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  if(CMAKE_CROSSCOMPILING)
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/headers)
    file(CREATE_LINK ${PAGESLICE_${folder}_DIR}/${folder} ${PROJECT_BINARY_DIR}/headers/${folder} SYMBOLIC)
    target_include_directories(${target} SYSTEM PRIVATE ${PROJECT_BINARY_DIR}/headers)
  else()
    target_include_directories(${target} SYSTEM PRIVATE ${PAGESLICE_${folder}_DIR})
  endif()
endfunction()
