# hx_module_resources(TARGET MODULE COMPONENT): the texts, dialogs and menus of a module, from the scripts of the calling
# folder. MODULE.rc is embedded in whatever links TARGET, with the registration scripts (*.rgs) and bitmaps (*.bmp)
# beside it; MODULE_<tag>.rc lies beside it as the satellite of a language, and is installed with COMPONENT. A script that
# cannot be read fails the build.
function(hx_module_resources target module component)
    set(base ${CMAKE_CURRENT_SOURCE_DIR}/${module}.rc)
    set(version ${CMAKE_CURRENT_BINARY_DIR}/version.rc)
    set(HX_MODULE ${module})
    configure_file(${PROJECT_SOURCE_DIR}/resources/version.rc.in ${version} @ONLY)

    # How the assembler lays them down, for embedded_scripts.cpp.
    file(GLOB files CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.rgs ${CMAKE_CURRENT_SOURCE_DIR}/*.bmp)
    set(file_table)
    foreach(file ${files})
        get_filename_component(name ${file} NAME)
        string(APPEND file_table
            ".asciz \"${name}\"\n.quad 2f - 1f\n1: .incbin \"${file}\"\n2:\n")
    endforeach()
    set(file_list ${CMAKE_CURRENT_BINARY_DIR}/files.inc)
    file(CONFIGURE OUTPUT ${file_list} CONTENT "${file_table}" @ONLY)

    set(checked ${CMAKE_CURRENT_BINARY_DIR}/embedded.checked)
    add_custom_command(
        OUTPUT ${checked}
        COMMAND hxcheckscript --module ${base} ${version}
        COMMAND ${CMAKE_COMMAND} -E touch ${checked}
        DEPENDS hxcheckscript ${base} ${version} ${files} ${file_list}
        COMMENT "Checking ${module}.rc"
        VERBATIM)

    file(GLOB scripts CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${module}_*.rc)
    set(satellites)
    foreach(script ${scripts})
        get_filename_component(name ${script} NAME_WLE)
        set(satellite ${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/${name}.dll)
        add_custom_command(
            OUTPUT ${satellite}
            COMMAND hxcheckscript ${script}
            COMMAND ${CMAKE_COMMAND} -E copy ${script} ${satellite}
            DEPENDS hxcheckscript ${script}
            COMMENT "Checking and placing ${name}.rc"
            VERBATIM)
        list(APPEND satellites ${satellite})
    endforeach()
    install(FILES ${satellites} DESTINATION ${HX_COMPONENT_DIR} COMPONENT ${component})
    add_custom_target(${target}_scripts ALL DEPENDS ${checked} ${satellites})

    # Compiled anew for each module: it carries this one's scripts.
    set(embedded ${PROJECT_SOURCE_DIR}/platform/module/embedded_scripts.cpp)
    hx_objects(${target} ${embedded} ${PROJECT_SOURCE_DIR}/platform/module/this_module.cpp LINK hxplatform)
    target_link_libraries(${target} INTERFACE ${CMAKE_DL_LIBS})
    add_dependencies(${target} ${target}_scripts)
    set_source_files_properties(${embedded} PROPERTIES
        COMPILE_DEFINITIONS
            "HX_SCRIPT=\"${base}\";HX_VERSION_SCRIPT=\"${version}\";HX_FILES=\"${file_list}\""
        OBJECT_DEPENDS "${base};${version};${files};${file_list};${checked}")
endfunction()
