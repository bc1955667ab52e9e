# One target a folder: orvane_folder() makes it, and sees to it that a folder reaches only the folders it uses.

if(WIN32)
    set(ORVANE_SYSTEM windows)
else()
    set(ORVANE_SYSTEM posix)
endif()

# Compiles each header alone: a header that leans on what others include before it fails here.
add_custom_target(headers)

# orvane_folder(NAME [USES target...] [LINKS library...] [EXCEPT file...])
#
# A static library of the folder's *.cpp, and of its posix/*.cpp or windows/*.cpp where there are such; of headers alone
# an interface library. Sources include its headers as "NAME/Header.h". The include path holds a link to this folder and
# to no other, so that an include compiles only where the folder is named in USES, directly or through one that is.
# USES: targets, which stand before this folder in the one-way order. LINKS: the system's libraries.
# EXCEPT: sources of the folder that belong to another target.
function(orvane_folder NAME)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES;LINKS;EXCEPT")
    set(folder "${CMAKE_CURRENT_SOURCE_DIR}")

    file(GLOB sources CONFIGURE_DEPENDS RELATIVE "${folder}" "${folder}/*.cpp" "${folder}/${ORVANE_SYSTEM}/*.cpp")
    file(GLOB headers CONFIGURE_DEPENDS RELATIVE "${folder}" "${folder}/*.h" "${folder}/${ORVANE_SYSTEM}/*.h")
    list(REMOVE_ITEM sources ${arg_EXCEPT})
    if(sources)
        add_library(${NAME} STATIC ${sources} ${headers})
        set(scope PUBLIC)
    else()
        add_library(${NAME} INTERFACE)
        set(scope INTERFACE)
    endif()

    set(view "${CMAKE_BINARY_DIR}/include/${NAME}")
    file(MAKE_DIRECTORY "${view}")
    file(CREATE_LINK "${folder}" "${view}/${NAME}" SYMBOLIC)
    target_include_directories(${NAME} ${scope} "${view}")
    foreach(use IN LISTS arg_USES)
        if(NOT TARGET ${use})
            message(FATAL_ERROR "${NAME} uses ${use}, which does not exist or stands after it in the one-way order.")
        endif()
        target_link_libraries(${NAME} ${scope} ${use})
    endforeach()
    target_link_libraries(${NAME} ${scope} ${arg_LINKS})

    if(headers)
        set(alone)
        foreach(header IN LISTS headers)
            set(source "${CMAKE_BINARY_DIR}/headers/${NAME}/${header}.cpp")
            file(CONFIGURE OUTPUT "${source}" CONTENT "#include \"${NAME}/${header}\"\n")
            list(APPEND alone "${source}")
        endforeach()
        add_library(${NAME}-headers OBJECT EXCLUDE_FROM_ALL ${alone})
        target_link_libraries(${NAME}-headers PRIVATE ${NAME})
        # Only whether they compile matters; -O0 and no debug information make it quick.
        target_compile_options(${NAME}-headers PRIVATE -O0 -g0)
        add_dependencies(headers ${NAME}-headers)
    endif()
endfunction()
