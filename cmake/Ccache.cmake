# Compiles through ccache where it is installed. The presets lie side by side under build/ and differ in nothing
# that the compiler sees: with paths relative to the project and the build folder left out of the key, what one of
# them compiled is a hit for the other (dev and logic), and for a second checkout.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${CCACHE})
endif()
