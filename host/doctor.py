"""What `orvane doctor` has the module's interpreter run: it reports, as JSON, what scripts will find there."""

import importlib.machinery
import importlib.metadata
import json
import os
import re
import sys

PACKAGES = ["numpy", "scipy", "matplotlib", "pandas", "thermo", "CoolProp"]


def Configure(unit):
    unit.add_report("doctor")


def Calculate(unit):
    entries = search_path()
    result = {
        "version": sys.version.split()[0],
        "build": sys.version,
        "path": [{key: entry[key] for key in ("path", "origin", "state")} for entry in entries],
        "hidden": hidden_modules(entries),
        "foreign": foreign_modules(entries),
        "packages": {name: version_of(name) for name in PACKAGES},
        "environment": {name: os.environ[name]
                        for name in ("PYTHONPATH", "PYTHONHOME", "VIRTUAL_ENV", "MPLBACKEND") if name in os.environ},
    }
    print(json.dumps(result), file=unit.reports["doctor"])


def search_path():
    """The entries of sys.path in their order, each with where it comes from and what stands there."""
    added = os.environ.get("PYTHONPATH")
    # The interpreter may have shortened them.
    pieces = [os.path.abspath(piece) for piece in added.split(os.pathsep)] if added else []
    environment = os.environ.get("VIRTUAL_ENV")
    below_environment = os.path.join(os.path.abspath(environment), "") if environment else None
    entries = []
    for path in sys.path:
        where = path or os.getcwd()
        state = ("folder" if os.path.isdir(where) else "archive" if os.path.isfile(where) else "missing")
        absolute = os.path.abspath(where)
        origin = ("PYTHONPATH" if absolute in pieces
                  else "VIRTUAL_ENV" if below_environment and absolute.startswith(below_environment)
                  else "installation")
        entries.append({"path": path, "where": where, "state": state, "origin": origin})
    return entries


def modules_in(folder):
    """The importable names at the top of a folder."""
    suffixes = importlib.machinery.all_suffixes()
    names = set()
    try:
        files = os.listdir(folder)
    except OSError:
        return names
    for file in files:
        for suffix in suffixes:
            if file.endswith(suffix):
                names.add(file[:-len(suffix)])
        if os.path.isfile(os.path.join(folder, file, "__init__.py")):
            names.add(file)
    return {name for name in names if name.isidentifier() and not name.startswith("__")}


def hidden_modules(entries):
    """Modules that nobody can import, since one of the same name comes before: (name, found, hidden)."""
    found = {name: "(built in)" for name in sys.builtin_module_names}
    real = {}
    hidden = []
    for entry in entries:
        if entry["state"] != "folder" or os.path.realpath(entry["where"]) in real:
            continue
        real[os.path.realpath(entry["where"])] = True
        for name in sorted(modules_in(entry["where"])):
            if name in found:
                hidden.append([name, found[name], entry["path"]])
            else:
                found[name] = entry["path"]
    return hidden


def foreign_modules(entries):
    """Compiled modules that another version of Python was meant for, at most one for each folder."""
    suffixes = tuple(suffix for suffix in importlib.machinery.EXTENSION_SUFFIXES if suffix.count(".") > 1)
    other = re.compile(r"\.(cpython-|cp)\d+")
    result = []
    for entry in entries:
        if entry["state"] != "folder":
            continue
        for folder, folders, files in os.walk(entry["where"]):
            depth = folder[len(entry["where"]):].count(os.sep)
            if depth >= 2:
                folders.clear()
            folders[:] = [name for name in folders if not name.endswith((".dist-info", "__pycache__"))]
            strange = [file for file in sorted(files)
                       if file.endswith((".so", ".pyd")) and other.search(file) and not file.endswith(suffixes)]
            if strange:
                result.append(os.path.join(folder, strange[0]))
    return result


def version_of(package):
    try:
        return importlib.metadata.version(package)
    except importlib.metadata.PackageNotFoundError:
        return None
