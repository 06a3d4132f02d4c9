# SPDX-FileCopyrightText: The Morvane developers
"""A source that no target lists stops the configuration and is named; without it the same tree configures.

usage: unlisted_source.py PROJECT
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile

project = pathlib.Path(sys.argv[1])
with tempfile.TemporaryDirectory() as folder:
    tree = pathlib.Path(folder) / "tree"
    tree.mkdir()
    shutil.copy(project / "CMakeLists.txt", tree)
    for name in ("cmake", "src", "stores"):
        shutil.copytree(project / name, tree / name)

    def configure(build):
        return subprocess.run(["cmake", "-S", tree, "-B", pathlib.Path(folder) / build, "-G", "Ninja", "-DBUILD_TESTING=OFF"],
                              capture_output=True, text=True)

    complete = configure("complete")
    assert complete.returncode == 0, complete.stderr
    (tree / "src" / "forgotten.cpp").write_text("// nothing\n")
    forgotten = configure("forgotten")
    assert forgotten.returncode != 0, "an unlisted source was accepted"
    assert "forgotten.cpp" in forgotten.stderr, forgotten.stderr
