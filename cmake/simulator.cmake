# The simulator and its pilots: the whole game on the scripted host.
add_library(tarnveil_simulation STATIC tools/fresh_program.cpp tools/simulation.cpp tools/renew.cpp tools/many_games.cpp tools/side_by_side.cpp tools/pilot.cpp
            tools/dodge_pilot.cpp tools/pilot_eyes.cpp)
target_include_directories(tarnveil_simulation PUBLIC tools)
target_link_libraries(tarnveil_simulation PUBLIC tarnveil_game)
if(NOT TARGET tarnveil_command_line)
  return()
endif()

find_package(nlohmann_json QUIET)
if(nlohmann_json_FOUND)
  add_executable(tarnveil-sim tools/tarnveil_sim.cpp tools/sim_options.cpp tools/report.cpp tools/report_json.cpp
                 tools/promises.cpp
                 tools/chart.cpp tools/sweep.cpp tools/summary.cpp tools/game_lines.cpp tools/progress.cpp
                 tools/verify_runs.cpp tools/verified_page.cpp)
  target_link_libraries(tarnveil-sim PRIVATE tarnveil_simulation tarnveil_headless tarnveil_command_line
                        nlohmann_json::nlohmann_json)
  add_papers(tarnveil-sim 1 tools)
else()
  message(STATUS "nlohmann-json is not installed: tarnveil-sim is left out")
endif()

# Whole games on hostile data.
add_executable(hostile_games EXCLUDE_FROM_ALL tools/hostile/hostile_games.cpp tools/hostile/hostile.cpp
               tools/hostile/hostile_folder.cpp)
target_link_libraries(hostile_games PRIVATE tarnveil_simulation tarnveil_headless tarnveil_command_line)
add_executable(hostile_digests EXCLUDE_FROM_ALL tools/hostile/hostile_digests.cpp tools/hostile/hostile.cpp
               tools/hostile/hostile_folder.cpp)
target_link_libraries(hostile_digests PRIVATE tarnveil_simulation tarnveil_headless)
if(BUILD_TESTING)
  set_target_properties(hostile_games PROPERTIES EXCLUDE_FROM_ALL OFF)
endif()

# What the heaviest frame costs. It is told of every transfer, and compared with QPainter where Qt is.
if(nlohmann_json_FOUND)
  find_package(Qt6 6.2 QUIET COMPONENTS Gui)
  add_executable(frame_benchmark tools/frame_benchmark.cpp tools/touched.cpp
                 tools/painter_$<IF:$<BOOL:${Qt6Gui_FOUND}>,qt,none>.cpp)
  target_link_libraries(frame_benchmark PRIVATE tarnveil_simulation tarnveil_headless tarnveil_command_line
                        nlohmann_json::nlohmann_json $<$<BOOL:${Qt6Gui_FOUND}>:Qt6::Gui>)
  target_link_options(frame_benchmark PRIVATE LINKER:--wrap=_Z6BitBltR7SurfaceiiiiRKS_ii8RasterOp
                      LINKER:--wrap=_Z10BlitSpriteR7SurfaceiiiiRKS_2AtS3_ LINKER:--wrap=_Z9SetPixelVR7Surfaceiij)
endif()

# How well enemy shots stand out for every kind of sight.
add_executable(contrast EXCLUDE_FROM_ALL tools/contrast.cpp)
target_link_libraries(contrast PRIVATE tarnveil_game tarnveil_headless tarnveil_command_line)
