# Run after a test executable is built: writes the file by which ctest knows its test cases.
# NAME: the folder of tests; EXECUTABLE; LIST: the file to write; ENVIRONMENT: what the tests run with; EMULATOR: the
# words in front of the executable where this system cannot run it itself.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${EMULATOR} "${EXECUTABLE}" --list-test-cases --no-version
    OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${EXECUTABLE} could not list its test cases (${result}):\n${output}${errors}")
endif()

# CMake's lists split at semicolons and trip over brackets, so these stand aside while the lines are walked.
string(ASCII 1 semicolon)
string(ASCII 2 open)
string(ASCII 3 close)
string(REPLACE "\r" "" output "${output}")
string(REPLACE ";" "${semicolon}" output "${output}")
string(REPLACE "[" "${open}" output "${output}")
string(REPLACE "]" "${close}" output "${output}")
string(REGEX MATCHALL "[^\n]+" lines "${output}")

set(command "")
foreach(word IN LISTS EMULATOR ITEMS "${EXECUTABLE}")
    string(APPEND command " [==[${word}]==]")
endforeach()
set(script "")
set(seen)
foreach(line IN LISTS lines)
    if(line MATCHES "^${open}doctest${close} " OR line MATCHES "^=+$")
        continue()
    endif()
    if(line IN_LIST seen)
        message(FATAL_ERROR "Two test cases of ${NAME} have the same name: ${line}")
    endif()
    list(APPEND seen "${line}")

    string(REPLACE "${semicolon}" ";" case "${line}")
    string(REPLACE "${open}" "[" case "${case}")
    string(REPLACE "${close}" "]" case "${case}")
    # A comma separates filters unless escaped.
    string(REPLACE "," "\\," filter "${case}")
    # A filter that matches no case would pass as a success.
    string(APPEND script
        "add_test([==[${NAME}: ${case}]==]${command} [==[--test-case=${filter}]==])\n"
        "set_tests_properties([==[${NAME}: ${case}]==] PROPERTIES TIMEOUT 120\n"
        "    FAIL_REGULAR_EXPRESSION [==[test cases: +0 ]==] ENVIRONMENT [==[${ENVIRONMENT}]==])\n")
endforeach()
file(WRITE "${LIST}" "${script}")
