#!/usr/bin/env python3
"""Checks the inputs that a list names, a line each, with Dask distributed.

    check_dask.py LIST                      with workers on this machine, one for each processor
    check_dask.py LIST --scheduler ADDRESS  with those of a cluster, which see the same files
    check_dask.py LIST --kill-one           kills a worker in the middle of the work, to try that

Every file is told of once: what a worker that is lost had not handed over is done again by another.
"""

import argparse
import os
import pathlib
import signal
import sys

from distributed import Client, LocalCluster, as_completed


def check(paths):
    """Runs in a worker. Returns of each file its path, its findings as lines, and what failed."""
    import kelp_bdf

    return [(checked.path, [str(finding) for finding in checked.findings], checked.is_fine,
             checked.error) for checked in kelp_bdf.check_many(paths, jobs=1)]


def batches_of(paths, size):
    return [paths[i:i + size] for i in range(0, len(paths), size)]


def kill_one(client):
    """Ends a worker as a machine that fails would, without a word."""
    pid = next(iter(client.run(os.getpid).values()))
    os.kill(pid, signal.SIGKILL)
    print(f"check_dask: killed worker {pid}", file=sys.stderr)


def run(client, paths, options):
    """Prints findings as they come, and returns the exit status."""
    told, status = set(), 0
    futures = client.map(check, batches_of(paths, options.batch), pure=False, retries=5)
    for number, (_, results) in enumerate(as_completed(futures, with_results=True)):
        if number == len(futures) // 3 and options.kill_one:
            kill_one(client)
        for path, findings, is_fine, error in results:
            if path in told:
                raise RuntimeError(f"{path} is told twice")
            told.add(path)
            print("\n".join(findings), end="\n" if findings else "")
            if error:
                print(error, file=sys.stderr)
            status = max(status, 2 if error else 0 if is_fine else 1)
    if told != set(paths):
        raise RuntimeError(f"{len(set(paths) - told)} files are not told of")
    print(f"check_dask: {len(told)} files, each told of once", file=sys.stderr)
    return status


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("list", type=pathlib.Path)
    parser.add_argument("--scheduler")
    parser.add_argument("--batch", type=int, default=200)
    parser.add_argument("--kill-one", action="store_true")
    options = parser.parse_args()
    paths = options.list.read_text().splitlines()
    if options.scheduler:
        with Client(options.scheduler) as client:
            return run(client, paths, options)
    with LocalCluster(n_workers=os.cpu_count(), threads_per_worker=1, dashboard_address=None,
                      host="127.0.0.1") as cluster, Client(cluster) as client:
        return run(client, paths, options)


if __name__ == "__main__":
    sys.exit(main())
