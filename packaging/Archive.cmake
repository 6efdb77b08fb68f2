# What an archive for the players holds, made by cpack: one folder, with all that stands in the program
# folder after a build, but nothing that playing has left there.
set(folder falanges)
install(TARGETS falanges coordenadas RUNTIME DESTINATION ${folder})
install(DIRECTORY
  "${FALANGES_PROGRAM_FOLDER}/img"
  "${FALANGES_PROGRAM_FOLDER}/ico"
  "${FALANGES_PROGRAM_FOLDER}/translations"
  DESTINATION ${folder} OPTIONAL)
install(FILES MANUAL.md DESTINATION ${folder})
install(DIRECTORY docs/capturas DESTINATION ${folder}/docs OPTIONAL)

# Whoever packs has built the programs before; the tests are not needed for it.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
if(WIN32)
  # Qt is part of the program files there, and its licence has to come along.
  install(FILES /usr/share/doc/qt6-base-dev/copyright DESTINATION ${folder}/licencias RENAME qt6.txt)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME "Falanges-${PROJECT_VERSION}-win64")
else()
  install(PROGRAMS packaging/linux/menu.sh DESTINATION ${folder})
  set(CPACK_GENERATOR TGZ)
  set(CPACK_PACKAGE_FILE_NAME
    "Falanges-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR}")
endif()
include(CPack)
