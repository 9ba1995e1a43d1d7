# A port of the checkout that it lies in. The library knows its vocabulary by where it lies itself, so
# it is a shared one.
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
vcpkg_check_linkage(ONLY_DYNAMIC_LIBRARY)
vcpkg_check_features(OUT_FEATURE_OPTIONS feature_options FEATURES tools KELP_BUILD_APP)

vcpkg_cmake_configure(
  SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS
    ${feature_options}
    -DBUILD_TESTING=OFF)
vcpkg_cmake_install()
vcpkg_copy_pdbs()
vcpkg_cmake_config_fixup(PACKAGE_NAME kelp_bdf_inp CONFIG_PATH lib/cmake/kelp_bdf_inp)
vcpkg_fixup_pkgconfig()
if("tools" IN_LIST FEATURES)
  vcpkg_copy_tools(TOOL_NAMES kelp-bdf AUTO_CLEAN)
endif()

file(REMOVE_RECURSE
  "${CURRENT_PACKAGES_DIR}/debug/include"
  "${CURRENT_PACKAGES_DIR}/debug/share"
  "${CURRENT_PACKAGES_DIR}/share/bash-completion"
  "${CURRENT_PACKAGES_DIR}/share/fish"
  "${CURRENT_PACKAGES_DIR}/share/zsh")
file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
