# SPDX-License-Identifier: MIT
"""In the repository the library's sources are joined into src/ first; a source distribution holds them already."""
import pathlib
import re
import shutil
import subprocess
import sys

from setuptools import setup

HERE = pathlib.Path(__file__).resolve().parent
AMALGAMATE = HERE.parent / "tools" / "amalgamate"

if AMALGAMATE.exists():
    subprocess.run([sys.executable, AMALGAMATE, HERE / "src"], check=True)
    shutil.copy(HERE.parent / "LICENSE", HERE / "LICENSE")

HEADER = (HERE / "src" / "pageslice_amalgamated_c.h").read_text(encoding="utf-8")
VERSION = re.search(r'^#define PAGESLICE_VERSION_STRING "(.*)"', HEADER, re.M)
assert VERSION is not None

setup(version=VERSION[1], cffi_modules=["build_ffi.py:ffi"])
