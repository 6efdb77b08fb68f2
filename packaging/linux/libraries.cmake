# Puts into FOLDER, the program's, the libraries and plugins of Qt that the program needs, with what they
# need themselves and the licences of all of them. To be included by the installation script, with FOLDER,
# PROGRAM and PLUGINS, the folder of the system's Qt plugins.
# Under Wayland, Qt frames windows only where it has a way to OpenGL, too.
set(plugins
  platforms/libqxcb.so
  platforms/libqwayland-generic.so
  wayland-shell-integration/libxdg-shell.so
  wayland-decoration-client/libbradient.so
  wayland-graphics-integration-client/libqt-plugin-wayland-egl.so
  platforminputcontexts/libcomposeplatforminputcontextplugin.so
  platforminputcontexts/libibusplatforminputcontextplugin.so
  imageformats/libqjpeg.so
  imageformats/libqico.so)
list(TRANSFORM plugins PREPEND "${PLUGINS}/" OUTPUT_VARIABLE modules)

# These stay the system's. The C library, and that of C++: the one of Debian 12 is as old as its C library,
# so it is nowhere missing where that is new enough, and an older one would break what the system's own
# libraries load. What speaks to X11, Wayland and D-Bus, and what finds and draws fonts, must match what
# runs and lies there. The four of OpenGL only pass calls on to a driver; they are carried, for desktops
# often lack libOpenGL, and they must match each other.
set(of_the_system
  "^ld-linux" "^lib(c|m|dl|rt|pthread|resolv)\\.so" "^lib(stdc\\+\\+|gcc_s|z)\\.so"
  "^lib(X11|X11-xcb|xcb|Xau|Xdmcp)\\.so" "^libwayland-client\\.so" "^libdbus-1\\.so"
  "^lib(fontconfig|freetype)\\.so")
file(GET_RUNTIME_DEPENDENCIES
  EXECUTABLES "${PROGRAM}"
  MODULES ${modules}
  PRE_EXCLUDE_REGEXES ${of_the_system}
  RESOLVED_DEPENDENCIES_VAR libraries)

# carry(FILE FOLDER): copies a file under the name by which it is asked for, and its package's licence.
function(carry file folder)
  cmake_path(GET file FILENAME name)
  file(REAL_PATH "${file}" real)
  file(MAKE_DIRECTORY "${folder}")
  file(COPY_FILE "${real}" "${folder}/${name}" ONLY_IF_DIFFERENT)
  cmake_path(GET real FILENAME name)
  execute_process(
    COMMAND dpkg-query --search "*-linux-gnu*/${name}"
    OUTPUT_VARIABLE owner
    COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE ":.*" "" package "${owner}")
  file(COPY_FILE "/usr/share/doc/${package}/copyright" "${FOLDER}/licencias/${package}.txt")
endfunction()

file(MAKE_DIRECTORY "${FOLDER}/licencias")
foreach(library IN LISTS libraries)
  carry("${library}" "${FOLDER}/lib")
endforeach()
foreach(plugin IN LISTS plugins)
  cmake_path(GET plugin PARENT_PATH kind)
  carry("${PLUGINS}/${plugin}" "${FOLDER}/plugins/${kind}")
endforeach()
file(WRITE "${FOLDER}/qt.conf" "[Paths]\nPrefix = .\n")
