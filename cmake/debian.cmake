# The Debian packages: librosetag1 (component runtime), librosetag-dev, rosetag (tools).
set(rosetag_package_runtime librosetag${ROSETAG_SOVERSION})
set(rosetag_package_development librosetag-dev)
set(rosetag_package_tools rosetag)

set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md
    command/man/rosetag.1)

# The date of the release, in the form of Debian's changelogs, from the newest entry of ours.
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md release_line LIMIT_COUNT 1
    REGEX "^## \\[?${PROJECT_VERSION}\\]? - [0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]$")
if(NOT release_line MATCHES "([0-9-]+)$")
    message(FATAL_ERROR "CHANGELOG.md has no dated entry for ${PROJECT_VERSION}")
endif()
execute_process(COMMAND date -u -R -d ${CMAKE_MATCH_1}
    OUTPUT_VARIABLE rosetag_release_date OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
configure_file(${PROJECT_SOURCE_DIR}/cmake/debian/changelog.in changelog @ONLY)
execute_process(COMMAND gzip -9nf ${PROJECT_BINARY_DIR}/changelog COMMAND_ERROR_IS_FATAL ANY)

foreach(component runtime development tools)
    install(FILES ${PROJECT_BINARY_DIR}/changelog.gz ${PROJECT_SOURCE_DIR}/cmake/debian/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${rosetag_package_${component}}
        COMPONENT ${component})
endforeach()
# Debian wants its man pages compressed.
set(rosetag_man_page ${PROJECT_BINARY_DIR}/rosetag.1.gz)
execute_process(COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/command/man/rosetag.1
    OUTPUT_FILE ${rosetag_man_page} COMMAND_ERROR_IS_FATAL ANY)

set(rosetag_zsh_dir ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)

set(rosetag_description
    "Rosetag translates identifiers between element strings, barcode strings,
Digital Links, EPC URIs and the binary values of RFID tags.
")

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL runtime development tools)
set(CPACK_PACKAGE_CONTACT "the Rosetag authors <rosetag@rosetag.invalid>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${rosetag_package_runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/cmake/debian/symbols ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "translates GS1 and RFID identifiers (shared library)
${rosetag_description}
This package holds the library that programs are linked with.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${rosetag_package_development})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${rosetag_package_runtime} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "translates GS1 and RFID identifiers (development)
${rosetag_description}
This package holds the headers and what CMake and pkg-config need to find
the library.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${rosetag_package_tools})
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${rosetag_package_runtime} (>= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "translates GS1 and RFID identifiers (command)
${rosetag_description}
This package holds the command rosetag.")

include(CPack)
