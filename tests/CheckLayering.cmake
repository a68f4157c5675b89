# SPDX-License-Identifier: Apache-2.0
# The layers of the source tree point one way. Inside src/core: model, then
# inputfile, benttable and drawing (each on model alone), then form, then run
# and output, then app (the funnel and the history); a file includes only
# its own folder and the folders below it, and the files at the top of core
# (errors, ports, quoting) include nothing of core's folders. core includes
# nothing but the standard library; platform adds QtCore, render QtGui; cli
# never includes gui, and nothing but the window includes gui.
set(rank_model 0)
set(rank_inputfile 1)
set(rank_benttable 1)
set(rank_drawing 1)
set(rank_form 2)
set(rank_run 3)
set(rank_output 3)
set(rank_app 4)

set(failures "")
file(GLOB_RECURSE files ${SRC}/core/*.h ${SRC}/core/*.cpp)
foreach(f ${files})
  file(RELATIVE_PATH rel ${SRC}/core ${f})
  if(rel MATCHES "^([a-z]+)/")
    set(own ${CMAKE_MATCH_1})
    if(NOT DEFINED rank_${own})
      string(APPEND failures "${f}: the folder core/${own} has no place among the layers\n")
      continue()
    endif()
  else()
    set(own "")
  endif()
  file(STRINGS ${f} includes REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"]")
  foreach(inc ${includes})
    if(inc MATCHES "[<\"](Q[A-Za-z]*|qt|gdal|ogr|cpl_|platform/|render/|dgn/|gui/|cli/)")
      string(APPEND failures "${f} includes something outside the core: ${inc}\n")
    elseif(inc MATCHES "[<\"]core/([a-z]+)/")
      set(other ${CMAKE_MATCH_1})
      if(own STREQUAL "")
        string(APPEND failures "${f} (the top of core) includes a folder of core: ${inc}\n")
      elseif(NOT other STREQUAL own AND (NOT DEFINED rank_${other} OR NOT rank_${other} LESS rank_${own}))
        string(APPEND failures "${f} (core/${own}) includes upward or sideways: ${inc}\n")
      endif()
    endif()
  endforeach()
endforeach()

# The other layers: what each may not include.
foreach(pair "platform:gui/|cli/|render/|QtWidgets|QWidget" "render:gui/|cli/|QtWidgets|QWidget" "cli:gui/|QtWidgets|QWidget"
             "dgn:platform/|render/|gui/|cli/")
  string(REPLACE ":" ";" parts ${pair})
  list(GET parts 0 layer)
  list(GET parts 1 banned)
  file(GLOB_RECURSE files ${SRC}/${layer}/*.h ${SRC}/${layer}/*.cpp)
  foreach(f ${files})
    file(STRINGS ${f} includes REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"]")
    foreach(inc ${includes})
      if(inc MATCHES "[<\"](${banned})")
        string(APPEND failures "${f} (${layer}) includes ${inc}\n")
      endif()
    endforeach()
  endforeach()
endforeach()

if(failures)
  message(FATAL_ERROR "Includes that break the layers:\n${failures}")
endif()

# GDAL and its many libraries load only with the drawing reader, never at the
# start of the window or of a command.
if(EXE)
  execute_process(COMMAND readelf -d ${EXE} OUTPUT_VARIABLE dynamic RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "readelf -d ${EXE} failed")
  endif()
  if(dynamic MATCHES "NEEDED[^\n]*libgdal")
    message(FATAL_ERROR "${EXE} links GDAL itself instead of loading the drawing reader")
  endif()
endif()
