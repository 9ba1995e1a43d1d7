# Makes a C locale with a decimal comma for tests, where the system has the tools and the sources;
# elsewhere the tests that need one take an installed one, or skip.

find_program(KELP_LOCALEDEF localedef)
mark_as_advanced(KELP_LOCALEDEF)

function(kelp_use_comma_locale target)
  set(folder ${CMAKE_BINARY_DIR}/locales)
  if(KELP_LOCALEDEF AND NOT WIN32 AND NOT EXISTS ${folder}/de_DE.UTF-8)
    file(MAKE_DIRECTORY ${folder})
    execute_process(COMMAND ${KELP_LOCALEDEF} --no-archive -i de_DE -f UTF-8 ${folder}/de_DE.UTF-8
      OUTPUT_QUIET ERROR_QUIET)
  endif()
  if(EXISTS ${folder}/de_DE.UTF-8)
    target_compile_definitions(${target} PRIVATE KELP_TEST_LOCALE_FOLDER="${folder}")
  endif()
endfunction()
