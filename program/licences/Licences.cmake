# Lays out the licences of what others have made, as the packages tell them that it is taken from. Static
# linking makes the toolkit and the compiler's runtime a part of the program for Windows.

# notices, package
set(notices
  pdfbox libpdfbox2-java
  fontbox libfontbox2-java
  commons-logging libcommons-logging-java
  qt qt6-base-dev
  qt-translations qt6-translations-l10n
  libchm libchm-dev)
if(WIN32)
  list(APPEND notices mingw-w64 mingw-w64-x86-64-dev gcc gcc-mingw-w64-base)
endif()
while(notices)
  list(POP_FRONT notices name package)
  lay_out(/usr/share/doc/${package}/copyright licences/${name}.txt)
endwhile()

# The texts that the notices name as the machine's own.
foreach(licence Apache-2.0 GPL-2 GPL-3 LGPL-2.1 LGPL-3)
  lay_out(/usr/share/common-licenses/${licence} licences/${licence}.txt)
endforeach()
lay_out(${CMAKE_CURRENT_LIST_DIR}/README.txt licences/README.txt)
