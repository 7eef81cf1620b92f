# Reads resources/languages, the table of languages, and writes the program's own table and the list of privacy
# statements. `languages` holds the locales; `direction_<locale>` and `byteOrder_<locale>` hold columns.

set(languageTable ${CMAKE_SOURCE_DIR}/resources/languages)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${languageTable})

file(STRINGS ${languageTable} languageRows ENCODING UTF-8)
set(languages)
set(PAVANE_LANGUAGE_ROWS)
set(PAVANE_STATEMENT_ROWS)
foreach(row IN LISTS languageRows)
    if(row MATCHES "^(#|$)")
        continue()
    endif()
    if(NOT row MATCHES "^([a-z][a-z]_[A-Z][A-Z]) +(left|right) +(LE|BE) +([0-9]+) +(.+)$")
        message(FATAL_ERROR "resources/languages: not a row: ${row}")
    endif()
    set(locale ${CMAKE_MATCH_1})
    set(direction_${locale} ${CMAKE_MATCH_2})
    set(byteOrder_${locale} ${CMAKE_MATCH_3})
    set(group ${CMAKE_MATCH_4})
    set(name ${CMAKE_MATCH_5})
    if(locale IN_LIST languages)
        message(FATAL_ERROR "resources/languages: ${locale} has two rows")
    endif()
    list(APPEND languages ${locale})
    list(LENGTH languages place)

    set(isRightToLeft false)
    if(direction_${locale} STREQUAL "right")
        set(isRightToLeft true)
    endif()
    string(APPEND PAVANE_LANGUAGE_ROWS "    {\"${locale}\", ${isRightToLeft}},\n")
    string(APPEND PAVANE_STATEMENT_ROWS "  <LANGUAGE_INFO>\n    <LANGID>${locale}</LANGID>\n"
        "    <LANGNAME>${name}</LANGNAME>\n    <LANG_GRP_ID>${group}</LANG_GRP_ID>\n"
        "    <FILE_NAME>privacy_${locale}</FILE_NAME>\n    <SEQ_ID>${place}</SEQ_ID>\n  </LANGUAGE_INFO>\n")
endforeach()

set(generated ${CMAKE_BINARY_DIR}/generated)
configure_file(src/frame/shipped_languages.cpp.in ${generated}/frame/shipped_languages.cpp @ONLY)
configure_file(resources/privacyinfolist.xml.in ${generated}/privacyinfolist.xml @ONLY)
target_sources(pavane_frame PRIVATE ${generated}/frame/shipped_languages.cpp)
