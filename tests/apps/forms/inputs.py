"""Inputs for the forms to tell of, and runs of the command on them."""

import os
import pathlib
import subprocess

# Names and texts that need escapes in one form or another.
AWKWARD = {
    "a,b:100%.inp": b"$scf\noccupeid\n$end\n",
    "<&'\">.inp": b"$scf\n<a&b>\n$end\n",
    "w\u00efn \u6c34.inp": "$scf\nocc\u00fcpied # \u6c34\n\tch\u00e4rge\n$end\n".encode(),
    "control.inp": b"$scf\nocc\x1b[31mpied\ncharge\n \xff\xfe\n$end\n",
    "alike.inp": b"$scf\nnosuch\nnosuch\nnosuch\n$end\n",
    "crlf.inp": b"$scf\r\nocupied\r\ncharge\r\n x\r\n",
    "no-geometry.inp": b"#! job\nHF/sto-3g\n",
    "empty.inp": b"",
    "good.inp": b"$compass\nbasis\n sto-3g\ngeometry\nHe 0 0 0\nend geometry\n$end\n"
                b"$xuanyuan\n$end\n$scf\nrhf\n$end\n",
    "note.inp": b"$scf\nrhf\n$end # kelp-bdf: allow-file bdf.duplicate_entry\n",
}


def write(folder):
    """Writes all inputs below a folder and returns their names."""
    for name, text in AWKWARD.items():
        (pathlib.Path(folder) / name).write_bytes(text)
    return list(AWKWARD)


def published(source, corpus):
    """The example inputs, and the published ones where they are."""
    found = sorted(pathlib.Path(source, "examples").glob("*.inp"))
    for part in ("inputs", "fragments"):
        found += sorted(pathlib.Path(corpus, part).rglob("*.inp"))
    return [str(path) for path in found]


def run(program, folder, *arguments):
    """The exit status and the bytes on standard output."""
    environment = {**os.environ, "LC_ALL": "C.UTF-8"}
    environment.pop("KELP_BDF_INP_SCHEMA_YAML", None)
    done = subprocess.run([program, *arguments], cwd=folder, env=environment, check=False,
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if done.returncode not in (0, 1, 2):
        raise SystemExit(f"{arguments} ended with {done.returncode}\n{done.stderr.decode()}")
    return done.returncode, done.stdout
