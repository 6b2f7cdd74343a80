# The desktop program. It needs Qt 6 Widgets, SDL 2, SDL2_mixer and FluidSynth; without one of them it is left out and
# everything else still builds.
find_package(Qt6 6.2 QUIET COMPONENTS Widgets)
find_package(PkgConfig QUIET)
set(missing "")
if(NOT Qt6Widgets_FOUND)
  list(APPEND missing "Qt 6 Widgets (qt6-base-dev)")
endif()
if(PkgConfig_FOUND)
  pkg_check_modules(SDL2 QUIET IMPORTED_TARGET sdl2)
  pkg_check_modules(SDL2_MIXER QUIET IMPORTED_TARGET SDL2_mixer)
  pkg_check_modules(FLUIDSYNTH QUIET IMPORTED_TARGET fluidsynth)
else()
  list(APPEND missing "pkg-config (pkgconf)")
endif()
foreach(library "SDL2:SDL 2 (libsdl2-dev)" "SDL2_MIXER:SDL2_mixer (libsdl2-mixer-dev)"
        "FLUIDSYNTH:FluidSynth (libfluidsynth-dev)")
  string(REGEX MATCH "^([^:]*):(.*)$" parts "${library}")
  if(NOT ${CMAKE_MATCH_1}_FOUND)
    list(APPEND missing "${CMAKE_MATCH_2}")
  endif()
endforeach()
if(missing)
  list(JOIN missing ", " missing)
  message(STATUS "The desktop program is left out. Missing: ${missing}")
  return()
endif()

set(desktop ${CMAKE_CURRENT_SOURCE_DIR}/src/host/desktop)
set(audio ${desktop}/audio_silent.cpp)
if(EXISTS ${desktop}/audio.cpp)
  set(audio ${desktop}/audio.cpp)
endif()
# Objects, not an archive: the game calls the host and the host calls the game.
add_library(tarnveil_desktop OBJECT
  ${desktop}/options.cpp ${desktop}/program_folder.cpp ${desktop}/desktop.cpp ${desktop}/look.cpp
  ${desktop}/placing.cpp ${desktop}/waiting.cpp ${desktop}/key_map.cpp ${desktop}/picture_view.cpp
  ${desktop}/menu_view.cpp ${desktop}/main_window.cpp ${desktop}/joysticks.cpp ${desktop}/form_widgets.cpp
  ${desktop}/form_window.cpp ${desktop}/window.cpp ${desktop}/clock.cpp ${desktop}/log.cpp ${audio})
set_source_files_properties(${desktop}/program_folder.cpp PROPERTIES COMPILE_DEFINITIONS
                            "TARNVEIL_SOURCE_DATA=\"${CMAKE_CURRENT_SOURCE_DIR}/assets/data\"")
target_link_libraries(tarnveil_desktop PUBLIC tarnveil_game Qt6::Widgets PkgConfig::SDL2 PkgConfig::SDL2_MIXER
                      PkgConfig::FLUIDSYNTH)

add_executable(tarnveil src/main.cpp)
target_link_libraries(tarnveil PRIVATE tarnveil_desktop)
target_compile_definitions(tarnveil PRIVATE TARNVEIL_VERSION="${PROJECT_VERSION}")

include(GNUInstallDirs)
install(TARGETS tarnveil RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
