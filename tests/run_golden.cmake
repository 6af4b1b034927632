# Runs one golden script in a fresh folder and compares its output with the
# expected file beside it. Variables: FYTABLE, SCRIPT, WORKDIR.
get_filename_component(dir ${SCRIPT} DIRECTORY)
get_filename_component(name ${SCRIPT} NAME_WE)
file(REMOVE_RECURSE ${WORKDIR})
file(MAKE_DIRECTORY ${WORKDIR})
execute_process(COMMAND ${FYTABLE} script ${SCRIPT}
  WORKING_DIRECTORY ${WORKDIR}
  OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE rc)
file(WRITE ${WORKDIR}/actual.out "${out}")
set(expected_file ${dir}/${name}.out)
if(NOT EXISTS ${expected_file})
  message(FATAL_ERROR "missing ${expected_file}; actual output is in ${WORKDIR}/actual.out")
endif()
file(READ ${expected_file} expected)
if(NOT out STREQUAL expected)
  execute_process(COMMAND diff -u ${expected_file} ${WORKDIR}/actual.out)
  message(FATAL_ERROR "golden script ${name}: output differs (exit ${rc}) ${err}")
endif()
