"""The built programs, and folders that are deleted at the end of a run."""

import os
import pathlib
import subprocess
import tempfile


class Bench:
    def __init__(self, bin_folder):
        self.bin = pathlib.Path(bin_folder).resolve()
        # Next to the programs: the folder for temporary files may be in memory, where a save costs nothing.
        self.scratch = tempfile.TemporaryDirectory(dir=self.bin.parent, prefix="bench-")
        self.count = 0

    def new_folder(self):
        self.count += 1
        folder = pathlib.Path(self.scratch.name) / str(self.count)
        folder.mkdir()
        return folder

    def run(self, program, *arguments, cwd=None, **environment):
        run = subprocess.run([self.bin / program, *map(str, arguments)], capture_output=True, cwd=cwd, text=True,
                             env={**os.environ, **{key: str(value) for key, value in environment.items()}})
        assert run.returncode == 0, f"{program} {arguments}: {run.returncode}\n{run.stdout[-500:]}{run.stderr[-500:]}"
        return run.stdout

    def ctl(self, *arguments, **environment):
        return self.run("tarvokctl", *arguments, **environment)
