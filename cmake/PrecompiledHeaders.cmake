# The toolkit's headers are most of what a compiler reads here, so they are read once and kept:
# CMAKE_DISABLE_PRECOMPILE_HEADERS=ON builds without, which shows includes that are missing.

# Whether a target links the library, by itself or through another.
function(im_links target library result)
    set(${result} FALSE PARENT_SCOPE)
    get_target_property(linked ${target} LINK_LIBRARIES)
    foreach(name IN LISTS linked)
        if(name STREQUAL library)
            set(${result} TRUE PARENT_SCOPE)
            return()
        endif()
        if(NOT TARGET ${name})
            continue()
        endif()
        get_target_property(type ${name} TYPE)
        if(type MATCHES "^(STATIC|SHARED)_LIBRARY$")
            im_links(${name} ${library} found)
            if(found)
                set(${result} TRUE PARENT_SCOPE)
                return()
            endif()
        endif()
    endforeach()
endfunction()

# Tests are run once after a build: compiling them costs more than running them, with sanitizers (their
# presets are RelWithDebInfo) most of all. Qt Test tells each program its folders, for data files that none
# here looks for; they would part the shared headers.
set(im_test_compile_options
    $<$<CONFIG:Release>:-O1> $<$<CONFIG:RelWithDebInfo>:-O0> -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)

# A set of headers that targets with the same links and compile options share.
function(im_add_precompiled_headers name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "TEST" "" "LINKS;HEADERS")
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "")
    add_library(${name} OBJECT ${source})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
    target_link_libraries(${name} PRIVATE ${arg_LINKS} im_options)
    if(arg_TEST)
        target_compile_options(${name} PRIVATE ${im_test_compile_options})
    endif()
    target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

im_add_precompiled_headers(im_gui_headers
    LINKS Qt6::Gui HEADERS <QFile> <QImage> <QPainter>)
im_add_precompiled_headers(im_widgets_headers
    LINKS Qt6::Widgets HEADERS <QApplication> <QFile> <QLabel> <QLayout> <QPainter>)
if(BUILD_TESTING)
    im_add_precompiled_headers(im_gui_test_headers TEST
        LINKS Qt6::Gui Qt6::Test HEADERS <QFile> <QImage> <QTest>)
    im_add_precompiled_headers(im_widgets_test_headers TEST
        LINKS Qt6::Widgets Qt6::Test HEADERS <QApplication> <QFile> <QLabel> <QSignalSpy> <QTest>)
endif()

# Gives a target the set that goes with its links. "TEST" asks for the sets of the tests.
function(im_use_precompiled_headers target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "TEST" "" "")
    set(suffix headers)
    if(arg_TEST)
        set(suffix test_headers)
        target_compile_options(${target} PRIVATE ${im_test_compile_options})
    endif()
    # Each part of the toolkit tells that it is linked, by a word that no header here looks for.
    target_compile_options(${target} PRIVATE -UQT_NETWORK_LIB -UQT_PRINTSUPPORT_LIB -UQT_SVG_LIB)
    im_links(${target} Qt6::Widgets widgets)
    im_links(${target} Qt6::Gui gui)
    if(widgets)
        target_precompile_headers(${target} REUSE_FROM im_widgets_${suffix})
    elseif(gui)
        target_precompile_headers(${target} REUSE_FROM im_gui_${suffix})
    endif()
endfunction()
