# With PAVANE_GROUPED, the files of a target that share a folder are compiled as one. The groups are found when the build
# is configured: a file that then defines a private name of another one fails to compile until it is configured again.

function(pavane_group_files target)
    if(NOT PAVANE_GROUPED)
        return()
    endif()
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "^${CMAKE_SOURCE_DIR}/(src|tests|tools)/.*\\.cpp$")
    list(FILTER sources EXCLUDE REGEX "/platform/win32/") # one of them sets up the system's headers in its own way
    list(TRANSFORM sources REPLACE "^${CMAKE_SOURCE_DIR}/" "")
    execute_process(COMMAND python3 ${CMAKE_SOURCE_DIR}/cmake/group_sources.py ${PAVANE_GROUPED} ${sources}
        OUTPUT_VARIABLE commands COMMAND_ERROR_IS_FATAL ANY)
    cmake_language(EVAL CODE "${commands}")
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    # A local name may be a private one of another file, and a private type is then no longer in the main file.
    target_compile_options(${target} PRIVATE -Wno-shadow $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endfunction()
