"""What an installation holds, by component, and what no installed file may hold."""

import os
import subprocess

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

RUNTIME = """
LIB/libQXFontService13.so.13
LIB/libQXFontService13.so.13.0.0
share/doc/QXFontService/LICENSE
share/doc/QXFontService/NOTICE
"""
DEVELOPMENT = """
LIB/cmake/QXFontService/QXFontServiceConfig.cmake
LIB/cmake/QXFontService/QXFontServiceConfigVersion.cmake
LIB/cmake/QXFontService/QXFontServiceStaticTargets.cmake
LIB/cmake/QXFontService/QXFontServiceStaticTargets-TYPE.cmake
LIB/cmake/QXFontService/QXFontServiceTargets.cmake
LIB/cmake/QXFontService/QXFontServiceTargets-TYPE.cmake
LIB/libQXFontService13.a
LIB/libQXFontService13.so
LIB/pkgconfig/qxfontservice13.pc
share/doc/QXFontService/README.md
share/doc/QXFontService/install.md
"""
TOOLS = """
bin/qxfont
share/bash-completion/completions/qxfont
share/man/man1/qxfont.1
"""


def files_below(folder):
    return {os.path.relpath(os.path.join(path, name), folder)
            for path, _, names in os.walk(folder) for name in names}


def expected(library_folder="lib", build_type="release"):
    """The files of each component below the prefix; all public headers are among them."""
    headers = {f"include/{name}" for name in files_below(os.path.join(ROOT, "include"))}
    lists = {"runtime": RUNTIME, "development": DEVELOPMENT, "tools": TOOLS}
    files = {name: set(text.replace("LIB", library_folder).replace("TYPE", build_type).split())
             for name, text in lists.items()}
    files["development"] |= headers
    return files


def is_program(path):
    with open(path, "rb") as file:
        return file.read(4) == b"\x7fELF"


def run_paths(path):
    """The lines of a binary that tell the dynamic linker where to search."""
    tags = subprocess.run(["readelf", "-dW", path], check=True, capture_output=True,
                          text=True).stdout.splitlines()
    return [line.split("path: ")[1] for line in tags if "RPATH" in line or "RUNPATH" in line]


def files_with(folder, places):
    """The files below a folder, other than archives, that hold the text of one of the places.

    Debug builds name their sources in their binaries, which is what these are for: programs are
    asked for their paths alone, see run_paths."""
    found = []
    for name in sorted(files_below(folder)):
        path = os.path.join(folder, name)
        if name.endswith(".a") or is_program(path):
            continue
        with open(path, "rb") as file:
            content = file.read()
        found += [name for place in places if place.encode() in content]
    return found
