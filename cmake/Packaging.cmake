# Installation and the Debian package (cpack -G DEB). Library dependencies are found by dpkg-shlibdeps from
# the installed binary, so the package asks for exactly the Qt and X11 libraries this build links.
if(APPLE)
    # On macOS the application bundle is the whole installation.
    install(TARGETS mivora BUNDLE DESTINATION .)
    return()
endif()

include(GNUInstallDirs)
install(TARGETS mivora RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${PROJECT_SOURCE_DIR}/data/mivora.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/data/mivora.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

set(CPACK_PACKAGE_NAME "mivora")
set(CPACK_PACKAGE_VENDOR "MivoraAI")
set(CPACK_PACKAGE_CONTACT "MivoraAI <support@mivora.ai>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Fixes, rewrites and translates the text selected in any application")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_DEBIAN_PACKAGE_SECTION "utils")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
include(CPack)
