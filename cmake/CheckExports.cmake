# Fails when a library shows other symbols than it should, or one for Windows needs more than Windows and Python. MODULE: the
# library; EXPORTS: the list; NM: the tool that reads ELF files, or OBJDUMP: the one for Windows' libraries.
cmake_minimum_required(VERSION 3.25)

if(OBJDUMP)
    execute_process(COMMAND "${OBJDUMP}" -p "${MODULE}" OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
    # Each row of the table of names is "[ number] name", with more columns between the two in newer versions.
    string(REGEX REPLACE ".*Ordinal/Name Pointer\\] Table[^\n]*\n" "" names "${output}")
    string(REGEX MATCHALL "\n?\t\\[ *[0-9]+\\][^\n]*" rows "${names}")
    set(symbols "")
    foreach(row IN LISTS rows)
        string(REGEX REPLACE ".*[ \t]" "" symbol "${row}")
        list(APPEND symbols "${symbol}")
    endforeach()

    string(REGEX MATCHALL "DLL Name: [^\n]+" needs "${output}")
    list(TRANSFORM needs REPLACE "DLL Name: " "")
    list(TRANSFORM needs TOLOWER)
    set(foreign ${needs})
    list(REMOVE_ITEM foreign advapi32.dll kernel32.dll msvcrt.dll ole32.dll python314.dll)
    if(NOT needs OR foreign)
        message(FATAL_ERROR "${MODULE} needs ${needs}; users have Windows and python314.dll alone.")
    endif()
else()
    execute_process(COMMAND "${NM}" --dynamic --defined-only --format=just-symbols "${MODULE}"
        OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCHALL "[^\n]+" symbols "${output}")
endif()
list(SORT symbols)
list(SORT EXPORTS)
if(NOT symbols STREQUAL EXPORTS)
    message(FATAL_ERROR "${MODULE} exports ${symbols}; it should export ${EXPORTS}.")
endif()
