# Makes each suite of a test program a test of CTest: most of the time of a test under sanitizers is the start
# of its process. Run after each build of the program, with PROGRAM, PREFIX, LIMIT, LIST, the file to
# write, and NAMES, the variable that the tests are in after it was read.
execute_process(COMMAND ${PROGRAM} --gtest_list_tests OUTPUT_VARIABLE said RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} does not list its tests: ${result}")
endif()

# A line that is not indented is a suite, "Recall."; one that is a test of it.
string(REGEX MATCHALL "(^|\n)[A-Za-z0-9_/]+\\." suites "${said}")
set(content "")
set(names "")
foreach(suite IN LISTS suites)
    string(STRIP "${suite}" suite)
    string(REGEX REPLACE "\\.$" "" name "${PREFIX}${suite}")
    string(APPEND names " [[${name}]]")
    string(APPEND content "add_test([[${name}]] [[${PROGRAM}]] [[--gtest_brief=1]] [[--gtest_filter=${suite}*]])\n"
        "set_tests_properties([[${name}]] PROPERTIES TIMEOUT ${LIMIT})\n")
endforeach()
file(WRITE ${LIST} "${content}set(${NAMES}${names})\n")
