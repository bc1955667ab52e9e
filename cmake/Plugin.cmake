# Libraries that other programs load: what they show to those is listed, and nothing else is shown.

# orvane_plugin(TARGET FILE_NAME LINKS target... EXPORTS function...)
#
# A library TARGET in the file FILE_NAME.so or FILE_NAME.dll, of the given targets; tests check its exports.
function(orvane_plugin TARGET FILE_NAME)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "LINKS;EXPORTS")
    add_library(${TARGET} MODULE)
    target_link_libraries(${TARGET} PRIVATE ${arg_LINKS})
    set_target_properties(${TARGET} PROPERTIES
        PREFIX ""
        OUTPUT_NAME "${FILE_NAME}"
        LINKER_LANGUAGE CXX
        ORVANE_EXPORTS "${arg_EXPORTS}")
    # Nothing in the library itself calls them, so they have to be asked for by name.
    foreach(export IN LISTS arg_EXPORTS)
        target_link_options(${TARGET} PRIVATE LINKER:--require-defined=${export})
    endforeach()

    set(list "${CMAKE_CURRENT_BINARY_DIR}/${TARGET}.exports")
    if(WIN32)
        string(REPLACE ";" "\n    " names "${arg_EXPORTS}")
        file(CONFIGURE OUTPUT "${list}.def" CONTENT "EXPORTS\n    ${names}\n")
        target_sources(${TARGET} PRIVATE "${list}.def")
    else()
        file(CONFIGURE OUTPUT "${list}.map" CONTENT "{ global: ${arg_EXPORTS}; local: *; };\n")
        target_sources(${TARGET} PRIVATE "${list}.map")
        set_property(TARGET ${TARGET} PROPERTY LINK_DEPENDS "${list}.map")
        # new-dtags: the search path that leads to libpython yields to LD_LIBRARY_PATH.
        target_link_options(${TARGET} PRIVATE LINKER:--version-script=${list}.map LINKER:--enable-new-dtags)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" OR NOT ORVANE_SANITIZE)
            # Clang leaves the sanitizer's own symbols for the executable to define.
            target_link_options(${TARGET} PRIVATE LINKER:--no-undefined)
        endif()
    endif()
endfunction()

# orvane_check_exports(TARGET): a test that the library shows what it should, and no more.
function(orvane_check_exports TARGET)
    get_target_property(exports ${TARGET} ORVANE_EXPORTS)
    if(WIN32)
        set(reader "-DOBJDUMP=${CMAKE_OBJDUMP}")
    else()
        set(reader "-DNM=${CMAKE_NM}")
    endif()
    string(REPLACE ";" "," names "${exports}")
    add_test(NAME "module: ${TARGET} exports ${names} and nothing else"
        COMMAND "${CMAKE_COMMAND}" "${reader}" "-DMODULE=$<TARGET_FILE:${TARGET}>" "-DEXPORTS=${exports}"
                -P "${PROJECT_SOURCE_DIR}/cmake/CheckExports.cmake")
endfunction()
