# The files that `cmake --install` installs, and the Debian package (`cpack -G DEB`, scripts/package).
include(GNUInstallDirs)

install(TARGETS skyvert
  BUNDLE DESTINATION .
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

if(APPLE OR WIN32)
  # Copies Qt's libraries and plug-ins into the bundle or beside the program.
  qt_generate_deploy_app_script(TARGET skyvert FILENAME_VARIABLE deploy_script)
  install(SCRIPT ${deploy_script})
else()
  set(packaging ${PROJECT_SOURCE_DIR}/packaging)
  set(made ${PROJECT_BINARY_DIR}/packaging)
  execute_process(COMMAND env LC_ALL=C date --utc --date=${SKYVERT_DATE} --rfc-email
    OUTPUT_VARIABLE SKYVERT_MAIL_DATE OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  foreach(file IN ITEMS changelog skyvert.1 org.skyvert.Skyvert.metainfo.xml)
    configure_file(${packaging}/${file}.in ${made}/${file} @ONLY)
  endforeach()
  install(FILES ${packaging}/skyvert.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${made}/org.skyvert.Skyvert.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  install(FILES ${packaging}/skyvert.svg DESTINATION ${icons}/scalable/apps)
  foreach(size IN ITEMS 16 22 24 32 48 64 128 256 512)
    install(FILES ${packaging}/icons/skyvert-${size}.png
      DESTINATION ${icons}/${size}x${size}/apps RENAME skyvert.png)
  endforeach()

  # The documents keep their relative paths, so that the links between them work. Documents for
  # developers, and the README that links to them, are not installed.
  set(documents ${CMAKE_INSTALL_DATADIR}/doc/skyvert)
  foreach(file IN ITEMS changelog skyvert.1)
    execute_process(COMMAND gzip --best --no-name --stdout ${made}/${file}
      OUTPUT_FILE ${made}/${file}.gz COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
  install(FILES ${made}/skyvert.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${packaging}/copyright ${made}/changelog.gz ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    DESTINATION ${documents})
  install(FILES ${PROJECT_SOURCE_DIR}/docs/guide.md DESTINATION ${documents}/docs)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/screenshots DESTINATION ${documents}/docs)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${documents})
endif()

set(CPACK_PACKAGE_NAME skyvert)
set(CPACK_PACKAGE_VENDOR "The Skyvert developers")
set(CPACK_PACKAGE_CONTACT "The Skyvert developers <maintainers@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "convert lists of celestial positions")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
  "Skyvert takes positions on the sky, each a right ascension and a declination
in one of many notations, carries them from one epoch to another by
precession, and lists each beside its result in another notation.
.
Positions come from a text file or are typed one at a time, with a check at
every keystroke. The list is exported as a text file.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Without a font package every character is a box.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS fonts-dejavu-core)
include(CPack)
