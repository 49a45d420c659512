# How every library, program and test of the project is declared.

# Language level, warnings and strict toolkit switches: the same for all folders.
add_library(im_options INTERFACE)
target_compile_features(im_options INTERFACE cxx_std_20)
target_compile_options(im_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Werror)
target_compile_definitions(im_options INTERFACE
    QT_NO_CAST_TO_ASCII
    QT_NO_FOREACH
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

include(PrecompiledHeaders)

# A folder's headers are on the path only of targets that link it, so an include that breaks the
# layering does not compile. Libraries are static unless BUILD_SHARED_LIBS is on, as where one is exchanged under tests.
function(im_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;PUBLIC;PRIVATE")
    add_library(${name} ${arg_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} im_options)
    im_use_precompiled_headers(${name})
endfunction()

# What several tests of a folder share. Nothing else links it.
function(im_add_test_library name)
    if(NOT BUILD_TESTING)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;PUBLIC;PRIVATE")
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} im_options)
    im_use_precompiled_headers(${name} TEST)
endfunction()

# Snapshots and settings land in the home directory: the tests have one of their own. They compare texts as they
# stand in the code.
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/test-home)

# What a test takes of the jobs that a preset has for ctest: two for each of two processors and one more, which is for a
# test that only waits and so says 1.
set(IM_TEST_SHARE 2)

# The status of a test program whose machine lacks what it needs, see tests/support/skipped_test.h.
set(IM_SKIPPED_TEST 77)

# A test program tests/<name>.cpp of the calling folder. It links that folder and nothing above it.
# X11 gives it an X server and a window manager of its own, and an end to dialogs that nobody answers.
function(im_add_test name)
    if(NOT BUILD_TESTING)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 1 arg "X11" "TIMEOUT" "SOURCES;LINKS;LABELS")
    add_executable(${name} tests/${name}.cpp ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LINKS} Qt6::Test im_options)
    im_use_precompiled_headers(${name} TEST)
    # Most tests have nothing in this file: the headers would take all of its time.
    set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/mocs_compilation.cpp
        PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    target_compile_definitions(${name} PRIVATE IM_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
    set(command $<TARGET_FILE:${name}>)
    if(arg_X11)
        list(APPEND arg_LABELS x11)
        target_link_libraries(${name} PRIVATE test_unanswered_dialogs)
        set(command ${PROJECT_SOURCE_DIR}/scripts/with-display ${command})
    endif()
    add_test(NAME ${name} COMMAND ${command})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    set_tests_properties(${name} PROPERTIES
        LABELS "${arg_LABELS}"
        TIMEOUT ${arg_TIMEOUT}
        PROCESSORS ${IM_TEST_SHARE}
        SKIP_RETURN_CODE ${IM_SKIPPED_TEST}
        ENVIRONMENT "HOME=${PROJECT_BINARY_DIR}/test-home;LC_ALL=C.UTF-8;LANGUAGE=")
endfunction()
