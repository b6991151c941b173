"""The built programs, and folders that are deleted at the end of a run."""

import os
import pathlib
import signal
import subprocess
import tempfile

from table import NotMeasured


def run_for(limit_s, command, **options):
    """Runs a program and returns what it printed. A failure, or no end within the limit, is NotMeasured."""
    name = pathlib.Path(command[0]).name
    try:
        process = subprocess.Popen([*map(str, command)], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                   start_new_session=True, **options)
    except OSError as problem:
        raise NotMeasured(f"{name}: {problem.strerror}") from problem
    try:
        output, errors = process.communicate(timeout=limit_s)
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.communicate()
        raise NotMeasured(f"{name} did not end within {limit_s:.0f} s") from None
    if process.returncode != 0:
        raise NotMeasured(f"{name} ended with {process.returncode}: {(errors or output)[-200:]}")
    return output


class Bench:
    def __init__(self, bin_folder, quick=False):
        self.bin = pathlib.Path(bin_folder).resolve()
        self.quick = quick
        # Next to the programs: the folder for temporary files may be in memory, where a save costs nothing.
        self.scratch = tempfile.TemporaryDirectory(dir=self.bin.parent, prefix="bench-", ignore_cleanup_errors=True)
        self.count = 0

    def new_folder(self):
        self.count += 1
        folder = pathlib.Path(self.scratch.name) / str(self.count)
        folder.mkdir()
        return folder

    def run(self, program, *arguments, limit_s=600, cwd=None, **environment):
        return run_for(limit_s, [self.bin / program, *arguments], cwd=cwd,
                       env={**os.environ, **{key: str(value) for key, value in environment.items()}})

    def ctl(self, *arguments, **environment):
        return self.run("tarvokctl", *arguments, **environment)
