# SPDX-License-Identifier: Apache-2.0
# tw_temp_dir(VAR PREFIX): a fresh folder under $TMPDIR (or /tmp) whose path
# holds no ".", since Run cuts file names at the first "." of the whole path.
function(tw_temp_dir var prefix)
  set(base /tmp)
  if(DEFINED ENV{TMPDIR} AND NOT "$ENV{TMPDIR}" STREQUAL "" AND NOT "$ENV{TMPDIR}" MATCHES "\\.")
    set(base $ENV{TMPDIR})
  endif()
  execute_process(COMMAND mktemp -d ${base}/${prefix}-XXXXXX
                  OUTPUT_VARIABLE dir OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0 OR dir STREQUAL "")
    message(FATAL_ERROR "cannot make a temporary folder under ${base}")
  endif()
  set(${var} ${dir} PARENT_SCOPE)
endfunction()
