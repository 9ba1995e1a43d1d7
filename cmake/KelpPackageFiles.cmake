# Run by cpack before it packs: refuses to go on without the tools that packages need, for it would
# make some that depend on nothing; and puts what each kind of package must hold into its files.

# need_program(NAME PACKAGE): ends the work unless there is such a program.
function(need_program name package)
  find_program(program_${name} ${name})
  if(NOT program_${name})
    message(FATAL_ERROR "a package cannot be made without '${name}' (${package}): "
      "nothing would tell what it depends on")
  endif()
endfunction()

# compress(FILE RESULT): as gzip does it, without a time or a name.
function(compress file result)
  execute_process(COMMAND gzip -9nc ${file} OUTPUT_FILE ${result} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# debian_files(FOLDER PACKAGE): the texts that a package for Debian has in its folder of documents.
function(debian_files folder package)
  set(documents ${folder}/usr/share/doc/${package})
  file(COPY ${CPACK_KELP_SOURCE}/packaging/debian/copyright DESTINATION ${documents})
  compress(${CPACK_KELP_NOTICES} ${documents}/THIRD-PARTY.txt.gz)
  compress(${CPACK_KELP_SOURCE}/CHANGELOG.md ${documents}/changelog.gz)
  file(GLOB pages ${folder}/usr/share/man/man1/*.1)
  foreach(page IN LISTS pages)
    compress(${page} ${page}.gz)
    file(REMOVE ${page})
  endforeach()
endfunction()

function(rpm_files folder package)
  file(COPY ${CPACK_KELP_SOURCE}/LICENSE ${CPACK_KELP_NOTICES}
    DESTINATION ${folder}/usr/share/licenses/${package})
endfunction()

if(CPACK_GENERATOR STREQUAL "DEB")
  need_program(dpkg-shlibdeps dpkg-dev)
  need_program(file file)
elseif(CPACK_GENERATOR STREQUAL "RPM")
  need_program(rpmbuild rpm)
else()
  return()
endif()
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  # Each package has them where packages of its kind do.
  set(documents ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share/doc/kelp_bdf_inp)
  file(REMOVE ${documents}/LICENSE ${documents}/THIRD-PARTY.txt)
  string(TOUPPER ${component} name)
  set(folder ${CPACK_TEMPORARY_DIRECTORY}/${component})
  if(CPACK_GENERATOR STREQUAL "DEB")
    debian_files(${folder} ${CPACK_DEBIAN_${name}_PACKAGE_NAME})
  else()
    rpm_files(${folder} ${CPACK_RPM_${name}_PACKAGE_NAME})
  endif()
endforeach()
