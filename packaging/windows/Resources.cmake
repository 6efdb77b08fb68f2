# What a Windows program file carries beside its code.
include_guard(GLOBAL)

# add_windows_manifest(<target>): UTF-8 as its code page, the look of today, sharp on every screen.
function(add_windows_manifest target)
  set(manifest "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/falanges.manifest")
  set(resources "${CMAKE_CURRENT_BINARY_DIR}/${target}-manifest.rc")
  file(CONFIGURE OUTPUT "${resources}" CONTENT "1 24 \"@manifest@\"\n" @ONLY)
  set_source_files_properties("${resources}" PROPERTIES OBJECT_DEPENDS "${manifest}")
  target_sources(${target} PRIVATE "${resources}")
endfunction()

# add_windows_resources(<target> <description>): besides the manifest, the icon and the version;
# <description> is what the file's properties tell the player.
function(add_windows_resources target description)
  add_windows_manifest(${target})
  set(resources "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
  configure_file("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/program.rc.in" "${resources}" @ONLY)
  set_source_files_properties("${resources}" PROPERTIES
    OBJECT_DEPENDS "${FALANGES_PROGRAM_FOLDER}/ico/tiempo.ico")
  target_sources(${target} PRIVATE "${resources}")
endfunction()
