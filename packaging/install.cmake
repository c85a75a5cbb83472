# What `cmake --install` places besides the programs, and the two Debian packages that CPack makes of
# it: the desktop program where the toolkit is, and the one without a window.

# Compressed without a time stamp, so that two builds give the same bytes.
function(install_gzipped source name destination component)
  set(compressed ${PROJECT_BINARY_DIR}/packaging/${component}/${name}.gz)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/packaging/${component})
  add_custom_command(OUTPUT ${compressed}
    COMMAND sh -c "gzip -9nc '${PROJECT_SOURCE_DIR}/${source}' > '${compressed}'"
    DEPENDS ${PROJECT_SOURCE_DIR}/${source} VERBATIM)
  string(MAKE_C_IDENTIFIER "gzip_${component}_${name}" target)
  add_custom_target(${target} ALL DEPENDS ${compressed})
  install(FILES ${compressed} DESTINATION ${destination} COMPONENT ${component})
endfunction()

# The manual page of a package and its folder of documents: what Debian wants there, the tutorial and
# the guide, which lead to each other, and their pictures.
function(install_documents package component)
  set(documents ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package})
  install_gzipped(packaging/${package}.1 ${package}.1 ${CMAKE_INSTALL_MANDIR}/man1 ${component})
  install_gzipped(packaging/debian/changelog changelog ${documents} ${component})
  install(FILES packaging/debian/copyright README.licences.txt CHANGELOG.md docs/tutorial.md
          docs/batch.md DESTINATION ${documents} COMPONENT ${component})
  install(DIRECTORY docs/pictures DESTINATION ${documents} COMPONENT ${component})
endfunction()

if(FOX_FOUND)
  set(icons ${PROJECT_SOURCE_DIR}/packaging/icons)
  foreach(size 16 24 32 48 64 128 256)
    install(FILES ${icons}/billiard-${size}.png RENAME billiard.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
            COMPONENT desktop)
  endforeach()
  install(FILES ${icons}/billiard.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT desktop)
  install(FILES packaging/org.iterra.Billiard.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT desktop)
  install(FILES packaging/org.iterra.Billiard.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT desktop)
  install_documents(billiard desktop)
  set(packages desktop batch)
else()
  set(packages batch)
endif()

# The completion of the command line, as the program itself tells it.
set(completion ${PROJECT_BINARY_DIR}/packaging/completion)
add_custom_command(OUTPUT ${completion}
  COMMAND sh -c "'$<TARGET_FILE:billiard-batch>' --bash-completion > '${completion}'"
  DEPENDS billiard-batch VERBATIM)
add_custom_target(bash_completion ALL DEPENDS ${completion})
install(FILES ${completion} RENAME billiard-batch
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT batch)
install_documents(billiard-batch batch)

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL ${packages})
set(CPACK_PACKAGE_NAME billiard)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Iterra developers <developers@iterra.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # it would stand above those of both packages
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME billiard)
set(CPACK_DEBIAN_DESKTOP_DESCRIPTION
    "explore two-dimensional dynamical billiards
A point particle moves freely inside a closed curve and is reflected
elastically at the boundary. This program shows regular and chaotic motion of
that kind live: in the Poincare section and as a path inside the curve, for
ellipses, ovals, the stadium, triangles and curves typed as a formula.")
# The toolkit needs one font at least.
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS "fonts-dejavu-core | fonts-freefont-ttf")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SUGGESTS billiard-batch)

set(CPACK_DEBIAN_BATCH_PACKAGE_NAME billiard-batch)
set(CPACK_DEBIAN_BATCH_DESCRIPTION
    "orbits and maps of dynamical billiards from the command line
A point particle moves freely inside a closed curve and is reflected
elastically at the boundary. This command writes such motion as rows of
numbers, without a display: orbits, Lyapunov exponents over the section as rows
or as a picture, the chaotic share over a parameter, and periodic points. Long
runs use all cores, can be cut into parts and go on after a stop.")
include(CPack)
