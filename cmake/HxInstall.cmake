# Where everything lies once it is installed, in four components: runtime, development, tools and host. Below /usr the
# system finds the platform library; elsewhere each file finds it by where it lies itself, and so the tree may be moved.
include(GNUInstallDirs)

# What is found through the registry, and what lies beside it: its satellites, and programs that have satellites.
set(HX_COMPONENT_DIR ${CMAKE_INSTALL_LIBDIR}/hxscannerctrls)

# hx_install(TARGET COMPONENT FOLDER): a library or a program that needs the platform library.
function(hx_install target component folder)
    if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
        file(RELATIVE_PATH platform_folder /${folder} /${CMAKE_INSTALL_LIBDIR})
        set_target_properties(${target} PROPERTIES INSTALL_RPATH $ORIGIN/${platform_folder})
    endif()
    install(TARGETS ${target}
        LIBRARY DESTINATION ${folder} COMPONENT ${component}
        RUNTIME DESTINATION ${folder} COMPONENT ${component})
endfunction()

# hx_install_beside(TARGET COMPONENT): a program that has satellites lies where they do, with a link to it where programs
# are looked for.
function(hx_install_beside target component)
    hx_install(${target} ${component} ${HX_COMPONENT_DIR})
    file(RELATIVE_PATH program /${CMAKE_INSTALL_BINDIR} /${HX_COMPONENT_DIR}/${target})
    set(link ${CMAKE_CURRENT_BINARY_DIR}/link/${target})
    file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/link)
    file(CREATE_LINK ${program} ${link} SYMBOLIC)
    install(FILES ${link} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${component})
endfunction()
