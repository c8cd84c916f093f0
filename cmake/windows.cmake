# Toolchain for 64-bit Windows with mingw-w64. ./dev windows sets ORV_WINDOWS_LIBRARIES, the folders of the libraries, and
# ORV_WINE, the command that runs a program.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Kept for a build that is configured again without them in the environment.
foreach(setting ORV_WINDOWS_LIBRARIES ORV_WINE)
  if(NOT "$ENV{${setting}}" STREQUAL "")
    set(${setting} "$ENV{${setting}}" CACHE STRING "" FORCE)
  endif()
  list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ${setting})
endforeach()
set(CMAKE_CROSSCOMPILING_EMULATOR ${ORV_WINE})

# The toolkit's tools run on this system.
set(QT_HOST_PATH /usr CACHE PATH "")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "")
# Not the library that would have to be installed with the program.
set(ZLIB_LIBRARY /usr/x86_64-w64-mingw32/lib/libz.a CACHE FILEPATH "")

set(CMAKE_FIND_ROOT_PATH ${ORV_WINDOWS_LIBRARIES} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
