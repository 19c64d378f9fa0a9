# What `cmake --install` puts where: below the prefix in the GNU folders, on Windows in plain folders beside the programs.
# Manual pages and completions are installed where they are made (src/pages).
# Components: Programs, Desktop, Documentation, Samples, Licences.

if(WIN32)
  set(to_programs .)
  set(to_samples samples)
  set(to_manual manual)
  set(to_licences licences)
else()
  set(to_programs "${CMAKE_INSTALL_BINDIR}")
  set(to_samples "${CMAKE_INSTALL_DATADIR}/corvan/samples")
  set(to_manual "${CMAKE_INSTALL_DATAROOTDIR}/doc/corvan")
  set(to_licences "${to_manual}/licences")
endif()

install(TARGETS corvan-cli RUNTIME DESTINATION "${to_programs}" COMPONENT Programs)
if(CORVAN_WINDOW)
  install(TARGETS corvan RUNTIME DESTINATION "${to_programs}" COMPONENT Programs)
endif()

file(GLOB samples CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/samples/lagoon*")
install(FILES ${samples} DESTINATION "${to_samples}" COMPONENT Samples)
install(FILES docs/manual.md docs/formats.md docs/accuracy.md CHANGELOG.md DESTINATION "${to_manual}" COMPONENT Documentation)
file(GLOB figures CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/docs/images/*.png")
install(FILES ${figures} DESTINATION "${to_manual}/images" COMPONENT Documentation)
file(GLOB licences CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/packaging/licences/*.txt")
install(FILES ${licences} DESTINATION "${to_licences}" COMPONENT Licences)
install(FILES LICENSE DESTINATION "${to_licences}" RENAME Corvan.txt COMPONENT Licences)

if(WIN32)
  # Of what is linked in; dependencies.sh puts the texts of the libraries beside them.
  file(GLOB licences CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/packaging/windows/licences/*.txt" "${CORVAN_WINDOWS_QT}/prefix/licences/*.txt")
  install(FILES ${licences} DESTINATION "${to_licences}" COMPONENT Licences)
  return()
endif()

if(CORVAN_WINDOW)
  # The versions before this one stand in the list of changes.
  set(CORVAN_EARLIER "")
  file(STRINGS CHANGELOG.md headings REGEX "^## [0-9]")
  foreach(heading ${headings})
    if(heading MATCHES "^## ([0-9.]+)[^0-9]+([0-9]+-[0-9]+-[0-9]+)" AND NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
      string(APPEND CORVAN_EARLIER "\n    <release version=\"${CMAKE_MATCH_1}\" date=\"${CMAKE_MATCH_2}\" type=\"stable\"/>")
    endif()
  endforeach()
  configure_file(packaging/corvan.metainfo.xml.in invalid.corvan.corvan.metainfo.xml @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/invalid.corvan.corvan.metainfo.xml"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" COMPONENT Desktop)
  install(FILES packaging/corvan.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT Desktop)
  install(FILES packaging/corvan-mime.xml DESTINATION "${CMAKE_INSTALL_DATADIR}/mime/packages" RENAME corvan.xml COMPONENT Desktop)
  install(FILES packaging/corvan.svg DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" COMPONENT Desktop)
  foreach(size 16 22 24 32 48 64 128 256)
    install(FILES "packaging/icons/corvan-${size}.png" RENAME corvan.png
            DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps" COMPONENT Desktop)
  endforeach()
endif()
