# One interface target carries the flags of every target of ours: warnings are errors, debug builds run under the
# sanitizers, releases are hardened.
add_library(tarvok_flags INTERFACE)
target_compile_options(tarvok_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# Designated initialisers leave out what keeps its default; that is what they are for.
target_compile_options(tarvok_flags INTERFACE -Wno-missing-field-initializers)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # This compiler sees overlaps inside std::string's operator+ that are not there.
  target_compile_options(tarvok_flags INTERFACE -Wno-restrict)
endif()
target_include_directories(tarvok_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(TARVOK_SANITIZE)
  target_compile_options(tarvok_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                -fno-omit-frame-pointer)
  target_link_options(tarvok_flags INTERFACE -fsanitize=address,undefined)
endif()

if(TARVOK_FUZZ)
  target_compile_options(tarvok_flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                -fno-sanitize-recover=all)
  target_link_options(tarvok_flags INTERFACE -fsanitize=address,undefined)
endif()

if(CMAKE_BUILD_TYPE STREQUAL "Release")
  target_compile_options(tarvok_flags INTERFACE -D_FORTIFY_SOURCE=2 -fstack-protector-strong)
  target_link_options(tarvok_flags INTERFACE -Wl,-z,relro,-z,now)
endif()
