"""Checks who includes whom in the library's folders: check_includes.py [ROOT]

Prints one line for each violation and exits with 1 when there are any.
"""

import pathlib
import re
import sys

# A folder includes itself and folders of lower levels. A folder inside one of these is a room of it and shares its level.
LEVELS = {
    "tessara/platform/base": 0,
    "tessara/platform/files": 1,
    "tessara/platform/gdi": 1,
    "tessara/numeric": 1,
    "tessara/platform/ui": 2,
    "tessara/platform/vellum": 2,
    "tessara/plot": 3,
    "tessara/resources": 3,
    "tessara/curveplot": 4,
    "tessara/phasediagram": 4,
    "tessara/document": 4,
    "tessara/dialogs": 4,
    "tessara/appframe": 5,
    # Above the levels: this folder implements others with Qt, and the umbrella header includes all that is public.
    "tessara/platform/qt": 6,
    "tessara": 6,
}
BASE = "tessara/platform/base"
NUMERIC = "tessara/numeric"
QT = "tessara/platform/qt"
UMBRELLA = "tessara/tessara.h"

INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)
QT_HEADER = re.compile(r"Q[A-Za-z]\w*(/|$)")
STANDARD_HEADER = re.compile(r"[a-z_0-9]+$|immintrin\.h$")  # neither folder nor ending; the compiler's own


def sources(root, folder):
    return sorted(path for path in (root / folder).rglob("*") if path.suffix in (".h", ".cpp"))


def includes(path):
    return INCLUDE.findall(path.read_text(encoding="utf-8"))


def folder_of(name):
    """The folder with a level in which a file lies; its own folder where none has one."""
    folder = name.rpartition("/")[0]
    for above in (folder, *map(str, pathlib.PurePosixPath(folder).parents)):
        if above in LEVELS and above != "tessara":
            return above
    return folder


def fault_of_own(folder, included):
    """What is wrong when a folder of the library includes a header of the library, or None."""
    target = folder_of(included)
    if target == folder:
        return None
    if target not in LEVELS:
        return "whose folder has no level"
    if target == QT:
        return "but nobody includes that folder"
    if LEVELS[target] >= LEVELS[folder]:
        return f"of level {LEVELS[target]}, from level {LEVELS[folder]}"
    if folder == NUMERIC and target != BASE:
        return f"but needs {BASE} alone"
    return None


def fault_of_foreign(folder, included):
    """The same for a header that is not the library's."""
    if QT_HEADER.match(included):
        return None if folder == QT else "which is Qt"
    if included.endswith(".h") and included[0].isupper():
        return "not by its path from the root"
    if folder == NUMERIC and not STANDARD_HEADER.match(included):
        return "which is not of the standard library"
    return None


def check_library_file(path, name, public):
    """The faults of one file of the library, each as a text."""
    folder = folder_of(name)
    if folder not in LEVELS:
        yield f"{name}: its folder has no level"
        return
    for included in includes(path):
        own = included.startswith("tessara/")
        fault = (fault_of_own if own else fault_of_foreign)(folder, included)
        if fault:
            yield f"{name}: includes {included}, {fault}"
        if own and name in public and included not in public:
            yield f"{name}: is public and includes {included}, which is internal"
    exported = "TESSARA_API" in path.read_text(encoding="utf-8")
    if path.suffix == ".h" and folder != QT and exported and name not in public:
        yield f"{name}: exports something, but {UMBRELLA} does not include it"


def check_program_file(path, name, public):
    """The faults of a file outside the library, which uses it as any program would."""
    for included in includes(path):
        if QT_HEADER.match(included):
            yield f"{name}: includes {included}, which is Qt"
        if included.startswith("tessara/") and included not in public:
            yield f"{name}: includes {included}, which is internal"


def check(root):
    """All faults of a source tree."""
    public = {UMBRELLA, *includes(root / UMBRELLA)}
    faults = []
    for folder, check_file in (
        ("tessara", check_library_file),
        ("cli", check_program_file),
        ("examples", check_program_file),
    ):
        for path in sources(root, folder):
            faults += check_file(path, path.relative_to(root).as_posix(), public)
    return faults


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".")
    faults = check(root)
    print(*faults, f"{len(faults)} wrong includes", sep="\n")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
