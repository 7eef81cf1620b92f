# One libFuzzer program for each tests/fuzz/NAME_fuzz.cpp; its seeds are in tests/fuzz/NAME_seeds/.
# The rooms count what a fuzzer reaches; tests need no counters.
foreach(room IN LISTS roomTargets)
    target_compile_options(${room} PRIVATE -fsanitize=fuzzer-no-link)
endforeach()

file(GLOB fuzzSources CONFIGURE_DEPENDS tests/fuzz/*_fuzz.cpp)
foreach(source IN LISTS fuzzSources)
    get_filename_component(name ${source} NAME_WE)
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE pavane_core)
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer-no-link)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endforeach()
