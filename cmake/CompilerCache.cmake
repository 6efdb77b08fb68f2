# Uses ccache when it is installed. Paths are made relative to the project, so that one entry serves
# every build folder and every clone.
find_program(FALANGES_CCACHE ccache)
if(FALANGES_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=true
    "${FALANGES_CCACHE}")
endif()
