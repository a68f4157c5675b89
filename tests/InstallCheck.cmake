# SPDX-License-Identifier: Apache-2.0
# Installs the build into a temporary prefix and uses the program from there.
#   BUILD_DIR, SOURCE_DIR   the trees nothing installed may name
#   CONFIG                  the build configuration to install
#   PROGRAM_SUBDIR          the program folder under the prefix (lib/tarnwick)
#   SAMPLE                  a project to check and run
#   SANITIZED               set for a sanitizer build
#   REQUIRE_VALIDATORS      fail when a validator is missing rather than skip it
# The temporary folder stays behind when a check fails.
include(${CMAKE_CURRENT_LIST_DIR}/TempDir.cmake)
tw_temp_dir(root tarnwick-install)
set(stage ${root}/stage)
set(work ${root}/work)
set(app example.norvale.Tarnwick)
set(programs ${stage}/${PROGRAM_SUBDIR})

function(fail what)
  message(FATAL_ERROR "${what} (staged install in ${root})")
endfunction()

set(config_args)
if(CONFIG)
  set(config_args --config ${CONFIG})
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${stage} --strip ${config_args}
                OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  fail("cmake --install failed: ${err}")
endif()

foreach(f bin/tarnwick ${PROGRAM_SUBDIR}/Ebent.ini ${PROGRAM_SUBDIR}/libcalbnt.so ${PROGRAM_SUBDIR}/tarnwick-dgnbatch
          ${PROGRAM_SUBDIR}/libtarnwick-dgn.so
          ${PROGRAM_SUBDIR}/tarnwick-help.html share/applications/${app}.desktop
          share/mime/packages/${app}.xml share/metainfo/${app}.metainfo.xml
          share/icons/hicolor/scalable/apps/${app}.svg share/man/man1/tarnwick.1.gz)
  if(NOT EXISTS ${stage}/${f})
    fail("${f} was not installed")
  endif()
endforeach()
foreach(size 16 22 24 32 48 64 128 256)
  if(NOT EXISTS ${stage}/share/icons/hicolor/${size}x${size}/apps/${app}.png)
    fail("no ${size}x${size} icon was installed")
  endif()
endforeach()

file(STRINGS ${programs}/Ebent.ini dgnbatch REGEX "^dgnbatch=")
if(NOT dgnbatch STREQUAL "dgnbatch=${programs}/tarnwick-dgnbatch")
  fail("the installed Ebent.ini does not name the installed batch program: ${dgnbatch}")
endif()

execute_process(COMMAND grep -rlF -e ${SOURCE_DIR} -e ${BUILD_DIR} ${stage}
                OUTPUT_VARIABLE named OUTPUT_STRIP_TRAILING_WHITESPACE)
if(SANITIZED)
  # The sanitizers write source locations into the code they add; such a
  # build is for testing only, so only its other files are held to the rule.
  string(REPLACE "\n" ";" named "${named}")
  foreach(f ${named})
    file(READ ${f} magic LIMIT 4 HEX)
    if(magic STREQUAL "7f454c46")
      list(REMOVE_ITEM named ${f})
    endif()
  endforeach()
endif()
if(named)
  fail("installed files name the source or build tree:\n${named}")
endif()

# The validators are optional on a developer's machine; CI has them.
function(find_validator var name)
  find_program(${var} ${name})
  if(NOT ${var} AND REQUIRE_VALIDATORS)
    fail("${name} is needed to check the installed files")
  endif()
  set(${var} ${${var}} PARENT_SCOPE)
endfunction()
find_validator(desktop_validate desktop-file-validate)
if(desktop_validate)
  execute_process(COMMAND ${desktop_validate} ${stage}/share/applications/${app}.desktop
                  OUTPUT_VARIABLE out ERROR_VARIABLE out RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0 OR out)
    fail("desktop-file-validate: ${out}")
  endif()
endif()
find_validator(appstreamcli appstreamcli)
if(appstreamcli)
  execute_process(COMMAND ${appstreamcli} validate --no-net ${stage}/share/metainfo/${app}.metainfo.xml
                  OUTPUT_VARIABLE out ERROR_VARIABLE out RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    fail("appstreamcli validate: ${out}")
  endif()
endif()
find_validator(update_mime update-mime-database)
if(update_mime)
  file(COPY ${stage}/share/mime/packages DESTINATION ${root}/mime)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env XDG_DATA_DIRS=${root} ${update_mime} ${root}/mime
                  OUTPUT_VARIABLE out ERROR_VARIABLE out RESULT_VARIABLE rc)
  file(STRINGS ${root}/mime/globs2 globs REGEX ":\\*\\.(ebnt|dgn)$")
  if(NOT rc EQUAL 0 OR out OR NOT globs MATCHES "application/x-tarnwick-ebnt:\\*\\.ebnt"
     OR NOT globs MATCHES "image/vnd\\.dgn:\\*\\.dgn")
    fail("update-mime-database: ${out} ${globs}")
  endif()
endif()

# The installed program finds its program folder by itself, without a display.
get_filename_component(name ${SAMPLE} NAME)
get_filename_component(base ${SAMPLE} NAME_WE)
file(COPY ${SAMPLE} DESTINATION ${work})
set(run_env ${CMAKE_COMMAND} -E env --unset=DISPLAY --unset=WAYLAND_DISPLAY --unset=QT_QPA_PLATFORM
            XDG_CONFIG_HOME=${root}/xdg)
execute_process(COMMAND ${run_env} ${stage}/bin/tarnwick check ${work}/${name}
                OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE rc)
if(NOT rc EQUAL 0 OR NOT out MATCHES ": ok \\(")
  fail("tarnwick check: ${rc} ${out} ${err}")
endif()
execute_process(COMMAND ${run_env} ${stage}/bin/tarnwick run ${work}/${name}
                WORKING_DIRECTORY ${work} OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE rc)
if(NOT rc EQUAL 0 OR NOT out MATCHES "The program has finished running")
  fail("tarnwick run: ${rc} ${out} ${err}")
endif()
string(FIND "${out}" "start \"${programs}/tarnwick-dgnbatch " started)
if(started EQUAL -1)
  fail("tarnwick run did not start the installed batch program: ${out}")
endif()
foreach(output ${base}.ebntc ${base}.equan ${base}e.dgn)
  if(NOT EXISTS ${work}/${output})
    fail("tarnwick run left no ${output}: ${out} ${err}")
  endif()
endforeach()
# The drawing it made opens with the installed drawing reader.
execute_process(COMMAND ${run_env} ${stage}/bin/tarnwick view ${work}/${base}e.dgn --export ${work}/drawing.svg
                OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE rc)
if(NOT rc EQUAL 0 OR NOT EXISTS ${work}/drawing.svg)
  fail("tarnwick view --export: ${rc} ${out} ${err}")
endif()

file(REMOVE_RECURSE ${root})
