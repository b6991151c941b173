# One interface target carries the flags of every target of ours: warnings are errors, debug builds run under the
# sanitizers, releases are hardened.
add_library(tarvok_flags INTERFACE)
target_compile_options(tarvok_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# Designated initialisers leave out what keeps its default; that is what they are for.
target_compile_options(tarvok_flags INTERFACE -Wno-missing-field-initializers)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # This compiler sees overlaps inside std::string's operator+ that are not there, and at -O3 unset strings in aggregates
  # that are made in place.
  target_compile_options(tarvok_flags INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
endif()
target_include_directories(tarvok_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(TARVOK_SANITIZE)
  target_compile_options(tarvok_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                -fno-omit-frame-pointer)
  target_link_options(tarvok_flags INTERFACE -fsanitize=address,undefined)
endif()

if(TARVOK_FUZZ)
  target_compile_options(tarvok_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

option(TARVOK_SANITIZE_THREADS "Build with the thread sanitizer instead" OFF)
if(TARVOK_SANITIZE_THREADS)
  target_compile_options(tarvok_flags INTERFACE -O1 -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(tarvok_flags INTERFACE -fsanitize=thread)
endif()

# Releases: checked library calls and container accesses, guarded stacks and returns, programs at random addresses, and
# nothing writable that is run or jumped through.
if(CMAKE_BUILD_TYPE STREQUAL "Release")
  include(CheckCXXCompilerFlag)
  include(CheckPIESupported)
  check_pie_supported(LANGUAGES CXX)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  target_compile_options(tarvok_flags INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -D_GLIBCXX_ASSERTIONS
                                                -fstack-protector-strong)
  foreach(option stack-clash-protection cf-protection)
    string(REPLACE - _ name ${option})
    check_cxx_compiler_flag(-f${option} TARVOK_HAS_${name})
    if(TARVOK_HAS_${name})
      target_compile_options(tarvok_flags INTERFACE -f${option})
    endif()
  endforeach()
  target_link_options(tarvok_flags INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
endif()
