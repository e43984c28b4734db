# Libraries for the cross build. Those of headers alone are the build machine's own; they are
# linked into a folder of their own, since the rest of /usr/include is not for Windows. GoogleTest
# is built from its sources.
set(KORVANE_HEADERS ${CMAKE_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${KORVANE_HEADERS})
foreach(library nlohmann stb)
  file(CREATE_LINK /usr/include/${library} ${KORVANE_HEADERS}/${library} SYMBOLIC)
endforeach()
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
target_include_directories(nlohmann_json::nlohmann_json SYSTEM INTERFACE ${KORVANE_HEADERS})
set(STB_INCLUDE_DIR ${KORVANE_HEADERS})

if(KORVANE_TESTS)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)

  # Tests run under Wine, in a Windows of their own within the build folder; 77: there is no Wine
  # that can run them.
  set(KORVANE_WINE ${CMAKE_SOURCE_DIR}/scripts/with-wine ${CMAKE_BINARY_DIR}/wine)
  add_test(NAME wine.start COMMAND ${KORVANE_WINE} --start ${CMAKE_SYSTEM_PROCESSOR})
  add_test(NAME wine.end COMMAND ${KORVANE_WINE} --end)
  set_tests_properties(wine.start PROPERTIES FIXTURES_SETUP wine SKIP_RETURN_CODE 77)
  set_tests_properties(wine.end PROPERTIES FIXTURES_CLEANUP wine)
endif()

# korvane_wine_test(NAME COMMAND...): a test that runs a Windows program. Programs that show windows
# would take the focus from each other, and those that register the component share its entries: they
# have RESOURCE_LOCK windows.
function(korvane_wine_test name)
  add_test(NAME ${name} COMMAND ${KORVANE_WINE} ${ARGN})
  set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED wine SKIP_RETURN_CODE 77)
endfunction()
