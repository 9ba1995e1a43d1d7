# Installs the build, moves the prefix, and looks at what is in it.

set(first_prefix ${SCRATCH}/prefix)
file(REMOVE_RECURSE ${SCRATCH})
execute_process(
  COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${first_prefix} --strip
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${first_prefix} ${PREFIX})

file(GLOB_RECURSE installed RELATIVE ${PREFIX} ${PREFIX}/*)
list(JOIN installed "\n" listing)
message("${listing}")

foreach(wanted
    "include/kelp/input/bdf\\.hpp"
    "include/kelp/bdf\\.h"
    "lib.*/libkelp_bdf_inp\\.so\\.0\\.1\n"
    "lib.*/libkelp_bdf_inp\\.so\n"
    "lib.*/cmake/kelp_bdf_inp/kelp_bdf_inp-config\\.cmake"
    "lib.*/pkgconfig/kelp_bdf_inp\\.pc"
    "share/doc/kelp_bdf_inp/LICENSE"
    "share/doc/kelp_bdf_inp/THIRD-PARTY\\.txt"
    "share/doc/kelp_bdf_inp/README\\.md"
    "share/doc/kelp_bdf_inp/docs/windows\\.md"
    "share/doc/kelp_bdf_inp/examples/faulty\\.inp"
    "share/man/man1/kelp-bdf\\.1"
    "share/bash-completion/completions/kelp-bdf\n"
    "share/zsh/site-functions/_kelp-bdf"
    "share/fish/vendor_completions\\.d/kelp-bdf\\.fish"
    "share/kelp/docs/findings\\.md"
    "share/kelp/editors/vim/syntax/bdf\\.vim"
    "share/kelp/schemas/input/bdf\\.yaml"
    "share/kelp/schemas/input/bdf-knowledge\\.yaml"
    "share/kelp/schemas/output/findings\\.schema\\.json")
  if(NOT "${listing}\n" MATCHES "${wanted}")
    message(SEND_ERROR "not installed: ${wanted}")
  endif()
endforeach()

# A program that was linked with 0.1 must not load 0.2.
file(GLOB_RECURSE library ${PREFIX}/*/libkelp_bdf_inp.so)
execute_process(COMMAND ${READELF} -d ${library} OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
if(NOT dynamic MATCHES "SONAME[^\n]*\\[libkelp_bdf_inp\\.so\\.0\\.1\\]")
  message(SEND_ERROR "the library is known by another name than libkelp_bdf_inp.so.0.1:\n${dynamic}")
endif()

# The core is a part of the shared library and nobody else's business.
if(listing MATCHES "kelp/core|kelp_core")
  message(SEND_ERROR "the core was installed")
endif()

foreach(folder ${BUILD} ${SOURCE} ${first_prefix})
  execute_process(COMMAND grep -rlF ${folder} ${PREFIX} OUTPUT_VARIABLE naming)
  if(naming)
    message(SEND_ERROR "${folder} is named in:\n${naming}")
  endif()
endforeach()

if(EXISTS ${PREFIX}/bin/kelp-bdf)
  execute_process(COMMAND ${PREFIX}/bin/kelp-bdf --version
    OUTPUT_VARIABLE version COMMAND_ERROR_IS_FATAL ANY)
  string(FIND "${version}" "${PREFIX}/share/kelp/schemas/input/bdf.yaml" position)
  if(position EQUAL -1)
    message(SEND_ERROR "the installed command has not found its own vocabulary:\n${version}")
  endif()
endif()
