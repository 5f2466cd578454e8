# How every target of this tree is compiled: one place for warnings, sanitizers and symbol visibility.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
# Every binary lies in one folder: a component library is found beside the platform library.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

add_library(hx_flags INTERFACE)
target_include_directories(hx_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(hx_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # A STB_GNU_UNIQUE symbol (any inline static of a template) would pin a component library for ever.
    target_compile_options(hx_flags INTERFACE -fno-gnu-unique)
endif()
if(HX_SANITIZE)
    target_compile_options(hx_flags INTERFACE -fsanitize=${HX_SANITIZE} -fno-sanitize-recover=all
                                              -fno-omit-frame-pointer)
    target_link_options(hx_flags INTERFACE -fsanitize=${HX_SANITIZE})
endif()
if(HX_FUZZ)
    target_compile_options(hx_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# hx_objects(NAME SOURCES... LINK libraries): code of one folder, linked whole into whatever uses it, so that
# objects that only register something at program start are never dropped by the linker.
function(hx_objects name)
    cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
    add_library(${name} OBJECT ${ARG_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PUBLIC hx_flags ${ARG_LINK})
endfunction()

# hx_test(NAME SOURCES... LINK libraries DEPENDS targets): one test program, each of its cases a test.
function(hx_test name)
    cmake_parse_arguments(ARG "" "" "LINK;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE hx_flags ${ARG_LINK} GTest::gtest_main)
    # What tests test is optimised; they themselves are compiled far more often than they run.
    target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-O1>)
    target_compile_definitions(${name} PRIVATE HX_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
                                               HX_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
    if(ARG_DEPENDS)
        add_dependencies(${name} ${ARG_DEPENDS})
    endif()
    # Never the stores and the logs of the machine and of whoever runs the tests. (Two properties, as the list of one
    # would be taken apart.)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300
                         ENVIRONMENT HX_REGISTRY=${CMAKE_BINARY_DIR}/registry
                         ENVIRONMENT_MODIFICATION HX_DATA=set:${CMAKE_BINARY_DIR}/data)
endfunction()
