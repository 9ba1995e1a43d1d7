# What an installation holds, how other projects find it, and the packages made of it. The core is
# part of the shared library and is not installed.
option(KELP_INSTALL "Provide the install target" ${PROJECT_IS_TOP_LEVEL})
if(NOT KELP_INSTALL)
  return()
endif()

include(CMakePackageConfigHelpers)

set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/kelp_bdf_inp)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS kelp_bdf_inp kelp_bdf_c EXPORT kelp_bdf_inp_targets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN "*.hpp")
install(DIRECTORY ${PROJECT_SOURCE_DIR}/bindings/c/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN "*.h")
install(FILES
  ${PROJECT_SOURCE_DIR}/schemas/input/bdf.yaml
  ${PROJECT_SOURCE_DIR}/schemas/input/bdf-knowledge.yaml
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/kelp/schemas/input)
# The language server links the code of a finding to what is said of it.
install(FILES ${PROJECT_SOURCE_DIR}/docs/findings.md
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/kelp/docs)
install(DIRECTORY
  ${PROJECT_SOURCE_DIR}/editors/emacs
  ${PROJECT_SOURCE_DIR}/editors/textmate
  ${PROJECT_SOURCE_DIR}/editors/vim
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/kelp/editors
  PATTERN "*.mjs" EXCLUDE)
install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${CMAKE_INSTALL_DOCDIR}
  FILES_MATCHING PATTERN "*.inp" PATTERN "*.cpp" PATTERN "*.c" PATTERN "*.f90" PATTERN "*.py")

if(TARGET kelp-bdf)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/schemas/output
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/kelp/schemas FILES_MATCHING PATTERN "*.schema.json")
  # The library is found beside the command, wherever the prefix is moved.
  file(RELATIVE_PATH bin_to_lib
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(kelp-bdf PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")
  install(TARGETS kelp-bdf RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES docs/kelp-bdf.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  set(shell_dir ${PROJECT_SOURCE_DIR}/apps/kelp-bdf/shell)
  install(FILES ${shell_dir}/kelp-bdf.bash RENAME kelp-bdf
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/bash-completion/completions)
  install(FILES ${shell_dir}/_kelp-bdf
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/zsh/site-functions)
  install(FILES ${shell_dir}/kelp-bdf.fish
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/fish/vendor_completions.d)
endif()

# find_package(kelp_bdf_inp CONFIG). No dependency is looked for: none is visible to a host.
install(EXPORT kelp_bdf_inp_targets NAMESPACE kelp:: DESTINATION ${config_dir}
  FILE kelp_bdf_inp-targets.cmake)
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/kelp_bdf_inp-config.cmake.in kelp_bdf_inp-config.cmake
  INSTALL_DESTINATION ${config_dir}
  PATH_VARS CMAKE_INSTALL_DATAROOTDIR)
write_basic_package_version_file(kelp_bdf_inp-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/kelp_bdf_inp-config.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/kelp_bdf_inp-config-version.cmake
  DESTINATION ${config_dir})

# pkg-config kelp_bdf_inp
file(RELATIVE_PATH pkgconfig_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" pkgconfig_to_prefix ${pkgconfig_to_prefix})
if(NOT WIN32)
  # A DLL holds it.
  set(pkgconfig_requires yaml-cpp)
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/kelp_bdf_inp.pc.in kelp_bdf_inp.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kelp_bdf_inp.pc DESTINATION ${pkgconfig_dir})

if(MINGW)
  # The compiler's runtime: the library and its host must share one, so it comes along.
  foreach(name libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
      OUTPUT_VARIABLE runtime OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(IS_ABSOLUTE "${runtime}")
      install(FILES ${runtime} DESTINATION ${CMAKE_INSTALL_BINDIR})
    endif()
  endforeach()
endif()

# cpack -G TGZ, cpack -G DEB, cpack -G ZIP
set(CPACK_PACKAGE_NAME kelp-bdf-inp)
set(CPACK_PACKAGE_VENDOR "The Kelp developers")
set(CPACK_PACKAGE_CONTACT "The Kelp developers <kelp@localhost>")
set(CPACK_PACKAGE_FILE_NAME
  ${CPACK_PACKAGE_NAME}-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR TGZ DEB)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
include(CPack)
