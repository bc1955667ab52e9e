# The general libraries, all of them headers: a target `library::NAME` for each, and an error that names the package
# when one is missing. Each target sees its own headers only, through a link in the build tree.

# orvane_library(NAME HEADER file PACKAGE package [SUFFIX folder] [BESIDE folder] [DEFINITIONS definition...])
#
# HEADER: a header as sources include it; the whole folder that it names first comes along. BESIDE: what that header
# needs from beside itself. SUFFIX: where below an include folder it may stand. PACKAGE: the Debian package.
function(orvane_library NAME)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "HEADER;PACKAGE;SUFFIX;BESIDE" "DEFINITIONS")
    find_path(folder "${arg_HEADER}" PATH_SUFFIXES ${arg_SUFFIX} NO_CACHE)
    if(NOT folder)
        message(FATAL_ERROR "The header ${arg_HEADER} was not found. "
            "Run ./dev build, which installs what is missing, or install it (Debian: ${arg_PACKAGE}).")
    endif()

    string(REGEX REPLACE "/.*" "" first "${arg_HEADER}")
    set(view "${CMAKE_BINARY_DIR}/libraries/${NAME}")
    file(MAKE_DIRECTORY "${view}")
    foreach(name IN LISTS first arg_BESIDE)
        file(CREATE_LINK "${folder}/${name}" "${view}/${name}" SYMBOLIC)
    endforeach()

    add_library(library_${NAME} INTERFACE)
    add_library(library::${NAME} ALIAS library_${NAME})
    target_include_directories(library_${NAME} SYSTEM INTERFACE "${view}")
    target_compile_definitions(library_${NAME} INTERFACE ${arg_DEFINITIONS})
endfunction()

orvane_library(boost   HEADER boost/math/tools/roots.hpp PACKAGE libboost-math-dev)
orvane_library(cli11   HEADER CLI/CLI.hpp       PACKAGE libcli11-dev)
orvane_library(doctest HEADER doctest/doctest.h PACKAGE doctest-dev)
orvane_library(eigen   HEADER Eigen/Core        PACKAGE libeigen3-dev SUFFIX eigen3)
orvane_library(fmt     HEADER fmt/format.h      PACKAGE libfmt-dev DEFINITIONS FMT_HEADER_ONLY=1)
orvane_library(json    HEADER nlohmann/json.hpp PACKAGE nlohmann-json3-dev)
orvane_library(toml    HEADER toml++/toml.h     PACKAGE libtomlplusplus-dev DEFINITIONS TOML_HEADER_ONLY=1)
orvane_library(utfcpp  HEADER utf8.h            PACKAGE libutfcpp-dev SUFFIX utf8cpp BESIDE utf8)
