# Tells in THIRD-PARTY.txt whose work is linked into what is built, or comes along with it, and under
# which licence. The texts are those that Debian keeps of each package, so that they are of the
# version that is used; where they are not to be had, holder and licence are named and the text is
# said to be missing, which scripts/package takes for a failure.

set(kelp_notices ${PROJECT_BINARY_DIR}/THIRD-PARTY.txt)
set(notice_folders /usr/share/doc)
foreach(prefix IN LISTS CMAKE_PREFIX_PATH)
  list(PREPEND notice_folders ${prefix}/share/doc)
endforeach()
set(notice_heads "")
set(notice_texts "")

# kelp_notice(TITLE USE HOLDER LICENCE PACKAGE): appends one part; PACKAGE is Debian's.
function(kelp_notice title use holder licence package)
  set(text "No text was found where this was built.\n")
  foreach(folder IN LISTS notice_folders)
    if(EXISTS ${folder}/${package}/copyright)
      file(READ ${folder}/${package}/copyright text)
      set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${folder}/${package}/copyright)
      break()
    endif()
  endforeach()
  string(REPEAT "=" 80 border)
  set(notice_heads "${notice_heads}- ${title}, ${use}: ${holder}; ${licence}\n" PARENT_SCOPE)
  set(notice_texts "${notice_texts}\n${border}\n${title}\n${border}\n\n${text}" PARENT_SCOPE)
endfunction()

if(WIN32)
  kelp_notice("yaml-cpp" "part of the library" "Jesse Beder" "MIT" libyaml-cpp-dev)
  kelp_notice("libstdc++ and libgcc" "the compiler's runtime, in bin"
    "Free Software Foundation, Inc." "GPL-3.0-or-later WITH GCC-exception-3.1"
    g++-mingw-w64-x86-64-posix)
  kelp_notice("mingw-w64 and winpthreads" "the compiler's runtime, in bin and in each program"
    "the mingw-w64 project" "MIT, BSD-3-Clause, ZPL-2.1, public domain" mingw-w64-x86-64-dev)
else()
  kelp_notice("yaml-cpp" "used by the library" "Jesse Beder" "MIT" libyaml-cpp-dev)
  kelp_notice("libstdc++ and libgcc" "the compiler's runtime" "Free Software Foundation, Inc."
    "GPL-3.0-or-later WITH GCC-exception-3.1" libstdc++6)
endif()
if(TARGET kelp-bdf)
  kelp_notice("CLI11" "part of the command" "University of Cincinnati, Henry Schreiner"
    "BSD-3-Clause" libcli11-dev)
  kelp_notice("fmt" "part of the command" "Victor Zverovich" "MIT" libfmt-dev)
  kelp_notice("JSON for Modern C++ (nlohmann-json)" "part of the command" "Niels Lohmann" "MIT"
    nlohmann-json3-dev)
  kelp_notice("toml++" "part of the command" "Mark Gillard" "MIT" libtomlplusplus-dev)
endif()
if(TARGET kelp_bdf_python)
  kelp_notice("pybind11" "part of the Python package" "Wenzel Jakob" "BSD-3-Clause" pybind11-dev)
endif()
if(WIN32 AND EXISTS /usr/share/common-licenses/GPL-3)
  # Windows has no folder of common licences that the texts above could point to.
  file(READ /usr/share/common-licenses/GPL-3 gpl)
  string(APPEND notice_texts "\n${gpl}")
endif()

file(CONFIGURE OUTPUT ${kelp_notices} CONTENT [[
What comes with kelp-bdf and libkelp_bdf_inp, or is linked into them, and is not theirs:

@notice_heads@
The texts below are those of the packages that were used; where they speak of /usr/share/common-licenses,
the same licences stand there on every Debian system.
@notice_texts@]] @ONLY)
