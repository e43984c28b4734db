# Flags of all our own code: warnings are errors, and floating point gives the
# same bytes on every target (no contraction, no fast-math, no x87 registers).
add_library(korvane-flags INTERFACE)
target_compile_options(korvane-flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -ffp-contract=off)
# GCC 12 warns of overlaps in sums of strings where there are none (its bug 105651).
target_compile_options(korvane-flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "86")
  target_compile_options(korvane-flags INTERFACE -msse2 -mfpmath=sse)
endif()
if(WIN32)
  # min and max are functions, texts are wide; from Windows 7 on.
  target_compile_definitions(korvane-flags INTERFACE NOMINMAX UNICODE _WIN32_WINNT=0x0601)
endif()

# It links programs with debug information in a tenth of the time, or less.
find_program(MOLD mold)
if(MOLD AND NOT WIN32)
  add_link_options(-fuse-ld=mold)
endif()

set(CMAKE_CXX_FLAGS_RELEASE "-O3 -DNDEBUG")
set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g")
set(CMAKE_CXX_FLAGS_SANITIZE
  "-O1 -g1 -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer")

set(CMAKE_CXX_FLAGS_THREADSANITIZE "-O1 -g1 -fsanitize=thread -fno-omit-frame-pointer")

# korvane_library(NAME FOLDER...): a static library of all sources in the folders
# below src/, tests left out. A file whose name ends in _win32 or _posix belongs
# to that platform alone.
function(korvane_library name)
  set(sources)
  foreach(folder ${ARGN})
    file(GLOB_RECURSE found CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp ${CMAKE_SOURCE_DIR}/src/${folder}/*.h)
    list(APPEND sources ${found})
  endforeach()
  list(FILTER sources EXCLUDE REGEX "_(test|slow)\\.cpp$|/main\\.cpp$")
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "_posix\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "_win32\\.cpp$")
  endif()
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PRIVATE korvane-flags)
endfunction()

# korvane_tests(NAME FOLDER...): a test program of all *_test.cpp in the folders.
# korvane_slow_tests(NAME FOLDER...): one of all *_slow.cpp, for tests of many seconds.
function(korvane_tests name)
  korvane_test_program(${name} test ${ARGN})
endfunction()
function(korvane_slow_tests name)
  korvane_test_program(${name} slow ${ARGN})
endfunction()
function(korvane_test_program name suffix)
  if(NOT KORVANE_TESTS)
    return()
  endif()
  set(sources)
  foreach(folder ${ARGN})
    file(GLOB_RECURSE found CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/*_${suffix}.cpp)
    list(APPEND sources ${found})
  endforeach()
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "_posix_${suffix}\\.cpp$")
  endif()
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE korvane-flags korvane-testing GTest::gtest GTest::gtest_main GTest::gmock)
  if(suffix STREQUAL test)
    target_compile_options(${name} PRIVATE -O0)  # they take longer to compile than to run
  endif()
  korvane_test_headers(${name} ${suffix})
endfunction()

# Most of a test's time to compile goes into these headers. The first program of each kind precompiles
# them for all of that kind: the code of two kinds differs in its options.
function(korvane_test_headers name suffix)
  set(kind KORVANE_${suffix}_HEADERS)
  if(KORVANE_QT_TESTS)
    set(kind ${kind}_FOR_QT)
  endif()
  get_property(first GLOBAL PROPERTY ${kind})
  if(first)
    target_precompile_headers(${name} REUSE_FROM ${first})
  else()
    target_precompile_headers(${name} PRIVATE
      <gmock/gmock.h> <gtest/gtest.h> <functional> <map> <optional> <string> <vector>)
    set_property(GLOBAL PROPERTY ${kind} ${name})
  endif()
endfunction()

# Properties of tests that take long: they begin first, so that none is waited for at the end. Those on
# the network take turns: programs of one name on one machine count their packets together.
set(slow_test LABELS slow TIMEOUT 900 COST 100)
set(network_test RESOURCE_LOCK network SKIP_RETURN_CODE 77 TIMEOUT 180 COST 50)

# korvane_run_tests(NAME [PROPERTIES ...]): hands the tests of a test program to ctest, one by one.
# A program lists its tests when they are to run, so that no build needs a screen.
# Under Wine a program takes long to start and is one test.
function(korvane_run_tests name)
  if(WIN32)
    korvane_wine_test(${name} $<TARGET_FILE:${name}>)
  else()
    gtest_discover_tests(${name} ${ARGN} DISCOVERY_MODE PRE_TEST)
    return()
  endif()
  if(ARGN)
    set_tests_properties(${name} ${ARGN})
  endif()
endfunction()
