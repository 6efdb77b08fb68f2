# add_windows_resources(<target> <description>): gives the Windows program <target> its icon, its manifest
# and its version; <description> is what the file's properties tell the player.
function(add_windows_resources target description)
  set(resources "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
  configure_file("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/program.rc.in" "${resources}" @ONLY)
  set_source_files_properties("${resources}" PROPERTIES OBJECT_DEPENDS
    "${FALANGES_PROGRAM_FOLDER}/ico/tiempo.ico;${CMAKE_CURRENT_FUNCTION_LIST_DIR}/falanges.manifest")
  target_sources(${target} PRIVATE "${resources}")
endfunction()
