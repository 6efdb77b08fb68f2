# copy_qt_translation(<target> <folder>): makes <target>, which copies Qt's own Spanish texts (buttons of
# boxes, file dialogs) into <folder>. Without them the game runs and those few texts stay English.
function(copy_qt_translation target folder)
  # A Qt for another system often comes without translations: those of the build machine serve too.
  find_file(FALANGES_QTBASE_ES qtbase_es.qm
    PATHS
      "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_TRANSLATIONS}"
      "${QT_HOST_PATH}/share/qt6/translations"
      /usr/share/qt6/translations
    NO_DEFAULT_PATH
    NO_CMAKE_FIND_ROOT_PATH)
  if(NOT FALANGES_QTBASE_ES)
    message(STATUS "qtbase_es.qm not found: the buttons of Qt's own boxes stay English")
    add_custom_target(${target})
    return()
  endif()
  set(copy "${folder}/qtbase_es.qm")
  add_custom_command(
    OUTPUT "${copy}"
    COMMAND "${CMAKE_COMMAND}" -E copy "${FALANGES_QTBASE_ES}" "${copy}"
    DEPENDS "${FALANGES_QTBASE_ES}"
    VERBATIM)
  add_custom_target(${target} DEPENDS "${copy}")
endfunction()
