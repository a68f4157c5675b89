# src/core may include the standard library and itself only.
file(GLOB_RECURSE files ${SRC}/core/*.h ${SRC}/core/*.cpp)
foreach(f ${files})
  file(STRINGS ${f} includes REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"]")
  foreach(inc ${includes})
    if(inc MATCHES "[<\"](Q[A-Za-z]*|qt|platform/|gui/|cli/)")
      message(FATAL_ERROR "${f} includes something outside the core: ${inc}")
    endif()
  endforeach()
endforeach()

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
