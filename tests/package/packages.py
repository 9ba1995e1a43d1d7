"""Makes packages of a build and looks at them: what is in each, what it depends on, whose work it
names; then unpacks all of them into one folder and runs what came out.

packages.py BUILD SOURCE SCRATCH deb|rpm

Status 77: the tools that make such packages are not here.
"""

import gzip
import os
import pathlib
import re
import shutil
import subprocess
import sys

HOLDERS = ("Jesse Beder", "University of Cincinnati", "Victor Zverovich", "Niels Lohmann",
           "Mark Gillard", "Free Software Foundation")
LIBRARY = ("libkelp_bdf_inp.so.0.1.0", "libkelp_bdf_inp.so.0.1", "schemas/input/bdf.yaml",
           "schemas/input/bdf-knowledge.yaml")
DEVELOPMENT = ("/include/kelp/input/bdf.hpp", "/include/kelp/bdf.h", "/libkelp_bdf_inp.so",
               "/kelp_bdf_inp-config.cmake", "/kelp_bdf_inp-targets.cmake", "/kelp_bdf_inp.pc")
COMMAND = ("/bin/kelp-bdf", "/bash-completion/completions/kelp-bdf", "/site-functions/_kelp-bdf",
           "/vendor_completions.d/kelp-bdf.fish", "/kelp/docs/findings.md",
           "/editors/vim/syntax/bdf.vim", "/schemas/output/findings.schema.json",
           "/doc/kelp_bdf_inp/README.md", "/doc/kelp_bdf_inp/docs/check.md",
           "/doc/kelp_bdf_inp/examples/faulty.inp", "/doc/kelp_bdf_inp/examples/ionize.cpp")


def output_of(*command, **options):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True,
                          **options).stdout


def require(condition, claim):
    if not condition:
        sys.exit(f"not true: {claim}")


class Deb:
    """Packages for Debian."""

    generator = "DEB"
    tools = ("dpkg-deb", "dpkg-shlibdeps", "file")
    names = {"libkelp-bdf-inp0.1": LIBRARY, "libkelp-bdf-inp-dev": DEVELOPMENT,
             "kelp-bdf": (*COMMAND, "/man1/kelp-bdf.1.gz")}
    needs = {"libkelp-bdf-inp0.1": ("libc6", r"libstdc\+\+6", "libyaml-cpp"),
             "libkelp-bdf-inp-dev": (r"libkelp-bdf-inp0\.1 \(= [0-9.]+\)",),
             "kelp-bdf": (r"libkelp-bdf-inp0\.1 \(= [0-9.]+\)", "libc6", r"libstdc\+\+6", "libfmt")}
    notices = "usr/share/doc/{}/THIRD-PARTY.txt.gz"
    licence = "usr/share/doc/{}/copyright"

    @staticmethod
    def name_of(package):
        return output_of("dpkg-deb", "--field", package, "Package").strip()

    @staticmethod
    def depends(package):
        return output_of("dpkg-deb", "--field", package, "Depends")

    @staticmethod
    def unpack(package, folder):
        subprocess.run(["dpkg-deb", "-x", package, folder], check=True)


class Rpm:
    """Packages for systems that use RPM."""

    generator = "RPM"
    tools = ("rpmbuild", "rpm", "rpm2archive")
    names = {"kelp-bdf-inp": LIBRARY, "kelp-bdf-inp-devel": DEVELOPMENT,
             "kelp-bdf": (*COMMAND, "/man1/kelp-bdf.1")}
    needs = {"kelp-bdf-inp": (r"libc\.so\.6", r"libstdc\+\+\.so\.6", r"libyaml-cpp\.so"),
             "kelp-bdf-inp-devel": (r"kelp-bdf-inp = [0-9.]+",),
             "kelp-bdf": (r"kelp-bdf-inp = [0-9.]+", r"libkelp_bdf_inp\.so\.0\.1\(\)",
                          r"libfmt\.so")}
    notices = "usr/share/licenses/{}/THIRD-PARTY.txt"
    licence = "usr/share/licenses/{}/LICENSE"

    @staticmethod
    def name_of(package):
        return output_of("rpm", "-qp", "--qf", "%{NAME}", package)

    @staticmethod
    def depends(package):
        return output_of("rpm", "-qp", "--requires", package)

    @staticmethod
    def unpack(package, folder):
        subprocess.run(["rpm2archive", package], check=True)
        subprocess.run(["tar", "-xzf", f"{package}.tgz", "-C", folder], check=True)


def pack(kind, build, scratch):
    """What cpack makes, called in a folder that must stay as it is."""
    elsewhere = scratch / "elsewhere"
    elsewhere.mkdir(parents=True)
    output_of("cpack", "-G", kind.generator, "--config", build / "CPackConfig.cmake",
              "-D", f"CPACK_PACKAGE_DIRECTORY={scratch}/made", cwd=elsewhere)
    require(not any(elsewhere.iterdir()), "cpack leaves nothing where it is called")
    return sorted(path for path in (scratch / "made").glob("*.*") if path.is_file())


def refuses_without_tools(kind, build, scratch):
    """Where a tool is missing there is no package, rather than one that depends on nothing."""
    done = subprocess.run(
        ["cpack", "-G", kind.generator, "--config", build / "CPackConfig.cmake",
         "-D", "CMAKE_IGNORE_PATH=/usr/bin;/bin;/usr/local/bin", "-D",
         f"CPACK_PACKAGE_DIRECTORY={scratch}/refused"],
        check=False, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    require(done.returncode != 0 and "cannot be" in done.stdout,
            f"cpack refuses without tools:\n{done.stdout}")
    require(not list((scratch / "refused").glob(f"*.{kind.generator.lower()}")),
            "no package without dependencies is made")


def files_below(folder):
    return {f"/{path.relative_to(folder)}" for path in folder.rglob("*")
            if path.is_symlink() or not path.is_dir()}


def expect_contents(kind, name, folder):
    files = files_below(folder)
    for wanted in kind.names[name]:
        require(any(file.endswith(wanted) for file in files), f"{name} holds {wanted}")
    for other in set(kind.names) - {name}:
        for unwanted in kind.names[other]:
            require(not any(file.endswith(unwanted) for file in files),
                    f"{name} leaves {unwanted} to {other}")
    require((folder / kind.licence.format(name)).is_file(), f"{name} tells its licence")
    notices = (folder / kind.notices.format(name)).read_bytes()
    text = (gzip.decompress(notices) if kind.notices.endswith(".gz") else notices).decode()
    for holder in HOLDERS:
        require(holder in text, f"{name} names {holder}")
    require("Permission is hereby granted" in text and "No text was found" not in text,
            f"{name} holds the texts of the licences")
    return files


def run_what_was_unpacked(root):
    """The three together are an installation."""
    libraries = next(root.rglob("libkelp_bdf_inp.so.0.1")).parent
    environment = {**os.environ, "LD_LIBRARY_PATH": str(libraries)}
    version = output_of(root / "usr/bin/kelp-bdf", "--version", env=environment)
    require(f"{root}/usr/share/kelp/schemas/input/bdf.yaml" in version,
            f"the command finds the vocabulary of its package:\n{version}")
    require((libraries / "libkelp_bdf_inp.so").resolve().is_file(), "the link to link with leads on")


def main():
    build, source, scratch = (pathlib.Path(argument) for argument in sys.argv[1:4])
    kind = {"deb": Deb, "rpm": Rpm}[sys.argv[4]]
    missing = [tool for tool in kind.tools if not shutil.which(tool)]
    if missing:
        print(f"there is no {missing[0]}")
        return 77
    shutil.rmtree(scratch, ignore_errors=True)
    packages = {kind.name_of(path): path for path in pack(kind, build, scratch)}
    require(set(packages) == set(kind.names), f"these are made: {sorted(packages)}")
    seen = set()
    for name, path in packages.items():
        depends = kind.depends(path)
        for needed in kind.needs[name]:
            require(re.search(needed, depends), f"{name} depends on {needed}:\n{depends}")
        folder = scratch / name
        folder.mkdir()
        kind.unpack(path, folder)
        files = expect_contents(kind, name, folder)
        require(not files & seen, f"no two packages hold {sorted(files & seen)}")
        seen |= files
    root = scratch / "root"
    root.mkdir()
    for path in packages.values():
        kind.unpack(path, root)
    run_what_was_unpacked(root)
    refuses_without_tools(kind, build, scratch)
    named = subprocess.run(["grep", "-rlF", "-e", str(source), root], check=False,
                           stdout=subprocess.PIPE, text=True).stdout
    require(not named, f"no file names the checkout: {named}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
