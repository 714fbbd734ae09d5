# What `cmake --install` leaves behind: headers, library, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS aldlib EXPORT aldlibTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
# No header promises what this build leaves out.
set(aldlib_left_out)
if(NOT ALDLIB_SQLITE)
  set(aldlib_left_out PATTERN "SqliteRegistry.h" EXCLUDE)
endif()
if(NOT ALDLIB_QT)
  list(APPEND aldlib_left_out PATTERN "QtDesktop.h" EXCLUDE)
endif()
install(DIRECTORY aldlib/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/aldlib
        FILES_MATCHING PATTERN "*.h" PATTERN internal EXCLUDE ${aldlib_left_out})
if(ALDLIB_QT)
  # The component qt: its package file alone asks for Qt.
  install(TARGETS aldlib_qt EXPORT aldlib-qtTargets
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  install(EXPORT aldlib-qtTargets NAMESPACE aldlib:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/aldlib)
endif()
install(EXPORT aldlibTargets NAMESPACE aldlib:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/aldlib)

configure_package_config_file(cmake/aldlibConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/aldlibConfig.cmake
        INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/aldlib)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/aldlibConfigVersion.cmake
        COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/aldlibConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/aldlibConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/aldlib)

# Told from where the file lies, so that an installed tree can be moved; lib may be lib/ARCHITECTURE.
file(RELATIVE_PATH aldlib_pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" aldlib_pc_to_prefix "${aldlib_pc_to_prefix}")
set(aldlib_pc aldlib)
if(ALDLIB_QT)
  list(APPEND aldlib_pc aldlib-qt)
endif()
foreach(package IN LISTS aldlib_pc)
  configure_file(cmake/${package}.pc.in ${CMAKE_CURRENT_BINARY_DIR}/${package}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${package}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
