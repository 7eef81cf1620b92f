# The companion libraries of the service loader's tests, each alone in its folder. Nothing installs them: the tests copy
# them into folders of their own.

set(companionFolder ${CMAKE_BINARY_DIR}/companions)

# pavane_companion(NAME KIND FILE definition...): the library NAME.dll in the folder of its kind.
function(pavane_companion name kind file)
    add_library(companion_${kind} SHARED ${CMAKE_SOURCE_DIR}/tests/companion/${file})
    target_compile_definitions(companion_${kind} PRIVATE ${ARGN})
    target_link_options(companion_${kind} PRIVATE -s)
    set_target_properties(companion_${kind} PROPERTIES PREFIX "" OUTPUT_NAME ${name}
        RUNTIME_OUTPUT_DIRECTORY ${companionFolder}/${kind} ARCHIVE_OUTPUT_DIRECTORY ${companionFolder}/${kind})
endfunction()

pavane_companion(svhservices good svhservices.c)
pavane_companion(svhservices without_entry_points svhservices.c COMPANION_WITHOUT_ENTRY_POINTS)
pavane_companion(svhservices slow svhservices.c COMPANION_SLOW=400 COMPANION_CALLING_BACK)
pavane_companion(svhservices calling_back svhservices.c COMPANION_CALLING_BACK)
pavane_companion(companion-helper helper helper.c)
pavane_companion(svhservices in_need svhservices.c COMPANION_IN_NEED)
target_link_libraries(companion_in_need PRIVATE companion_helper)
pavane_companion(svhservices in_need_of_system svhservices.c COMPANION_IN_NEED_OF_SYSTEM)
target_link_libraries(companion_in_need_of_system PRIVATE lz32)
