# One target for each folder, linked to exactly what the folder may use. Options are set on targets, never globally.

option(VEXAREL_WINDOW "Build the windows and the application" ON)
option(VEXAREL_WERROR "Treat warnings as errors" OFF)
option(VEXAREL_ASSERTIONS "Check the assertions of Qt and the standard library in optimised builds too" OFF)
option(VEXAREL_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(VEXAREL_FUZZ "Build the libFuzzer targets (clang only)" OFF)
option(VEXAREL_BENCH "Build the benchmarks" ON)

add_library(vexarel-options INTERFACE)
target_compile_features(vexarel-options INTERFACE cxx_std_20)
target_compile_options(vexarel-options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -fno-exceptions
  $<$<BOOL:${VEXAREL_WERROR}>:-Werror>)
target_compile_definitions(vexarel-options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH QT_NO_KEYWORDS
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(VEXAREL_ASSERTIONS)
  # Qt switches Q_ASSERT off in every build type but Debug.
  target_compile_definitions(vexarel-options INTERFACE QT_FORCE_ASSERTS _GLIBCXX_ASSERTIONS)
endif()
if(VEXAREL_SANITIZE)
  target_compile_options(vexarel-options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vexarel-options INTERFACE -fsanitize=address,undefined)
endif()
if(VEXAREL_FUZZ)
  target_compile_options(vexarel-options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# vexarel_library(<folder> HEADERS <files> SOURCES <files> LINKS <targets>): makes the library of the current source
# folder. scripts/check-layers requires that it names all files of the folder.
function(vexarel_library folder)
  cmake_parse_arguments(ARG "" "" "HEADERS;SOURCES;LINKS" ${ARGN})
  add_library(vexarel-${folder} STATIC ${ARG_SOURCES})
  target_sources(vexarel-${folder} PUBLIC
    FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/src FILES ${ARG_HEADERS})
  target_link_libraries(vexarel-${folder} PUBLIC ${ARG_LINKS} PRIVATE vexarel-options)
endfunction()

# Builds only the test programs.
add_custom_target(all-tests)

# vexarel_tests(<folder> SOURCES <files> LINKS <targets> [DISPLAY]): makes one test program. With DISPLAY it runs on a
# virtual screen with a window manager; otherwise Qt uses the offscreen platform.
function(vexarel_tests folder)
  cmake_parse_arguments(ARG "DISPLAY" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${folder}-tests ${ARG_SOURCES})
  add_dependencies(all-tests ${folder}-tests)
  target_include_directories(${folder}-tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${folder}-tests PRIVATE
    VEXAREL_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data" VEXAREL_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(${folder}-tests PRIVATE vexarel-test-support ${ARG_LINKS} vexarel-options)

  set(screen $<$<BOOL:${ARG_DISPLAY}>:${PROJECT_SOURCE_DIR}/scripts/with-display>)
  add_test(NAME ${folder} COMMAND ${screen} $<TARGET_FILE:${folder}-tests> COMMAND_EXPAND_LISTS)
  set_tests_properties(${folder} PROPERTIES TIMEOUT $<IF:$<BOOL:${VEXAREL_SANITIZE}>,900,300>)
endfunction()

# Builds only the fuzz targets. fuzzers.txt in the build folder has their names, one per line.
add_custom_target(all-fuzzers)
file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/fuzzers.txt
  CONTENT "$<JOIN:$<TARGET_PROPERTY:all-fuzzers,VEXAREL_FUZZERS>,\n>\n")

# vexarel_fuzzer(<name> SOURCES <files> LINKS <targets>): makes the program <name>-fuzz. Its inputs are in
# fuzz/corpus/<name>.
function(vexarel_fuzzer name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name}-fuzz ${ARG_SOURCES})
  add_dependencies(all-fuzzers ${name}-fuzz)
  set_property(TARGET all-fuzzers APPEND PROPERTY VEXAREL_FUZZERS ${name})
  target_link_libraries(${name}-fuzz PRIVATE ${ARG_LINKS} vexarel-options)
  target_link_options(${name}-fuzz PRIVATE -fsanitize=fuzzer)
endfunction()
