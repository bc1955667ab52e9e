# Test executables from the folders of tests/, with every test case known to ctest by its name.

set(ORVANE_TESTS_VIEW "${CMAKE_BINARY_DIR}/include/tests")
file(MAKE_DIRECTORY "${ORVANE_TESTS_VIEW}")
file(CREATE_LINK "${PROJECT_SOURCE_DIR}/tests" "${ORVANE_TESTS_VIEW}/tests" SYMBOLIC)

# orvane_tests(NAME LINKS target... [RUNS target...])
#
# Builds tests/NAME/*.cpp, and its posix/*.cpp or windows/*.cpp, into one executable; ctest lists its cases as
# "NAME: what the case says". Sources include what the tests share as "tests/NAME/Header.h", and find the module and the
# command in ORVANE_BIN, the tree in ORVANE_SOURCE.
# LINKS: folders under test. RUNS: what the tests load or start, built before them.
function(orvane_tests NAME)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINKS;RUNS")
    set(folder "${CMAKE_CURRENT_SOURCE_DIR}/${NAME}")
    file(GLOB sources CONFIGURE_DEPENDS "${folder}/*.cpp" "${folder}/${ORVANE_SYSTEM}/*.cpp")

    set(target tests-${NAME})
    add_executable(${target} ${sources})
    target_link_libraries(${target} PRIVATE tests-main ${arg_LINKS})
    target_compile_definitions(${target} PRIVATE
        ORVANE_BIN="${ORVANE_TEST_ROOT}${CMAKE_RUNTIME_OUTPUT_DIRECTORY}"
        ORVANE_SOURCE="${ORVANE_TEST_ROOT}${PROJECT_SOURCE_DIR}")
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests"
        LINK_DEPENDS "${PROJECT_SOURCE_DIR}/cmake/ListTests.cmake")
    if(arg_RUNS)
        add_dependencies(${target} ${arg_RUNS})
    endif()

    set(list "${CMAKE_CURRENT_BINARY_DIR}/${NAME}.cmake")
    add_custom_command(TARGET ${target} POST_BUILD
        BYPRODUCTS "${list}"
        COMMAND "${CMAKE_COMMAND}" "-DNAME=${NAME}" "-DEXECUTABLE=$<TARGET_FILE:${target}>" "-DLIST=${list}"
                "-DENVIRONMENT=${ORVANE_TEST_ENVIRONMENT}" "-DEMULATOR=${CMAKE_CROSSCOMPILING_EMULATOR}" -P "${PROJECT_SOURCE_DIR}/cmake/ListTests.cmake"
        VERBATIM)
    if(NOT EXISTS "${list}")
        file(WRITE "${list}" "add_test([==[${NAME}: not built]==] ${target}-is-not-built)\n")
    endif()
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${list}")
endfunction()
