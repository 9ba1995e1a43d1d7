# What an installation holds, and how other projects find it. The core is part of the shared library and
# is not installed. The components are those of packages: library, development, command.
option(KELP_INSTALL "Provide the install target" ${PROJECT_IS_TOP_LEVEL})
if(NOT KELP_INSTALL)
  return()
endif()

include(CMakePackageConfigHelpers)

set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/kelp_bdf_inp)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS kelp_bdf_inp kelp_bdf_c EXPORT kelp_bdf_inp_targets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT development FILES_MATCHING PATTERN "*.hpp")
install(DIRECTORY ${PROJECT_SOURCE_DIR}/bindings/c/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT development FILES_MATCHING PATTERN "*.h")
install(FILES
  ${PROJECT_SOURCE_DIR}/schemas/input/bdf.yaml
  ${PROJECT_SOURCE_DIR}/schemas/input/bdf-knowledge.yaml
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/kelp/schemas/input COMPONENT library)
include(KelpNotices)
install(FILES LICENSE ${kelp_notices} DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT command)
include(KelpDocuments)
install(DIRECTORY
  ${PROJECT_SOURCE_DIR}/editors/emacs
  ${PROJECT_SOURCE_DIR}/editors/textmate
  ${PROJECT_SOURCE_DIR}/editors/vim
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/kelp/editors
  COMPONENT command
  PATTERN "*.mjs" EXCLUDE PATTERN "README.md" EXCLUDE)

if(TARGET kelp-bdf)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/schemas/output
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/kelp/schemas COMPONENT command
    FILES_MATCHING PATTERN "*.schema.json")
  # The library is found beside the command, wherever the prefix is moved.
  file(RELATIVE_PATH bin_to_lib
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(kelp-bdf PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")
  install(TARGETS kelp-bdf RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT command)
  install(FILES docs/kelp-bdf.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT command)
  set(shell_dir ${PROJECT_SOURCE_DIR}/apps/kelp-bdf/shell)
  install(FILES ${shell_dir}/kelp-bdf.bash RENAME kelp-bdf
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/bash-completion/completions COMPONENT command)
  install(FILES ${shell_dir}/_kelp-bdf
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/zsh/site-functions COMPONENT command)
  install(FILES ${shell_dir}/kelp-bdf.fish
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/fish/vendor_completions.d COMPONENT command)
endif()

# find_package(kelp_bdf_inp CONFIG). No dependency is looked for: none is visible to a host.
install(EXPORT kelp_bdf_inp_targets NAMESPACE kelp:: DESTINATION ${config_dir}
  FILE kelp_bdf_inp-targets.cmake COMPONENT development)
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/kelp_bdf_inp-config.cmake.in kelp_bdf_inp-config.cmake
  INSTALL_DESTINATION ${config_dir}
  PATH_VARS CMAKE_INSTALL_DATAROOTDIR)
write_basic_package_version_file(kelp_bdf_inp-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/kelp_bdf_inp-config.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/kelp_bdf_inp-config-version.cmake
  DESTINATION ${config_dir} COMPONENT development)

# pkg-config kelp_bdf_inp
file(RELATIVE_PATH pkgconfig_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" pkgconfig_to_prefix ${pkgconfig_to_prefix})
configure_file(${PROJECT_SOURCE_DIR}/cmake/kelp_bdf_inp.pc.in kelp_bdf_inp.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kelp_bdf_inp.pc
  DESTINATION ${pkgconfig_dir} COMPONENT development)

if(MINGW)
  # The compiler's runtime: the library and its host must share one, so it comes along, without the
  # symbols for debugging, which are most of it.
  foreach(name libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
      OUTPUT_VARIABLE runtime OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(IS_ABSOLUTE "${runtime}")
      set(stripped ${PROJECT_BINARY_DIR}/runtime/${name})
      file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/runtime)
      execute_process(COMMAND ${CMAKE_STRIP} --strip-all -o ${stripped} ${runtime}
        COMMAND_ERROR_IS_FATAL ANY)
      install(FILES ${stripped} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library)
    endif()
  endforeach()
endif()

include(KelpPackages)
