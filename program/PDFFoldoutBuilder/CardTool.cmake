# Compiles the card tool into the folder from which the editor starts it.
#
# The editor's command line names two places, the folder and itext-1.3.jar in it. The classes go
# into the folder; the jar holds nothing but the names of the libraries that lie beside it.

find_package(Java 11 REQUIRED COMPONENTS Development)

set(CARD_TOOL_SOURCE ${CMAKE_CURRENT_LIST_DIR})
set(CARD_TOOL_DIR ${DIALWRIGHT_PROGRAM_DIR}/PDFFoldoutBuilder)
set(CARD_TOOL_BUILD ${CMAKE_BINARY_DIR}/card-tool) # never the program folder itself

set(CARD_TOOL_LINT -Xlint:all,-path)
if(CMAKE_COMPILE_WARNING_AS_ERROR)
  list(APPEND CARD_TOOL_LINT -Werror)
endif()

set(CARD_TOOL_JARS "")
foreach(library IN ITEMS pdfbox2 fontbox2 commons-logging)
  find_file(CARD_TOOL_${library}_JAR ${library}.jar PATHS /usr/share/java REQUIRED
    NO_CMAKE_FIND_ROOT_PATH)
  # Distributions link the plain name to the one with the version; what is laid out is the file.
  file(REAL_PATH ${CARD_TOOL_${library}_JAR} jar)
  lay_out(${jar} PDFFoldoutBuilder/${library}.jar)
  list(APPEND CARD_TOOL_JARS ${CARD_TOOL_DIR}/${library}.jar)
endforeach()

file(CONFIGURE OUTPUT ${CARD_TOOL_BUILD}/manifest.txt
  CONTENT "Class-Path: pdfbox2.jar fontbox2.jar commons-logging.jar\n")
add_custom_command(
  OUTPUT ${CARD_TOOL_DIR}/itext-1.3.jar
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CARD_TOOL_DIR}
  COMMAND ${Java_JAR_EXECUTABLE} --create --file=${CARD_TOOL_DIR}/itext-1.3.jar
          --manifest=${CARD_TOOL_BUILD}/manifest.txt
  DEPENDS ${CARD_TOOL_BUILD}/manifest.txt
  COMMENT "Laying out PDFFoldoutBuilder/itext-1.3.jar"
  VERBATIM)

# Classes are compiled apart and copied whole, so that a class that is no more does not stay behind
# in what is compiled against, and a failed compilation leaves the tool as it was.
#
# They are built for the oldest Java that is still kept up. The one that is started first is built
# for an older one, on which it says what is missing; a compiler may call that one obsolete.
set(CARD_TOOL_STARTER ${CARD_TOOL_SOURCE}/src/FBuilder.java)
file(GLOB CARD_TOOL_SOURCES CONFIGURE_DEPENDS ${CARD_TOOL_SOURCE}/src/*.java)
list(REMOVE_ITEM CARD_TOOL_SOURCES ${CARD_TOOL_STARTER})
add_custom_command(
  OUTPUT ${CARD_TOOL_DIR}/FBuilder.class
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${CARD_TOOL_BUILD}/classes
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 11 -encoding UTF-8 ${CARD_TOOL_LINT}
          -classpath ${CARD_TOOL_DIR}/itext-1.3.jar -d ${CARD_TOOL_BUILD}/classes ${CARD_TOOL_SOURCES}
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 8 -encoding UTF-8 ${CARD_TOOL_LINT} -Xlint:-options
          -classpath ${CARD_TOOL_BUILD}/classes -d ${CARD_TOOL_BUILD}/classes ${CARD_TOOL_STARTER}
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${CARD_TOOL_BUILD}/classes ${CARD_TOOL_DIR}
  COMMAND ${CMAKE_COMMAND} -E touch ${CARD_TOOL_DIR}/FBuilder.class
  DEPENDS ${CARD_TOOL_STARTER} ${CARD_TOOL_SOURCES} ${CARD_TOOL_DIR}/itext-1.3.jar ${CARD_TOOL_JARS}
  COMMENT "Compiling the card tool"
  VERBATIM)

list(APPEND LAID_OUT ${CARD_TOOL_DIR}/itext-1.3.jar ${CARD_TOOL_DIR}/FBuilder.class)
