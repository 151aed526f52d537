# Lists the defined dynamic symbols of LIBRARY and compares them with the
# names in EXPECTED, one a line: any other export, or a missing one, fails.
# Usage: cmake -DLIBRARY=libqrlsl.so -DEXPECTED=expected_exports.txt -P check_exports.cmake
cmake_minimum_required(VERSION 3.16)
find_program(NM_TOOL NAMES nm)
if(NOT NM_TOOL)
  message(FATAL_ERROR "nm is needed to list the exports")
endif()
execute_process(COMMAND ${NM_TOOL} -D --defined-only ${LIBRARY}
  OUTPUT_VARIABLE listing RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "nm failed on ${LIBRARY}")
endif()

# Each line: address, type letter, name (with @version when versioned).
string(REPLACE "\n" ";" lines "${listing}")
set(exported)
foreach(line ${lines})
  if(line MATCHES "^[0-9a-fA-F]* +[A-Za-z] +([^@ ]+)")
    list(APPEND exported ${CMAKE_MATCH_1})
  endif()
endforeach()

file(STRINGS ${EXPECTED} expected)
set(failed OFF)
# Reports each name of `names` that `others` lacks.
function(report_absent names others what)
  foreach(name ${${names}})
    if(NOT name IN_LIST ${others})
      message(SEND_ERROR "${what}: ${name}")
      set(failed ON PARENT_SCOPE)
    endif()
  endforeach()
endfunction()
report_absent(exported expected "unexpected export")
report_absent(expected exported "missing export")
list(LENGTH exported count)
if(failed)
  message(FATAL_ERROR "${count} exports do not match ${EXPECTED}")
endif()
message(STATUS "${count} exports, as expected")
