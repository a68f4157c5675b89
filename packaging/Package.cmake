# SPDX-License-Identifier: Apache-2.0
# The Debian package: `cpack -G DEB` in the build folder makes
# tarnwick_<version>_<arch>.deb from what `cmake --install` lays out.
set(TARNWICK_MAINTAINER "Norvale Bridge Design Office <bridge.software@norvale.example>")

# Debian wants a copyright file and a compressed changelog in the package's
# documentation folder.
set(doc ${CMAKE_INSTALL_DATADIR}/doc/${PROJECT_NAME})
execute_process(COMMAND date -u -R -d "${TARNWICK_RELEASE_DATE} 12:00"
                OUTPUT_VARIABLE TARNWICK_RELEASE_DATE_RFC2822 OUTPUT_STRIP_TRAILING_WHITESPACE)
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog.in ${PROJECT_BINARY_DIR}/packaging/changelog @ONLY)
file(REMOVE ${PROJECT_BINARY_DIR}/packaging/changelog.gz)
execute_process(COMMAND gzip -9n ${PROJECT_BINARY_DIR}/packaging/changelog)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/copyright ${PROJECT_BINARY_DIR}/packaging/changelog.gz DESTINATION ${doc})

set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_VENDOR "Norvale Bridge Design Office")
set(CPACK_PACKAGE_CONTACT ${TARNWICK_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "input preparation for pile-bent detailing")
# The first line of the package's description is the summary above; CPack
# indents these lines and turns the empty one into a paragraph break.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Tarnwick prepares the input of pile-bent detailing for bridge engineers:
one set of bents (a reinforced-concrete cap on a row of piles) described on
a tabbed form, a table of up to 99 bents, saved as one fixed-column input
file. It runs the computation engine on the file, previews and prints the
engine's listings and opens its drawing.

A sample engine and drawing batch program come with it.")
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${TARNWICK_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries come from what the binaries link; the sample batch program
# runs GDAL's ogr2ogr. CPack's own scan of the libraries
# (CPACK_DEBIAN_PACKAGE_SHLIBDEPS) would also have the maintainer scripts call
# ldconfig, because our private libraries lie under /usr/lib (in
# /usr/lib/tarnwick, where ldconfig never looks): dpkg-shlibdeps runs on the
# installed binaries from packaging/DebDepends.cmake instead, when cpack does.
set(TARNWICK_RUN_DEPENDS "gdal-bin")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_PACKAGE_DEPENDS ${TARNWICK_RUN_DEPENDS})
file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/packaging/binaries.txt
     CONTENT "$<TARGET_FILE:tarnwick>;$<TARGET_FILE:tarnwick-dgn>;$<TARGET_FILE:calbnt>;$<TARGET_FILE:tarnwick-dgnbatch>")
configure_file(${CMAKE_CURRENT_LIST_DIR}/DebDepends.cmake.in ${PROJECT_BINARY_DIR}/packaging/DebDepends.cmake @ONLY)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_BINARY_DIR}/packaging/DebDepends.cmake)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_STRIP_FILES ON)
# Installed under /usr, with DESTDIR staging, so that the Ebent.ini written at
# install time names /usr/lib/tarnwick rather than CPack's staging folder.
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_SET_DESTDIR ON)
include(CPack)
