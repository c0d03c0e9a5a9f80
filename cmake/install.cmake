# What is installed, in four components: runtime (the library), development (headers and what finds
# the library), toolkit (the C++ library above it) and tools (the command). All of it can be moved to
# another place as a whole.
include(CMakePackageConfigHelpers)

set(rosetag_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/rosetag)
set(rosetag_pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(ROSETAG_ZSH_DIR ${CMAKE_INSTALL_DATADIR}/zsh/site-functions CACHE STRING
    "Where zsh looks for completions")

install(TARGETS rosetag EXPORT rosetag
    RUNTIME COMPONENT runtime
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development
    FILE_SET HEADERS COMPONENT development)
install(EXPORT rosetag NAMESPACE rosetag:: FILE rosetag-targets.cmake
    DESTINATION ${rosetag_cmake_dir} COMPONENT development)

install(TARGETS rosetag_toolkit EXPORT rosetag-toolkit
    ARCHIVE COMPONENT toolkit
    FILE_SET HEADERS COMPONENT toolkit)
install(EXPORT rosetag-toolkit NAMESPACE rosetag:: FILE rosetag-toolkit-targets.cmake
    DESTINATION ${rosetag_cmake_dir} COMPONENT toolkit)

if(TARGET rosetag_lists)
    install(TARGETS rosetag_lists EXPORT rosetag-lists ARCHIVE COMPONENT toolkit)
    install(EXPORT rosetag-lists NAMESPACE rosetag:: FILE rosetag-lists-targets.cmake
        DESTINATION ${rosetag_cmake_dir} COMPONENT toolkit)
endif()

write_basic_package_version_file(${PROJECT_BINARY_DIR}/rosetag-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/rosetag-config-version.cmake
    ${PROJECT_SOURCE_DIR}/cmake/rosetag-config.cmake
    DESTINATION ${rosetag_cmake_dir} COMPONENT development)

# pkg-config leaves out the system's own folders where it can see that they are: a package of the
# system names them, and every other installation is found relative to its file.
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(rosetag_pc_prefix /usr)
else()
    file(RELATIVE_PATH rosetag_pc_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
        ${CMAKE_INSTALL_PREFIX})
    string(REGEX REPLACE "/$" "" rosetag_pc_prefix "\${pcfiledir}/${rosetag_pc_prefix}")
endif()
foreach(name rosetag rosetag-toolkit rosetag-lists)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${name}.pc @ONLY)
endforeach()
install(FILES ${PROJECT_BINARY_DIR}/rosetag.pc DESTINATION ${rosetag_pc_dir} COMPONENT development)
install(FILES ${PROJECT_BINARY_DIR}/rosetag-toolkit.pc
    $<$<TARGET_EXISTS:rosetag_lists>:${PROJECT_BINARY_DIR}/rosetag-lists.pc>
    DESTINATION ${rosetag_pc_dir} COMPONENT toolkit)

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)

if(TARGET rosetag_command)
    install(TARGETS rosetag_command RUNTIME COMPONENT tools)
    if(rosetag_pages_dir)
        install(FILES ${rosetag_pages_dir}/rosetag.1
            DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
        install(FILES ${rosetag_pages_dir}/rosetag
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tools)
        install(FILES ${rosetag_pages_dir}/_rosetag
            DESTINATION ${ROSETAG_ZSH_DIR} COMPONENT tools)
        install(FILES ${rosetag_pages_dir}/rosetag.fish
            DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT tools)
    endif()

    # What the packages are made of, as a list for programs (SPDX).
    file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md rosetag_release_date LIMIT_COUNT 1
        REGEX "^## \\[${PROJECT_VERSION}\\] - ")
    string(REGEX REPLACE ".* - " "" rosetag_release_date "${rosetag_release_date}")
    configure_file(${PROJECT_SOURCE_DIR}/cmake/rosetag.spdx.json.in rosetag.spdx.json @ONLY)
endif()
