# Run by CPack when the packages' trees are laid out: adds what Debian wants to find in each (copyright, changelog,
# overrides of lintian) and gives every file the date of the release, so that a second build makes the same bytes.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()

file(STRINGS ${CPACK_TARNVEIL_SOURCE}/CHANGELOG.md release REGEX "^## \\[${CPACK_PACKAGE_VERSION}\\] - ")
string(REGEX REPLACE ".* - " "" date "${release}")
if(NOT date MATCHES "^[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]$")
  message(FATAL_ERROR "CHANGELOG.md: no dated heading for version ${CPACK_PACKAGE_VERSION}")
endif()
execute_process(COMMAND env LC_ALL=C date -u -R -d ${date} OUTPUT_VARIABLE mail_date OUTPUT_STRIP_TRAILING_WHITESPACE)

foreach(component ${CPACK_COMPONENTS_ALL})
  string(TOUPPER ${component} upper)
  set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  set(tree ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share)
  file(COPY ${CPACK_TARNVEIL_SOURCE}/packaging/deb/copyright DESTINATION ${tree}/doc/${package})
  file(WRITE ${tree}/doc/${package}/changelog "${package} (${CPACK_PACKAGE_VERSION}) stable; urgency=medium

  * Version ${CPACK_PACKAGE_VERSION}; CHANGELOG.md of the source tells what is new.

 -- ${CPACK_PACKAGE_CONTACT}  ${mail_date}
")
  execute_process(COMMAND gzip -9n ${tree}/doc/${package}/changelog)
  file(GLOB pages ${tree}/man/*/*)
  foreach(page ${pages})
    execute_process(COMMAND gzip -9n ${page})
  endforeach()
  set(overrides ${CPACK_TARNVEIL_SOURCE}/packaging/deb/${package}.lintian-overrides)
  if(EXISTS ${overrides})
    configure_file(${overrides} ${tree}/lintian/overrides/${package} COPYONLY)
  endif()
endforeach()
execute_process(COMMAND chmod -R u=rwX,go=rX ${CPACK_TEMPORARY_DIRECTORY})
execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch -h -d "${date} UTC" {} +)
