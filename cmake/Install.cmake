# What goes where when the project is installed, and the Debian package of it.
include(GNUInstallDirs)

set(install_folder ${CMAKE_SOURCE_DIR}/Projects/ReferenceHost/install)
install(PROGRAMS $<TARGET_FILE:fretline-host> DESTINATION ${CMAKE_INSTALL_BINDIR} RENAME fretline)
install(TARGETS Fretline LIBRARY DESTINATION ${FRETLINE_PLUGIN_FOLDER})
install(FILES ${install_folder}/fretline.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME fretline)
install(FILES ${install_folder}/_fretline DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${install_folder}/fretline.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(FILES ${install_folder}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/fretline)

find_program(SCDOC scdoc)
if(SCDOC)
    add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/fretline.1
        COMMAND sh -c "\"$1\" <\"$2\" >\"$3\"" sh ${SCDOC} ${install_folder}/fretline.1.scd ${CMAKE_BINARY_DIR}/fretline.1
        DEPENDS ${install_folder}/fretline.1.scd VERBATIM)
    add_custom_target(man_page ALL DEPENDS ${CMAKE_BINARY_DIR}/fretline.1)
    install(FILES ${CMAKE_BINARY_DIR}/fretline.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
else()
    message(STATUS "scdoc is missing: the man page is not made")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME fretline)
set(CPACK_PACKAGE_CONTACT "Fretline <fretline@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "opens plain-text guitar and bass tabs as scores")
set(CPACK_PACKAGE_DESCRIPTION "The import plug-in for the notation host Notavera, and a program that opens tabs through it
and writes MusicXML, MIDI and other formats.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# It is run for pdf, svg and png alone, and is many times as large as all the rest.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS lilypond)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
