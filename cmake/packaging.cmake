# Install rules, the CMake package, the pkg-config file and the archives that CPack makes of them.
include(CMakePackageConfigHelpers)

set(targets pageslice_static)
if(TARGET pageslice)
  list(APPEND targets pageslice)
endif()
install(TARGETS ${targets} EXPORT pageslice)
if(TARGET pageslice_program)
  install(TARGETS pageslice_program)
endif()
install(DIRECTORY include/pageslice DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
# Where README.md leads a user, in the places that it names.
install(FILES LICENSE README.md CHANGELOG.md SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES docs/guide.md docs/speed.svg DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} USE_SOURCE_PERMISSIONS
  FILES_MATCHING REGEX "\\.(c|cpp|py)$")
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright) # where Debian looks for it

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/pageslice)
install(EXPORT pageslice NAMESPACE pageslice:: FILE pageslice-targets.cmake DESTINATION ${package_dir})
configure_package_config_file(cmake/pageslice-config.cmake.in pageslice-config.cmake
  INSTALL_DESTINATION ${package_dir})
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
list(TRANSFORM runtime PREPEND -l OUTPUT_VARIABLE runtime_flags)
list(JOIN runtime_flags " " runtime_flags)
configure_file(cmake/pageslice.pc.in pageslice.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/pageslice.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(TARGET pageslice AND MINGW)
  # Microsoft's linker makes its own import library of this.
  install(FILES ${PROJECT_BINARY_DIR}/pageslice.def DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()

set(CPACK_PACKAGE_VENDOR "the pageslice authors")
set(CPACK_PACKAGE_CONTACT "the pageslice authors <pageslice@localhost>")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_SYSTEM_NAME windows-${windows_family})
else()
  set(CPACK_GENERATOR DEB TGZ)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
endif()
include(CPack)
