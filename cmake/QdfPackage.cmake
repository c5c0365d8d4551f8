# Installation in the usual places and the Debian package: the programs, the module, the demo
# devices, the examples, a desktop entry with its icon and the manual page of qdf.
include(GNUInstallDirs)

set(QDF_SHARE_DIR ${CMAKE_INSTALL_DATADIR}/qdfsondra)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/devices DESTINATION ${QDF_SHARE_DIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${QDF_SHARE_DIR}/examples)
install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/qdf-frame.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/qdf-frame.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

# The manual page is made from the tool's own --help and --version.
find_program(HELP2MAN help2man)
if(HELP2MAN AND TARGET qdf)
  set(man ${CMAKE_BINARY_DIR}/qdf.1)
  add_custom_command(
    OUTPUT ${man}
    COMMAND ${HELP2MAN} --no-info --section=1 --name=flow\ configuration\ of\ QDF300\ transmitters
            --output=${man} $<TARGET_FILE:qdf>
    DEPENDS qdf
    COMMENT "Manual page of qdf")
  add_custom_target(qdf_manpage ALL DEPENDS ${man})
  install(FILES ${man} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qdfsondra)
set(CPACK_PACKAGE_VENDOR "QDFSondra")
set(CPACK_PACKAGE_CONTACT "QDFSondra maintainers <maintainers@qdfsondra.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Flow configuration wizard for QDF300 multivariable DP transmitters")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
       "Turns a primary device, a fluid and an operating range into the coefficients a QDF300\n"
       "transmitter needs for compensated mass or volume flow. Ships the reference frame\n"
       "(qdf-frame), the hostable wizard module and the qdf command line tool.")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
