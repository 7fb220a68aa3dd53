# veltrano_library(<target> KIND core|plain|views FOLDER <folder> HEADERS ... SOURCES ... LINKS ... PRIVATE_LINKS ...)
#
# One library per folder and kind:
#   core   standard library only
#   plain  may use QtCore, the operating system and threads
#   views  may use QtWidgets
# A library's headers are exposed as <folder>/<Header.h> through a link tree of its own, so that a
# header of a library that is not linked cannot be found. The layer test checks the same from the
# manifest written here.
set(VELTRANO_MANIFEST ${CMAKE_BINARY_DIR}/layers_manifest.txt)
file(WRITE ${VELTRANO_MANIFEST} "")

function(veltrano_library target)
    cmake_parse_arguments(arg "" "KIND;FOLDER" "HEADERS;SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
    set(tree ${CMAKE_BINARY_DIR}/include/${target})
    file(REMOVE_RECURSE ${tree})
    file(MAKE_DIRECTORY ${tree}/${arg_FOLDER})
    foreach(header IN LISTS arg_HEADERS)
        file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${arg_FOLDER}/${header}
             ${tree}/${arg_FOLDER}/${header} SYMBOLIC)
    endforeach()
    foreach(file IN LISTS arg_HEADERS arg_SOURCES)
        file(APPEND ${VELTRANO_MANIFEST} "${target} ${arg_KIND} ${arg_FOLDER}/${file}\n")
    endforeach()

    if(arg_SOURCES)
        add_library(${target} STATIC ${arg_SOURCES} ${arg_HEADERS})
        set(scope PUBLIC)
        target_link_libraries(${target} PRIVATE veltrano_flags ${arg_PRIVATE_LINKS})
    else()
        add_library(${target} INTERFACE)
        set(scope INTERFACE)
    endif()
    target_include_directories(${target} ${scope} ${tree})
    target_link_libraries(${target} ${scope} ${arg_LINKS})
    if(arg_KIND STREQUAL "plain")
        target_link_libraries(${target} ${scope} Qt6::Core)
    elseif(arg_KIND STREQUAL "views")
        target_link_libraries(${target} ${scope} Qt6::Widgets)
    endif()
    if(arg_SOURCES AND NOT arg_KIND STREQUAL "core")
        set_target_properties(${target} PROPERTIES AUTOMOC ON)
    endif()
endfunction()

# veltrano_test(<target> SOURCES ... [LINKS ...] [LABELS ...] [TIMEOUT s] [COMMA_LOCALE]): the test
# program <target>_tests of one library, linked with that library alone (LINKS is for test helpers).
# With COMMA_LOCALE it is run a second time where numbers are written with a comma.
function(veltrano_test target)
    if(NOT VELTRANO_TESTS)
        return()
    endif()
    cmake_parse_arguments(arg "COMMA_LOCALE" "TIMEOUT;NAME" "SOURCES;LINKS;LABELS" ${ARGN})
    if(NOT arg_NAME)
        set(arg_NAME ${target}_tests)
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    add_executable(${arg_NAME} ${arg_SOURCES})
    target_link_libraries(${arg_NAME} PRIVATE veltrano_flags ${target} ${arg_LINKS} GTest::gtest)
    if(arg_COMMA_LOCALE)
        target_link_libraries(${arg_NAME} PRIVATE tests_comma_locale_main)
        add_test(NAME ${arg_NAME}_comma_locale
            COMMAND ${arg_NAME} --comma-locale=${CMAKE_BINARY_DIR}/locale)
        set_tests_properties(${arg_NAME}_comma_locale PROPERTIES TIMEOUT ${arg_TIMEOUT}
            LABELS "${arg_LABELS}" SKIP_RETURN_CODE 77 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    elseif(NOT arg_LINKS MATCHES "own_main")
        target_link_libraries(${arg_NAME} PRIVATE GTest::gtest_main)
    endif()
    add_test(NAME ${arg_NAME} COMMAND ${arg_NAME})
    set_tests_properties(${arg_NAME} PROPERTIES TIMEOUT ${arg_TIMEOUT} LABELS "${arg_LABELS}"
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
