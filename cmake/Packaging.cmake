# `cpack -G DEB` in the build folder makes curvemill_<version>_<arch>.deb from the install rules
# (cmake/Install.cmake). The shared libraries it needs are found by dpkg-shlibdeps; what the
# program loads at run time without linking it is named here.
set(CPACK_PACKAGE_NAME curvemill)
set(CPACK_PACKAGE_VENDOR "The CurveMill developers")
set(CPACK_PACKAGE_CONTACT "CurveMill support <support@curvemill.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "plot and examine mathematical functions")
set(CPACK_PACKAGE_DESCRIPTION
    "CurveMill plots 2D functions with their derivative and integral, curves of equations in two\n\
variables and shaded 3D surfaces, computes integrals, values, slopes and extreme values, and\n\
remembers every formula in a history. curvemill-cli does the same from the command line.")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://www.curvemill.org/")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION math)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Plug-ins Qt loads by name: the help window's database driver, the SVG icon engine that draws
# the toolbar; the fonts the graphs are drawn with (metric-compatible stand-ins for the fonts the
# drawing is measured for).
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6sql6-sqlite, libqt6svg6, fonts-liberation")
# The browser for the product's web page is started through xdg-open.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, fonts-dejavu-core")

include(CPack)
