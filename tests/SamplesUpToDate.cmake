# SPDX-License-Identifier: Apache-2.0
# Every sample opens with its closing values up to date: a tab change after
# Open changes nothing, and the status bar has nothing to say of them.
#   TARNWICK, PROGRAM_DIR, SAMPLES (folder), WORK_DIR
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR}/xdg)
set(ENV{XDG_CONFIG_HOME} ${WORK_DIR}/xdg)
set(ENV{QT_QPA_PLATFORM} offscreen)
file(GLOB samples ${SAMPLES}/*.ebnt)
if(NOT samples)
  message(FATAL_ERROR "no samples in ${SAMPLES}")
endif()
foreach(sample ${samples})
  get_filename_component(name ${sample} NAME)
  file(WRITE ${WORK_DIR}/script.txt "file \"${sample}\"\nclick mnuOpen\ntab 1\ntab 0\nmodified\nstatus\n")
  execute_process(COMMAND ${TARNWICK} --program-dir ${PROGRAM_DIR} replay ${WORK_DIR}/script.txt
                  OUTPUT_VARIABLE out RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0 OR NOT out MATCHES "modified = 0\nstatus = \"${sample}\"\n")
    message(FATAL_ERROR "${name}: a tab change after Open changes the project or the status bar has a word:\n${out}")
  endif()
  execute_process(COMMAND ${TARNWICK} --program-dir ${PROGRAM_DIR} check ${sample} OUTPUT_VARIABLE out)
  if(out MATCHES "warning")
    message(FATAL_ERROR "${name}: check warns:\n${out}")
  endif()
endforeach()
