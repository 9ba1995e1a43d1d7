"""Holds the recipes of other packagers to the project that they build: their versions and options,
the files that they take along, and the commands that hooks and actions run.

recipes.py SOURCE COMMAND SCRATCH
"""

import ast
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

import yaml


def require(condition, claim):
    if not condition:
        sys.exit(f"not true: {claim}")


def versions_and_options(source):
    build = "".join(path.read_text() for path in
                    [source / "CMakeLists.txt", *sorted((source / "cmake").glob("*.cmake"))])
    version = re.search(r"VERSION (\d+\.\d+\.\d+)", build)[1]
    port = json.loads((source / "packaging/vcpkg/kelp-bdf-inp/vcpkg.json").read_text())
    require(port["version"] == version, f"the port for vcpkg is of version {version}")
    known = set(re.findall(r"^\s*(?:option|set)\((KELP_[A-Z_]+)", build, re.MULTILINE))
    used = set()
    for path in (source / "packaging").rglob("*"):
        if path.is_file():
            used |= set(re.findall(r"KELP_[A-Z_]+", path.read_text()))
    require(used and used <= known, f"the options {sorted(used - known)} of recipes exist")


def sources_for_conan(source, scratch):
    """What the recipe takes along is enough to configure, and holds each source that is compiled."""
    tree = ast.parse((source / "packaging/conan/conanfile.py").read_text())
    needed = next(ast.literal_eval(node.value) for node in tree.body
                  if isinstance(node, ast.Assign) and node.targets[0].id == "NEEDED")
    copy = scratch / "sources"
    for pattern in needed:
        name = pattern.removesuffix("/*")
        if (source / name).is_dir():
            shutil.copytree(source / name, copy / name)
        else:
            shutil.copy(source / name, copy / name)
    for command in (["cmake", "-G", "Ninja", "-S", copy, "-B", scratch / "build",
                     "-DBUILD_TESTING=OFF", "-DKELP_BUILD_APP=ON"],
                    ["ninja", "-C", scratch / "build", "-n", "all"]):
        done = subprocess.run(command, check=False, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True)
        require(done.returncode == 0, f"the sources for Conan are whole:\n{done.stdout}")


def texts_can_be_read(source):
    for path in (source / "packaging").rglob("*.py"):
        compile(path.read_text(), path, "exec")
    # The rest of this recipe is a template.
    text = (source / "packaging/conda/meta.yaml").read_text()
    text = re.sub(r"\{%.*?%\}", "", text, flags=re.DOTALL)
    recipe = yaml.safe_load(re.sub(r"\{\{.*?\}\}", "x", text))
    for file in recipe["test"]["files"]:
        require((source / file).is_file(), f"the recipe for conda finds {file}")


def hooks(source, environment):
    """Each hook runs on the files that its pattern chooses, as pre-commit runs it."""
    manifest = yaml.safe_load((source / ".pre-commit-hooks.yaml").read_text())
    require([hook["id"] for hook in manifest] == ["kelp-bdf-check", "kelp-bdf-format"],
            "there are two hooks")
    for hook, shown in zip(manifest, ("3 errors and 2 warnings in 1 file (2 checked)", "")):
        folder = environment["WORK"]
        for name in ("faulty.inp", "water-easy.inp"):
            shutil.copy(source / "examples" / name, folder)
        names = [name for name in ("faulty.inp", "water-easy.inp", "notes.txt")
                 if re.search(hook["files"], name)]
        require(names == ["faulty.inp", "water-easy.inp"], f"{hook['id']} takes inputs: {names}")
        done = subprocess.run([*hook["entry"].split(), *names], cwd=folder, env=environment,
                              check=False, stdout=subprocess.PIPE, text=True)
        require(done.returncode in (0, 1) and shown in done.stdout,
                f"{hook['id']} runs: {done.returncode}\n{done.stdout}")


def action(source, environment):
    """The steps of the action find the command, check what is asked for, and fail as it does."""
    described = yaml.safe_load((source / "action.yml").read_text())
    defaults = {name: value["default"] for name, value in described["inputs"].items()}
    for paths, expected in (("faulty.inp\nwater-easy.inp", 1), ("water-easy.inp", 0)):
        inputs = {**defaults, "paths": paths}
        for step in described["runs"]["steps"]:
            settings = {key: re.sub(r"\$\{\{ inputs\.(\w+) \}\}", lambda m: inputs[m[1]], value)
                        for key, value in step.get("env", {}).items()}
            done = subprocess.run(["bash", "-eo", "pipefail", "-c", step["run"]],
                                  cwd=environment["WORK"], env={**environment, **settings},
                                  check=False, stdout=subprocess.PIPE, text=True)
        require(done.returncode == expected, f"the action ends with {expected}:\n{done.stdout}")
        require(("::error file=faulty.inp,line=" in done.stdout) == (expected == 1),
                f"the action annotates the faulty file:\n{done.stdout}")


def main():
    source, command, scratch = (pathlib.Path(argument) for argument in sys.argv[1:4])
    shutil.rmtree(scratch, ignore_errors=True)
    (scratch / "sources").mkdir(parents=True)
    (scratch / "work").mkdir()
    environment = {**os.environ, "PATH": f"{command.parent}:{os.environ['PATH']}",
                   "WORK": str(scratch / "work"), "GITHUB_ACTION_PATH": str(source),
                   "GITHUB_PATH": str(scratch / "path")}
    versions_and_options(source)
    texts_can_be_read(source)
    hooks(source, environment)
    action(source, environment)
    sources_for_conan(source, scratch)
    return 0


if __name__ == "__main__":
    sys.exit(main())
