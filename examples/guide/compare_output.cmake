# Runs PROGRAM and fails unless it ends well and PAGE shows exactly what it printed.
execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE printed ERROR_VARIABLE complaints
                RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT complaints STREQUAL "" OR printed STREQUAL "")
  message(FATAL_ERROR "${PROGRAM} ended with ${status}:\n${printed}${complaints}")
endif()
file(READ ${PAGE} page)
string(FIND "${page}" "```text\n${printed}```\n" place)
if(place EQUAL -1)
  message(FATAL_ERROR "${PAGE} does not show what the program prints:\n${printed}")
endif()
