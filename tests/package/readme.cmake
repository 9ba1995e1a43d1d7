# What the README shows as a program or as its output must be just that.

file(READ ${SOURCE}/README.md readme)
set(ENV{LC_ALL} C)

# must_show(WHAT TEXT): the text stands in the README and ends where the block ends, or where the
# next command begins.
function(must_show what text)
  string(FIND "${readme}" "\n${text}```\n" at_the_end)
  string(FIND "${readme}" "\n${text}$ " before_another)
  if(at_the_end EQUAL -1 AND before_another EQUAL -1)
    message(SEND_ERROR "the README does not show ${what}, which is:\n${text}")
  endif()
endfunction()

# print_of(VARIABLE COMMAND...): what the command prints in the checkout.
function(print_of variable)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${SOURCE} OUTPUT_VARIABLE output)
  if(output STREQUAL "")
    message(SEND_ERROR "nothing is printed by: ${ARGN}")
  endif()
  set(${variable} "${output}" PARENT_SCOPE)
endfunction()

string(REGEX MATCHALL "\n[$] ./scripts/run [^\n]+" shown "${readme}")
list(LENGTH shown number)
if(number LESS 3)
  message(SEND_ERROR "the README shows the command only ${number} times")
endif()
foreach(line IN LISTS shown)
  string(REGEX REPLACE "^\n[$] ./scripts/run " "" arguments "${line}")
  separate_arguments(argument_list UNIX_COMMAND "${arguments}")
  print_of(output ${COMMAND} ${argument_list})
  must_show("what 'kelp-bdf ${arguments}' prints" "$ ./scripts/run ${arguments}\n${output}")
endforeach()

file(READ ${SOURCE}/examples/ionize.cpp program)
must_show("the program" "${program}")

print_of(ionized ${IONIZE} examples/water-mixed.inp)
must_show("what the program prints" "${ionized}")
