# Runs PROGRAM in the empty folder WORK: it has to succeed, and to write what stands in EXPECTED and nothing else.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
execute_process(COMMAND ${PROGRAM} WORKING_DIRECTORY ${WORK}
  RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
file(READ ${EXPECTED} expected)
if(NOT status STREQUAL "0" OR NOT errors STREQUAL "" OR NOT output STREQUAL expected)
  message(FATAL_ERROR "Status ${status}\n${errors}\nIt wrote:\n${output}\nand should:\n${expected}")
endif()
