# SPDX-License-Identifier: Apache-2.0
# The layering check must catch what it is there for: each tree below holds
# one include that breaks the layers, and the check refuses every one.
set(cases
  "core/model/Project.h:#include \"core/form/Session.h\""
  "core/inputfile/InputFile.h:#include \"core/benttable/BentEntry.h\""
  "core/form/Session.h:#include \"core/app/App.h\""
  "core/drawing/Scene.h:#include \"render/ScenePainter.h\""
  "core/run/Run.h:#include \"dgn/Reader.h\""
  "core/model/Numeric.h:#include <QString>"
  "cli/Replay.h:#include \"gui/MainWindow.h\""
  "core/model/Inputs.cpp:#include \"core/model/Fine.h\"")
set(root ${WORK_DIR}/layering-cases)
set(n 0)
foreach(case ${cases})
  string(FIND "${case}" ":" colon)
  string(SUBSTRING "${case}" 0 ${colon} file)
  math(EXPR from "${colon} + 1")
  string(SUBSTRING "${case}" ${from} -1 line)
  set(tree ${root}/${n})
  file(REMOVE_RECURSE ${tree})
  file(WRITE ${tree}/${file} "${line}\n")
  # A file that keeps the rules, beside it; and one that closes a loop with the case's file when it includes it.
  file(WRITE ${tree}/core/form/Fine.cpp "#include \"core/model/Project.h\"\n#include <vector>\n")
  file(WRITE ${tree}/core/model/Fine.h "#include \"core/model/Inputs.h\"\n")
  execute_process(COMMAND ${CMAKE_COMMAND} -DSRC=${tree} -P ${CMAKE_CURRENT_LIST_DIR}/CheckLayering.cmake
                  RESULT_VARIABLE rc OUTPUT_QUIET ERROR_QUIET)
  if(rc EQUAL 0)
    message(FATAL_ERROR "the layering check let this through: ${file}: ${line}")
  endif()
  math(EXPR n "${n} + 1")
endforeach()
# And the same tree without the broken include passes.
file(REMOVE_RECURSE ${root}/fine)
file(WRITE ${root}/fine/core/form/Fine.cpp "#include \"core/model/Project.h\"\n")
execute_process(COMMAND ${CMAKE_COMMAND} -DSRC=${root}/fine -P ${CMAKE_CURRENT_LIST_DIR}/CheckLayering.cmake
                RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "the layering check refused a tree that keeps the rules")
endif()
file(REMOVE_RECURSE ${root})
