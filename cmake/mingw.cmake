# A cross build for Windows with mingw-w64, whose runtime libraries with POSIX threads know all of the
# C++ standard library. The toolchain files name the machine in PLATEN_MINGW.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${PLATEN_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${PLATEN_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${PLATEN_MINGW}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${PLATEN_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
# Libraries that are headers alone, as CLI11, serve every machine; their packages do not say so.
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
# GCC's runtime libraries go into the products, which need nothing but Windows.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
