# The Debian package (make package): everything the install rules put under /usr,
# with the library dependencies that dpkg-shlibdeps finds in the binaries.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME dorvano)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGE_CONTACT "Tormel <dorvano@tormel.de>")
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Katalog für eine private Sammlung von Video-Discs")
set(CPACK_PACKAGE_DESCRIPTION
    "DORVANO verwaltet eine private Filmsammlung als Baum aus Boxen, den DVDs\n\
darin und den Filmen auf jeder DVD, mit Suche, Vormerklisten, Tags, dem\n\
Austausch von Boxdateien, XML-Export, HTML-Übersicht und der Erkennung der\n\
eingelegten DVD. Das Desktop-Programm heißt dorvano, das\n\
Kommandozeilenprogramm dorvano-cli.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# libcurl is opened with dlopen on the first download, so no binary names it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libcurl4 | libcurl3-gnutls")
# xdg-open shows the finished HTML overview; the Qt translations put the file
# dialogs and key names of the desktop program into German.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_SOURCE_GENERATOR "")
include(CPack)
