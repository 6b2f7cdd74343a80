# What the programs' command lines have in common, and the papers that are made of them.
find_package(CLI11 QUIET)
if(NOT CLI11_FOUND)
  message(STATUS "The programs are left out: CLI11 is missing (package libcli11-dev)")
  return()
endif()
include(GNUInstallDirs)
add_headers(command_line)
add_library(tarnveil_command_line STATIC src/command_line/command_line.cpp src/command_line/papers.cpp)
target_link_libraries(tarnveil_command_line PUBLIC tarnveil_options tarnveil_command_line_headers CLI11::CLI11)
target_compile_definitions(tarnveil_command_line PRIVATE TARNVEIL_VERSION="${PROJECT_VERSION}")

# add_papers(PROGRAM SECTION COMPONENT): installs PROGRAM, its man page and its bash completion. The program writes both;
# packaging/PROGRAM.man, where there is one, goes on after the page's exit status.
function(add_papers program section component)
  set(papers ${CMAKE_BINARY_DIR}/papers)
  set(page ${papers}/${program}.${section})
  set(rest ${CMAKE_SOURCE_DIR}/packaging/${program}.man)
  if(NOT EXISTS ${rest})
    set(rest)
  endif()
  file(MAKE_DIRECTORY ${papers}/completions)
  add_custom_command(OUTPUT ${page} ${papers}/completions/${program}
    COMMAND ${program} --man-page > ${page}.start
    COMMAND ${CMAKE_COMMAND} -E cat ${page}.start ${rest} > ${page}
    COMMAND ${program} --bash-completion > ${papers}/completions/${program}
    DEPENDS ${program} ${rest} VERBATIM)
  add_custom_target(${program}-papers ALL DEPENDS ${page} ${papers}/completions/${program})
  install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${component})
  install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section} COMPONENT ${component})
  install(FILES ${papers}/completions/${program} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
          COMPONENT ${component})
endfunction()
