# Uses ccache where it is installed. The sloppiness lets it cache files that use a precompiled header.
find_program(ORVIM_CCACHE ccache)
if(ORVIM_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND}" -E env "CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_ctime,include_file_mtime"
      "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" "CCACHE_NOHASHDIR=1" "${ORVIM_CCACHE}")
endif()
