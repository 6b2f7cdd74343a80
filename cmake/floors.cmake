# The floors of src/, from the ground up. Each is a library of its own that sees the headers of the floors below it and
# of no other: a folder of links per floor, on the include path of those that stand on it, holds just that floor. So an
# include that goes up does not compile. None of them has Qt or SDL on its include path.
set(TARNVEIL_FLOORS toolkit state platform stage combat editors shell author recording)

# add_headers(NAME): the target tarnveil_NAME_headers, through which src/NAME is found as "NAME/...".
function(add_headers name)
  set(links ${CMAKE_BINARY_DIR}/floors/${name}/src)
  file(MAKE_DIRECTORY ${links})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${name} ${links}/${name} SYMBOLIC)
  add_library(tarnveil_${name}_headers INTERFACE)
  target_include_directories(tarnveil_${name}_headers INTERFACE ${links})
endfunction()

add_headers(host)
set(below tarnveil_host_headers)
foreach(floor ${TARNVEIL_FLOORS})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${floor}/*.cpp)
  add_headers(${floor})
  add_library(tarnveil_${floor} STATIC ${sources})
  target_link_libraries(tarnveil_${floor} PUBLIC tarnveil_options tarnveil_${floor}_headers ${below})
  set(below tarnveil_${floor})
endforeach()

# All floors together, for what stands on top: programs, tools, tests.
add_library(tarnveil_game INTERFACE)
target_link_libraries(tarnveil_game INTERFACE ${below})

target_compile_definitions(tarnveil_recording PRIVATE TARNVEIL_VERSION="${PROJECT_VERSION}")
target_sources(tarnveil_toolkit PRIVATE ${TARNVEIL_BUILT_IN_INCLUDE}/built_in_files.S)
target_include_directories(tarnveil_toolkit PRIVATE ${TARNVEIL_BUILT_IN_INCLUDE})
# The row loops need the vectoriser; without it they take more than twice the time.
set_source_files_properties(src/toolkit/surface.cpp PROPERTIES COMPILE_OPTIONS "$<$<NOT:$<CONFIG:Debug>>:-O3>")

set(TARNVEIL_POSIX_FILES ${CMAKE_SOURCE_DIR}/src/host/posix_files.cpp ${CMAKE_SOURCE_DIR}/src/host/posix_staged_file.cpp
    ${CMAKE_SOURCE_DIR}/src/host/posix_file_sets.cpp ${CMAKE_SOURCE_DIR}/src/host/posix_journal.cpp)
# Hosts are objects, not archives: the game calls the host and the host the game. They see the two lowest floors only.
# Which host a program gets is decided by what it links.
add_library(tarnveil_headless OBJECT src/host/headless/headless.cpp ${TARNVEIL_POSIX_FILES})
target_link_libraries(tarnveil_headless PUBLIC tarnveil_state)
