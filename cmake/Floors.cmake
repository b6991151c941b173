# Headers that almost every file includes. They are parsed once for each set of flags instead of once for each file.
set(tarvok_common_headers <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <set> <span> <string>
                          <string_view> <utility> <vector>)

# tarvok_precompile(TARGET KEY HEADERS...) precompiles the headers for the target. Targets with the same KEY must have the
# same flags; they share the result.
function(tarvok_precompile target key)
  if(NOT TARVOK_PRECOMPILE)
    return()
  endif()
  get_property(owner GLOBAL PROPERTY tarvok_headers_${key})
  if(owner)
    target_precompile_headers(${target} REUSE_FROM ${owner})
  else()
    target_precompile_headers(${target} PRIVATE ${ARGN})
    set_property(GLOBAL PROPERTY tarvok_headers_${key} ${target})
  endif()
endfunction()

# tarvok_pieces(TARGET [SIZE]) compiles the files of the target in pieces of SIZE files, which takes a third of the time of
# single files. Releases take pieces of 8 where no SIZE is given; debug builds then take single files, so that a change of
# one of them is quickly tested.
function(tarvok_pieces target)
  if(TARVOK_WHOLE)
    set(size 0)
  elseif(ARGC GREATER 1)
    set(size ${ARGV1})
  elseif(CMAKE_BUILD_TYPE STREQUAL "Release")
    set(size 8)
  else()
    return()
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${size})
endfunction()

# tarvok_floor(NAME [USES floors...] [QT modules... HEADERS headers...] [PIECES size]) makes the library tarvok_NAME from
# src/NAME. HEADERS are those of Qt that it includes most: all of Qt takes longer to precompile than it saves. Debug builds
# optimise the core a little: the tests take a third of the time, and the build hardly longer.
function(tarvok_floor name)
  cmake_parse_arguments(floor "" "PIECES" "USES;QT;HEADERS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
  list(TRANSFORM floor_USES PREPEND tarvok_ OUTPUT_VARIABLE below)
  add_library(tarvok_${name} STATIC ${sources})
  target_link_libraries(tarvok_${name} PUBLIC tarvok_flags ${below})
  if(floor_QT)
    list(TRANSFORM floor_QT PREPEND Qt6:: OUTPUT_VARIABLE modules)
    target_link_libraries(tarvok_${name} PUBLIC ${modules})
    target_compile_definitions(tarvok_${name} PUBLIC QT_NO_KEYWORDS)
    tarvok_precompile(tarvok_${name} ${name} ${tarvok_common_headers} ${floor_HEADERS})
  else()
    target_compile_options(tarvok_${name} PRIVATE $<$<BOOL:${TARVOK_SANITIZE}>:-O1>)
    tarvok_precompile(tarvok_${name} core ${tarvok_common_headers})
  endif()
  tarvok_pieces(tarvok_${name} ${floor_PIECES})
endfunction()

# tarvok_fast(NAME floors...) makes the library NAME of these floors, optimised and without sanitizers. In a build with
# sanitizers, which slow a session down eight times, the floors are built a second time for it, in a few large pieces.
function(tarvok_fast name)
  if(NOT TARVOK_SANITIZE)
    list(TRANSFORM ARGN PREPEND tarvok_ OUTPUT_VARIABLE floors)
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE ${floors})
    return()
  endif()
  add_library(${name} STATIC)
  foreach(floor ${ARGN})
    get_target_property(sources tarvok_${floor} SOURCES)
    target_sources(${name} PRIVATE ${sources})
  endforeach()
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 24)
  target_compile_options(${name} PRIVATE -O2)
endfunction()
