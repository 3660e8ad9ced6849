# Fails when a file of src/ includes a header of a layer above its own, or of
# another folder of the same layer. Run as: cmake -DSOURCE_DIR=<repo> -P CheckLayers.cmake
#
# The layers, lowest first. Folders on one line share a layer and may not
# include each other. docs/ARCHITECTURE.md says what each one owns.
set(SCRIV_LAYERS
  "foundation"
  "htmldom"
  "model"
  "host"
  "uidesc"
  "desktop"
  "screenshots"
  "generation"
  "wizard"
  "server"
  "htmledit"
  "editor"
  "wordexport"
  "studio"
  "cli"
)

if(NOT SOURCE_DIR)
  message(FATAL_ERROR "CheckLayers: give -DSOURCE_DIR=<the repository>")
endif()

set(rank 0)
foreach(line ${SCRIV_LAYERS})
  string(REPLACE " " ";" folders "${line}")
  foreach(folder ${folders})
    set(rank_of_${folder} ${rank})
  endforeach()
  math(EXPR rank "${rank} + 1")
endforeach()

file(GLOB_RECURSE sources RELATIVE "${SOURCE_DIR}/src" "${SOURCE_DIR}/src/*.h" "${SOURCE_DIR}/src/*.cpp")
set(violations 0)
foreach(source ${sources})
  string(REGEX MATCH "^[^/]+" own "${source}")
  if(NOT DEFINED rank_of_${own})
    message(SEND_ERROR "src/${source}: the folder '${own}' has no layer; add it to cmake/CheckLayers.cmake")
    math(EXPR violations "${violations} + 1")
    continue()
  endif()
  file(STRINGS "${SOURCE_DIR}/src/${source}" includes REGEX "^[ \t]*#[ \t]*include[ \t]+\"[^\"/]+/")
  foreach(include ${includes})
    string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]+\"([^\"/]+)/.*$" "\\1" target "${include}")
    if(target STREQUAL own OR NOT DEFINED rank_of_${target})
      continue()
    endif()
    if(rank_of_${target} GREATER_EQUAL rank_of_${own})
      message(SEND_ERROR "src/${source}: '${include}' reaches from ${own} up to ${target}")
      math(EXPR violations "${violations} + 1")
    endif()
  endforeach()
endforeach()

if(violations GREATER 0)
  message(FATAL_ERROR "${violations} include(s) point upward; see docs/ARCHITECTURE.md")
endif()
list(LENGTH sources count)
message(STATUS "Layers hold: ${count} files of src/ include only from below")
