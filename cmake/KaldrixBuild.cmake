# Flags, and the three helpers by which every folder states its sources.
include(GNUInstallDirs)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(kaldrix_flags INTERFACE)
target_compile_features(kaldrix_flags INTERFACE cxx_std_20)
# Rounding is part of the behaviour: no fused multiply-add.
target_compile_options(kaldrix_flags INTERFACE -ffp-contract=off -fno-math-errno)
target_include_directories(kaldrix_flags INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)

add_library(kaldrix_warnings INTERFACE)
target_compile_options(kaldrix_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
  -Wimplicit-fallthrough -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # False alarms of this compiler about joining short strings.
  target_compile_options(kaldrix_warnings INTERFACE -Wno-restrict -Wno-stringop-overflow)
endif()

option(KALDRIX_SANITIZE "Address and undefined-behaviour sanitizers" OFF)
option(KALDRIX_SANITIZE_THREADS "Thread sanitizer" OFF)
if(KALDRIX_SANITIZE_THREADS)
  set(sanitizers -fsanitize=thread -fno-omit-frame-pointer)
elseif(KALDRIX_SANITIZE)
  set(sanitizers -fsanitize=address,bounds,shift,signed-integer-overflow,integer-divide-by-zero,null,return,bool,enum
      -fno-sanitize-recover=all -fno-omit-frame-pointer)
endif()
if(sanitizers)
  target_compile_options(kaldrix_flags INTERFACE ${sanitizers})
  target_link_options(kaldrix_flags INTERFACE ${sanitizers})
endif()

find_program(KALDRIX_CCACHE ccache)
if(KALDRIX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${KALDRIX_CCACHE})
endif()
find_program(KALDRIX_MOLD mold)
if(KALDRIX_MOLD)
  add_link_options(-fuse-ld=mold)
endif()

# Half of a build is reading the standard headers.
option(KALDRIX_PRECOMPILE "Precompile the standard headers" OFF)
set(KALDRIX_STANDARD_HEADERS <algorithm> <array> <cmath> <cstdint> <functional> <memory> <optional> <string>
  <string_view> <unordered_map> <utility> <vector>)
if(KALDRIX_PRECOMPILE AND KALDRIX_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${KALDRIX_CCACHE})
  add_compile_options(-fpch-preprocess)
endif()
function(kaldrix_precompile target)
  if(KALDRIX_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${KALDRIX_STANDARD_HEADERS} ${ARGN})
  endif()
endfunction()

# What the two libraries are linked with, by the names of pkg-config. Their headers stay inside the sources.
set(KALDRIX_CORE_PACKAGES zlib libpcre2-8)
set(KALDRIX_PAINT_PACKAGES pangocairo pangoft2 harfbuzz harfbuzz-subset freetype2 fontconfig zlib cairo libpng
  gdk-pixbuf-2.0)
set(KALDRIX_DATA_PACKAGES sqlite3)

# The folders of the library, in the order in which they may know each other: a folder includes
# only what stands before it.
set(KALDRIX_FOLDERS types platform json messages utils codes core items editor diagrams)

# kaldrix_folder(NAME SOURCES...): one folder of the library, compiled once, gathered in `kaldrix`.
function(kaldrix_folder name)
  add_library(kaldrix_${name} OBJECT ${ARGN})
  target_link_libraries(kaldrix_${name} PUBLIC kaldrix_flags PRIVATE kaldrix_warnings)
  set_target_properties(kaldrix_${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  kaldrix_precompile(kaldrix_${name})
endfunction()

# kaldrix_library(NAME): a library that is installed, static or with BUILD_SHARED_LIBS shared. All symbols are
# visible, so that exceptions and dynamic_cast work on both sides; releases of one minor version fit each other.
function(kaldrix_library name)
  add_library(${name})
  add_library(Kaldrix::${name} ALIAS ${name})
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:kaldrix_flags>)
  set_target_properties(${name} PROPERTIES
    LINKER_LANGUAGE CXX
    POSITION_INDEPENDENT_CODE ON
    DEFINE_SYMBOL ""
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
    INSTALL_RPATH $ORIGIN)
endfunction()

# What g++ 12 reports wrongly where programs join strings and free JSON trees in the open.
add_library(kaldrix_quiet INTERFACE)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(kaldrix_quiet INTERFACE -Wno-array-bounds -Wno-mismatched-new-delete)
endif()

# kaldrix_test(NAME NEEDS folder... LIBS target... SOURCES file...): the test program of one folder.
# It links just the folders it needs, so that it builds while others are in work.
function(kaldrix_test name)
  cmake_parse_arguments(arg "" "" "NEEDS;LIBS;SOURCES" ${ARGN})
  add_executable(${name}_tests ${arg_SOURCES})
  target_link_libraries(${name}_tests PRIVATE kaldrix_flags kaldrix_warnings kaldrix_quiet kaldrix_test_main
    ${arg_LIBS})
  target_include_directories(${name}_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name}_tests PRIVATE KALDRIX_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_precompile_headers(${name}_tests PRIVATE <gtest/gtest.h> <string> <vector> <memory>)
  foreach(folder IN LISTS arg_NEEDS)
    target_link_libraries(${name}_tests PRIVATE kaldrix_${folder})
  endforeach()
  gtest_discover_tests(${name}_tests DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
endfunction()
