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

# What tests test is optimised; they themselves are not: they are compiled far more often than they run.
add_library(hx_test_flags INTERFACE)
target_link_libraries(hx_test_flags INTERFACE hx_flags)
target_compile_options(hx_test_flags INTERFACE -O0)

# A third of the time of compiling a source, and half of that of a test, goes into reading the same headers: they are
# read once. Not with a compiler cache, which cannot see through that, and so also shows whether a source includes all
# that it uses; nor for clang-tidy, which takes its flags from the fuzz build.
if(CMAKE_CXX_COMPILER_LAUNCHER OR HX_FUZZ)
    set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()
# Compiled as libraries are; whoever reuses it and is compiled otherwise is told so by an error (-Winvalid-pch).
add_library(hx_standard_headers OBJECT ${PROJECT_SOURCE_DIR}/cmake/precompiled.cpp)
target_link_libraries(hx_standard_headers PRIVATE hx_flags)
target_precompile_headers(hx_standard_headers PRIVATE ${PROJECT_SOURCE_DIR}/cmake/precompiled.h)

# hx_objects(NAME SOURCES... LINK libraries [PRECOMPILED headers]): code of one folder, linked whole into whatever uses
# it, so that objects that only register something at program start are never dropped by the linker. With PRECOMPILED it
# has headers of its own that are read once, in place of those of the standard library.
function(hx_objects name)
    cmake_parse_arguments(ARG "" "" "LINK;PRECOMPILED" ${ARGN})
    add_library(${name} OBJECT ${ARG_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PUBLIC hx_flags ${ARG_LINK})
    if(ARG_PRECOMPILED)
        target_precompile_headers(${name} PRIVATE ${ARG_PRECOMPILED})
    else()
        target_precompile_headers(${name} REUSE_FROM hx_standard_headers)
    endif()
endfunction()

if(HX_TESTS)
    find_package(GTest REQUIRED)
    # Compiled as test programs are, which is not how libraries are.
    add_library(hx_test_headers OBJECT ${PROJECT_SOURCE_DIR}/tests/precompiled.cpp)
    set_target_properties(hx_test_headers PROPERTIES POSITION_INDEPENDENT_CODE OFF)
    target_compile_options(hx_test_headers PRIVATE -fPIE)
    target_link_libraries(hx_test_headers PRIVATE hx_test_flags GTest::gtest)
    target_precompile_headers(hx_test_headers PRIVATE ${PROJECT_SOURCE_DIR}/tests/precompiled.h)
endif()

# hx_test(NAME SOURCES... LINK libraries DEPENDS targets): one test program, each of its cases a test.
function(hx_test name)
    cmake_parse_arguments(ARG "" "" "LINK;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE hx_test_flags ${ARG_LINK} GTest::gtest_main)
    target_precompile_headers(${name} REUSE_FROM hx_test_headers)
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
