# The peers of the benchmarks of text and dictionaries: ICU, OpenSSL, Abseil, and the C library's gettext.
find_package(ICU REQUIRED COMPONENTS uc)
find_package(OpenSSL REQUIRED)
find_package(absl REQUIRED)
target_link_libraries(pavane_bench PRIVATE pavane_dictionaries ICU::uc OpenSSL::Crypto absl::flat_hash_map absl::strings)

# Compiled dictionaries; the cost in a new process is measured by a program of its own.
target_link_libraries(pavane_bench PRIVATE pavane_tools)
add_executable(load_in_new_process child/load_in_new_process.cpp sample_keys.cpp)
target_include_directories(load_in_new_process PRIVATE ${CMAKE_SOURCE_DIR})
target_link_libraries(load_in_new_process PRIVATE pavane_dictionaries)
add_dependencies(pavane_bench load_in_new_process)
