# The library twice: shared for hosts, static for the program and the tests, which need the routines that the shared
# one hides. Each compiles the sources for itself, because what they export differs.

# Lowest floor first; a floor includes only itself and those before it.
set(floors platform text scan output url tags parser c_api)
list(TRANSFORM floors REPLACE "(.+)" "${PROJECT_SOURCE_DIR}/src/\\1/*.cpp" OUTPUT_VARIABLE patterns)
file(GLOB sources CONFIGURE_DEPENDS ${patterns})

if(PAGESLICE_SINGLE_FILE)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  file(GLOB headers CONFIGURE_DEPENDS include/pageslice/*.h src/*/*.h src/*/*.inc)
  set(single ${PROJECT_BINARY_DIR}/single/pageslice_amalgamated.cpp)
  add_custom_command(OUTPUT ${single} ${PROJECT_BINARY_DIR}/single/pageslice_amalgamated.h
      ${PROJECT_BINARY_DIR}/single/pageslice_amalgamated_c.h
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/amalgamate ${PROJECT_BINARY_DIR}/single
    DEPENDS ${sources} ${headers} ${PROJECT_SOURCE_DIR}/tools/amalgamate VERBATIM)
  set(sources ${single})
endif()

# Code for one instruction set (src/scan/avx2.cpp) compiles to nothing where the processor family lacks it, and switches
# the set on by pragma. Flags for such a file, should one need them, belong here; they also change the inline functions
# that it shares with other files, which then may run where the set is missing.

function(pageslice_library target type)
  add_library(${target} ${type} ${ARGN})
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:pageslice_compiler>)
  target_compile_features(${target} PUBLIC cxx_std_17)
  target_include_directories(${target}
    PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
    PRIVATE ${PROJECT_SOURCE_DIR}/src)
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME pageslice
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON)
  if(NOT MSVC)
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
  endif()
endfunction()

pageslice_library(pageslice_static STATIC ${sources})
add_library(pageslice::static ALIAS pageslice_static)
target_compile_definitions(pageslice_static PUBLIC PAGESLICE_STATIC)
set_target_properties(pageslice_static PROPERTIES EXPORT_NAME static)
if(MSVC)
  # The shared library's import library is called pageslice.lib there.
  set_target_properties(pageslice_static PROPERTIES OUTPUT_NAME pageslice_static)
endif()

# An installed library no longer shows CMake that it is C++: a host in C has to be told what else to link.
set(runtime ${CMAKE_CXX_IMPLICIT_LINK_LIBRARIES})
list(FILTER runtime INCLUDE REGEX "^(std)?c\\+\\+")
target_link_libraries(pageslice_static INTERFACE "$<INSTALL_INTERFACE:$<$<NOT:$<LINK_LANGUAGE:CXX>>:${runtime}>>")

if(NOT PAGESLICE_BUILD_SHARED)
  add_library(pageslice::pageslice ALIAS pageslice_static) # the name that hosts are told of
else()
  pageslice_library(pageslice SHARED ${sources})
  add_library(pageslice::pageslice ALIAS pageslice)
  target_compile_definitions(pageslice PRIVATE PAGESLICE_BUILDING)
  set_target_properties(pageslice PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  if(WIN32)
    set_target_properties(pageslice PROPERTIES PREFIX "")
    pageslice_version_resource(pageslice pageslice.dll)
    if(MINGW)
      pageslice_exports(pageslice)
    endif()
  elseif(NOT APPLE)
    set(exports ${PROJECT_SOURCE_DIR}/cmake/exports.map)
    target_link_options(pageslice PRIVATE -Wl,--version-script=${exports} $<$<NOT:$<BOOL:${PAGESLICE_SANITIZE}>>:-Wl,-z,defs>)
    set_target_properties(pageslice PROPERTIES LINK_DEPENDS ${exports})
  endif()
  if(PAGESLICE_IPO)
    include(CheckIPOSupported)
    check_ipo_supported(RESULT ipo LANGUAGES CXX)
    set_target_properties(pageslice PROPERTIES INTERPROCEDURAL_OPTIMIZATION_RELEASE ${ipo})
  endif()
endif()
