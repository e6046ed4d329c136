# Installation and the Debian package. `cmake --install` lays out:
#   bin/tonewright, bin/tonewright-cli
#   share/tonewright/           skin/, helptopic/, the *.qm translations
#                               (start-up finds them from bin/ through ../share/tonewright)
#   share/applications/tonewright.desktop
#   share/metainfo/<id>.metainfo.xml   <id>: the maker's domain reversed, then "tonewright"
#   share/icons/hicolor/<size>/apps/tonewright.{png,svg}
# `make package` builds a .deb of the same tree with CPack; its dependencies
# are computed from the programs' libraries.
include(GNUInstallDirs)

set(TW_DATA_DIR ${CMAKE_INSTALL_DATADIR}/tonewright)
install(TARGETS tonewright tonewright-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/resources/skin ${CMAKE_SOURCE_DIR}/resources/helptopic
        DESTINATION ${TW_DATA_DIR})
install(FILES ${TW_QM_FILES} ${TW_QT_QM_FILES} DESTINATION ${TW_DATA_DIR})
install(FILES ${CMAKE_SOURCE_DIR}/dist/tonewright.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/dist/icons/hicolor DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)

# The AppStream id is reverse-DNS from the maker's domain: vandrel.example
# gives example.vandrel.tonewright. The checked-in file holds the default
# domain's values; another domain gets its own id and addresses.
string(REPLACE "." ";" TW_DOMAIN_PARTS "${TONEWRIGHT_DOMAIN}")
list(REVERSE TW_DOMAIN_PARTS)
list(JOIN TW_DOMAIN_PARTS "." TW_REVERSED_DOMAIN)
set(TW_APP_ID "${TW_REVERSED_DOMAIN}.tonewright")
set(TW_METAINFO_SOURCE ${CMAKE_SOURCE_DIR}/dist/example.vandrel.tonewright.metainfo.xml)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${TW_METAINFO_SOURCE})
file(READ ${TW_METAINFO_SOURCE} TW_METAINFO)
if(NOT TW_METAINFO MATCHES "<release version=\"${PROJECT_VERSION}\"")
  message(FATAL_ERROR "${TW_METAINFO_SOURCE} has no <release> for version ${PROJECT_VERSION}")
endif()
string(REPLACE "example.vandrel.tonewright" "${TW_APP_ID}" TW_METAINFO "${TW_METAINFO}")
string(REPLACE "vandrel.example" "${TONEWRIGHT_DOMAIN}" TW_METAINFO "${TW_METAINFO}")
set(TW_METAINFO_FILE ${CMAKE_BINARY_DIR}/dist/${TW_APP_ID}.metainfo.xml)
file(CONFIGURE OUTPUT ${TW_METAINFO_FILE} CONTENT "${TW_METAINFO}" @ONLY)
install(FILES ${TW_METAINFO_FILE} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# --- the Debian package -------------------------------------------------------
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tonewright)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR Vandrel)
set(CPACK_PACKAGE_CONTACT "Vandrel <support@${TONEWRIGHT_DOMAIN}>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "turns a song or a video into a phone ringtone")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "turns a song or a video into a phone ringtone\n Tonewright draws a song's waveform, lets you choose the part to keep, fade it\n in and out and change its volume, and writes an AAC ringtone (.m4r).\n tonewright-cli makes the same ringtones from a terminal.")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://www.${TONEWRIGHT_DOMAIN}/")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded as plugins, so no library dependency names them: the window
# system's platform plugins and the SVG image plugin (the icons).
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, libqt6svg6")
set(CPACK_STRIP_FILES ON)
include(CPack)
