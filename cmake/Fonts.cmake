# copy_fonts(<target> <folder>): makes <target>, which copies into <folder> the letters that the windows are
# drawn for, with their licence. A system that has them, or others of the same measures, uses its own.
function(copy_fonts target folder)
  set(copies "")
  foreach(name LiberationSans-Regular.ttf LiberationSans-Bold.ttf)
    find_file(FALANGES_${name} ${name}
      PATHS /usr/share/fonts/truetype/liberation /usr/share/fonts/truetype/liberation2
            /usr/share/fonts/liberation-sans /usr/share/fonts/liberation
      NO_DEFAULT_PATH
      NO_CMAKE_FIND_ROOT_PATH)
    if(NOT FALANGES_${name})
      message(STATUS "${name} not found: systems without it draw narrower letters of their own")
      continue()
    endif()
    add_custom_command(
      OUTPUT "${folder}/${name}"
      COMMAND "${CMAKE_COMMAND}" -E copy "${FALANGES_${name}}" "${folder}/${name}"
      DEPENDS "${FALANGES_${name}}"
      VERBATIM)
    list(APPEND copies "${folder}/${name}")
  endforeach()
  set(licence /usr/share/doc/fonts-liberation/copyright)
  if(copies AND EXISTS "${licence}")
    add_custom_command(
      OUTPUT "${folder}/licencia.txt"
      COMMAND "${CMAKE_COMMAND}" -E copy "${licence}" "${folder}/licencia.txt"
      DEPENDS "${licence}"
      VERBATIM)
    list(APPEND copies "${folder}/licencia.txt")
  endif()
  add_custom_target(${target} DEPENDS ${copies})
endfunction()
