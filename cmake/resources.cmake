# Lays PVResources beside what runs: the views, bitmaps and pages as they are, and each text dictionary compiled.

set(resourceOutput ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/PVResources)
set(resourceFiles)

file(GLOB_RECURSE shipped CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/resources/PVResources
    resources/PVResources/*)
foreach(file IN LISTS shipped)
    add_custom_command(OUTPUT ${resourceOutput}/${file}
        COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/resources/PVResources/${file} ${resourceOutput}/${file}
        DEPENDS resources/PVResources/${file} VERBATIM)
    list(APPEND resourceFiles ${resourceOutput}/${file})
endforeach()

file(GLOB_RECURSE dictionaries CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/resources/dictionaries
    resources/dictionaries/*.txt)
foreach(file IN LISTS dictionaries)
    string(REGEX REPLACE "txt$" "zdct" target ${file})
    add_custom_command(OUTPUT ${resourceOutput}/${target}
        COMMAND ${compileDictionary}
            ${CMAKE_SOURCE_DIR}/resources/dictionaries/${file} ${resourceOutput}/${target}
        DEPENDS resources/dictionaries/${file} ${compileDictionaryTarget} VERBATIM)
    list(APPEND resourceFiles ${resourceOutput}/${target})
endforeach()

# The privacy statements: UTF-8 here, UTF-16 as shipped. Both byte orders are read, so both are shipped.
set(bigEndianStatements ar_AE ja_JP)
set(rightToLeftStatements ar_AE he_IL)
file(GLOB statements CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/resources/statements resources/statements/*.txt)
foreach(file IN LISTS statements)
    string(REGEX REPLACE "\\.txt$" "" locale ${file})
    set(byteOrder LE)
    if(locale IN_LIST bigEndianStatements)
        set(byteOrder BE)
    endif()
    set(direction)
    if(locale IN_LIST rightToLeftStatements)
        set(direction RTL)
    endif()
    set(target ${resourceOutput}/privacystatements/privacy_${file})
    add_custom_command(OUTPUT ${target}
        COMMAND sh ${CMAKE_SOURCE_DIR}/resources/make_statement.sh
            ${CMAKE_SOURCE_DIR}/resources/statements/${file} ${target} ${byteOrder} ${direction}
        DEPENDS resources/statements/${file} resources/make_statement.sh VERBATIM)
    list(APPEND resourceFiles ${target})
endforeach()

add_custom_target(pavane_resources ALL DEPENDS ${resourceFiles})
if(TARGET host_tools)
    add_dependencies(pavane_resources host_tools)
endif()
