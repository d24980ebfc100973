# Run after a test binary was linked: writes one ctest entry a GoogleTest suite, so that a
# failure is named and sanitized binaries need not start once a test.
#   cmake -DBINARY=... -DPREFIX=... -DOUT=... -P DiscoverSuites.cmake

execute_process(COMMAND "${BINARY}" --gtest_list_tests
  OUTPUT_VARIABLE listing RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "${BINARY} cannot list its tests")
endif()
string(REPLACE ";" "," listing "${listing}")
string(REPLACE "\n" ";" lines "${listing}")
set(entries "")
foreach(line IN LISTS lines)
  if(line MATCHES "^([A-Za-z0-9_/]+)\\.")
    set(suite "${CMAKE_MATCH_1}")
    string(APPEND entries
      "add_test([=[${PREFIX}.${suite}]=] [=[${BINARY}]=] [=[--gtest_brief=1]=] "
      "[=[--gtest_filter=${suite}.*]=])\n"
      "set_tests_properties([=[${PREFIX}.${suite}]=] PROPERTIES TIMEOUT 300 LABELS \"${PREFIX}\")\n")
  endif()
endforeach()
file(WRITE "${OUT}" "${entries}")
