#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when a file of src/ includes a header of a folder it may not depend on.

The folders of ORDER build on each other in this order; such a folder may include itself and
the folders before it. A folder of SIDE stands apart from that line: it may include itself and
the folders named for it, and no folder of ORDER may include it. <VemoGridLib/Name.h> names a
public header by its file name alone, so it is looked up among the folders to find where it lives.
"""
import pathlib
import re
import sys

ORDER = ["common", "vb", "flexgrid", "editors", "dates", "grid"]
SIDE = {"about": ["common"]}
INCLUDE = re.compile(r'^\s*#\s*include\s+[<"]([^">]+)[">]', re.M)


def allowed(folder: str) -> list[str]:
    if folder in SIDE:
        return [folder, *SIDE[folder]]
    return ORDER[: ORDER.index(folder) + 1]


def main(src: pathlib.Path) -> int:
    folders = ORDER + list(SIDE)
    home = {p.name: p.parent.name for p in src.glob("*/*.h")}
    problems = []
    for path in sorted(src.glob("*/*")):
        folder = path.parent.name
        if folder not in folders or path.suffix not in (".h", ".cpp"):
            continue
        for target in INCLUDE.findall(path.read_text(encoding="utf-8")):
            if target.startswith("VemoGridLib/"):
                used = home.get(target.split("/", 1)[1])
            elif "/" in target and target.split("/", 1)[0] in folders:
                used = target.split("/", 1)[0]
            else:
                continue
            if used is None:
                problems.append(f"{path.relative_to(src)}: {target} is not a header of src/")
            elif used not in allowed(folder):
                problems.append(f"{path.relative_to(src)} ({folder}) includes {target} ({used})")
    for line in problems:
        print(line)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
