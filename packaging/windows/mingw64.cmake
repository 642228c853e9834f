# Toolchain for a cross-build with MinGW for Windows, 64 bits:
#   cmake --toolchain packaging/windows/mingw64.cmake -DVARNEL_WINDOWS_PREFIX=FOLDER[;FOLDER...] ...
# The folders hold Qt 5.15 and Qwt 6.1 for MinGW, each with bin, include and lib below. HACKING.md tells the rest.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(prefix x86_64-w64-mingw32)

# Where there are two thread models: the standard library's threads need this one.
find_program(VARNEL_MINGW_CXX NAMES ${prefix}-g++-posix ${prefix}-g++ REQUIRED)
set(CMAKE_CXX_COMPILER ${VARNEL_MINGW_CXX})
set(CMAKE_RC_COMPILER ${prefix}-windres)

set(VARNEL_WINDOWS_PREFIX "" CACHE STRING "Folders with Qt and Qwt for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VARNEL_WINDOWS_PREFIX)
list(APPEND CMAKE_PREFIX_PATH ${VARNEL_WINDOWS_PREFIX})
list(APPEND CMAKE_FIND_ROOT_PATH ${VARNEL_WINDOWS_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER) # those run here
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
