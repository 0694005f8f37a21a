# The packages that are headers alone. A cross build reaches those of the building machine through
# links, since their folder holds that machine's C headers too.
if(NOT CMAKE_CROSSCOMPILING)
    find_package(CLI11 REQUIRED)
    return()
endif()

# platen_linked_headers(TARGET FOLDER)
function(platen_linked_headers target folder)
    find_path(${folder}_PARENT ${folder} PATHS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
        REQUIRED)
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/headers)
    file(CREATE_LINK ${${folder}_PARENT}/${folder} ${PROJECT_BINARY_DIR}/headers/${folder} SYMBOLIC)
    add_library(${target} INTERFACE IMPORTED)
    target_include_directories(${target} INTERFACE ${PROJECT_BINARY_DIR}/headers)
endfunction()

platen_linked_headers(CLI11::CLI11 CLI)
