"""The Debian package of this build: lintian has nothing against it, its dependencies can be had, and
in a root folder of its own it installs, works, and goes without a trace. The first argument is the
build folder."""

import gzip
import os
import pathlib
import shutil
import tempfile

from tests.support.installed import first_session, output
from tests.support.journey import expect, expect_equal, run, session, settings_of


class Package:
    """Packed from what has been built; the build folder stays as it is."""

    def __init__(self, build):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quib-package-"))
        self.folder.chmod(0o755)
        output("cpack", "--config", pathlib.Path(build) / "CPackConfig.cmake", "-G", "DEB", "-B",
               self.folder)
        self.file, = self.folder.glob("*.deb")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.folder)

    def field(self, name):
        return output("dpkg-deb", "--field", self.file, name).strip()

    def content(self, name):
        root = self.folder / "content"
        output("dpkg-deb", "--extract", self.file, root)
        return (root / name).read_bytes()


class Root:
    """An empty system. The package has no scripts, so nothing in it needs to run."""

    def __init__(self, folder):
        self.folder = folder
        for part in ("info", "updates"):
            (folder / "var/lib/dpkg" / part).mkdir(parents=True)
        (folder / "var/lib/dpkg/status").touch()
        folder.chmod(0o755)

    def dpkg(self, *words):
        pretend = [] if os.getuid() == 0 else ["fakeroot"]
        # The libraries are those of the machine, of which this system knows nothing.
        return output(*pretend, "dpkg", f"--root={self.folder}", "--force-not-root",
                      "--force-depends", f"--log={self.folder}/var/log", *words,
                      env={**os.environ, "PATH": os.environ["PATH"] + ":/usr/sbin:/sbin"})

    def files(self):
        return [path for path in self.folder.rglob("*")
                if not path.is_dir() and "var" not in path.relative_to(self.folder).parts]


def checked(build, _):
    with Package(build) as package:
        said = output("lintian", "--allow-root", "--fail-on", "error,warning", package.file)
        expect_equal(said, "", "what lintian says")
        changelog = gzip.decompress(package.content("usr/share/doc/quibcards/changelog.Debian.gz"))
        expect(changelog.startswith(f"quibcards ({package.field('Version')}) ".encode()),
               f"the changelog begins with this version: {changelog}")
        # Needed at run time, but nothing that links to it shows that.
        expect("libqt6sql6-sqlite" in package.field("Depends"), "the help's driver is required")
        expect("libqt6widgets6 (>=" in package.field("Depends"), "the libraries are found")
        planned = output("apt-get", "install", "--simulate", "--no-install-recommends",
                         package.file)
        expect("Inst quibcards (" in planned, f"the package can be installed: {planned}")


def installed_used_removed(build, pictures):
    with Package(build) as package, session(build, pictures) as journey:
        root = Root(package.folder / "root")
        root.dpkg("--install", package.file)
        state = root.dpkg("--status", "quibcards")
        expect("Status: install ok installed" in state, state)
        journey.write_settings(settings_of("General"))
        journey.desktop.program = str(root.folder / "usr/bin/quibcards")
        first_session(journey)
        root.dpkg("--purge", "quibcards")
        expect_equal(root.files(), [], "what is left behind")


if __name__ == "__main__":
    run(checked, installed_used_removed)
