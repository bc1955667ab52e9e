# Links the bytes of a file into a target, unchanged.

# orvane_embed(TARGET FILE SYMBOL)
#
# C++ reaches the bytes by
#     extern "C" const unsigned char SYMBOL[], SYMBOL_end[];
# from SYMBOL up to and without SYMBOL_end. FILE: relative to the calling folder; a change of it rebuilds the target.
function(orvane_embed TARGET FILE SYMBOL)
    cmake_path(ABSOLUTE_PATH FILE BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE OUTPUT_VARIABLE path)
    if(NOT EXISTS "${path}")
        message(FATAL_ERROR "The file to embed in ${TARGET} as ${SYMBOL} is not there: ${path}")
    endif()
    if(WIN32)
        set(section [[.section .rdata,\"dr\"]])
        set(hidden "")
    else()
        set(section ".section .rodata")
        set(hidden ".hidden ${SYMBOL}\\n.hidden ${SYMBOL}_end\\n")
    endif()
    set(source "${CMAKE_CURRENT_BINARY_DIR}/${SYMBOL}.cpp")
    file(CONFIGURE OUTPUT "${source}" @ONLY CONTENT [[
// The bytes of @FILE@, between @SYMBOL@ and @SYMBOL@_end.
asm("@section@\n"
    ".global @SYMBOL@\n.global @SYMBOL@_end\n@hidden@"
    ".balign 16\n"
    "@SYMBOL@:\n"
    ".incbin \"@path@\"\n"
    "@SYMBOL@_end:\n"
    ".byte 0\n"
    ".text\n");
]])
    target_sources(${TARGET} PRIVATE "${source}")
    set_source_files_properties("${source}" TARGET_DIRECTORY ${TARGET} PROPERTIES OBJECT_DEPENDS "${path}")
endfunction()
