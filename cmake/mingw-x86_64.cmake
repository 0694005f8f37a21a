# Windows on x86-64; its programs run under Wine, for CTest too.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(PLATEN_MINGW x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/under-wine)
