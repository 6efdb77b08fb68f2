# Makes a web page of the players' manual.
#   cmake -D MARKDOWN=... -D PAGE=... -P page.cmake
execute_process(
  COMMAND cmark-gfm --extension table "${MARKDOWN}"
  OUTPUT_VARIABLE BODY
  COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCH "<h1>([^<]*)</h1>" title "${BODY}")
set(TITLE "${CMAKE_MATCH_1}")
# The list of contents names each heading, and how its links are to lead there.
string(REGEX MATCHALL "<a href=\"#[^\"]*\">[^<]*</a>" links "${BODY}")
foreach(link IN LISTS links)
  string(REGEX MATCH "#([^\"]*)\">(.*)</a>" parts "${link}")
  string(REPLACE "<h2>${CMAKE_MATCH_2}</h2>"
    "<h2 id=\"${CMAKE_MATCH_1}\">${CMAKE_MATCH_2}</h2>" BODY "${BODY}")
endforeach()
# Nobody shall be led nowhere: neither to a heading nor to a picture or file that isn't there.
cmake_path(GET MARKDOWN PARENT_PATH folder)
string(REGEX MATCHALL "(href|src)=\"[^\"]*\"" leads "${BODY}")
foreach(lead IN LISTS leads)
  string(REGEX REPLACE ".*\"(.*)\"" "\\1" lead "${lead}")
  string(REGEX REPLACE "^#" "" heading "${lead}")
  string(FIND "${BODY}" "id=\"${heading}\"" place)
  if(place EQUAL -1 AND (lead MATCHES "^#" OR NOT EXISTS "${folder}/${lead}"))
    message(FATAL_ERROR "The manual leads to ${lead}, which isn't there")
  endif()
endforeach()
configure_file("${CMAKE_CURRENT_LIST_DIR}/page.html.in" "${PAGE}" @ONLY)
