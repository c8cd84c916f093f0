# The Debian package of everything that is installed. `./dev package` makes it.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME company-information)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Company Information maintainers <maintainers@example.jp>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "company information of Japanese real-estate agencies")
set(CPACK_PACKAGE_DESCRIPTION
"The company-information program of a desktop suite for Japanese real-estate
agencies. It shows a company of the office's shared store on five input pages,
checks and stores it, and sends it to the suite's server.
.
orv-office creates and updates offices; orv_store maintains their store.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# libcurl and libpq are loaded at first use, which dpkg-shlibdeps cannot see.
set(CPACK_DEBIAN_PACKAGE_DEPENDS libcurl4)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-cjk, libpq5, qt6-translations-l10n")

# The changelog of the package refers to the program's own; its date is that of the last release.
file(STRINGS CHANGELOG.md released REGEX "^## \\[[0-9.]+\\] - ")
list(GET released 0 released)
string(REGEX REPLACE ".* - " "" released "${released}")
execute_process(COMMAND env LC_ALL=C date --utc --rfc-email --date ${released} OUTPUT_VARIABLE ORV_RELEASED
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
configure_file(packaging/changelog.in packaging/changelog @ONLY)
orv_install_packed(${CMAKE_BINARY_DIR}/packaging/changelog ${documents} changelog.Debian)

include(CPack)
