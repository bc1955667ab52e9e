# What is built for Windows on another system runs under Wine: the tests, and what else the build starts.
# ORVANE_TEST_ROOT: what stands before an absolute path of this machine where a test is to read it.
set(ORVANE_TEST_ROOT "")
if(WIN32 AND CMAKE_CROSSCOMPILING)
    set(CMAKE_CROSSCOMPILING_EMULATOR
        "${PROJECT_SOURCE_DIR}/tools/windows/run-in-wine" "${CMAKE_BINARY_DIR}/wine" "${ORVANE_PYTHON_PREFIX}")
    set(ORVANE_TEST_ROOT "Z:")
endif()
