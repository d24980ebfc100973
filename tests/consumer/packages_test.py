#!/usr/bin/env python3
"""Looks into the packages that `./dev package` has made.

    tests/consumer/packages_test.py FOLDER
"""

import glob
import os
import re
import subprocess
import sys
import tempfile
import unittest

from installed_files import ROOT, expected, files_below, files_with, is_program, run_paths

FOLDER = sys.argv.pop(1)
PACKAGES = {"runtime": "libqxfontservice13", "development": "libqxfontservice13-dev",
            "tools": "qxfont"}


def output(*command, **more):
    return subprocess.run(command, check=True, capture_output=True, text=True, **more).stdout


def package(name):
    [file] = glob.glob(os.path.join(FOLDER, f"{name}_13.0.0_*.deb"))
    return file


def field(name, key):
    return output("dpkg-deb", "-f", package(name), key).strip()


def depends(name):
    return dict(re.fullmatch(r"(\S+)(?: \((.*)\))?", one).groups()
                for one in field(name, "Depends").split(", "))


class UnpackedTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="packages.", dir=FOLDER)
        self.addCleanup(folder.cleanup)
        self.unpacked = folder.name

    def check_texts(self):
        self.assertEqual(files_with(self.unpacked, (ROOT, FOLDER)), [])

    def check_programs(self, paths):
        """Released binaries name nothing of the place of the build at all."""
        seen = {}
        for name in files_below(self.unpacked):
            path = os.path.join(self.unpacked, name)
            if os.path.islink(path) or not (is_program(path) or name.endswith(".a")):
                continue
            with open(path, "rb") as file:
                self.assertNotIn(ROOT.encode(), file.read(), name)
            if is_program(path):
                seen[os.path.basename(name)] = run_paths(path)
        self.assertEqual(seen, paths)

    def check_runs(self, qxfont, **environment):
        clean = {key: value for key, value in os.environ.items() if key != "LD_LIBRARY_PATH"}
        said = output(qxfont, "--version", env={**clean, **environment})
        self.assertTrue(said.startswith("qxfont 13.0.0\n"), said)


class DebTest(UnpackedTest):
    def setUp(self):
        super().setUp()
        self.library_folder = "lib/" + output("dpkg-architecture", "-qDEB_HOST_MULTIARCH").strip()

    def test_there_is_one_a_component(self):
        self.assertEqual(len(glob.glob(os.path.join(FOLDER, "*.deb"))), len(PACKAGES))
        for name in PACKAGES.values():
            self.assertEqual(field(name, "Package"), name)
            self.assertEqual(field(name, "Version"), "13.0.0")
            self.assertEqual(field(name, "Architecture"),
                             output("dpkg", "--print-architecture").strip())
            self.assertRegex(field(name, "Description"), r"^Font service: \w+.*\n ")

    def test_files(self):
        files = expected(self.library_folder)
        for component, name in PACKAGES.items():
            with self.subTest(package=name):
                listed = output("dpkg-deb", "-c", package(name)).splitlines()
                names = {re.sub(r" -> .*", "", line).split(None, 5)[5] for line in listed
                         if not line.startswith("d")}
                wanted = files[component] | {f"share/doc/{name}/copyright"}
                self.assertEqual(names, {f"./usr/{file}" for file in wanted})
                self.assertEqual({line.split()[1] for line in listed}, {"root/root"})

    def test_what_the_library_needs(self):
        needed = depends("libqxfontservice13")
        for name in ("libc6", "libstdc++6", "libfreetype6", "libexpat1", "zlib1g",
                     "libfontconfig1"):
            self.assertIn(name, needed)
        self.assertTrue([name for name in needed if re.fullmatch(r"libicu\d+", name)], needed)

    def test_what_hosts_need(self):
        needed = depends("libqxfontservice13-dev")
        self.assertEqual(needed.pop("libqxfontservice13"), "= 13.0.0")
        self.assertEqual(set(needed), {"libicu-dev", "libfreetype-dev", "zlib1g-dev",
                                       "libexpat1-dev", "libfontconfig-dev"})

    def test_what_qxfont_needs(self):
        needed = depends("qxfont")
        self.assertEqual(needed["libqxfontservice13"], "= 13.0.0")
        self.assertIn("libqpdf29", needed)
        self.assertNotIn("libfreetype6", needed)

    def test_the_library_is_made_known(self):
        """To packages that link it, and to the dynamic linker when it comes and goes."""
        deb = package("libqxfontservice13")
        self.assertEqual(output("dpkg-deb", "-I", deb, "shlibs").strip(),
                         "libQXFontService13 13 libqxfontservice13 (>= 13.0.0)")
        for script in ("postinst", "postrm"):
            self.assertIn("ldconfig\n", output("dpkg-deb", "-I", deb, script))

    def test_unpacked(self):
        for name in PACKAGES.values():
            subprocess.run(["dpkg-deb", "-x", package(name), self.unpacked], check=True)
        self.check_texts()
        self.check_programs({"qxfont": [], "libQXFontService13.so.13.0.0": []})
        self.check_runs(f"{self.unpacked}/usr/bin/qxfont",
                        LD_LIBRARY_PATH=f"{self.unpacked}/usr/{self.library_folder}")
        with open(f"{self.unpacked}/usr/{self.library_folder}/pkgconfig/qxfontservice13.pc",
                  encoding="utf-8") as file:
            self.assertIn("prefix=/usr\n", file.read())


class ArchiveTest(UnpackedTest):
    def test_unpacked_anywhere(self):
        [archive] = glob.glob(os.path.join(FOLDER, "*.tar.gz"))
        subprocess.run(["tar", "-xzf", archive, "-C", self.unpacked], check=True)
        [name] = os.listdir(self.unpacked)
        self.assertEqual(name + ".tar.gz", os.path.basename(archive))
        prefix = os.path.join(self.unpacked, name)
        self.assertEqual(files_below(prefix), set().union(*expected().values()))
        self.check_texts()
        self.check_programs({"qxfont": ["[$ORIGIN/../lib]"], "libQXFontService13.so.13.0.0": []})
        self.check_runs(f"{prefix}/bin/qxfont")


if __name__ == "__main__":
    unittest.main()
