# What is installed, in three components: runtime (the library), development (headers and what finds
# the library) and tools (the command). All of it can be moved to another place as a whole.
include(CMakePackageConfigHelpers)

set(rosetag_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/rosetag)
set(rosetag_pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS rosetag EXPORT rosetag
    RUNTIME COMPONENT runtime
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development
    FILE_SET HEADERS COMPONENT development)

# The library depends on nothing, so that its targets are its configuration.
install(EXPORT rosetag NAMESPACE rosetag:: FILE rosetag-config.cmake
    DESTINATION ${rosetag_cmake_dir} COMPONENT development)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/rosetag-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/rosetag-config-version.cmake
    DESTINATION ${rosetag_cmake_dir} COMPONENT development)

file(RELATIVE_PATH rosetag_pc_includedir
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_FULL_INCLUDEDIR})
configure_file(${PROJECT_SOURCE_DIR}/cmake/rosetag.pc.in rosetag.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/rosetag.pc DESTINATION ${rosetag_pc_dir} COMPONENT development)

if(ROSETAG_DEBIAN_PACKAGES)
    include(${PROJECT_SOURCE_DIR}/cmake/debian.cmake)
else()
    set(rosetag_man_page ${PROJECT_SOURCE_DIR}/command/man/rosetag.1)
    set(rosetag_zsh_dir ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE
        DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
endif()

if(TARGET rosetag_command)
    file(RELATIVE_PATH libdir_from_bindir
        ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(rosetag_command PROPERTIES
        INSTALL_RPATH "$ORIGIN/${libdir_from_bindir}")
    install(TARGETS rosetag_command RUNTIME COMPONENT tools)
    set(completions ${PROJECT_SOURCE_DIR}/command/completions)
    install(FILES ${rosetag_man_page}
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
    install(FILES ${completions}/rosetag
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tools)
    install(FILES ${completions}/_rosetag DESTINATION ${rosetag_zsh_dir} COMPONENT tools)
    install(FILES ${completions}/rosetag.fish
        DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT tools)
endif()
