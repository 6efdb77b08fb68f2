# Cross-compiles for 64-bit Windows with Debian's mingw-w64, in its variant with POSIX threads: only that
# one has the standard library's threads and clocks.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# A program needs no library of the compiler's beside it, and carries no symbols.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_EXE_LINKER_FLAGS_RELEASE_INIT -s)

# Appended, for Qt's own toolchain file comes before and names Qt's folder here.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
