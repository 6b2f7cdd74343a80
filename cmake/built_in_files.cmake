# Makes every file under assets/pictures and assets/fonts part of the program: one assembler file with their bytes and a
# table of their names.
enable_language(ASM)
file(GLOB_RECURSE built_in RELATIVE ${CMAKE_CURRENT_SOURCE_DIR}/assets CONFIGURE_DEPENDS
     ${CMAKE_CURRENT_SOURCE_DIR}/assets/pictures/* ${CMAKE_CURRENT_SOURCE_DIR}/assets/fonts/*)
set(TARNVEIL_BUILT_IN_INCLUDE ${CMAKE_CURRENT_BINARY_DIR}/built_in)
set(TARNVEIL_BUILT_IN_SOURCES ${TARNVEIL_BUILT_IN_INCLUDE}/built_in_files.S)
set(declarations "")
set(entries "")
set(bytes ".section .rodata\n.section .note.GNU-stack,\"\",@progbits\n.section .rodata\n")
set(files "")
set(number 0)
foreach(name ${built_in})
  set(path ${CMAKE_CURRENT_SOURCE_DIR}/assets/${name})
  list(APPEND files ${path})
  string(APPEND declarations "extern \"C\" const std::uint8_t built_in_${number}[], built_in_${number}_end[];\n")
  string(APPEND entries "    {\"${name}\", built_in_${number}, built_in_${number}_end},\n")
  string(APPEND bytes ".global built_in_${number}, built_in_${number}_end\nbuilt_in_${number}:\n.incbin \"${path}\"\n"
                      "built_in_${number}_end:\n.byte 0\n")
  math(EXPR number "${number} + 1")
endforeach()
file(CONFIGURE OUTPUT ${TARNVEIL_BUILT_IN_SOURCES} CONTENT "${bytes}" @ONLY)
file(CONFIGURE OUTPUT ${TARNVEIL_BUILT_IN_INCLUDE}/built_in_files.inc
     CONTENT "${declarations}const Entry kBuiltInFiles[] = {\n${entries}    {\"\", nullptr, nullptr},\n};\n" @ONLY)
set_source_files_properties(${TARNVEIL_BUILT_IN_SOURCES} PROPERTIES OBJECT_DEPENDS "${files}")
