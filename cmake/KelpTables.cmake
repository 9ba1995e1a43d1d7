# The documents that come with the library are compiled into it as tables, so that a process reads
# YAML only where a file differs from them. Their sources are made by a program of the build, from what
# the library's own reader makes of the documents; in a cross-build it runs through
# CMAKE_CROSSCOMPILING_EMULATOR. Without tables the library does the same, and starts later.
if(CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
  set(can_make_tables OFF)
else()
  set(can_make_tables ON)
endif()
option(KELP_BUILT_IN_TABLES "Compile the vocabulary into the library" ${can_make_tables})

if(KELP_BUILT_IN_TABLES)
  add_executable(kelp_bdf_make_table ${PROJECT_SOURCE_DIR}/tools/make_table.cpp)
  target_compile_definitions(kelp_bdf_make_table PRIVATE KELP_BDF_INP_STATIC)
  target_include_directories(kelp_bdf_make_table PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(kelp_bdf_make_table PRIVATE
    kelp_bdf_inp_readers kelp_bdf_inp_dependencies kelp_warnings)
endif()

# Adds the table of one kind of document to the library.
function(kelp_add_table kind document)
  # In the folder of its room, so that the object is told to be one of that.
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${kind}/built_in_${kind}.cpp)
  if(KELP_BUILT_IN_TABLES)
    file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/${kind})
    add_custom_command(OUTPUT ${source}
      COMMAND kelp_bdf_make_table ${kind} ${document} ${source}
      DEPENDS kelp_bdf_make_table ${document}
      COMMENT "Making the table of ${kind}"
      VERBATIM)
  else()
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${kind}/no_${kind}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT [[
#include "@kind@/@kind@_table.hpp"

namespace kelp::input::bdf {

BuiltInDocument built_in_@kind@() noexcept {
  return {};
}

}  // namespace kelp::input::bdf
]] @ONLY)
  endif()
  target_sources(kelp_bdf_inp_objects PRIVATE ${source})
endfunction()

kelp_add_table(schema ${PROJECT_SOURCE_DIR}/schemas/input/bdf.yaml)
kelp_add_table(knowledge ${PROJECT_SOURCE_DIR}/schemas/input/bdf-knowledge.yaml)
