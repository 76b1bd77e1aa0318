# Installs what is built: libraries, headers, pkg-config files, a CMake package, the host, documents.
include(CMakePackageConfigHelpers)

set(libraries vstring vstring_static)
set(headers src/host/vstring.h)
set(pkg_config_files vstring)
if(TARGET velmor)
  list(APPEND libraries velmor_runtime)
  list(APPEND headers velmor/heap/velmor_runtime.h)
  list(APPEND pkg_config_files velmor_runtime)
  install(TARGETS velmor DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
install(TARGETS ${libraries} EXPORT vstring-targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# The pkg-config files find the prefix from where they stand, so that an installed tree may be moved,
# unless they stand at a fixed place.
function(pkg_config_path variable directory)
  if(IS_ABSOLUTE ${directory})
    set(${variable} ${directory} PARENT_SCOPE)
  else()
    set(${variable} "\${prefix}/${directory}" PARENT_SCOPE)
  endif()
endfunction()
pkg_config_path(pc_libdir ${CMAKE_INSTALL_LIBDIR})
pkg_config_path(pc_includedir ${CMAKE_INSTALL_INCLUDEDIR})
if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
  set(pc_prefix ${CMAKE_INSTALL_PREFIX})
else()
  file(RELATIVE_PATH up ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
  set(pc_prefix "\${pcfiledir}/${up}")
endif()
foreach(name ${pkg_config_files})
  configure_file(cmake/${name}.pc.in ${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vstring)
install(EXPORT vstring-targets NAMESPACE vstring:: DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vstring-config-version.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES cmake/vstring-config.cmake ${PROJECT_BINARY_DIR}/vstring-config-version.cmake
        DESTINATION ${package_dir})

install(FILES README.md CHANGELOG.md LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES data/LICENSE data/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR}/data)
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR}
        PATTERN CMakeLists.txt EXCLUDE PATTERN site EXCLUDE)
