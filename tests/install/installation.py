"""An installation of what was built, below a folder of the test's own."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest


class InstallationTest(unittest.TestCase):
    """SOURCE, BUILD: set by the program. A tree has the scripts and the build folder in which they
    look for what was built; what builds it is left out."""
    SOURCE = BUILD = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="trelvan-test-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(os.path.realpath(folder.name))
        self.home = self.folder / "home"
        self.prefix = self.folder / "prefix"
        self.tree = self.folder / "tree"
        self.doubles = self.folder / "doubles"
        for made in (self.home, self.tree / "build", self.doubles):
            made.mkdir(parents=True)
        for part in ("tools", "cmake"):
            shutil.copytree(self.SOURCE / part, self.tree / part)
        shutil.copy(self.SOURCE / "run", self.tree)
        (self.tree / "tools/build.sh").write_text("#!/bin/sh\n")
        (self.tree / "build/release").symlink_to(self.BUILD)
        self.double("sudo", 'echo "sudo $1" >&2; exit 1')
        self.double("xdg-user-dir", 'echo "$HOME"')

    def double(self, name, body):
        program = self.doubles / name
        program.write_text(f"#!/bin/sh\n{body}\n")
        program.chmod(0o755)

    def environment(self):
        environment = {name: value for name, value in os.environ.items()
                       if not name.startswith(("TRELVAN_", "XDG_", "DESTDIR"))}
        environment.update(HOME=str(self.home), PATH=f"{self.doubles}:{os.environ['PATH']}")
        return environment

    def run_in(self, folder, *command, status=0, umask=0o022):
        done = subprocess.run(list(map(str, command)), cwd=folder, env=self.environment(),
                              text=True, capture_output=True, check=False, umask=umask)
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return done.stdout + done.stderr

    def install(self, *options, **how):
        return self.run_in(self.folder, self.tree / "run", "--install",
                           *(options or ("--prefix", self.prefix)), **how)

    def uninstall(self, *options, **how):
        return self.run_in(self.folder, self.tree / "run", "--uninstall",
                           *(options or ("--prefix", self.prefix)), **how)

    def module(self, vst=None):
        found = list((vst or self.prefix / "lib/vst").glob("Trelvan.vst/Contents/*/Trelvan.so"))
        self.assertEqual(len(found), 1)
        return found[0]


def files_in(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*")}
