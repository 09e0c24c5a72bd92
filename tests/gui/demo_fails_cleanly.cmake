# Runs the demo on a list it cannot show (a database it cannot read, a form it cannot open) and
# checks that it ends in time, with a non-zero exit code, the expected message on standard error,
# and no screenshot. ARGS are the demo's arguments, separated by "|".
#   cmake -DDEMO=<tabulon_demo> -DARGS=<a|b|...> -DSCREENSHOT=<png> -DMESSAGE=<text> -P demo_fails_cleanly.cmake
foreach(var DEMO ARGS SCREENSHOT MESSAGE)
  if(NOT DEFINED ${var})
    message(FATAL_ERROR "${var} is not set")
  endif()
endforeach()
file(REMOVE ${SCREENSHOT})
string(REPLACE "|" ";" arguments "${ARGS}")

execute_process(COMMAND ${DEMO} ${arguments} --screenshot ${SCREENSHOT}
                TIMEOUT 30
                RESULT_VARIABLE result
                OUTPUT_VARIABLE out
                ERROR_VARIABLE err)
message(STATUS "exit: ${result}\nstdout: ${out}\nstderr: ${err}")

if(NOT result MATCHES "^[0-9]+$")
  message(FATAL_ERROR "the demo did not end by itself within 30 s: ${result}")
endif()
if(result EQUAL 0)
  message(FATAL_ERROR "the demo exited with 0 on a list it cannot show")
endif()
string(FIND "${err}" "${MESSAGE}" at)
if(at EQUAL -1)
  message(FATAL_ERROR "standard error does not say \"${MESSAGE}\"")
endif()
if(EXISTS ${SCREENSHOT})
  message(FATAL_ERROR "a screenshot was written although the list could not be read")
endif()
