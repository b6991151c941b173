# The interface target tarvok_flags has the flags of all our targets: warnings are errors, debug builds run with the
# sanitizers, releases are hardened.
add_library(tarvok_flags INTERFACE)
target_compile_options(tarvok_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# Designated initialisers may omit members that keep their default.
target_compile_options(tarvok_flags INTERFACE -Wno-missing-field-initializers)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # False positives of GCC 12: overlaps in std::string's operator+, and at -O3 uninitialised strings in aggregates.
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

if(TARVOK_WHOLE)
  # Two types of one name, or a function declared in two ways, show only when the linker sees everything.
  target_compile_options(tarvok_flags INTERFACE -O1 -flto -Wodr)
  target_link_options(tarvok_flags INTERFACE -O1 -flto=auto -Wodr -Wlto-type-mismatch -Werror)
endif()

option(TARVOK_SANITIZE_THREADS "Build with the thread sanitizer instead" OFF)
if(TARVOK_SANITIZE_THREADS)
  target_compile_options(tarvok_flags INTERFACE -O1 -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(tarvok_flags INTERFACE -fsanitize=thread)
endif()

# Releases: checked library calls and container accesses, protected stacks and returns, position-independent programs,
# no executable stack, read-only relocations.
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
