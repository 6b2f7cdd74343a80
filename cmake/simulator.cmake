# The simulator and its pilots: the whole game on the scripted host.
add_library(tarnveil_simulation STATIC tools/simulation.cpp tools/pilot.cpp)
target_include_directories(tarnveil_simulation PUBLIC tools)
target_link_libraries(tarnveil_simulation PUBLIC tarnveil_headless)
add_executable(tarnveil-sim tools/tarnveil_sim.cpp)
target_link_libraries(tarnveil-sim PRIVATE tarnveil_simulation)

# Whole games on hostile data.
add_executable(hostile_games EXCLUDE_FROM_ALL tools/hostile/hostile_games.cpp tools/hostile/hostile.cpp)
target_link_libraries(hostile_games PRIVATE tarnveil_headless)
if(BUILD_TESTING)
  set_target_properties(hostile_games PROPERTIES EXCLUDE_FROM_ALL OFF)
endif()

# What the heaviest frame costs, against one copy of its bytes.
find_package(benchmark QUIET)
if(benchmark_FOUND)
  add_executable(frame_benchmark tools/frame_benchmark.cpp)
  target_link_libraries(frame_benchmark PRIVATE tarnveil_headless benchmark::benchmark)
else()
  message(STATUS "Google Benchmark is not installed: frame_benchmark is left out")
endif()
