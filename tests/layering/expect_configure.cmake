# Configures tests/layering/violation with -DCASE=${CASE} and checks the outcome: EXPECT=fail
# wants a failed configuration whose output holds "Layering:" and ${NAMING}; EXPECT=pass wants
# a successful one.
set(dir ${BINARY_DIR}/layering_${CASE})
file(REMOVE_RECURSE ${dir})
execute_process(COMMAND ${CMAKE_COMMAND} -S ${ROOT}/tests/layering/violation -B ${dir}
                        -DTABULON_ROOT=${ROOT} -DCASE=${CASE}
                RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err TIMEOUT 60)
set(all "${out}${err}")
if(EXPECT STREQUAL "fail")
  if(result EQUAL 0)
    message(FATAL_ERROR "the ${CASE} case configured although it breaks the layering:\n${all}")
  endif()
  if(NOT all MATCHES "Layering:" OR NOT all MATCHES "${NAMING}")
    message(FATAL_ERROR "the ${CASE} case failed without naming the breach (${NAMING}):\n${all}")
  endif()
elseif(NOT result EQUAL 0)
  message(FATAL_ERROR "the ${CASE} case failed although it keeps the layering:\n${all}")
endif()
message(STATUS "${CASE}: as expected")
