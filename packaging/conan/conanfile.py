"""A recipe for Conan 2, of the checkout that it lies in: conan create packaging/conan"""

import os
import re

from conan import ConanFile
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load, rm, rmdir

NEEDED = ("CMakeLists.txt", "LICENSE", "README.md", "CHANGELOG.md", "SECURITY.md", "apps/*",
          "bindings/*", "cmake/*", "core/*", "docs/*", "editors/*", "examples/*", "include/*",
          "packaging/*", "schemas/*", "src/*", "tools/*")


class KelpBdfInp(ConanFile):
    name = "kelp-bdf-inp"
    description = "Reads, checks, edits and writes input files of the BDF quantum-chemistry program"
    license = "Apache-2.0"
    topics = ("quantum-chemistry", "parser", "linter")
    package_type = "shared-library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"with_command": [True, False]}
    default_options = {"with_command": True}

    @property
    def _top(self):
        return os.path.join(self.recipe_folder, "..", "..")

    def set_version(self):
        text = load(self, os.path.join(self._top, "CMakeLists.txt"))
        self.version = re.search(r"VERSION (\d+\.\d+\.\d+)", text)[1]

    def export_sources(self):
        for pattern in NEEDED:
            copy(self, pattern, src=self._top, dst=self.export_sources_folder)

    def validate(self):
        check_min_cppstd(self, 20)

    def requirements(self):
        # No header of theirs is seen by those who use the library.
        self.requires("yaml-cpp/[>=0.7 <0.9]", visible=False)
        if self.options.with_command:
            self.requires("cli11/[>=2.1 <3]", visible=False)
            self.requires("fmt/[>=9 <12]", visible=False)
            self.requires("nlohmann_json/[>=3.11 <4]", visible=False)
            self.requires("tomlplusplus/[>=3.3 <4]", visible=False)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        CMakeDeps(self).generate()
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["BUILD_TESTING"] = False
        toolchain.cache_variables["KELP_BUILD_APP"] = bool(self.options.with_command)
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENSE", src=self.source_folder,
             dst=os.path.join(self.package_folder, "licenses"))
        rmdir(self, os.path.join(self.package_folder, "lib", "cmake"))
        rmdir(self, os.path.join(self.package_folder, "lib", "pkgconfig"))
        rm(self, "*.pdb", self.package_folder, recursive=True)

    def package_info(self):
        self.cpp_info.libs = ["kelp_bdf_inp"]
        self.cpp_info.set_property("cmake_file_name", "kelp_bdf_inp")
        self.cpp_info.set_property("cmake_target_name", "kelp::bdf_inp")
        self.cpp_info.set_property("pkg_config_name", "kelp_bdf_inp")
