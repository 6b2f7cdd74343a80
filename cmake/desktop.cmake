# The desktop program. It needs Qt 6 Widgets and SDL 2; without one of them it is left out. Its sound needs SDL2_mixer
# and FluidSynth; without one of them it is silent. Everything else builds in any case.
find_package(Qt6 6.2 QUIET COMPONENTS Widgets Test)
find_package(PkgConfig QUIET)
if(PkgConfig_FOUND)
  pkg_check_modules(SDL2 QUIET IMPORTED_TARGET sdl2)
  pkg_check_modules(SDL2_MIXER QUIET IMPORTED_TARGET SDL2_mixer)
  pkg_check_modules(FLUIDSYNTH QUIET IMPORTED_TARGET fluidsynth)
  pkg_check_modules(XCB QUIET IMPORTED_TARGET xcb)
else()
  message(STATUS "pkg-config is missing (package pkgconf): SDL 2, SDL2_mixer and FluidSynth cannot be found")
endif()
if(NOT Qt6Widgets_FOUND)
  message(STATUS "The desktop program is left out: Qt 6 Widgets is missing (package qt6-base-dev)")
  return()
elseif(NOT SDL2_FOUND)
  message(STATUS "The desktop program is left out: SDL 2 is missing (package libsdl2-dev)")
  return()
elseif(NOT TARGET tarnveil_command_line)
  return()
endif()

set(desktop ${CMAKE_CURRENT_SOURCE_DIR}/src/host/desktop)
if(SDL2_MIXER_FOUND AND FLUIDSYNTH_FOUND)
  set(audio ${desktop}/audio.cpp ${desktop}/effects.cpp ${desktop}/midi_piece.cpp ${desktop}/music_deck.cpp
      ${desktop}/synth.cpp)
  set(audio_libraries PkgConfig::SDL2_MIXER PkgConfig::FLUIDSYNTH)
else()
  message(STATUS "The desktop program is built without sound: SDL2_mixer or FluidSynth is missing "
                 "(packages libsdl2-mixer-dev, libfluidsynth-dev)")
  set(audio ${desktop}/audio_silent.cpp)
  set(audio_libraries)
endif()
if(XCB_FOUND)
  set(keys_down ${desktop}/keys_down_x11.cpp)
  set(keys_down_libraries PkgConfig::XCB)
else()
  message(STATUS "Under X the desktop program cannot ask which keys are down: XCB is missing (package libxcb1-dev)")
  set(keys_down ${desktop}/keys_down_unknown.cpp)
  set(keys_down_libraries)
endif()
add_library(tarnveil_desktop OBJECT
  ${desktop}/program_folder.cpp ${desktop}/desktop.cpp ${desktop}/look.cpp
  ${desktop}/placing.cpp ${desktop}/waiting.cpp ${desktop}/key_map.cpp ${desktop}/picture_view.cpp
  ${desktop}/scaling.cpp ${desktop}/change_watch.cpp ${desktop}/calm.cpp ${desktop}/showing.cpp ${desktop}/full_screen_bar.cpp
  ${desktop}/edge_drag.cpp ${desktop}/frame_hold.cpp ${desktop}/pause.cpp
  ${desktop}/menu_view.cpp ${desktop}/main_window.cpp ${desktop}/joysticks.cpp ${desktop}/form_widgets.cpp
  ${desktop}/form_window.cpp ${desktop}/window.cpp
  ${desktop}/clock.cpp ${desktop}/log.cpp ${TARNVEIL_POSIX_FILES} ${keys_down} ${audio})
file(CREATE_LINK ${CMAKE_SOURCE_DIR}/assets/data ${CMAKE_BINARY_DIR}/data SYMBOLIC) # found beside the program
target_link_libraries(tarnveil_desktop PUBLIC tarnveil_state Qt6::Widgets PkgConfig::SDL2 ${keys_down_libraries}
                      ${audio_libraries})

# The author's bench on the desktop: the one window that sees both the host and all floors.
file(GLOB bench_window CONFIGURE_DEPENDS src/bench_window/*.cpp)
add_headers(bench_window)
add_library(tarnveil_bench_window STATIC ${bench_window})
target_link_libraries(tarnveil_bench_window PUBLIC tarnveil_bench_window_headers tarnveil_game Qt6::Widgets
                      $<TARGET_PROPERTY:tarnveil_desktop,INTERFACE_LINK_LIBRARIES>)

# The list of runs, films of them and races, in the same way.
file(GLOB runs_window CONFIGURE_DEPENDS src/runs_window/*.cpp)
add_headers(runs_window)
add_library(tarnveil_runs_window STATIC ${runs_window})
target_link_libraries(tarnveil_runs_window PUBLIC tarnveil_runs_window_headers tarnveil_game Qt6::Widgets
                      $<TARGET_PROPERTY:tarnveil_desktop,INTERFACE_LINK_LIBRARIES>)

add_executable(tarnveil src/main.cpp src/options.cpp src/recorded_play.cpp)
target_link_libraries(tarnveil PRIVATE tarnveil_bench_window tarnveil_runs_window tarnveil_desktop tarnveil_game tarnveil_command_line)
add_papers(tarnveil 6 game)
set_source_files_properties(${desktop}/scaling.cpp PROPERTIES COMPILE_OPTIONS "$<$<NOT:$<CONFIG:Debug>>:-O3>")

# What showing a frame costs, against one copy of the bytes shown.
add_executable(show_benchmark EXCLUDE_FROM_ALL tools/show_benchmark.cpp)
target_link_libraries(show_benchmark PRIVATE tarnveil_desktop tarnveil_game)

# How steady the frames are on a screen, for minutes or hours.
if(TARGET tarnveil_command_line)
  add_executable(pace EXCLUDE_FROM_ALL tools/pace.cpp)
  target_link_libraries(pace PRIVATE tarnveil_desktop tarnveil_simulation tarnveil_command_line)
endif()
