# The library looks for its vocabulary upwards from its own folder. Where that may not lead through
# this checkout, links lead there.
cmake_path(IS_PREFIX PROJECT_SOURCE_DIR ${PROJECT_BINARY_DIR} NORMALIZE built_inside_checkout)
if(NOT PROJECT_IS_TOP_LEVEL OR NOT built_inside_checkout)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/share/kelp/schemas/input)
  foreach(name bdf.yaml bdf-knowledge.yaml)
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/schemas/input/${name}
      ${PROJECT_BINARY_DIR}/share/kelp/schemas/input/${name} COPY_ON_ERROR SYMBOLIC)
  endforeach()
endif()
