# What an archive for the players holds, made by cpack: one folder, with all that stands in the program
# folder after a build, but nothing that playing has left there.
set(folder falanges)
install(DIRECTORY
  "${FALANGES_PROGRAM_FOLDER}/img"
  "${FALANGES_PROGRAM_FOLDER}/ico"
  "${FALANGES_PROGRAM_FOLDER}/translations"
  "${FALANGES_PROGRAM_FOLDER}/fonts"
  DESTINATION ${folder} OPTIONAL)
install(DIRECTORY docs/capturas DESTINATION ${folder}/docs OPTIONAL)
# The manual as a page, which any browser opens: its tool is needed by those who pack alone.
install(CODE "execute_process(
  COMMAND \"${CMAKE_COMMAND}\" -D \"MARKDOWN=${PROJECT_SOURCE_DIR}/MANUAL.md\"
          -D \"PAGE=${PROJECT_BINARY_DIR}/Manual.html\"
          -P \"${PROJECT_SOURCE_DIR}/packaging/manual/page.cmake\"
  COMMAND_ERROR_IS_FATAL ANY)")
install(FILES "${PROJECT_BINARY_DIR}/Manual.html" DESTINATION ${folder})

# Whoever packs has built the programs before; the tests are not needed for it.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_VERBATIM_VARIABLES ON)
if(WIN32)
  install(TARGETS falanges coordenadas RUNTIME DESTINATION ${folder})
  # Qt is part of the program files there, and its licence has to come along.
  install(FILES /usr/share/doc/qt6-base-dev/copyright DESTINATION ${folder}/licencias RENAME qt6.txt)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME "Falanges-${PROJECT_VERSION}-win64")
else()
  # The system's Qt, as src/ has found it.
  foreach(part PREFIX PLUGINS)
    get_directory_property(qt_${part} DIRECTORY src DEFINITION QT6_INSTALL_${part})
  endforeach()
  add_executable(starter EXCLUDE_FROM_ALL packaging/linux/starter.cpp)
  target_link_libraries(starter PRIVATE falanges_settings)
  set_target_properties(starter PROPERTIES COMPILE_WARNING_AS_ERROR ON)
  target_compile_options(starter PRIVATE -fno-pie)
  target_link_options(starter PRIVATE -static -no-pie -s)
  install(PROGRAMS "$<TARGET_FILE:starter>" DESTINATION ${folder} RENAME falanges)
  install(PROGRAMS "$<TARGET_FILE:falanges>" DESTINATION ${folder} RENAME falanges.bin)
  install(PROGRAMS "$<TARGET_FILE:coordenadas>" packaging/linux/menu.sh DESTINATION ${folder})
  install(PROGRAMS packaging/linux/check.sh DESTINATION ${folder}/lib)
  install(CODE "
    set(FOLDER \"\${CMAKE_INSTALL_PREFIX}/${folder}\")
    set(PROGRAM \"$<TARGET_FILE:falanges>\")
    set(PLUGINS \"${qt_PREFIX}/${qt_PLUGINS}\")
    include(\"${PROJECT_SOURCE_DIR}/packaging/linux/libraries.cmake\")")
  set(CPACK_GENERATOR TGZ)
  set(CPACK_PACKAGE_FILE_NAME
    "Falanges-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR}")
endif()
include(CPack)
