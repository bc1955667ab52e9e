# Finds CPython 3.14 with headers and shared library, and makes the target Python314 of it.
# Looked at: ORVANE_PYTHON_PREFIX, which ./dev gives; otherwise the python3.14-config on PATH.

set(ORVANE_PYTHON_PREFIX "" CACHE PATH "Where CPython 3.14 is installed: the folder that holds bin/ and lib/")

function(orvane_find_python)
    set(wayOut "Run ./dev build, which finds CPython 3.14 or builds it, "
               "or name an installation by -DORVANE_PYTHON_PREFIX=FOLDER.")

    if(ORVANE_PYTHON_PREFIX)
        set(config "${ORVANE_PYTHON_PREFIX}/bin/python3.14-config")
        if(NOT EXISTS "${config}")
            message(FATAL_ERROR "ORVANE_PYTHON_PREFIX is ${ORVANE_PYTHON_PREFIX}, but there is no ${config}. " ${wayOut})
        endif()
    else()
        find_program(config python3.14-config NO_CACHE)
        if(NOT config)
            message(FATAL_ERROR "CPython 3.14 was not found: no python3.14-config on PATH. " ${wayOut})
        endif()
    endif()

    foreach(question includes ldflags)
        execute_process(COMMAND "${config}" --embed --${question}
            OUTPUT_VARIABLE ${question} OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
        separate_arguments(${question} UNIX_COMMAND "${${question}}")
    endforeach()

    set(includeFolders ${includes})
    list(FILTER includeFolders INCLUDE REGEX "^-I")
    list(TRANSFORM includeFolders REPLACE "^-I" "")
    list(REMOVE_DUPLICATES includeFolders)
    find_path(header Python.h PATHS ${includeFolders} NO_CACHE NO_DEFAULT_PATH)
    if(NOT header)
        message(FATAL_ERROR "${config} names ${includeFolders}, but Python.h is not there. " ${wayOut})
    endif()

    set(libraryFolders ${ldflags})
    list(FILTER libraryFolders INCLUDE REGEX "^-L")
    list(TRANSFORM libraryFolders REPLACE "^-L" "")
    cmake_path(GET header PARENT_PATH includeRoot)
    cmake_path(GET includeRoot PARENT_PATH prefix)
    # The second name is that of a debug build of the interpreter, which counts references.
    find_library(library NAMES libpython3.14.so libpython3.14d.so
        PATHS ${libraryFolders} "${prefix}/lib" "${prefix}/lib/${CMAKE_LIBRARY_ARCHITECTURE}"
        NO_CACHE NO_DEFAULT_PATH)
    if(NOT library)
        message(FATAL_ERROR
            "The CPython 3.14 of ${config} has no shared library libpython3.14.so in ${libraryFolders}. " ${wayOut})
    endif()

    add_library(Python314 SHARED IMPORTED GLOBAL)
    set_target_properties(Python314 PROPERTIES
        IMPORTED_LOCATION "${library}"
        INTERFACE_INCLUDE_DIRECTORIES "${includeFolders}")
    message(STATUS "CPython 3.14: ${library}")
endfunction()

orvane_find_python()
