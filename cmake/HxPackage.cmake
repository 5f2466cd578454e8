# The Debian packages, one per install component: `cpack` in the build folder makes them, `./hx package` the ones that are
# given away. None has Multi-Arch: same: the machine's registry names one library per class, so only one architecture of
# them can be registered.
set(debian ${PROJECT_SOURCE_DIR}/packaging/debian)
set(control ${CMAKE_CURRENT_BINARY_DIR}/packaging/control)

# What the packages say of themselves: the newest entry of the changelog.
file(STRINGS ${debian}/changelog newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^hxscannerctrls [(]${PROJECT_VERSION}[)]")
    message(FATAL_ERROR "packaging/debian/changelog does not begin with version ${PROJECT_VERSION}: ${newest}")
endif()
file(STRINGS ${debian}/changelog maintainer REGEX "^ -- " LIMIT_COUNT 1)
string(REGEX REPLACE "^ -- (.+>) .*" "\\1" maintainer "${maintainer}")

foreach(file postinst prerm shlibs)
    configure_file(${debian}/${file}.in ${control}/${file} @ONLY)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME hxscannerctrls)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${maintainer}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_COMPONENTS_ALL runtime development tools host)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE hxscannerctrls)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Dependencies on other packages are read from the binaries; the platform library, of the first package, is found where
# it is built.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

# hx_package(COMPONENT NAME SECTION [DEPENDS component]): its description lies in COMPONENT.txt: a line, then a text.
function(hx_package component name section)
    cmake_parse_arguments(ARG "" "DEPENDS" "" ${ARGN})
    string(TOUPPER ${component} id)
    file(READ ${debian}/${component}.txt description)
    string(STRIP "${description}" description)
    set(CPACK_DEBIAN_${id}_PACKAGE_NAME ${name} PARENT_SCOPE)
    set(CPACK_DEBIAN_${id}_PACKAGE_SECTION ${section} PARENT_SCOPE)
    set(CPACK_COMPONENT_${id}_DESCRIPTION "${description}" PARENT_SCOPE)
    set(CPACK_COMPONENT_${id}_DEPENDS ${ARG_DEPENDS} PARENT_SCOPE)
endfunction()

hx_package(runtime hxscannerctrls libs)
hx_package(development hxscannerctrls-dev libdevel DEPENDS runtime)
hx_package(tools hxscannerctrls-tools science DEPENDS runtime)
hx_package(host hxscannerctrls-host science DEPENDS runtime)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
    ${control}/postinst ${control}/prerm ${debian}/postrm ${control}/shlibs ${debian}/triggers)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "cmake (>= 3.25), pkg-config")
set(CPACK_DEBIAN_HOST_PACKAGE_SUGGESTS "fonts-noto-cjk, qt6-wayland")

include(CPack)
