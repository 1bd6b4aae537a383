# What only Windows needs: the version that Explorer shows, and the names that the linker exports.
enable_language(RC)

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(windows_family x86)
  set(underscore _) # stands before every name in an object file there
else()
  set(windows_family x64)
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
  file(CONFIGURE OUTPUT needed.rsp CONTENT "${needed}\n")
  target_link_options(${target} PRIVATE @${CMAKE_CURRENT_BINARY_DIR}/needed.rsp)

  list(TRANSFORM names APPEND " DATA" REGEX "^_ZT") # tables, not functions
  list(JOIN names "\n" names)
  file(CONFIGURE OUTPUT pageslice.def CONTENT "LIBRARY pageslice.dll\nEXPORTS\n${names}\n")
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/pageslice.def)
endfunction()
