# Library, header, pkg-config file and CMake package.
include(CMakePackageConfigHelpers)

install(TARGETS vstring EXPORT vstring-targets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES src/host/vstring.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# The file finds its prefix from where it stands, so that an installed tree may be moved.
file(RELATIVE_PATH pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/vstring.pc.in vstring.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vstring.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vstring)
install(EXPORT vstring-targets FILE vstring-config.cmake NAMESPACE vstring::
        DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vstring-config-version.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vstring-config-version.cmake DESTINATION ${package_dir})
