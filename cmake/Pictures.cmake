# Renders the pictures of the game from their vector sources in img/ and ico/.
#
#   render_pictures(<target> <output folder>)
#
# makes the target <target>, a part of "all", that writes these files, each one only when its
# source has changed:
#
#   <output folder>/img/NxN.jpg         the boards 5x5, 6x6, 7x7, 8x8: 394, 472, 551, 630 pixels
#   <output folder>/img/TYPE_jP.jpg     the units ban, inf, cab, ele, gen of players 1 and 2: 62 pixels
#   <output folder>/img/...@2x.jpg      each of these pictures at twice its size
#   <output folder>/img/...@3x.jpg      and at three times
#   <output folder>/ico/tiempo.ico      the icon of the main window, 16 to 256 pixels
#   <output folder>/ico/adelante.ico    the icon of its child windows, likewise
#   <output folder>/ico/tiempo.png      the main icon at 256 pixels, for the menu of the desktop

function(_find_picture_tool variable package program)
  find_program(${variable} NAMES ${program} ${ARGN})
  if(NOT ${variable})
    message(FATAL_ERROR
      "${program}, which renders the pictures, is missing: install the package ${package}.")
  endif()
endfunction()

# Adds the JPEG files STEM.jpg, STEM@2x.jpg and STEM@3x.jpg of "source" to the list "outputs".
# Further arguments go to rsvg-convert. The colours are not subsampled: the edges of red and blue
# would blur.
function(_render_jpegs outputs stem source quality)
  cmake_path(GET stem PARENT_PATH folder)
  foreach(scale 1 2 3)
    set(output ${stem}.jpg)
    if(scale GREATER 1)
      set(output ${stem}@${scale}x.jpg)
    endif()
    cmake_path(GET output FILENAME name)
    set(drawing ${CMAKE_CURRENT_BINARY_DIR}/pictures/${name}.png)
    add_custom_command(
      OUTPUT ${output}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
      COMMAND ${RSVG_CONVERT} --zoom ${scale} ${ARGN} --output ${drawing} ${source}
      COMMAND ${IMAGEMAGICK_CONVERT} ${drawing} -background white -alpha remove -alpha off -strip
              -sampling-factor 4:4:4 -quality ${quality} ${output}
      COMMAND ${CMAKE_COMMAND} -E rm ${drawing}
      DEPENDS ${source} ${CMAKE_CURRENT_FUNCTION_LIST_FILE}
      COMMENT "Rendering ${name}"
      VERBATIM)
    list(APPEND ${outputs} ${output})
  endforeach()
  set(${outputs} ${${outputs}} PARENT_SCOPE)
endfunction()

function(_render_icon output source)
  cmake_path(GET output PARENT_PATH folder)
  cmake_path(GET output FILENAME name)
  set(drawings "")
  set(commands "")
  foreach(pixels 16 24 32 48 64 128 256)
    set(drawing ${CMAKE_CURRENT_BINARY_DIR}/pictures/${name}.${pixels}.png)
    list(APPEND drawings ${drawing})
    list(APPEND commands COMMAND ${RSVG_CONVERT} --width ${pixels} --height ${pixels}
                                 --output ${drawing} ${source})
  endforeach()
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    ${commands}
    COMMAND ${IMAGEMAGICK_CONVERT} ${drawings} -strip ${output}
    COMMAND ${CMAKE_COMMAND} -E rm ${drawings}
    DEPENDS ${source} ${CMAKE_CURRENT_FUNCTION_LIST_FILE}
    COMMENT "Rendering ${name}"
    VERBATIM)
endfunction()

function(render_pictures target output_folder)
  _find_picture_tool(RSVG_CONVERT librsvg2-bin rsvg-convert)
  _find_picture_tool(IMAGEMAGICK_CONVERT imagemagick convert-im6.q16 magick)
  cmake_path(SET sources NORMALIZE ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/..)
  set(pictures "")

  # A board's side is its number of squares times 78 2/3 pixels, rounded up.
  # From SmallestBoard to LargestBoard in src/model/principal.h.
  foreach(squares RANGE 5 8)
    set(name ${squares}x${squares})
    math(EXPR BOARD_PIXELS "(${squares} * 236 + 2) / 3")
    set(board ${CMAKE_CURRENT_BINARY_DIR}/pictures/${name}.svg)
    configure_file(${sources}/img/board.svg.in ${board} @ONLY)
    _render_jpegs(pictures ${output_folder}/img/${name} ${board} 86)
  endforeach()

  foreach(type ban inf cab ele gen)
    foreach(player 1 2)
      set(name ${type}_j${player})
      _render_jpegs(pictures ${output_folder}/img/${name} ${sources}/img/units.svg 95
                    --export-id ${name})
    endforeach()
  endforeach()

  foreach(icon tiempo adelante)
    set(output ${output_folder}/ico/${icon}.ico)
    _render_icon(${output} ${sources}/ico/${icon}.svg)
    list(APPEND pictures ${output})
  endforeach()

  set(icon ${output_folder}/ico/tiempo.png)
  add_custom_command(
    OUTPUT ${icon}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${output_folder}/ico
    COMMAND ${RSVG_CONVERT} --width 256 --height 256 --output ${icon} ${sources}/ico/tiempo.svg
    DEPENDS ${sources}/ico/tiempo.svg ${CMAKE_CURRENT_FUNCTION_LIST_FILE}
    COMMENT "Rendering tiempo.png"
    VERBATIM)
  list(APPEND pictures ${icon})

  add_custom_target(${target} ALL DEPENDS ${pictures})
endfunction()
