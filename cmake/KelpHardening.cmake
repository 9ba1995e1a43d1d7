# What makes a mistake in the code harder to exploit, for what is handed out: builds that are optimised,
# and that no sanitizer watches. scripts/check-hardening asks the built files.
option(KELP_HARDENING "Harden optimised builds" ${PROJECT_IS_TOP_LEVEL})

add_library(kelp_hardening INTERFACE)
if(NOT KELP_HARDENING OR KELP_SANITIZE)
  return()
endif()

set(hardened $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
if(MSVC)
  target_compile_options(kelp_hardening INTERFACE $<${hardened}:/guard:cf>)
  target_link_options(kelp_hardening INTERFACE $<${hardened}:/guard:cf> $<${hardened}:/CETCOMPAT>)
  return()
endif()

if(MINGW)
  # Addresses are random and data is not run without being asked. The stack protector and checked
  # calls of the C library would need one more DLL, libssp-0.dll.
  target_compile_options(kelp_hardening INTERFACE $<${hardened}:-D_GLIBCXX_ASSERTIONS>)
  return()
endif()

# Debian's compilers know 2 at least; a definition of the compiler's own would clash.
target_compile_options(kelp_hardening INTERFACE
  "$<${hardened}:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2;-D_GLIBCXX_ASSERTIONS;-fstack-protector-strong>")
include(CheckCXXCompilerFlag)
foreach(flag -fstack-clash-protection -fcf-protection=full)
  string(MAKE_C_IDENTIFIER "kelp_has${flag}" known)
  check_cxx_compiler_flag(${flag} ${known})
  if(${known})
    target_compile_options(kelp_hardening INTERFACE $<${hardened}:${flag}>)
  endif()
endforeach()
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  target_link_options(kelp_hardening INTERFACE
    "$<${hardened}:LINKER:-z,relro;LINKER:-z,now;LINKER:-z,noexecstack>")
endif()
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
