# Fuzz targets, see tests/support/fuzz/fuzz_target.h.

option(IM_FUZZ "Link the fuzz targets with clang's engine" OFF)

# All of them.
add_custom_target(fuzz_targets)

# A fuzz target fuzz/<name>.cpp of the calling folder. SOURCES of a large folder that it needs alone may stand in place
# of the folder's library. In builds without the engine it is a test, which also tries the
# kept inputs fuzz/finds/<name>/.
function(im_add_fuzz_target name)
    if(NOT BUILD_TESTING)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS;LABELS")
    set(support ${PROJECT_SOURCE_DIR}/tests/support/fuzz)
    add_executable(${name} fuzz/${name}.cpp ${arg_SOURCES} ${support}/promise.cpp ${support}/sanitizer_options.cpp)
    target_include_directories(${name} PRIVATE ${support} tests ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${arg_LINKS} im_options)
    add_dependencies(fuzz_targets ${name})
    if(IM_FUZZ)
        target_sources(${name} PRIVATE ${support}/engine.cpp)
        target_link_options(${name} PRIVATE -fsanitize=fuzzer)
        return()
    endif()
    target_sources(${name} PRIVATE ${support}/ordinary_test.cpp)
    add_test(NAME ${name} COMMAND ${name} ${CMAKE_CURRENT_SOURCE_DIR}/fuzz/finds/${name})
    set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS};fuzz" TIMEOUT 120 PROCESSORS ${IM_TEST_SHARE}
        ENVIRONMENT "HOME=${PROJECT_BINARY_DIR}/test-home;LC_ALL=C.UTF-8;LANGUAGE=;QT_QPA_PLATFORM=offscreen")
endfunction()
