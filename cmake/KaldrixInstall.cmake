# What `cmake --install` lays down: the libraries, their headers, and the files by which others find them.
include(CMakePackageConfigHelpers)

set(installed kaldrix)
if(TARGET kaldrix_host)
  list(APPEND installed kaldrix_host)
endif()
install(TARGETS ${installed} EXPORT KaldrixTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(TARGET kaldrix_program)
  install(TARGETS kaldrix_program RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
install(DIRECTORY kaldrix host DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.hpp"
  PATTERN "TShaper.hpp" EXCLUDE PATTERN "GlyphPainter.hpp" EXCLUDE PATTERN "T*Canvas.hpp" EXCLUDE
  PATTERN "TPdf*.hpp" EXCLUDE)
install(EXPORT KaldrixTargets NAMESPACE Kaldrix:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Kaldrix)

configure_package_config_file(cmake/KaldrixConfig.cmake.in KaldrixConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Kaldrix)
write_basic_package_version_file(KaldrixConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KaldrixConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/KaldrixConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Kaldrix)

configure_file(cmake/kaldrix.pc.in kaldrix.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kaldrix.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
