# The warnings that our own targets are built with.
add_library(kelp_warnings INTERFACE)
if(MSVC)
  target_compile_options(kelp_warnings INTERFACE /W4 /permissive- /utf-8)
  if(KELP_WARNINGS_AS_ERRORS)
    target_compile_options(kelp_warnings INTERFACE /WX)
  endif()
else()
  target_compile_options(kelp_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # It takes the concatenation of a literal and a string for overlapping copies at -O3.
    target_compile_options(kelp_warnings INTERFACE -Wno-restrict)
  endif()
  if(KELP_WARNINGS_AS_ERRORS)
    target_compile_options(kelp_warnings INTERFACE -Werror)
  endif()
endif()
