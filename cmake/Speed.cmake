# Uses a compiler cache and a faster linker if they are installed.
find_program(TARVOK_CCACHE ccache)
if(TARVOK_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Without these ccache does not cache files that use precompiled headers.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      ${TARVOK_CCACHE})
endif()
if(TARVOK_WHOLE)
  return()  # link-time optimisation wants the compiler's own linker
endif()
find_program(TARVOK_MOLD mold)
find_program(TARVOK_LLD ld.lld)
if(TARVOK_MOLD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12.1)
  add_link_options(-fuse-ld=mold)
elseif(TARVOK_LLD)
  add_link_options(-fuse-ld=lld)
endif()
