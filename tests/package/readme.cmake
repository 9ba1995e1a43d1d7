# Every block that the README shows as a program or as its output must be just that.

file(READ ${SOURCE}/README.md readme)

function(must_show what text)
  string(FIND "${readme}" "${text}" position)
  if(position EQUAL -1)
    message(SEND_ERROR "the README does not show ${what}, which is:\n${text}")
  endif()
endfunction()

# print_of(VARIABLE COMMAND...): what the command prints in the checkout.
function(print_of variable)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${SOURCE} OUTPUT_VARIABLE output)
  set(${variable} "${output}" PARENT_SCOPE)
endfunction()

print_of(findings ${COMMAND} check examples/faulty.inp)
must_show("the findings" "$ ./scripts/run check examples/faulty.inp\n${findings}```\n")

file(READ ${SOURCE}/examples/ionize.cpp program)
must_show("the program" "```cpp\n${program}```\n")

print_of(ionized ${IONIZE} examples/water-mixed.inp)
must_show("what the program prints" "```\n${ionized}```\n")
