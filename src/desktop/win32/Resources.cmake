# The program file's resources: icon, version and manifest.
enable_language(RC)

configure_file(${CMAKE_CURRENT_LIST_DIR}/Dialwright.manifest.in Dialwright.manifest @ONLY)

set(resources ${CMAKE_CURRENT_LIST_DIR}/Dialwright.rc)
target_sources(Dialwright PRIVATE ${resources})
set_source_files_properties(${resources} PROPERTIES
  COMPILE_DEFINITIONS "${DIALWRIGHT_VERSION_DEFINITIONS}"
  INCLUDE_DIRECTORIES ${CMAKE_CURRENT_BINARY_DIR}
  OBJECT_DEPENDS "${CMAKE_CURRENT_LIST_DIR}/Dialwright.ico;${CMAKE_CURRENT_BINARY_DIR}/Dialwright.manifest")
