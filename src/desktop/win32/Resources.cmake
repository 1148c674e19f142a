# The program file's resources: icon, version and manifest.
enable_language(RC)

# The numbers that the about box shows.
file(STRINGS ${PROJECT_SOURCE_DIR}/src/shell/Program.h numbers REGEX " program(Major|Minor|Revision) = ")
string(REGEX MATCHALL "[0-9]+" numbers "${numbers}")
list(LENGTH numbers count)
if(NOT count EQUAL 3)
  message(FATAL_ERROR "Program.h does not tell the program's version")
endif()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS src/shell/Program.h)
list(JOIN numbers "," commas)
list(JOIN numbers "." points)

set(resources ${CMAKE_CURRENT_LIST_DIR}/Dialwright.rc)
target_sources(Dialwright PRIVATE ${resources})
set_source_files_properties(${resources} PROPERTIES
  COMPILE_DEFINITIONS "DIALWRIGHT_VERSION=${commas},0;DIALWRIGHT_VERSION_POINTS=${points}.0"
  OBJECT_DEPENDS "${CMAKE_CURRENT_LIST_DIR}/Dialwright.ico;${CMAKE_CURRENT_LIST_DIR}/Dialwright.manifest")
