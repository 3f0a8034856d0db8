# The pane's bundle: one directory with Info.plist, nibs, localised tables, help pages, icons and the module.
set(SPECIALPAGES_BUNDLE_DIR "${CMAKE_BINARY_DIR}/SpecialPages.bundle")

function(specialpages_bundle)
    set(resources "${CMAKE_SOURCE_DIR}/resources")
    file(GLOB nibs CONFIGURE_DEPENDS "${resources}/nibs/*.ui")
    file(GLOB_RECURSE plain CONFIGURE_DEPENDS
         "${resources}/*.lproj/*" "${resources}/Help/*" "${resources}/icons/*.bmp" "${resources}/icons/*.png")
    set(made "")

    configure_file("${resources}/Info.plist.in" "${SPECIALPAGES_BUNDLE_DIR}/Info.plist" @ONLY)

    # A nib keeps its name; only the ending changes from the designer's to the bundle's.
    foreach(nib IN LISTS nibs)
        cmake_path(GET nib STEM name)
        set(out "${SPECIALPAGES_BUNDLE_DIR}/${name}.nib")
        add_custom_command(OUTPUT "${out}" DEPENDS "${nib}"
                           COMMAND ${CMAKE_COMMAND} -E copy "${nib}" "${out}" VERBATIM)
        list(APPEND made "${out}")
    endforeach()
    foreach(file IN LISTS plain)
        cmake_path(RELATIVE_PATH file BASE_DIRECTORY "${resources}" OUTPUT_VARIABLE relative)
        string(REGEX REPLACE "^icons/" "" relative "${relative}")
        set(out "${SPECIALPAGES_BUNDLE_DIR}/${relative}")
        add_custom_command(OUTPUT "${out}" DEPENDS "${file}"
                           COMMAND ${CMAKE_COMMAND} -E copy "${file}" "${out}" VERBATIM)
        list(APPEND made "${out}")
    endforeach()

    add_custom_target(specialpages_bundle ALL DEPENDS ${made})

    if(EXISTS "${CMAKE_SOURCE_DIR}/src/plugin/module.cpp")
        add_library(specialpages_module MODULE "${CMAKE_SOURCE_DIR}/src/plugin/module.cpp")
        target_link_libraries(specialpages_module PRIVATE specialpages_plugin specialpages_options)
        # The static libraries below it are hidden too: the factory function is the only way in.
        target_link_options(specialpages_module PRIVATE
            "LINKER:--version-script=${CMAKE_SOURCE_DIR}/cmake/module.map" "LINKER:-z,defs,-z,nodelete")
        if(SPECIALPAGES_SANITIZE)
            target_link_options(specialpages_module PRIVATE "LINKER:-z,undefs")
        endif()
        set_target_properties(specialpages_module PROPERTIES
            PREFIX "" OUTPUT_NAME SpecialPages SUFFIX ".so"
            LIBRARY_OUTPUT_DIRECTORY "${SPECIALPAGES_BUNDLE_DIR}"
            LINK_DEPENDS "${CMAKE_SOURCE_DIR}/cmake/module.map"
            INSTALL_RPATH "$ORIGIN/../..")
        add_dependencies(specialpages_bundle specialpages_module)
    endif()

    install(DIRECTORY "${SPECIALPAGES_BUNDLE_DIR}" DESTINATION "${CMAKE_INSTALL_LIBDIR}/special-pages"
            USE_SOURCE_PERMISSIONS)
endfunction()
