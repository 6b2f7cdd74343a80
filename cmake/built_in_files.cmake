# Files that are part of a program: an assembler file with their bytes and a table of their names.
enable_language(ASM)

# Around the bytes of one file. WebAssembly's assembler wants to know of every symbol what it is and how long.
if(EMSCRIPTEN)
  set(TARNVEIL_BYTES [[
.section .rodata.@symbol@,"",@
.type @symbol@,@object
.type @symbol@_end,@object
.globl @symbol@, @symbol@_end
@symbol@:
.incbin "@path@"
.size @symbol@, .-@symbol@
@symbol@_end:
.byte 0
.size @symbol@_end, 1
]])
else()
  set(TARNVEIL_BYTES [[
.section .rodata
.global @symbol@, @symbol@_end
@symbol@:
.incbin "@path@"
@symbol@_end:
.byte 0
.section .note.GNU-stack,"",@progbits
]])
endif()

# built_in_files(NAME FILE...): FILEs are paths below assets/. Writes NAME.S, which is to be compiled, and NAME.inc, the
# rows {name, begin, end} that end with an empty name, both into TARNVEIL_BUILT_IN_INCLUDE.
set(TARNVEIL_BUILT_IN_INCLUDE ${CMAKE_CURRENT_BINARY_DIR}/built_in)
function(built_in_files list)
  set(declarations "")
  set(entries "")
  set(bytes "")
  set(paths "")
  set(number 0)
  foreach(name ${ARGN})
    set(path ${CMAKE_SOURCE_DIR}/assets/${name})
    set(symbol ${list}_${number})
    list(APPEND paths ${path})
    string(CONFIGURE "${TARNVEIL_BYTES}" file_bytes @ONLY)
    string(APPEND bytes "${file_bytes}")
    string(APPEND declarations "extern \"C\" const std::uint8_t ${symbol}[], ${symbol}_end[];\n")
    string(APPEND entries "    {\"${name}\", ${symbol}, ${symbol}_end},\n")
    math(EXPR number "${number} + 1")
  endforeach()
  file(CONFIGURE OUTPUT ${TARNVEIL_BUILT_IN_INCLUDE}/${list}.S CONTENT "${bytes}" @ONLY)
  file(CONFIGURE OUTPUT ${TARNVEIL_BUILT_IN_INCLUDE}/${list}.inc
       CONTENT "${declarations}const Entry kBuiltInFiles[] = {\n${entries}    {\"\", nullptr, nullptr},\n};\n" @ONLY)
  set_source_files_properties(${TARNVEIL_BUILT_IN_INCLUDE}/${list}.S PROPERTIES OBJECT_DEPENDS "${paths}")
endfunction()

file(GLOB_RECURSE built_in RELATIVE ${CMAKE_CURRENT_SOURCE_DIR}/assets CONFIGURE_DEPENDS
     ${CMAKE_CURRENT_SOURCE_DIR}/assets/pictures/* ${CMAKE_CURRENT_SOURCE_DIR}/assets/fonts/*
     ${CMAKE_CURRENT_SOURCE_DIR}/assets/released/*.tables ${CMAKE_CURRENT_SOURCE_DIR}/assets/shipped_versions.txt)
built_in_files(built_in_files ${built_in})
