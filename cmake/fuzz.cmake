# libFuzzer's targets: fuzz_games, fuzz_recordings and so on, everything built with the sanitizers. clang only.
target_compile_options(tarnveil_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                       -fno-sanitize-recover=all)
target_link_options(tarnveil_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined)

# Rows of pixels and the bytes of tables teach the fuzzer nothing, and watching each would take most of its time.
set_source_files_properties(src/toolkit/surface.cpp src/toolkit/text.cpp src/stage/data_files.cpp PROPERTIES
                            COMPILE_OPTIONS "-O3;-fno-sanitize-coverage=trace-cmp,inline-8bit-counters,pc-table")

# add_fuzzer(NAME [sources and libraries beside tools/fuzz/NAME.cpp and the game on the scripted host])
add_custom_target(fuzzers)
function(add_fuzzer name)
  cmake_parse_arguments(PARSE_ARGV 1 fuzz "" "" "SOURCES;LIBRARIES")
  add_executable(fuzz_${name} tools/fuzz/${name}.cpp ${fuzz_SOURCES})
  target_link_libraries(fuzz_${name} PRIVATE tarnveil_game tarnveil_headless ${fuzz_LIBRARIES})
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzzers fuzz_${name})
endfunction()

add_fuzzer(games)
target_compile_definitions(fuzz_games PRIVATE TARNVEIL_DATA_FOLDER="${CMAKE_SOURCE_DIR}/assets/data")
add_fuzzer(recordings)
add_fuzzer(scores)
add_fuzzer(pictures)
if(SDL2_MIXER_FOUND AND FLUIDSYNTH_FOUND)
  add_fuzzer(music SOURCES ${desktop}/midi_piece.cpp ${desktop}/synth.cpp LIBRARIES PkgConfig::FLUIDSYNTH)
  add_fuzzer(waves SOURCES ${desktop}/effects.cpp LIBRARIES PkgConfig::SDL2 PkgConfig::SDL2_MIXER)
  target_include_directories(fuzz_music PRIVATE src)
  target_include_directories(fuzz_waves PRIVATE src)
endif()
