# How every target of the project is compiled: platen_compile is linked privately by all of them.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(WIN32)
    # Windows finds a DLL beside the program.
    set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
endif()

add_library(platen_compile INTERFACE)
target_compile_options(platen_compile INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wundef
    -Wnon-virtual-dtor -Woverloaded-virtual)
# File offsets of 64 bits on 32-bit machines too, so that large files open there.
target_compile_definitions(platen_compile INTERFACE _FILE_OFFSET_BITS=64)
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "86")
    # Each step of an arithmetic in double is rounded to double, as on 64-bit machines.
    target_compile_options(platen_compile INTERFACE -msse2 -mfpmath=sse)
endif()

include(PlatenHarden)
platen_harden(platen_compile)

if(PLATEN_SANITIZE)
    add_compile_options(-fsanitize=${PLATEN_SANITIZE} -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${PLATEN_SANITIZE})
endif()

# platen_across_files(TARGET...): with PLATEN_LTO, optimises across the files of the targets and what
# they link. Libraries also keep plain code, for callers that link them with another compiler.
function(platen_across_files)
    if(PLATEN_LTO)
        set_target_properties(${ARGN} PROPERTIES INTERPROCEDURAL_OPTIMIZATION ON)
    endif()
endfunction()
if(PLATEN_LTO AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # Programs that did not ask for it link the plain code.
    target_link_options(platen_compile INTERFACE
        $<$<NOT:$<BOOL:$<TARGET_PROPERTY:INTERPROCEDURAL_OPTIMIZATION>>>:-fno-lto>)
endif()

# platen_drop_other_systems(LIST): takes the files named for POSIX systems, or for Windows, out of a
# list of sources where this build is not for them.
function(platen_drop_other_systems list)
    if(WIN32)
        list(FILTER ${list} EXCLUDE REGEX "_posix(_test)?\\.cpp$")
    else()
        list(FILTER ${list} EXCLUDE REGEX "_windows(_test)?\\.cpp$")
    endif()
    set(${list} ${${list}} PARENT_SCOPE)
endfunction()

option(PLATEN_PRECOMPILE "Read what many files include once, which tools that read sources cannot" ON)

# platen_in_pieces(TARGET FILES): compiles that many files as one, for a target whose headers cost far
# more than its own lines. CMAKE_UNITY_BUILD does so with every target.
function(platen_in_pieces target files)
    set_target_properties(${target} PROPERTIES UNITY_BUILD_BATCH_SIZE ${files})
    if(PLATEN_PRECOMPILE)
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON)
    endif()
endfunction()

# platen_precompile(TARGET HEADER...): reads headers once a target.
function(platen_precompile target)
    if(PLATEN_PRECOMPILE)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()
