# Cross compilation for 64-bit Windows with Debian's MinGW (threads of the standard library: the posix flavour).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

set(CORVAN_WINDOWS_QT "$ENV{CORVAN_WINDOWS_QT}" CACHE PATH "Where dependencies.sh put the libraries for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CORVAN_WINDOWS_QT)

# No path of the machine that builds in what assertions say.
set(CMAKE_C_FLAGS_INIT "-ffile-prefix-map=${CORVAN_WINDOWS_QT}=.")
set(CMAKE_CXX_FLAGS_INIT "-ffile-prefix-map=${CORVAN_WINDOWS_QT}=.")

# Libraries and headers of the target only; programs (the generators of Qt) of the machine that builds.
list(APPEND CMAKE_FIND_ROOT_PATH "${CORVAN_WINDOWS_QT}/prefix" /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
