# The pages of documentation as they are installed: a link that leads to a file of the checkout leads
# to where that is installed, and is plain text where it is not.

set(page_folder ${CMAKE_INSTALL_DOCDIR}/docs)
# The language server links the code of a finding to what is said of it.
set(findings_folder ${CMAKE_INSTALL_DATAROOTDIR}/kelp/docs)

# way_to(VARIABLE FOLDER): how links of a page that is installed in `destination` lead to a folder.
macro(way_to variable folder)
  file(RELATIVE_PATH ${variable}
    ${CMAKE_INSTALL_PREFIX}/${destination} ${CMAKE_INSTALL_PREFIX}/${folder})
  if(${variable})
    string(APPEND ${variable} "/")
  endif()
endmacro()

# kelp_document(PAGE DESTINATION UP DOCS): installs a page of the checkout. As regular expressions, UP
# leads from the page to the top of the checkout, and DOCS to the folder docs.
function(kelp_document page destination up docs)
  way_to(include ${CMAKE_INSTALL_INCLUDEDIR})
  way_to(data ${CMAKE_INSTALL_DATAROOTDIR}/kelp)
  way_to(findings ${findings_folder})
  way_to(pages ${page_folder})
  set(source ${PROJECT_SOURCE_DIR}/${page})
  file(READ ${source} text)
  foreach(absent "(docs/)?architecture[.]md" "CONTRIBUTING[.]md" "editors/vscode" "bindings"
      "packaging" "scripts" "tests" "src" "[.]ci")
    string(REGEX REPLACE "\\[([^]\n]*)\\]\\((${up})?${absent}[^)]*\\)" "\\1" text "${text}")
  endforeach()
  string(REGEX REPLACE "\\]\\(${docs}findings[.]md" "](${findings}findings.md" text "${text}")
  string(REGEX REPLACE "\\]\\(${docs}([a-z]+[.]md)" "](${pages}\\1" text "${text}")
  string(REGEX REPLACE "\\]\\(${up}include/" "](${include}" text "${text}")
  string(REGEX REPLACE "\\]\\(${up}(schemas|editors)/" "](${data}\\1/" text "${text}")
  set(result ${PROJECT_BINARY_DIR}/documents/${page})
  file(WRITE ${result} "${text}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
  install(FILES ${result} DESTINATION ${destination} COMPONENT command)
endfunction()

foreach(page README CHANGELOG SECURITY)
  kelp_document(${page}.md ${CMAKE_INSTALL_DOCDIR} "" "docs/")
endforeach()
file(GLOB pages RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
list(REMOVE_ITEM pages docs/architecture.md docs/findings.md)
foreach(page IN LISTS pages)
  kelp_document(${page} ${page_folder} "[.][.]/" "")
endforeach()
file(GLOB pages RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/guide/*.md)
foreach(page IN LISTS pages)
  kelp_document(${page} ${page_folder}/guide "[.][.]/[.][.]/" "[.][.]/")
endforeach()
kelp_document(docs/findings.md ${findings_folder} "[.][.]/" "")
kelp_document(editors/vim/README.md ${CMAKE_INSTALL_DATAROOTDIR}/kelp/editors/vim
  "[.][.]/[.][.]/" "[.][.]/[.][.]/docs/")
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/pictures DESTINATION ${page_folder} COMPONENT command)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${CMAKE_INSTALL_DOCDIR}
  COMPONENT command
  FILES_MATCHING PATTERN "*.inp" PATTERN "*.cpp" PATTERN "*.c" PATTERN "*.f90" PATTERN "*.py")
file(GLOB recipes CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/examples/cluster/*)
install(PROGRAMS ${recipes} DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples/cluster COMPONENT command)
