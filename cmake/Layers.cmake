# SPDX-License-Identifier: GPL-3.0-or-later
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
        target_link_libraries(${target} PRIVATE veltrano_flags veltrano_hardening ${arg_PRIVATE_LINKS})
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

# veltrano_test(<target> SOURCES ... [NAME name] [LINKS ...] [LABELS ...] [TIMEOUT s] [COMMA_LOCALE]):
# the test program <target>_tests of one library, linked with that library alone (LINKS is for test
# helpers). With COMMA_LOCALE it is run a second time where numbers are written with a comma.
# A program labelled "soak" does more when VELTRANO_SOAK is set, as the target "soak" does.
# "all_tests" builds every program that the suite of this preset runs.
add_custom_target(all_tests)

# The thread sanitizer runs what threads share; the real-time sanitizer runs the road of a block.
set(VELTRANO_THREADED audio platform_audio platform_foundation platform_realtime engine)

function(veltrano_is_in_suite result target labels)
    set(${result} TRUE PARENT_SCOPE)
    if(VELTRANO_SANITIZER STREQUAL "thread" AND NOT target MATCHES "_core$"
       AND NOT target IN_LIST VELTRANO_THREADED)
        set(${result} FALSE PARENT_SCOPE)
    elseif(VELTRANO_SANITIZER STREQUAL "realtime" AND NOT "realtime" IN_LIST labels)
        set(${result} FALSE PARENT_SCOPE)
    endif()
endfunction()

function(veltrano_add_run name timeout labels)
    add_test(NAME ${name} COMMAND ${ARGN})
    set(environment "QT_QPA_PLATFORM=offscreen")
    if(VELTRANO_SANITIZER STREQUAL "thread")
        list(APPEND environment
            "TSAN_OPTIONS=halt_on_error=1 suppressions=${CMAKE_SOURCE_DIR}/cmake/tsan.supp")
    elseif(VELTRANO_SANITIZER STREQUAL "address")
        list(APPEND environment "UBSAN_OPTIONS=print_stacktrace=1")
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT ${timeout} LABELS "${labels}"
        SKIP_RETURN_CODE 77 ENVIRONMENT "${environment}")
endfunction()

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
    elseif(NOT arg_LINKS MATCHES "own_main")
        target_link_libraries(${arg_NAME} PRIVATE GTest::gtest_main)
    endif()

    veltrano_is_in_suite(is_in_suite ${target} "${arg_LABELS}")
    if(NOT is_in_suite)
        set_target_properties(${arg_NAME} PROPERTIES EXCLUDE_FROM_ALL TRUE)
        return()
    endif()
    add_dependencies(all_tests ${arg_NAME})
    veltrano_add_run(${arg_NAME} ${arg_TIMEOUT} "${arg_LABELS}" ${arg_NAME})
    if(arg_COMMA_LOCALE)
        veltrano_add_run(${arg_NAME}_comma_locale ${arg_TIMEOUT} "${arg_LABELS}"
            ${arg_NAME} --comma-locale=${CMAKE_BINARY_DIR}/locale)
    endif()
    if("soak" IN_LIST arg_LABELS)
        set_property(GLOBAL APPEND PROPERTY VELTRANO_SOAK_PROGRAMS ${arg_NAME})
    endif()
endfunction()

# veltrano_test_again(<program> <name> <environment>...): a further run of a test program, if its suite
# has it.
function(veltrano_test_again program name)
    if(NOT VELTRANO_TESTS)
        return()
    endif()
    get_target_property(is_left_out ${program} EXCLUDE_FROM_ALL)
    if(is_left_out)
        return()
    endif()
    get_test_property(${program} TIMEOUT timeout)
    get_test_property(${program} ENVIRONMENT environment)
    veltrano_add_run(${name} ${timeout} "" ${program})
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${environment};${ARGN}")
endfunction()

# veltrano_soak_target(): the target "soak", after all tests have been added.
function(veltrano_soak_target)
    get_property(programs GLOBAL PROPERTY VELTRANO_SOAK_PROGRAMS)
    set(commands COMMAND ${CMAKE_COMMAND} -E echo "The long versions:" ${programs})
    foreach(program IN LISTS programs)
        list(APPEND commands COMMAND ${CMAKE_COMMAND} -E env VELTRANO_SOAK=1
            QT_QPA_PLATFORM=offscreen $<TARGET_FILE:${program}>)
    endforeach()
    add_custom_target(soak ${commands} DEPENDS ${programs} USES_TERMINAL
        COMMENT "Running the long versions of the tests")
endfunction()
