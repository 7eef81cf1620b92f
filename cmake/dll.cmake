# pavane.dll: all rooms, six exports by the definition file, version and manifest as resources.

set(dllFolder ${CMAKE_SOURCE_DIR}/src/frame/platform/win32)
string(REPLACE "." "," PAVANE_VERSION_COMMAS ${PROJECT_VERSION})
set(PAVANE_MANIFEST ${dllFolder}/pavane.manifest)
configure_file(${dllFolder}/pavane.rc.in ${CMAKE_BINARY_DIR}/pavane.rc @ONLY)
configure_file(${dllFolder}/manifest.rc.in ${CMAKE_BINARY_DIR}/manifest.rc @ONLY)
set_source_files_properties(${CMAKE_BINARY_DIR}/pavane.rc ${CMAKE_BINARY_DIR}/manifest.rc
    PROPERTIES OBJECT_DEPENDS ${PAVANE_MANIFEST})

# Only the manifest, as resource 3, for test programs that link the rooms without the DLL.
add_library(pavane_manifest OBJECT ${CMAKE_BINARY_DIR}/manifest.rc)

add_library(pavane SHARED ${CMAKE_BINARY_DIR}/pavane.rc ${dllFolder}/pavane.def
    ${CMAKE_SOURCE_DIR}/src/frame/exports/pavane_exports.cpp)
set_target_properties(pavane PROPERTIES PREFIX "")
target_link_libraries(pavane PRIVATE pavane_frame_exports)
target_link_options(pavane PRIVATE $<$<CONFIG:Release>:-s>)
target_include_directories(pavane INTERFACE ${CMAKE_SOURCE_DIR}/include)
add_dependencies(pavane pavane_resources)
