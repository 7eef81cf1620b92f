# What the benchmarks of text and dictionaries run beside: ICU, OpenSSL, Abseil, and the C library's gettext.
find_package(ICU REQUIRED COMPONENTS uc)
find_package(OpenSSL REQUIRED)
find_package(absl REQUIRED)
target_link_libraries(pavane_bench PRIVATE pavane_dictionaries ICU::uc OpenSSL::Crypto absl::flat_hash_map absl::strings)
