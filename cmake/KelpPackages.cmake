# What cpack makes of an installation: one archive of everything; for Debian and for RPM the library,
# what is needed to develop with it, and the command, each by itself. scripts/package calls it.

get_target_property(soversion kelp_bdf_inp SOVERSION)
set(CPACK_PACKAGE_NAME kelp-bdf-inp)
set(CPACK_PACKAGE_VENDOR "The Kelp developers")
set(CPACK_PACKAGE_CONTACT "The Kelp developers <kelp@localhost>")
set(CPACK_PACKAGE_FILE_NAME
  ${CPACK_PACKAGE_NAME}-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR})
# Never the folder where cpack is called, which may be the checkout.
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR TGZ)
endif()

set(CPACK_COMPONENTS_ALL library development)
if(TARGET kelp-bdf)
  list(APPEND CPACK_COMPONENTS_ALL command)
endif()
# The first line of each description is its summary; one for all would hide them.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION
  "Library that reads, checks and edits input files of the BDF program
It keeps every line that it does not understand, and comes with the vocabulary
of the BDF quantum-chemistry program.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "Library that reads, checks and edits input files of BDF (development)
Headers for programs in C++ and C, and what CMake and pkg-config need to find
the library.")
set(CPACK_COMPONENT_COMMAND_DESCRIPTION
  "Checks, formats and changes input files of the BDF program
The command kelp-bdf, with a language server for editors, words for shells,
documentation and examples.")

# What the script asks for.
set(CPACK_KELP_SOURCE ${PROJECT_SOURCE_DIR})
set(CPACK_KELP_NOTICES ${kelp_notices})
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/KelpPackageFiles.cmake)

set(library_deb libkelp-bdf-inp${soversion})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_deb})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkelp-bdf-inp-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library_deb} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS kelp-bdf)
set(CPACK_DEBIAN_COMMAND_PACKAGE_NAME kelp-bdf)
set(CPACK_DEBIAN_COMMAND_PACKAGE_SECTION science)
set(CPACK_DEBIAN_COMMAND_PACKAGE_DEPENDS "${library_deb} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_RPM_COMPONENT_INSTALL ON)
set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_PACKAGE_LICENSE Apache-2.0)
set(CPACK_RPM_LIBRARY_PACKAGE_NAME kelp-bdf-inp)
set(CPACK_RPM_DEVELOPMENT_PACKAGE_NAME kelp-bdf-inp-devel)
set(CPACK_RPM_DEVELOPMENT_PACKAGE_REQUIRES "kelp-bdf-inp = ${PROJECT_VERSION}")
set(CPACK_RPM_COMMAND_PACKAGE_NAME kelp-bdf)
set(CPACK_RPM_COMMAND_PACKAGE_REQUIRES "kelp-bdf-inp = ${PROJECT_VERSION}")
foreach(component LIBRARY DEVELOPMENT COMMAND)
  string(REGEX REPLACE "\n.*" "" CPACK_RPM_${component}_PACKAGE_SUMMARY
    "${CPACK_COMPONENT_${component}_DESCRIPTION}")
endforeach()
# Links named after the build would be the same in packages of different versions.
set(CPACK_RPM_SPEC_MORE_DEFINE "%define _build_id_links none")
# Folders of the system are nobody's.
set(CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION
  /usr/lib64 /usr/lib64/cmake /usr/lib64/pkgconfig /usr/share/bash-completion
  /usr/share/bash-completion/completions /usr/share/fish /usr/share/fish/vendor_completions.d
  /usr/share/licenses /usr/share/man /usr/share/man/man1 /usr/share/zsh
  /usr/share/zsh/site-functions)
include(CPack)
