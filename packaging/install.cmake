# What `cmake --install` places besides the program, and the Debian package that CPack makes of it.
set(icons ${PROJECT_SOURCE_DIR}/packaging/icons)
foreach(size 16 24 32 48 64 128 256)
  install(FILES ${icons}/billiard-${size}.png RENAME billiard.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES ${icons}/billiard.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/org.iterra.Billiard.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/org.iterra.Billiard.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(documents ${CMAKE_INSTALL_DATAROOTDIR}/doc/billiard)

# Compressed without a time stamp, so that two builds give the same bytes.
function(install_gzipped source name destination)
  set(compressed ${PROJECT_BINARY_DIR}/packaging/${name}.gz)
  add_custom_command(OUTPUT ${compressed}
    COMMAND sh -c "gzip -9nc '${PROJECT_SOURCE_DIR}/${source}' > '${compressed}'"
    DEPENDS ${PROJECT_SOURCE_DIR}/${source} VERBATIM)
  string(MAKE_C_IDENTIFIER "gzip_${name}" target)
  add_custom_target(${target} ALL DEPENDS ${compressed})
  install(FILES ${compressed} DESTINATION ${destination})
endfunction()
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/packaging)
install_gzipped(packaging/billiard.1 billiard.1 ${CMAKE_INSTALL_MANDIR}/man1)
install_gzipped(packaging/debian/changelog changelog ${documents})
install(FILES packaging/debian/copyright README.licences.txt CHANGELOG.md docs/tutorial.md
        DESTINATION ${documents})
install(DIRECTORY docs/pictures DESTINATION ${documents})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME billiard)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Iterra developers <developers@iterra.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "explore two-dimensional dynamical billiards")
set(CPACK_PACKAGE_DESCRIPTION
    "A point particle moves freely inside a closed curve and is reflected
elastically at the boundary. This program shows regular and chaotic motion of
that kind live: in the Poincare section and as a path inside the curve, for
ellipses, ovals, the stadium, triangles and curves typed as a formula.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The toolkit needs one font at least.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core | fonts-freefont-ttf")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
