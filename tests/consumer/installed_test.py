#!/usr/bin/env python3
"""Installs the build into a folder, moves that, and lives from what is there as a host would.

ctest tells in the environment what was built, and with which compiler and flags.
"""

import os
import subprocess
import tempfile
import unittest
from concurrent.futures import ThreadPoolExecutor

from fontTools.ttLib import TTFont

from installed_files import ROOT, expected, files_below, files_with, run_paths

BUILD = os.environ["QX_BUILD"]
CXX = os.environ["QX_CXX"]
FLAGS = os.environ["QX_FLAGS"].split()
CMAKE = os.environ["QX_CMAKE"]
HERE = os.path.dirname(os.path.abspath(__file__))
HOST = os.path.join(HERE, "host", "host.cpp")
DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
STRICT = ["-Wall", "-Wextra", "-Wpedantic", "-Werror"]


def run(*command, **more):
    """What a command prints; one that fails shows all it said."""
    done = subprocess.run(command, capture_output=True, text=True, check=False, **more)
    if done.returncode != 0:
        raise AssertionError(f"{' '.join(command)}\n{done.stdout}{done.stderr}")
    return done.stdout


class InstalledTest(unittest.TestCase):
    """The prefix, which stands elsewhere than where it was installed to, in `self.prefix`."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="consumer.", dir=BUILD)
        cls.addClassCleanup(folder.cleanup)
        cls.work = folder.name
        cls.prefix = os.path.join(cls.work, "moved", "there")
        cls.configuration = os.path.join(cls.work, "fonts.xml")
        with open(cls.configuration, "w", encoding="utf-8") as file:
            file.write(f'<font-config><font-folder path="{os.path.dirname(DEJAVU)}"/>'
                       "</font-config>\n")
        cls.install(os.path.join(cls.work, "first"))

    @classmethod
    def install(cls, first):
        cls.files = {}
        there = set()
        for component in ("runtime", "development", "tools"):
            # GNUInstallDirs chose the folders when the build was configured: lib for all but /usr.
            run(CMAKE, "--install", BUILD, "--prefix", first, "--component", component)
            cls.files[component] = files_below(first) - there
            there |= cls.files[component]
        os.makedirs(os.path.dirname(cls.prefix))
        os.rename(first, cls.prefix)

    def host(self, program, *arguments, configuration=None, **environment):
        clean = {key: value for key, value in os.environ.items() if key != "LD_LIBRARY_PATH"}
        return subprocess.run(
            [program, *arguments], capture_output=True, text=True, check=False, cwd=self.work,
            env={**clean, "HOST_FONTS": configuration or self.configuration, **environment})

    def check_host(self, program, standard, **environment):
        """The host's answers about DejaVu Sans and the font that it writes."""
        subset = program + ".ttf"
        done = self.host(program, DEJAVU, "Gläser", subset, **environment)
        self.assertEqual((done.stderr, done.returncode), ("", 0))
        font = TTFont(DEJAVU)
        glyphs = [font.getGlyphID(font.getBestCmap()[ord(c)]) for c in "Gläser"]
        lines = done.stdout.splitlines()
        self.assertEqual(lines[0], f"c++ {standard}")
        self.assertGreater(int(lines[1].split()[1]), 0)
        self.assertEqual(lines[2:], ["family DejaVu Sans",
                                     "glyphs " + " ".join(map(str, glyphs))])
        self.check_subset(font, glyphs, subset)

    def check_subset(self, font, glyphs, file):
        subset = TTFont(file)
        self.assertEqual(subset["maxp"].numGlyphs, font["maxp"].numGlyphs)
        self.assertLess(os.path.getsize(file), os.path.getsize(DEJAVU) / 2)
        whole, part = font["glyf"], subset["glyf"]
        for glyph in glyphs:
            self.assertEqual(part[subset.getGlyphName(glyph)].compile(part),
                             whole[font.getGlyphName(glyph)].compile(whole))
        unused = font.getGlyphID("W")
        self.assertEqual(part[subset.getGlyphName(unused)].numberOfContours, 0)


class FilesTest(InstalledTest):
    def test_each_component_has_its_files(self):
        self.assertEqual(self.files, expected(build_type=os.environ["QX_TYPE"]))

    def test_the_names_of_the_library_lead_to_one_file(self):
        library = os.path.join(self.prefix, "lib", "libQXFontService13.so")
        self.assertEqual(os.readlink(library), "libQXFontService13.so.13")
        self.assertEqual(os.readlink(library + ".13"), "libQXFontService13.so.13.0.0")
        self.assertIn("Library soname: [libQXFontService13.so.13]", run("readelf", "-dW", library))

    def test_no_text_names_the_place_of_the_build(self):
        self.assertEqual(files_with(self.prefix, (ROOT, BUILD, self.work)), [])

    def test_programs_search_beside_themselves_only(self):
        self.assertEqual(run_paths(os.path.join(self.prefix, "bin", "qxfont")),
                         ["[$ORIGIN/../lib]"])
        self.assertEqual(run_paths(os.path.join(self.prefix, "lib", "libQXFontService13.so")), [])

    def test_the_moved_qxfont_runs(self):
        done = self.host(os.path.join(self.prefix, "bin", "qxfont"), "--version")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertTrue(done.stdout.startswith("qxfont 13.0.0\n"), done.stdout)

    def test_each_header_compiles_alone(self):
        """With warnings on, for which the compiler must not take the folder for a system's."""
        include = os.path.join(self.prefix, "include")
        command = [CXX, "-std=c++17", *STRICT, "-fsyntax-only", f"-I{include}", "-x", "c++",
                   os.devnull, "-include"]
        with ThreadPoolExecutor(2) as pool:
            list(pool.map(lambda header: run(*command, header), sorted(files_below(include))))

    def test_bash_completes_commands_and_options(self):
        script = os.path.join(self.prefix, "share/bash-completion/completions/qxfont")
        qxfont = os.path.join(self.prefix, "bin", "qxfont")

        def completed(*words):
            code = (f'. "{script}"; COMP_WORDS=("{qxfont}" "$@"); COMP_CWORD=$#; _qxfont; '
                    'printf "%s\\n" "${COMPREPLY[@]}"')
            return run("bash", "-c", code, "bash", *words).split()

        self.assertEqual(completed("ma"), ["match"])
        self.assertLessEqual({"list", "typeset", "--help", "--version"}, set(completed("")))
        self.assertEqual(completed("match", "--ex"), ["--explain"])
        self.assertEqual(completed("embed", "--out"), ["--output"])
        self.assertLessEqual({"--only", "--json", "--help"}, set(completed("list", "--")))
        self.assertEqual(completed("match", "DejaVu"), [])


class CMakeTest(InstalledTest):
    def configure(self, source, build, *arguments):
        return run(CMAKE, "-G", "Ninja", "-S", source, "-B", build, f"-DCMAKE_CXX_COMPILER={CXX}",
                   f"-DCMAKE_CXX_FLAGS={' '.join(FLAGS)}", f"-DCMAKE_PREFIX_PATH={self.prefix}",
                   *arguments)

    def test_hosts_of_both_libraries_and_languages(self):
        build = os.path.join(self.work, "host")
        self.configure(os.path.join(HERE, "host"), build, "-DHOST_COMPONENTS=shared;static")
        run(CMAKE, "--build", build, "-j2")
        for kind in ("QXFontService", "static"):
            self.check_host(f"{build}/host_{kind}_17", 201703)
            self.check_host(f"{build}/host_{kind}_20", 202002)
        self.check_host(f"{build}/host_plain", 201703)
        self.check_needed(f"{build}/host_QXFontService_17", f"{build}/host_static_17")
        self.check_errors(f"{build}/host_QXFontService_20")
        self.check_errors(f"{build}/host_static_20")

    def check_needed(self, shared, static):
        """What the library is made with is no matter of a host that links the shared one."""
        needed = run("readelf", "-dW", shared)
        self.assertIn("libQXFontService13.so.13]", needed)
        self.assertIn("libicuuc.so", needed)
        inner = ("libfreetype.so", "libexpat.so")
        for name in inner:
            self.assertNotIn(name, needed)
        needed = run("readelf", "-dW", static)
        self.assertNotIn("libQXFontService13", needed)
        for name in inner:
            self.assertIn(name, needed)

    def check_errors(self, program):
        """The service's own exception reaches the host, and so does the error of a font."""
        broken = os.path.join(self.work, "broken.xml")
        with open(broken, "w", encoding="utf-8") as file:
            file.write("<font-config>")
        done = self.host(program, DEJAVU, "A", "no.ttf", configuration=broken)
        self.assertEqual(done.returncode, 5, done.stderr)
        self.assertRegex(done.stderr, r"^host: .+")
        done = self.host(program, broken, "A", "no.ttf")
        self.assertEqual(done.returncode, 1, done.stderr)
        self.assertRegex(done.stderr, r"^host: .+")

    def test_versions_of_the_same_major_number(self):
        version = os.path.join(self.prefix, "lib/cmake/QXFontService/"
                               "QXFontServiceConfigVersion.cmake")
        script = os.path.join(self.work, "version.cmake")
        with open(script, "w", encoding="utf-8") as file:
            file.write('string(REGEX MATCH "^[0-9]+" PACKAGE_FIND_VERSION_MAJOR "${WANTED}")\n'
                       "set(PACKAGE_FIND_VERSION ${WANTED})\n"
                       f'include("{version}")\n'
                       'message("${PACKAGE_VERSION} ${PACKAGE_VERSION_COMPATIBLE}")\n')
        for wanted, answer in (("13", "TRUE"), ("13.0.0", "TRUE"), ("13.1", "FALSE"),
                               ("12", "FALSE"), ("14", "FALSE")):
            with self.subTest(version=wanted):
                done = subprocess.run([CMAKE, f"-DWANTED={wanted}", "-P", script], check=True,
                                      capture_output=True, text=True)
                self.assertEqual(done.stderr.strip(), f"13.0.0 {answer}")

    def asker(self):
        """A project that tells which targets the package gave it."""
        source = os.path.join(self.work, "asker")
        os.makedirs(source, exist_ok=True)
        with open(os.path.join(source, "CMakeLists.txt"), "w", encoding="utf-8") as file:
            file.write("cmake_minimum_required(VERSION 3.25)\nproject(Asker LANGUAGES CXX)\n"
                       "find_package(QXFontService 13 REQUIRED COMPONENTS ${ASKED})\n"
                       "foreach(name QXFontService static)\n  if(TARGET QXFontService::${name})\n"
                       '    message(STATUS "there is ${name}")\n  endif()\nendforeach()\n')
        return source

    def test_without_what_the_static_library_links_there_is_the_shared_one(self):
        source, build = self.asker(), os.path.join(self.work, "static")
        missing = "-DCMAKE_DISABLE_FIND_PACKAGE_Freetype=ON"
        self.assertIn("there is static", self.configure(source, build))
        said = self.configure(source, build, missing)
        self.assertIn("there is QXFontService", said)
        self.assertNotIn("there is static", said)
        with self.assertRaisesRegex(AssertionError, "links Freetype, which is missing"):
            self.configure(source, build, missing, "-DASKED=static")

    def test_another_icu_is_refused(self):
        """Its number is part of the names that a host would look for in vain."""
        headers = os.path.join(self.work, "icu", "unicode")
        os.makedirs(headers)
        for name in ("utypes.h", "uvernum.h", "uversion.h"):
            with open(os.path.join(headers, name), "w", encoding="utf-8") as file:
                file.write('#define U_ICU_VERSION "99.1"\n')
        with self.assertRaisesRegex(AssertionError, r"(?s)built with ICU \d+.*here\s+is ICU 99\.1"):
            self.configure(self.asker(), os.path.join(self.work, "icu.build"),
                           f"-DICU_INCLUDE_DIR={os.path.dirname(headers)}")


class PkgConfigTest(InstalledTest):
    def flags(self, *arguments):
        modules = os.path.join(self.prefix, "lib", "pkgconfig")
        return run("pkg-config", *arguments, "qxfontservice13",
                   env={**os.environ, "PKG_CONFIG_PATH": modules}).split()

    def compiled(self, name, standard, *flags):
        program = os.path.join(self.work, name)
        run(CXX, f"-std={standard}", *STRICT, *FLAGS, HOST, "-o", program, *flags)
        return program

    def test_a_host_of_the_shared_library(self):
        self.assertEqual(self.flags("--modversion"), ["13.0.0"])
        libraries = self.flags("--libs")
        self.assertNotIn("-lfreetype", libraries)
        program = self.compiled("by_pkg_config", "c++17", *self.flags("--cflags"), *libraries)
        self.check_host(program, 201703, LD_LIBRARY_PATH=os.path.join(self.prefix, "lib"))

    def test_a_host_of_the_static_library(self):
        """As docs/install.md says: the archive by its name, with all that it links behind it."""
        libraries = ["-l:libQXFontService13.a" if flag == "-lQXFontService13" else flag
                     for flag in self.flags("--static", "--libs")]
        self.assertIn("-lfreetype", libraries)
        program = self.compiled("by_pkg_config_static", "c++20", *self.flags("--cflags"),
                                *libraries)
        self.check_host(program, 202002)


if __name__ == "__main__":
    unittest.main()
