# What programs outside this tree are built with: the headers that hosts and components need, the code that is linked
# into each component, and what find_package and pkg-config read. Nothing of it says how this tree itself is compiled.
include(CMakePackageConfigHelpers)

set(include_dir ${CMAKE_INSTALL_INCLUDEDIR}/hxscannerctrls)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/HXScannerCtrls)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Each folder with its headers: a pattern, what a pattern has that is of no use outside (after EXCEPT), or names. The
# table holds all that its headers include, which tests/install sees to.
set(header_table
    "hxapi *"
    "platform api"
    "platform/com * EXCEPT array_elements class_files library_unloading safearray_elements usual_class_lookup"
    "platform/module dialog_template module resources"
    "platform/registry class_registration registration_script registry type_library_registration"
    "platform/system files locale_data platform_version sleep utf8"
    "platform/ui anchors codes component_control component_site control control_object controls dialog dialog_error"
    "platform/ui embedded_window full_control_object geometry hwnd list_box load_renderer message_window modal painter"
    "platform/ui renderer script services user window"
    "platform/ui/headless headless_renderer")
foreach(row ${header_table})
    string(REPLACE " " ";" row "${row}")
    list(POP_FRONT row folder)
    cmake_parse_arguments(ROW "" "" EXCEPT ${row})
    list(TRANSFORM ROW_UNPARSED_ARGUMENTS REPLACE "(.+)" "${PROJECT_SOURCE_DIR}/${folder}/\\1.h")
    list(TRANSFORM ROW_EXCEPT REPLACE "(.+)" "${PROJECT_SOURCE_DIR}/${folder}/\\1.h")
    file(GLOB headers CONFIGURE_DEPENDS ${ROW_UNPARSED_ARGUMENTS})
    list(REMOVE_ITEM headers ${ROW_EXCEPT})
    install(FILES ${headers} DESTINATION ${include_dir}/${folder} COMPONENT development)
endforeach()

# libhxmodule.a: an archive, as each component has its own.
add_library(hxmodule_archive STATIC $<TARGET_OBJECTS:hxmodule>)
set_target_properties(hxmodule_archive PROPERTIES OUTPUT_NAME hxmodule EXPORT_NAME module)
target_link_libraries(hxmodule_archive PUBLIC hxplatform)
# See HxTargets.cmake; it holds for components everywhere.
target_compile_options(hxmodule_archive INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)

set_target_properties(hxplatform PROPERTIES EXPORT_NAME platform)
target_compile_features(hxplatform INTERFACE cxx_std_20)
target_include_directories(hxplatform INTERFACE $<INSTALL_INTERFACE:${include_dir}>)

install(TARGETS hxplatform EXPORT HXScannerCtrls
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development)
install(TARGETS hxmodule_archive EXPORT HXScannerCtrls
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(EXPORT HXScannerCtrls FILE HXScannerCtrlsTargets.cmake NAMESPACE HXScannerCtrls::
    DESTINATION ${package_dir} COMPONENT development)

set(build_dir ${CMAKE_CURRENT_BINARY_DIR}/cmake)
configure_package_config_file(cmake/HXScannerCtrlsConfig.cmake.in ${build_dir}/HXScannerCtrlsConfig.cmake
    INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${build_dir}/HXScannerCtrlsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${build_dir}/HXScannerCtrlsConfig.cmake ${build_dir}/HXScannerCtrlsConfigVersion.cmake
    DESTINATION ${package_dir} COMPONENT development)

# From where a pkg-config file lies, so that the tree may be moved.
file(RELATIVE_PATH pc_libdir /${pkgconfig_dir} /${CMAKE_INSTALL_LIBDIR})
file(RELATIVE_PATH pc_includedir /${pkgconfig_dir} /${include_dir})
foreach(file hxscannerctrls.pc hxscannerctrls-module.pc)
    configure_file(cmake/${file}.in ${build_dir}/${file} @ONLY)
    install(FILES ${build_dir}/${file} DESTINATION ${pkgconfig_dir} COMPONENT development)
endforeach()
