# KELP_SANITIZE names sanitizers as the compiler does, for example "address,undefined".
set(KELP_SANITIZE "" CACHE STRING "Sanitizers to build everything with")
if(KELP_SANITIZE)
  add_compile_options(-fsanitize=${KELP_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KELP_SANITIZE})
endif()
