# Where `cmake --install` puts what, and the packages that CPack makes of it.
#
# On Windows the program folder is the whole of it. Elsewhere the program goes to bin/, and what it reads,
# which nobody writes then, to share/dialwright/.

set(CPACK_PACKAGE_NAME dialwright)
set(CPACK_PACKAGE_VENDOR "Varlo Systems")
set(CPACK_PACKAGE_CONTACT "Varlo Systems <dialwright@varlosystems.com>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for the touch-tone keys of a voice-messaging server")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_VERBATIM_VARIABLES ON)

# What lies in a program folder, and not what a run of the program in the build folder has left there.
set(shipped FILES_MATCHING
  PATTERN "Blank_Map_Template*.htm" PATTERN "SubMsgPlay_*.cde" PATTERN "Dialwright*.dll"
  PATTERN "Dialwright*.chm" PATTERN "XMLShots/*.XML" PATTERN "PDFFoldoutBuilder/*.class"
  PATTERN "PDFFoldoutBuilder/*.jar" PATTERN "translations/*.qm"
  PATTERN "PDF" EXCLUDE PATTERN "Backup" EXCLUDE PATTERN "licences" EXCLUDE PATTERN "sample" EXCLUDE
  PATTERN "drive_?" EXCLUDE)

if(WIN32)
  install(TARGETS Dialwright RUNTIME DESTINATION .)
  install(DIRECTORY ${DIALWRIGHT_PROGRAM_DIR}/ DESTINATION . ${shipped})
  install(DIRECTORY ${DIALWRIGHT_PROGRAM_DIR}/licences DESTINATION .)
  if(TARGET dialwright-cli)
    install(TARGETS dialwright-cli RUNTIME DESTINATION .)
  endif()
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME Dialwright-windows)
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
  set(CPACK_PACKAGING_INSTALL_PREFIX /Dialwright)
  include(CPack)
  return()
endif()

include(GNUInstallDirs)
set(data ${CMAKE_INSTALL_DATADIR})
# The build folder calls the program as Windows does.
install(PROGRAMS $<TARGET_FILE:Dialwright> DESTINATION ${CMAKE_INSTALL_BINDIR} RENAME dialwright)
if(TARGET dialwright-cli)
  install(TARGETS dialwright-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
install(DIRECTORY ${DIALWRIGHT_PROGRAM_DIR}/ DESTINATION ${data}/dialwright ${shipped})
install(DIRECTORY ${DIALWRIGHT_PROGRAM_DIR}/sample DESTINATION ${data}/dialwright)

# The desktop's: menu entry, pictures in the sizes that desktops ask for, and what software centres show.
install(FILES package/dialwright.desktop DESTINATION ${data}/applications)
install(FILES package/dialwright.svg DESTINATION ${data}/icons/hicolor/scalable/apps)
find_program(DIALWRIGHT_CONVERT NAMES convert-im6.q16 convert REQUIRED)
set(icons)
foreach(side 16 22 24 32 48 64 128 256)
  set(icon ${CMAKE_BINARY_DIR}/icons/${side}.png)
  add_custom_command(
    OUTPUT ${icon}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/icons
    COMMAND ${DIALWRIGHT_CONVERT} "${PROJECT_SOURCE_DIR}/src/desktop/win32/Dialwright.ico[4]"
            -resize ${side}x${side} -depth 8 -strip ${icon}
    DEPENDS src/desktop/win32/Dialwright.ico
    VERBATIM)
  list(APPEND icons ${icon})
  install(FILES ${icon} DESTINATION ${data}/icons/hicolor/${side}x${side}/apps RENAME dialwright.png)
endforeach()
add_custom_target(icons ALL DEPENDS ${icons})

string(TIMESTAMP DIALWRIGHT_RELEASE_DATE "%Y-%m-%d" UTC)
string(TIMESTAMP DIALWRIGHT_RELEASE_MOMENT "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(made ${CMAKE_BINARY_DIR}/package)
foreach(name dialwright.metainfo.xml dialwright.1 dialwright-cli.1 changelog)
  configure_file(package/${name}.in ${made}/${name} @ONLY)
endforeach()
install(FILES ${made}/dialwright.metainfo.xml DESTINATION ${data}/metainfo)

# Manual pages and the list of changes lie compressed, without a time in them.
function(install_compressed source destination name)
  add_custom_command(
    OUTPUT ${made}/${name}.gz
    COMMAND gzip -9nc ${source} > ${made}/${name}.gz
    DEPENDS ${source})
  add_custom_target(compressed-${name} ALL DEPENDS ${made}/${name}.gz)
  install(FILES ${made}/${name}.gz DESTINATION ${destination})
endfunction()
install_compressed(${made}/dialwright.1 ${CMAKE_INSTALL_MANDIR}/man1 dialwright.1)
install_compressed(${made}/dialwright-cli.1 ${CMAKE_INSTALL_MANDIR}/man1 dialwright-cli.1)
install(FILES package/dialwright-cli.bash DESTINATION ${data}/bash-completion/completions
        RENAME dialwright-cli)
install_compressed(${made}/changelog ${data}/doc/dialwright changelog)
install(FILES package/copyright CHANGELOG.md DESTINATION ${data}/doc/dialwright)
install(DIRECTORY ${DIALWRIGHT_PROGRAM_DIR}/licences DESTINATION ${data}/doc/dialwright)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION comm)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "default-jre-headless (>= 2:1.11), xdg-utils")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Dialwright decides which touch-tone key does what in each menu of a custom
telephone conversation of a Merid or Merid Tessel voice-messaging server. It
works on a copy of the server: its exported registry and its script folder.")
include(CPack)
