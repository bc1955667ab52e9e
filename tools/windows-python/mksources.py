#!/usr/bin/env python3
"""Turn CPython's MSBuild project files into a make fragment.

usage: mksources.py SRCDIR > sources.mk
       mksources.py --python3-def SRCDIR python314.def > python3.def

SRCDIR is an unpacked CPython source tree.  The fragment defines

    CORE_SRCS       sources of python314.dll (without zlibmodule.c)
    FROZEN          frozen modules, each as name:path
    SRCS_<name>     sources of extension module <name>

with paths relative to SRCDIR.  Taking the lists from the project files means
that a new point release of CPython needs no edit here.
"""

import re
import sys
import xml.etree.ElementTree as ET
from pathlib import Path

NS = "{http://schemas.microsoft.com/developer/msbuild/2003}"

# Extension modules that windows.mk knows how to build.
EXTENSIONS = """
    _asyncio _ctypes _elementtree _multiprocessing _overlapped _queue _socket _uuid
    _zoneinfo pyexpat select unicodedata
""".split()


def relative(include):
    """'..\\Modules\\x.c' -> 'Modules/x.c'; None for files outside the tree."""
    if include and include.startswith("..\\"):
        return include[3:].replace("\\", "/")
    if include and include.startswith("$(PySourcePath)"):
        return include[len("$(PySourcePath)"):].replace("\\", "/")
    return None


def compiled(project):
    paths = [relative(item.get("Include"))
             for item in ET.parse(project).iter(NS + "ClCompile")]
    return [p for p in paths if p]


def frozen(project):
    root = ET.parse(project).getroot()
    for tag in ("None", "GetPath"):
        for item in root.iter(NS + tag):
            name = item.findtext(NS + "ModName")
            if name:
                yield f"{name}:{relative(item.get('Include'))}"


def assign(name, values):
    print(f"{name} := \\\n    " + " \\\n    ".join(values) + "\n")


def sources_mk(src):
    core = compiled(src / "PCbuild/pythoncore.vcxproj")
    core.remove("Modules/zlibmodule.c")
    assign("CORE_SRCS", core)
    assign("FROZEN", frozen(src / "PCbuild/_freeze_module.vcxproj"))
    for name in EXTENSIONS:
        assign("SRCS_" + name, compiled(src / f"PCbuild/{name}.vcxproj"))


def python3_def(src, python314_def):
    """python3.dll forwards the stable ABI to python314.dll."""
    text = (src / "PC/python3dll.c").read_text()
    # A few names exist in debug builds only.
    exported = set(re.findall(r"^\s+(\w+)", python314_def.read_text(), re.M))
    print("LIBRARY python3.dll\nEXPORTS")
    for kind, name in re.findall(r"^EXPORT_(FUNC|DATA)\((\w+)\)", text, re.M):
        data = " DATA" if kind == "DATA" else ""
        if name in exported:
            print(f"    {name} = python314.{name}{data}")


if __name__ == "__main__":
    if sys.argv[1] == "--python3-def":
        python3_def(Path(sys.argv[2]), Path(sys.argv[3]))
    else:
        sources_mk(Path(sys.argv[1]))
