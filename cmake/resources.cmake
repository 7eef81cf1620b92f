# Puts PVResources beside the programs: views, bitmaps and pages unchanged, and each text dictionary compiled.

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

# The privacy statements: UTF-8 here, UTF-16 as shipped, and the list that names them.
foreach(locale IN LISTS languages)
    set(source ${CMAKE_SOURCE_DIR}/resources/statements/${locale}.txt)
    set(target ${resourceOutput}/privacystatements/privacy_${locale}.txt)
    add_custom_command(OUTPUT ${target}
        COMMAND sh ${CMAKE_SOURCE_DIR}/resources/make_statement.sh
            ${source} ${target} ${byteOrder_${locale}} ${direction_${locale}}
        DEPENDS ${source} ${languageTable} resources/make_statement.sh VERBATIM)
    list(APPEND resourceFiles ${target})
endforeach()
add_custom_command(OUTPUT ${resourceOutput}/privacyinfolist.xml
    COMMAND ${CMAKE_COMMAND} -E copy ${generated}/privacyinfolist.xml ${resourceOutput}/privacyinfolist.xml
    DEPENDS ${generated}/privacyinfolist.xml VERBATIM)
list(APPEND resourceFiles ${resourceOutput}/privacyinfolist.xml)

add_custom_target(pavane_resources ALL DEPENDS ${resourceFiles})
if(TARGET host_tools)
    add_dependencies(pavane_resources host_tools)
endif()
