# unit_tutorial: builds and runs exactly the text of docs/writing-a-workflow.md, taken from the document.

set(document ${CMAKE_SOURCE_DIR}/docs/writing-a-workflow.md)
set(tutorial ${CMAKE_BINARY_DIR}/generated/tutorial)
set(changedByTutorial src/workflow/resources/dictionary_handler.cpp src/frame/exports/launcher_table.cpp)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${document} ${changedByTutorial})
execute_process(COMMAND python3 ${CMAKE_SOURCE_DIR}/cmake/extract_document.py ${document} ${CMAKE_SOURCE_DIR} ${tutorial}
    OUTPUT_VARIABLE tutorialFiles OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\n" ";" tutorialFiles "${tutorialFiles}")

# The program has copies of these, so that the library's own must not be linked.
list(TRANSFORM changedByTutorial PREPEND ${CMAKE_SOURCE_DIR}/ OUTPUT_VARIABLE changedPaths)
set_source_files_properties(${changedPaths} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)

set(tutorialSources ${tutorialFiles})
list(FILTER tutorialSources INCLUDE REGEX "\\.cpp$")
list(TRANSFORM tutorialSources PREPEND ${tutorial}/)

# The program has PVResources of its own beside it: the view, and the compiled dictionary.
set(tutorialFolder ${CMAKE_BINARY_DIR}/tutorial)
set(tutorialResources ${tutorialFolder}/PVResources)
foreach(file IN LISTS tutorialFiles)
    if(file MATCHES "^resources/PVResources/(.*)$")
        set(target ${tutorialResources}/${CMAKE_MATCH_1})
        add_custom_command(OUTPUT ${target} COMMAND ${CMAKE_COMMAND} -E copy ${tutorial}/${file} ${target}
            DEPENDS ${tutorial}/${file} VERBATIM)
    elseif(file MATCHES "^resources/dictionaries/(.*)\\.txt$")
        set(target ${tutorialResources}/${CMAKE_MATCH_1}.zdct)
        add_custom_command(OUTPUT ${target} COMMAND ${compileDictionary} ${tutorial}/${file} ${target}
            DEPENDS ${tutorial}/${file} ${compileDictionaryTarget} VERBATIM)
    else()
        continue()
    endif()
    list(APPEND tutorialSources ${target})
endforeach()

add_executable(unit_tutorial ${tutorialSources})
set_target_properties(unit_tutorial PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${tutorialFolder})
# The copies with the added rows come before the files of src/ that they copy.
target_include_directories(unit_tutorial BEFORE PRIVATE ${tutorial}/src)
target_link_libraries(unit_tutorial PRIVATE pavane_core test_support)
gtest_discover_tests(unit_tutorial DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 TEST_PREFIX "unit_tutorial."
    WORKING_DIRECTORY ${tutorialFolder} PROPERTIES TIMEOUT 120 LABELS unit_tutorial)
