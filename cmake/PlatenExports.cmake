# platen_limit_exports(TARGET): only what platen/exports lists leaves an ELF shared library, and the
# library's calls of its own functions stay inside, whatever the host calls its own.
#
# The linker knows C++ names with their arguments, so a pattern stands for each. What of it is seen the
# sources decide (PLATEN_API), and scripts/check-exports compares name by name.
function(platen_limit_exports target)
    set(folder ${PROJECT_SOURCE_DIR}/platen/exports)
    file(STRINGS ${folder}/platen.def plain REGEX "^ +[A-Za-z0-9_]+$")
    file(STRINGS ${folder}/names lines REGEX "^[^#]")
    set(cpp "*thunk?to?*")
    foreach(line IN LISTS lines)
        if(line MATCHES "^\\[(.+)\\]$")
            set(section ${CMAKE_MATCH_1})
        elseif(section STREQUAL "plain linux")
            list(APPEND plain ${line})
        elseif(line MATCHES "^vtable for (.+)$")
            list(APPEND cpp "*?for?${CMAKE_MATCH_1}")
        elseif(section MATCHES "^c\\+\\+( linux)?$")
            string(REGEX REPLACE "[^A-Za-z0-9_:]" "?" pattern ${line})
            list(APPEND cpp "${pattern}*")
        endif()
    endforeach()
    list(TRANSFORM plain STRIP)
    list(JOIN plain "; " plain)
    list(JOIN cpp "; " cpp)
    set(script ${PROJECT_BINARY_DIR}/platen.map)
    file(CONFIGURE OUTPUT ${script} @ONLY
        CONTENT "{ global: @plain@; extern \"C++\" { @cpp@; }; local: *; };\n")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${folder}/platen.def ${folder}/names)
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
    target_link_options(${target} PRIVATE
        LINKER:--version-script=${script} LINKER:-Bsymbolic-functions)
endfunction()
