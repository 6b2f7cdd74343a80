# The browser's programs, configured by emcmake: the game, and the judge, which plays recordings at full speed in a
# worker or in node.
set(web ${CMAKE_CURRENT_SOURCE_DIR}/src/host/web)
set(emscripten_options -fexceptions $<$<COMPILE_LANGUAGE:CXX>:-include${web}/old_libcxx.h>)
target_compile_options(tarnveil_options INTERFACE ${emscripten_options})
# The system's folder of headers is not the browser's: of it only stb is wanted.
find_path(STB_FOLDER stb/stb_image.h PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/headers)
file(CREATE_LINK ${STB_FOLDER}/stb ${CMAKE_BINARY_DIR}/headers/stb SYMBOLIC)
target_include_directories(tarnveil_toolkit SYSTEM PRIVATE ${CMAKE_BINARY_DIR}/headers)

# The shipped tables and waves are part of both programs; music comes as sound files.
file(GLOB shipped RELATIVE ${CMAKE_CURRENT_SOURCE_DIR}/assets CONFIGURE_DEPENDS
     ${CMAKE_CURRENT_SOURCE_DIR}/assets/data/*.DAT ${CMAKE_CURRENT_SOURCE_DIR}/assets/data/*.wav)
built_in_files(shipped_files ${shipped})
add_library(tarnveil_web_files OBJECT ${web}/files.cpp ${TARNVEIL_BUILT_IN_INCLUDE}/shipped_files.S)
target_link_libraries(tarnveil_web_files PUBLIC tarnveil_options tarnveil_host_headers)
target_include_directories(tarnveil_web_files PRIVATE ${TARNVEIL_BUILT_IN_INCLUDE})

set(module_options -fexceptions -O3 --bind -sMODULARIZE=1 -sEXPORT_ES6=1 -sFILESYSTEM=0 -sDYNAMIC_EXECUTION=0
    -sALLOW_MEMORY_GROWTH=1 -sASSERTIONS=0 -sENVIRONMENT=web,worker)

add_library(tarnveil_scripted OBJECT src/host/headless/headless.cpp)
target_link_libraries(tarnveil_scripted PUBLIC tarnveil_state)
add_executable(judge src/web_judge.cpp)
target_link_libraries(judge PRIVATE tarnveil_game tarnveil_scripted tarnveil_web_files)
target_link_options(judge PRIVATE ${module_options})
set_target_properties(judge PROPERTIES SUFFIX .mjs)

# The game waits in the middle of its loops: Asyncify takes its stack apart meanwhile and puts it together again.
add_executable(game src/web_main.cpp ${web}/audio.cpp ${web}/clock.cpp ${web}/form.cpp ${web}/menus.cpp ${web}/page.cpp
               ${web}/picture.cpp ${web}/window.cpp)
target_link_libraries(game PRIVATE tarnveil_game tarnveil_web_files)
target_link_options(game PRIVATE ${module_options} -sASYNCIFY=1 -sASYNCIFY_STACK_SIZE=16384)
set_target_properties(game PROPERTIES SUFFIX .mjs)

# Hostile games in node, whose fingerprints are compared with the native build's.
add_executable(hostile_digests EXCLUDE_FROM_ALL tools/hostile/hostile_digests.cpp tools/hostile/hostile.cpp
               tools/hostile/memory_folder.cpp tools/fresh_program.cpp)
target_include_directories(hostile_digests PRIVATE tools)
target_link_libraries(hostile_digests PRIVATE tarnveil_game tarnveil_scripted tarnveil_web_files)
target_link_options(hostile_digests PRIVATE -fexceptions -O3 -sALLOW_MEMORY_GROWTH=1 -sENVIRONMENT=node -sFILESYSTEM=0
                    -sEXIT_RUNTIME=1)
set_target_properties(hostile_digests PROPERTIES SUFFIX .cjs)
