# SPDX-License-Identifier: MIT
# Install rules, the CMake package, the pkg-config file and the archives that CPack makes of them.
include(CMakePackageConfigHelpers)

set(targets pageslice_static)
if(TARGET pageslice)
  list(APPEND targets pageslice)
endif()
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME dev)
install(TARGETS ${targets} EXPORT pageslice
  RUNTIME COMPONENT lib
  LIBRARY COMPONENT lib NAMELINK_COMPONENT dev
  ARCHIVE COMPONENT dev)
if(TARGET pageslice_program)
  install(TARGETS pageslice_program COMPONENT program)
endif()
install(DIRECTORY include/pageslice DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
# Where README.md leads a user, in the places that it names.
install(FILES LICENSE README.md CHANGELOG.md SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES docs/rules.md docs/guide.md docs/speed.svg DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} USE_SOURCE_PERMISSIONS
  FILES_MATCHING REGEX "\\.(c|cpp|py)$")

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/pageslice)
install(EXPORT pageslice NAMESPACE pageslice:: FILE pageslice-targets.cmake DESTINATION ${package_dir})
configure_package_config_file(cmake/pageslice-config.cmake.in pageslice-config.cmake
  INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(pageslice-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/pageslice-config.cmake ${PROJECT_BINARY_DIR}/pageslice-config-version.cmake
  DESTINATION ${package_dir})

# The file finds the rest from its own place, so that an installed tree can be moved.
file(RELATIVE_PATH prefix_from_pc ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
# What only the static library needs is every host's to know where there is no other.
if(TARGET pageslice)
  set(cflags_static "\nCflags.private:")
  set(libs_static "\nLibs.private:")
endif()
list(TRANSFORM pageslice_runtime PREPEND -l OUTPUT_VARIABLE runtime_flags)
if(PAGESLICE_IDN)
  list(PREPEND runtime_flags -lidn2)
endif()
list(JOIN runtime_flags " " runtime_flags)
configure_file(cmake/pageslice.pc.in pageslice.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/pageslice.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(TARGET pageslice AND MINGW)
  # For Microsoft's linker: the list of exports, and the import library that a tool of its manners makes of it.
  install(FILES ${PROJECT_BINARY_DIR}/pageslice.def DESTINATION ${CMAKE_INSTALL_LIBDIR})
  find_program(PAGESLICE_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14)
  if(PAGESLICE_DLLTOOL)
    add_custom_command(OUTPUT pageslice.lib DEPENDS ${PROJECT_BINARY_DIR}/pageslice.def VERBATIM
      COMMAND ${PAGESLICE_DLLTOOL} -m ${windows_machine} -d ${PROJECT_BINARY_DIR}/pageslice.def -l pageslice.lib)
    add_custom_target(pageslice_microsoft_import_library ALL DEPENDS pageslice.lib)
    install(FILES ${PROJECT_BINARY_DIR}/pageslice.lib DESTINATION ${CMAKE_INSTALL_LIBDIR})
  endif()
  install(FILES $<TARGET_FILE:pageslice>.debug DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT lib)
endif()

set(CPACK_PACKAGE_VENDOR "the pageslice authors")
set(CPACK_PACKAGE_CONTACT "the pageslice authors <pageslice@localhost>")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
# Packages of one revision are the same to the byte; beside them stand their sums.
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/package-time.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/package-sums.cmake)
set(CPACK_PAGESLICE_SOURCE ${PROJECT_SOURCE_DIR})
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_SYSTEM_NAME windows-${windows_family})
elseif(CMAKE_INSTALL_PREFIX STREQUAL "/usr" AND EXISTS /etc/debian_version AND NOT CMAKE_CROSSCOMPILING)
  # Only for this place do the folders have the names that Debian gives them, as in lib/x86_64-linux-gnu.
  set(CPACK_GENERATOR DEB)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  function(pageslice_debian_package component name section description)
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name} PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section} PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${PROJECT_DESCRIPTION} (${description})" PARENT_SCOPE)
    install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} RENAME copyright COMPONENT ${component})
  endfunction()
  set(CPACK_COMPONENTS_ALL dev)
  pageslice_debian_package(dev libpageslice-dev libdevel "headers, static library, documents")
  if(TARGET pageslice)
    list(APPEND CPACK_COMPONENTS_ALL lib)
    pageslice_debian_package(lib libpageslice${PROJECT_VERSION_MAJOR} libs "shared library")
    set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libpageslice${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
  endif()
  if(TARGET pageslice_program)
    list(APPEND CPACK_COMPONENTS_ALL program)
    pageslice_debian_package(program pageslice utils "command-line program")
  endif()
else()
  set(CPACK_GENERATOR TGZ)
endif()
include(CPack)
