# The library looks for its vocabulary upwards from its own folder. Where that may not lead through
# this checkout, a link leads there.
cmake_path(IS_PREFIX PROJECT_SOURCE_DIR ${PROJECT_BINARY_DIR} NORMALIZE built_inside_checkout)
if(NOT PROJECT_IS_TOP_LEVEL OR NOT built_inside_checkout)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/share/kelp/schemas/input)
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/schemas/input/bdf.yaml
    ${PROJECT_BINARY_DIR}/share/kelp/schemas/input/bdf.yaml COPY_ON_ERROR SYMBOLIC)
endif()
