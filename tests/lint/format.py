"""Every C++ file looks as .clang-format says, and no test waits by sleeping."""

import pathlib
import re
import subprocess
import sys

SLEEPS = re.compile(r"\b(QTest::qWait\(|QTest::qSleep|sleep_for|usleep\()")


def sources(root):
    listed = subprocess.run(["git", "-C", str(root), "ls-files", "-co", "--exclude-standard"],
                            capture_output=True, text=True)
    if listed.returncode == 0:
        names = listed.stdout.splitlines()
        return [root / name for name in names
                if name.endswith((".cpp", ".h")) and (root / name).exists()]
    return [path for pattern in ("*.cpp", "*.h") for path in root.rglob(pattern)
            if "build" not in path.relative_to(root).parts]


def unformatted(files):
    result = subprocess.run(["clang-format", "--dry-run", "--Werror", *map(str, files)],
                            capture_output=True, text=True)
    return [line for line in result.stderr.splitlines() if "error:" in line]


def sleeping_tests(root, files):
    for path in files:
        if "tests" not in path.relative_to(root).parts:
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            if SLEEPS.search(line):
                yield f"{path.relative_to(root)}:{number}: a test waits by sleeping"


def main():
    root = pathlib.Path(sys.argv[1])
    files = sources(root)
    complaints = [*unformatted(files), *sleeping_tests(root, files)]
    print("\n".join(complaints))
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
