# Headers, both libraries, the CMake package and the pkg-config files.
include(CMakePackageConfigHelpers)

foreach(header IN LISTS PLATEN_PUBLIC_HEADERS)
    cmake_path(GET header PARENT_PATH folder)
    install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder})
endforeach()

set(installed platen_core)
if(PLATEN_SHARED_LIBRARY)
    list(APPEND installed platen)
endif()
install(TARGETS ${installed} EXPORT platenTargets)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/platen)
install(EXPORT platenTargets NAMESPACE platen:: DESTINATION ${package_folder})
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/platenConfig.cmake
    "include(\"\${CMAKE_CURRENT_LIST_DIR}/platenTargets.cmake\")\n")
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/platenConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/platenConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/platenConfigVersion.cmake
    DESTINATION ${package_folder})

# platen_pkg_config(NAME LIBRARIES DESCRIPTION [REQUIRES])
function(platen_pkg_config name libraries description)
    list(TRANSFORM libraries PREPEND -l)
    list(JOIN libraries " " libraries)
    file(RELATIVE_PATH up /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
    set(requires ${ARGN})
    set(definitions)
    if(WIN32 AND name STREQUAL platen)
        set(definitions " -DPLATEN_SHARED")
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/cmake/package.pc.in
        ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

if(PLATEN_SHARED_LIBRARY)
    # The DLL's netCDF entries lead on to a DLL that nobody links.
    set(requires netcdf)
    if(WIN32)
        set(requires)
    endif()
    platen_pkg_config(platen platen "${PROJECT_DESCRIPTION}" ${requires})
endif()
set(core platen_core ${PLATEN_GUARD_LIBRARY})
platen_pkg_config(platen-core "${core}" "The TIFF engine and base services of platen, static")
