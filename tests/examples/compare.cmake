# Runs a program and compares what it prints with a file, line ends aside.

cmake_minimum_required(VERSION 3.25)

unset(ENV{KELP_BDF_INP_SCHEMA_YAML})
string(REPLACE "|" ";" arguments "${START}|${ARGUMENTS}")
list(REMOVE_ITEM arguments "")
execute_process(COMMAND ${EMULATOR} ${PROGRAM} ${arguments}
  OUTPUT_VARIABLE printed ERROR_VARIABLE errors RESULT_VARIABLE status)
string(REPLACE "\r\n" "\n" printed "${printed}")
file(READ ${EXPECTED} expected)
if(NOT status EQUAL 0 OR NOT printed STREQUAL expected OR NOT errors STREQUAL "")
  message(FATAL_ERROR "status ${status}\n${errors}printed:\n${printed}expected:\n${expected}")
endif()
