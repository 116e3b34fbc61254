# What `cmake --install` lays down: the libraries, their headers, and the files by which others find them. The
# core and the host are two components; whatever is laid down finds the rest from where it stands itself.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Kaldrix)

# kaldrix_pkgconfig(TARGET DESCRIPTION REQUIRES package... LINKS package...): the file of pkg-config. What a shared
# library is linked with is its own affair; whoever links a static one needs it too.
function(kaldrix_pkgconfig target description)
  cmake_parse_arguments(arg "" "" "REQUIRES;LINKS" ${ARGN})
  set(PC_NAME ${target})
  set(PC_DESCRIPTION ${description})
  if(NOT BUILD_SHARED_LIBS)
    list(APPEND arg_REQUIRES ${arg_LINKS})
    set(arg_LINKS)
  endif()
  list(JOIN arg_REQUIRES ", " PC_REQUIRES)
  list(JOIN arg_LINKS ", " PC_REQUIRES_PRIVATE)
  cmake_path(IS_ABSOLUTE CMAKE_INSTALL_LIBDIR is_absolute)
  if(is_absolute)
    set(PC_PREFIX ${CMAKE_INSTALL_PREFIX})
  else()
    file(RELATIVE_PATH up /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
    set(PC_PREFIX "\${pcfiledir}/${up}")
  endif()
  configure_file(cmake/kaldrix.pc.in ${target}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${target}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

install(TARGETS kaldrix EXPORT KaldrixTargets)
install(EXPORT KaldrixTargets NAMESPACE Kaldrix:: DESTINATION ${package_dir})
install(DIRECTORY kaldrix DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.hpp"
  PATTERN "host" EXCLUDE)
install(FILES ${PROJECT_BINARY_DIR}/include/kaldrix/Version.hpp DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kaldrix)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
kaldrix_pkgconfig(kaldrix ${PROJECT_DESCRIPTION} LINKS ${KALDRIX_CORE_PACKAGES})

if(TARGET kaldrix_host)
  install(TARGETS kaldrix_host EXPORT KaldrixHostTargets)
  install(EXPORT KaldrixHostTargets NAMESPACE Kaldrix:: DESTINATION ${package_dir})
  install(DIRECTORY kaldrix/host DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kaldrix FILES_MATCHING PATTERN "*.hpp"
    PATTERN "TShaper.hpp" EXCLUDE PATTERN "GlyphPainter.hpp" EXCLUDE PATTERN "T*Canvas.hpp" EXCLUDE
    PATTERN "TPdf*.hpp" EXCLUDE)
  kaldrix_pkgconfig(kaldrix_host "The headless host of Kaldrix: fonts, painting, PDF, PNG and label runs"
    REQUIRES "kaldrix = ${PROJECT_VERSION}" LINKS ${KALDRIX_PAINT_PACKAGES} ${KALDRIX_DATA_PACKAGES})
  install(TARGETS kaldrix_program)
endif()

list(JOIN KALDRIX_CORE_PACKAGES " " KALDRIX_CORE_PACKAGES)
list(JOIN KALDRIX_PAINT_PACKAGES " " KALDRIX_PAINT_PACKAGES)
configure_package_config_file(cmake/KaldrixConfig.cmake.in KaldrixConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(KaldrixConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KaldrixConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/KaldrixConfigVersion.cmake
  DESTINATION ${package_dir})
