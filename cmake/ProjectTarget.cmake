# What every target of the project has in common: warnings, sanitizers, include root. The presets for
# developers make errors of the warnings; a player's compiler may know warnings that nobody here has seen.
include_guard(GLOBAL)

add_library(falanges_settings INTERFACE)

target_include_directories(falanges_settings INTERFACE "${PROJECT_SOURCE_DIR}/src")

target_compile_options(falanges_settings INTERFACE
  -Wall
  -Wextra
  -Wpedantic
  -Wcast-align
  -Wconversion
  -Wdeprecated-copy-dtor
  -Wdouble-promotion
  -Wextra-semi
  -Wformat=2
  -Wmissing-declarations
  -Wnon-virtual-dtor
  -Wold-style-cast
  -Woverloaded-virtual
  -Wshadow
  -Wsign-conversion
  -Wundef
  -Wunused
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-branches>
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond>
  $<$<CXX_COMPILER_ID:GNU>:-Wlogical-op>
  $<$<CXX_COMPILER_ID:GNU>:-Wsuggest-override>
  # g++ 12 takes joined strings for overlapping copies when it optimises.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  # The same bytes come out wherever the sources lie.
  "-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.")

if(FALANGES_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # The sanitizers' own code makes g++ see uninitialised values where there are none.
  target_compile_options(falanges_settings INTERFACE
    ${sanitizers} $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_compile_definitions(falanges_settings INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(falanges_settings INTERFACE ${sanitizers})
endif()

# What only one system can do stands in files of its own.
if(WIN32)
  set(other_systems_files "_posix(_test)?\\.cpp$")
else()
  set(other_systems_files "_windows(_test)?\\.cpp$")
endif()

# Gives <target> the sources and headers below the folders that follow, each relative to the current
# folder. The headers are listed so that `all_verify_interface_header_sets` compiles each one alone.
function(add_folders target)
  foreach(folder IN LISTS ARGN)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${folder}/*.cpp")
    list(FILTER sources EXCLUDE REGEX "${other_systems_files}")
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS "${folder}/*.h")
    target_sources(${target} PRIVATE ${sources})
    target_sources(${target} PUBLIC FILE_SET HEADERS
      BASE_DIRS "${CMAKE_CURRENT_SOURCE_DIR}" FILES ${headers})
  endforeach()
  target_link_libraries(${target} PUBLIC falanges_settings)
  set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
endfunction()
