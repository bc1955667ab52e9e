# The toolchain file of the preset windows: mingw-w64 on a Linux machine, for Windows x64.
# The C++ runtime goes into each library and program, so that what comes out needs Windows and Python alone.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# Debian's compiler of this name has threads; the one that ends in -win32 has not.
find_program(ORVANE_MINGW_COMPILER NAMES x86_64-w64-mingw32-g++-posix x86_64-w64-mingw32-g++ REQUIRED)
set(CMAKE_CXX_COMPILER "${ORVANE_MINGW_COMPILER}")
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -static)

# The libraries that we use are headers, the same for every system.
set(CMAKE_SYSTEM_INCLUDE_PATH /usr/local/include /usr/include)
