# SPDX-License-Identifier: MIT
# What only Windows needs: the version that Explorer shows, and the names that the linker exports.
enable_language(RC)

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(windows_family x86)
  set(windows_machine i386)
  set(underscore _) # stands before every name in an object file there
else()
  set(windows_family x64)
  set(windows_machine i386:x86-64)
endif()

# Gives TARGET, which will be a file called NAME, a version resource.
function(pageslice_version_resource target name)
  set(version_name ${name})
  set(version_type VFT_APP)
  if(name MATCHES "\\.dll$")
    set(version_type VFT_DLL)
  endif()
  string(REPLACE . , version_numbers ${PROJECT_VERSION})
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
endfunction()

# Makes the linker export from TARGET exactly what the reviewed list of the processor family names.
function(pageslice_exports target)
  set(list ${PROJECT_SOURCE_DIR}/abi/windows-${windows_family}.txt)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(STRINGS ${list} names)

  # Optimizing the library as a whole drops what nothing asks for, and to be exported does not count as being asked for.
  list(TRANSFORM names PREPEND "-Wl,-u,${underscore}" OUTPUT_VARIABLE needed)
  list(JOIN needed "\n" needed)
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/needed.rsp CONTENT "${needed}\n")
  target_link_options(${target} PRIVATE @${PROJECT_BINARY_DIR}/needed.rsp)

  list(TRANSFORM names APPEND " DATA" REGEX "^_ZT") # tables, not functions
  list(JOIN names "\n" names)
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/pageslice.def CONTENT "LIBRARY pageslice.dll\nEXPORTS\n${names}\n")
  target_sources(${target} PRIVATE ${PROJECT_BINARY_DIR}/pageslice.def)
endfunction()

# Makes a program or DLL say which Windows it runs on, by the two numbers that the system knows each by.
function(pageslice_oldest_windows target major minor)
  foreach(what os subsystem)
    target_link_options(${target} PRIVATE -Wl,--major-${what}-version,${major},--minor-${what}-version,${minor})
  endforeach()
endfunction()

# What makes a DLL of MinGW's a good guest in its host.
function(pageslice_mingw_dll target)
  pageslice_exports(${target})
  if(PAGESLICE_WIN32_COMPILER)
    # The run-time library of the compiler's other thread flavour: that of the posix flavour brings winpthreads, which on
    # load hangs a handler of exceptions and a callback for threads into the host. The library starts no thread.
    execute_process(COMMAND ${PAGESLICE_WIN32_COMPILER} -print-file-name=libstdc++.a OUTPUT_VARIABLE run_time
      OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    cmake_path(GET run_time PARENT_PATH run_time)
    target_link_options(${target} PRIVATE -L${run_time})
  endif()
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_link_options(${target} PRIVATE -Wl,--no-seh -Wl,--wrap=_Unwind_Find_FDE) # see src/platform/find_frames.cpp
  endif()
  pageslice_oldest_windows(${target} 6 0) # see src/platform/exception_state.cpp
  # What debuggers want to know, in a file of its own that the DLL names; paths in it start at the project.
  target_compile_options(${target} PRIVATE -g -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
    -ffile-prefix-map=${PROJECT_BINARY_DIR}=.)
  add_custom_command(TARGET ${target} POST_BUILD WORKING_DIRECTORY $<TARGET_FILE_DIR:${target}> VERBATIM
    COMMAND ${CMAKE_OBJCOPY} -p --only-keep-debug $<TARGET_FILE_NAME:${target}> $<TARGET_FILE_NAME:${target}>.debug
    COMMAND ${CMAKE_OBJCOPY} -p --strip-debug --add-gnu-debuglink=$<TARGET_FILE_NAME:${target}>.debug
      $<TARGET_FILE_NAME:${target}>)
endfunction()
