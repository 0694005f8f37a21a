# Makes a fault of library or program hard to use for more, where compiler and linker know how:
# platen_harden(TARGET) gives an interface library the options. scripts/check-artefacts looks at what
# comes out. PLATEN_GUARD_LIBRARY is what programs then link with the static library, if anything.
option(PLATEN_HARDEN "Let compiler and linker guard against the use of faults" ON)

include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)
include(CheckLinkerFlag)
include(CheckPIESupported)
# Programs are linked as they are compiled: to run at any address.
check_pie_supported(LANGUAGES CXX)

function(platen_harden target)
    # The sanitizers' own guards would be in the way of these.
    if(NOT PLATEN_HARDEN OR PLATEN_SANITIZE)
        return()
    endif()
    set(compiling -fstack-protector-strong)
    if(WIN32)
        set(linking LINKER:--dynamicbase LINKER:--nxcompat)
        if(CMAKE_SIZEOF_VOID_P EQUAL 8)
            list(APPEND linking LINKER:--high-entropy-va)
        endif()
        # Where the C library has not got what the protector of the stack calls.
        set(CMAKE_REQUIRED_LIBRARIES ssp)
        check_cxx_source_compiles("int main() {}" PLATEN_LINKS_SSP)
        unset(CMAKE_REQUIRED_LIBRARIES)
        if(PLATEN_LINKS_SSP)
            set(PLATEN_GUARD_LIBRARY ssp PARENT_SCOPE)
            target_link_libraries(${target} INTERFACE ssp)
        endif()
    else()
        list(APPEND compiling -fstack-clash-protection -fcf-protection)
        set(linking LINKER:-z,relro LINKER:-z,now)
    endif()
    foreach(flag IN LISTS compiling)
        string(MAKE_C_IDENTIFIER "PLATEN_COMPILES${flag}" known)
        check_cxx_compiler_flag(${flag} ${known})
        target_compile_options(${target} INTERFACE $<$<BOOL:${${known}}>:${flag}>)
    endforeach()
    foreach(flag IN LISTS linking)
        string(MAKE_C_IDENTIFIER "PLATEN_LINKS${flag}" known)
        check_linker_flag(CXX ${flag} ${known})
        target_link_options(${target} INTERFACE $<$<BOOL:${${known}}>:${flag}>)
    endforeach()

    # Checked C functions take an optimised build, and a level that is set already stays.
    set(CMAKE_TRY_COMPILE_CONFIGURATION ${CMAKE_BUILD_TYPE})
    check_cxx_source_compiles("
        #if !defined(__OPTIMIZE__) || defined(_FORTIFY_SOURCE)
        #error
        #endif
        int main() {}" PLATEN_FORTIFIES)
    target_compile_definitions(${target} INTERFACE $<$<BOOL:${PLATEN_FORTIFIES}>:_FORTIFY_SOURCE=2>)
endfunction()
