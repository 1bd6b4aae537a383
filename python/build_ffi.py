# SPDX-License-Identifier: MIT
"""Makes the extension module: the library, compiled in, and src/bulk.cpp, which answers for many elements at once.

What Python may call is read from the two headers themselves, so that it is declared once; the compiler then checks
every structure and type."""
import os
import pathlib
import re
import sys

from cffi import FFI

SOURCES = pathlib.Path(__file__).resolve().parent / "src"
HEADERS = ("pageslice_amalgamated_c.h", "bulk.h")


def declarations(header: str) -> str:
    """What a C header declares, without what only a compiler understands: comments, conditions, macros of ours."""
    text = (SOURCES / header).read_text(encoding="utf-8")
    text = re.sub(r"/\*.*?\*/|//[^\n]*", "", text, flags=re.S)
    text = re.sub(r"^#(?!define PAGE\w+ \(?-?\d+\)?\s*$)(.*\\\n)*.*$", "", text, flags=re.M)
    text = re.sub(r"^#define (\w+) \(?(-?\d+)\)?", r"#define \1 \2", text, flags=re.M)
    return re.sub(r'^extern "C" \{$|^\}$', "", re.sub(r"PAGESLICE_(API|CALL|NOEXCEPT)\b", "", text), flags=re.M)


def compiler_options() -> "dict[str, list[str]]":
    if sys.platform == "win32":
        return {"extra_compile_args": ["/std:c++17", "/O2", "/EHsc"]}
    options = ["-std=c++17", "-O3", "-g0", "-fvisibility=hidden", "-fno-semantic-interposition"]
    # With the C++ library inside, the wheel asks for nothing but libc.
    linking = ["-static-libstdc++", "-static-libgcc", "-Wl,--exclude-libs,ALL", "-Wl,-s"]
    return {
        "extra_compile_args": options + os.environ.get("PAGESLICE_CXXFLAGS", "").split(),
        "extra_link_args": linking if sys.platform == "linux" and "PAGESLICE_CXXFLAGS" not in os.environ else [],
    }


ffi = FFI()
ffi.cdef("\n".join(declarations(header) for header in HEADERS))
ffi.set_source(
    "pageslice._native",
    "\n".join(f'#include "{header}"' for header in HEADERS),
    source_extension=".cpp",
    # Relative, as setuptools wants them; setup.py runs in this folder.
    sources=["src/pageslice_amalgamated.cpp", "src/bulk.cpp"],
    include_dirs=["src"],
    **compiler_options(),
)
