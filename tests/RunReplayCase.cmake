# SPDX-License-Identifier: Apache-2.0
# Runs one replay case in a fresh work folder and compares what it prints.
#   CASE_DIR/script.txt     the script (run from a copy inside WORK_DIR), or
#   CASE_DIR/command.txt    the arguments of another command, one a line
#   CASE_DIR/script-2.txt   a second script, run after the first by a new program
#                           sharing its settings folder; its output follows
#   CASE_DIR/expected.txt   standard output, exactly
#   CASE_DIR/expected-warnings.txt   whole lines that standard error must hold
#   CASE_DIR/exit           the expected exit status (default 0)
#   CASE_DIR/program-dir    a folder under ENGINES_DIR to use as the program folder
#   CASE_DIR/files/         copied into WORK_DIR before the run
#   CASE_DIR/expected-files/NAME   WORK_DIR/NAME must hold these bytes afterwards
# Run cuts file names at the first "." of the whole path, so a WORK_DIR with a
# dot in its path gives way to a fresh temporary folder, removed when the case
# passes.
if(WORK_DIR MATCHES "\\.")
  include(${CMAKE_CURRENT_LIST_DIR}/TempDir.cmake)
  tw_temp_dir(WORK_DIR tarnwick-replay)
  set(temporary_work_dir ON)
endif()
if(EXISTS ${CASE_DIR}/program-dir)
  file(STRINGS ${CASE_DIR}/program-dir sub LIMIT_COUNT 1)
  set(PROGRAM_DIR ${ENGINES_DIR}/${sub})
endif()
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR}/xdg)
if(EXISTS ${CASE_DIR}/files)
  file(COPY ${CASE_DIR}/files/ DESTINATION ${WORK_DIR})
endif()
if(EXISTS ${CASE_DIR}/command.txt)
  file(STRINGS ${CASE_DIR}/command.txt args)
else()
  file(COPY ${CASE_DIR}/script.txt DESTINATION ${WORK_DIR})
  set(args replay ${WORK_DIR}/script.txt)
endif()
set(ENV{XDG_CONFIG_HOME} ${WORK_DIR}/xdg)
# No program the machine associates with drawings (or anything else) reaches a case.
file(MAKE_DIRECTORY ${WORK_DIR}/xdg-data ${WORK_DIR}/xdg-system)
set(ENV{XDG_DATA_HOME} ${WORK_DIR}/xdg-data)
set(ENV{XDG_DATA_DIRS} ${WORK_DIR}/xdg-system)
set(ENV{XDG_CONFIG_DIRS} ${WORK_DIR}/xdg-system)
set(ENV{QT_QPA_PLATFORM} offscreen)
execute_process(COMMAND ${TARNWICK} --program-dir ${PROGRAM_DIR} ${args}
                WORKING_DIRECTORY ${WORK_DIR}
                OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE rc)
if(EXISTS ${CASE_DIR}/script-2.txt AND rc EQUAL 0)
  file(COPY ${CASE_DIR}/script-2.txt DESTINATION ${WORK_DIR})
  execute_process(COMMAND ${TARNWICK} --program-dir ${PROGRAM_DIR} replay ${WORK_DIR}/script-2.txt
                  WORKING_DIRECTORY ${WORK_DIR}
                  OUTPUT_VARIABLE out2 ERROR_VARIABLE err2 RESULT_VARIABLE rc)
  string(APPEND out "${out2}")
  string(APPEND err "${err2}")
endif()
set(expected_rc 0)
if(EXISTS ${CASE_DIR}/exit)
  file(STRINGS ${CASE_DIR}/exit expected_rc LIMIT_COUNT 1)
endif()
# Paths in the output are written relative to the work folder.
string(REPLACE "${WORK_DIR}" "@WORK@" out "${out}")
string(REPLACE "${PROGRAM_DIR}" "@PROGRAM@" out "${out}")
file(WRITE ${WORK_DIR}/actual.txt "${out}")
file(READ ${CASE_DIR}/expected.txt expected)
if(NOT out STREQUAL expected)
  execute_process(COMMAND diff -u ${CASE_DIR}/expected.txt ${WORK_DIR}/actual.txt)
  message(FATAL_ERROR "output differs from ${CASE_DIR}/expected.txt (stderr: ${err}; work folder ${WORK_DIR})")
endif()
if(EXISTS ${CASE_DIR}/expected-warnings.txt)
  string(REPLACE "${WORK_DIR}" "@WORK@" err_paths "\n${err}")
  file(READ ${CASE_DIR}/expected-warnings.txt expected_warnings)
  string(FIND "${err_paths}" "\n${expected_warnings}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "standard error does not hold the lines of expected-warnings.txt: ${err}")
  endif()
endif()
if(NOT rc STREQUAL expected_rc)
  message(FATAL_ERROR "exit status ${rc}, expected ${expected_rc} (stderr: ${err})")
endif()
if(EXISTS ${CASE_DIR}/expected-files)
  file(GLOB_RECURSE wanted RELATIVE ${CASE_DIR}/expected-files ${CASE_DIR}/expected-files/*)
  foreach(f ${wanted})
    execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${CASE_DIR}/expected-files/${f} ${WORK_DIR}/${f}
                    RESULT_VARIABLE differ)
    if(differ)
      execute_process(COMMAND cmp ${CASE_DIR}/expected-files/${f} ${WORK_DIR}/${f})
      message(FATAL_ERROR "${f} differs from expected-files/${f}")
    endif()
  endforeach()
endif()
if(temporary_work_dir)
  file(REMOVE_RECURSE ${WORK_DIR})
endif()
