# The author's tools: a library, and the program that compiles the shipped dictionaries. The build runs that program, so
# a build for another system first makes one for its own machine.

file(GLOB toolSources CONFIGURE_DEPENDS tools/*.cpp)
list(FILTER toolSources EXCLUDE REGEX "_main\\.cpp$")
add_library(pavane_tools STATIC ${toolSources})
pavane_group_files(pavane_tools)
target_include_directories(pavane_tools PUBLIC ${CMAKE_SOURCE_DIR})
target_link_libraries(pavane_tools PUBLIC pavane_dictionaries)
list(APPEND roomTargets pavane_tools) # tested like one

if(NOT CMAKE_CROSSCOMPILING)
    add_executable(pavane-compile tools/compile_main.cpp)
    target_link_libraries(pavane-compile PRIVATE pavane_tools)
    set(compileDictionary $<TARGET_FILE:pavane-compile>)
    set(compileDictionaryTarget pavane-compile)
else()
    include(ExternalProject)
    set(hostTools ${CMAKE_BINARY_DIR}/host)
    set(compileDictionary ${hostTools}/bin/pavane-compile)
    ExternalProject_Add(host_tools
        SOURCE_DIR ${CMAKE_SOURCE_DIR}
        BINARY_DIR ${hostTools}
        PREFIX ${hostTools}/external
        CMAKE_ARGS -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE=-O2 -DPAVANE_TESTS=OFF -DPAVANE_GROUPED=16
            -DCMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER}
        BUILD_COMMAND ${CMAKE_COMMAND} --build ${hostTools} --target pavane-compile
        BUILD_ALWAYS ON
        BUILD_BYPRODUCTS ${compileDictionary}
        INSTALL_COMMAND "")
    set(compileDictionaryTarget ${compileDictionary})
endif()
