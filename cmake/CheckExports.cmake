# Fails when a library shows other symbols than it should. NM: the tool; MODULE: the library; EXPORTS: the list.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND "${NM}" --dynamic --defined-only --format=just-symbols "${MODULE}"
    OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" symbols "${output}")
list(SORT symbols)
list(SORT EXPORTS)
if(NOT symbols STREQUAL EXPORTS)
    message(FATAL_ERROR "${MODULE} exports ${symbols}; it should export ${EXPORTS}.")
endif()
