# Test programs, one for each folder, found by glob so that none can be forgotten:
#   tests/unit/ROOM      native; the rooms without windows also under Wine
#   tests/platform/ROOM  one source for the twin and for Windows
#   tests/windows/NAME   real windows, Wine only
# The tests that drive whole programs are in tests/end_to_end; ./test starts them.

include(GoogleTest)
if(WIN32)
    set(BUILD_GMOCK ON)
    set(INSTALL_GTEST OFF)
    # GoogleTest is compiled without our warnings.
    get_directory_property(ourOptions COMPILE_OPTIONS)
    set_directory_properties(PROPERTIES COMPILE_OPTIONS "$<$<NOT:$<BOOL:${PAVANE_TWINS}>>:-ffunction-sections;-fdata-sections>")
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    set_directory_properties(PROPERTIES COMPILE_OPTIONS "${ourOptions}")
else()
    find_package(GTest REQUIRED)
endif()

file(GLOB supportSources CONFIGURE_DEPENDS tests/support/*.cpp)
add_library(test_support STATIC ${supportSources})
pavane_group_files(test_support)
target_include_directories(test_support PUBLIC ${CMAKE_SOURCE_DIR}/tests ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/include)
target_compile_definitions(test_support PUBLIC PAVANE_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data")
target_link_libraries(test_support PUBLIC GTest::gmock GTest::gtest)
# These two headers take half the time of compiling a test. GCC 12 warns about system code in precompiled headers, so a
# GCC build that precompiles them turns its warnings off.
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang" OR PAVANE_PRECOMPILED_TEST_HEADERS)
    set(precompiledHeaders <gmock/gmock.h> <gtest/gtest.h>)
    target_precompile_headers(test_support PRIVATE ${precompiledHeaders})
endif()

# Tests of threads have programs of their own, so that ThreadSanitizer need not build all tests of the room around them.
set(programsOfTheirOwn tests/unit/workflow/context tests/unit/workflow/worker)

# pavane_test(NAME FOLDER library...): a test program of all sources and resources of FOLDER; each native test is one
# of CTest's. Programs that show windows have the screen to themselves.
function(pavane_test name folder)
    set(locks)
    if(WIN32 AND name MATCHES "^(windows|platform_toolkit|platform_workflow)")
        set(locks RESOURCE_LOCK display)
    endif()
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.rc)
    foreach(own IN LISTS programsOfTheirOwn)
        if(NOT folder STREQUAL "${CMAKE_SOURCE_DIR}/${own}")
            list(FILTER sources EXCLUDE REGEX "/${own}/")
        endif()
    endforeach()
    if(NOT sources)
        return()
    endif()
    add_executable(${name} ${sources})
    pavane_group_files(${name})
    target_link_libraries(${name} PRIVATE ${ARGN} test_support)
    if(MINGW) # optimizing the tests themselves takes minutes and tests nothing more
        target_compile_options(${name} PRIVATE -O0)
    endif()
    if(precompiledHeaders)
        target_precompile_headers(${name} REUSE_FROM test_support)
    endif()
    if(TARGET pavane_manifest)
        target_link_libraries(${name} PRIVATE pavane_manifest)
    endif()
    add_dependencies(${name} pavane_resources)
    if(TARGET pavane)
        add_dependencies(${name} pavane)
    endif()
    # A program that needs other programs around it is started by the script of its folder, all tests at once.
    if(EXISTS ${folder}/run)
        add_test(NAME ${name} COMMAND ${folder}/run ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${name}>)
        set_tests_properties(${name} PROPERTIES TIMEOUT 300 LABELS ${name} ${locks})
        return()
    endif()
    # A process takes long to start under Wine, so a program runs all its tests at once.
    if(WIN32)
        # On Windows the C library of a twin takes names of files in the code page.
        add_test(NAME ${name} COMMAND ${name} $<$<BOOL:${PAVANE_TWINS}>:--gtest_filter=-*AnyName:*AnyLetter>
            WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
        set_tests_properties(${name} PROPERTIES TIMEOUT 600 LABELS ${name} ${locks})
        return()
    endif()
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 TEST_PREFIX "${name}."
        WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/bin PROPERTIES TIMEOUT 300 LABELS ${name} ${locks})
endfunction()

function(pavane_test_folders kind)
    file(GLOB folders CONFIGURE_DEPENDS LIST_DIRECTORIES true tests/${kind}/*)
    foreach(folder IN LISTS folders)
        get_filename_component(room ${folder} NAME)
        if(NOT IS_DIRECTORY ${folder} OR (ARGN AND NOT room IN_LIST ARGN))
            continue()
        endif()
        # A program links only to the rooms that its folder is named after.
        set(seen ${roomTargets})
        list(FILTER seen INCLUDE REGEX "^pavane_${room}(_|$)")
        if(kind STREQUAL "windows" OR NOT seen)
            set(seen pavane_core)
        endif()
        pavane_test(${kind}_${room} ${folder} ${seen})
        foreach(own IN LISTS programsOfTheirOwn)
            if(own MATCHES "^tests/${kind}/${room}/(.*)")
                pavane_test(${kind}_${room}_${CMAKE_MATCH_1} ${CMAKE_SOURCE_DIR}/${own} ${seen})
            endif()
        endforeach()
    endforeach()
endfunction()

if(PAVANE_TWINS) # the other rooms are the same without twins
    pavane_test_folders(unit toolkit workflow frame)
elseif(WIN32)
    pavane_test_folders(unit values dictionaries view)
    pavane_test_folders(platform)
    pavane_test_folders(windows)
    # What the end-to-end scripts use besides the product.
    add_executable(wine-keeper ${CMAKE_SOURCE_DIR}/tests/end_to_end/wine_keeper.c)
    add_executable(window-probe ${CMAKE_SOURCE_DIR}/tests/end_to_end/window_probe.c)
    add_executable(window-message ${CMAKE_SOURCE_DIR}/tests/end_to_end/window_message.c)
    add_executable(page-recorder WIN32 ${CMAKE_SOURCE_DIR}/tests/end_to_end/page_recorder.c)
else()
    pavane_test_folders(unit)
    pavane_test_folders(platform)
    include(cmake/tutorial.cmake)
    add_test(NAME example_service COMMAND python3 -B -m unittest discover -s ${CMAKE_SOURCE_DIR}/examples/service -p *_test.py)
    set_tests_properties(example_service PROPERTIES TIMEOUT 120)
endif()

# The tests of the transport are their own servers, and those of the network bring certificates.
foreach(name windows_transport windows_network)
    if(TARGET ${name})
        target_link_libraries(${name} PRIVATE ws2_32 crypt32 ntdll)
    endif()
endforeach()

# The tests of the service loader bring libraries.
if(TARGET windows_services)
    include(cmake/companions.cmake)
    add_dependencies(windows_services companion_good companion_without_entry_points companion_slow
        companion_calling_back companion_helper companion_in_need companion_in_need_of_system)
    target_compile_definitions(windows_services PRIVATE PAVANE_COMPANIONS="${companionFolder}")
endif()

# The tests of compiled dictionaries write their own.
if(TARGET unit_dictionaries)
    target_link_libraries(unit_dictionaries PRIVATE pavane_tools)
endif()

# The public header is plain C11, and so are the words of the sample host, which is otherwise built for Windows alone.
add_library(pavane_header_in_c OBJECT ${CMAKE_SOURCE_DIR}/tests/unit/frame/exports/pavane_header.c
    ${CMAKE_SOURCE_DIR}/examples/host/status_words.c)
target_include_directories(pavane_header_in_c PRIVATE ${CMAKE_SOURCE_DIR}/include)
target_compile_options(pavane_header_in_c PRIVATE -Wstrict-prototypes)
if(TARGET unit_frame)
    target_link_libraries(unit_frame PRIVATE pavane_header_in_c)
    target_include_directories(unit_frame PRIVATE ${CMAKE_SOURCE_DIR}/examples)
endif()
