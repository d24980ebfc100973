#!/usr/bin/env python3
"""Tests of ./dev on a machine made of stand-ins: no package is asked for or installed here."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

# What is marked essential in Debian, and so is there before any setup.
ESSENTIAL = ("awk", "bash", "cat", "dirname", "env", "mkdir", "nproc", "rm", "sed",
             "tail")


class DevTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = folder.name
        self.log = os.path.join(self.root, "log")
        self.installed = os.path.join(self.root, "installed")
        os.mkdir(os.path.join(self.root, "bin"))
        shutil.copy(os.path.join(ROOT, "dev"), self.root)
        for name in ESSENTIAL:
            os.symlink(shutil.which(name), os.path.join(self.root, "bin", name))
        # Says of each package asked for whether it is installed, as dpkg-query does.
        self.stand_in("dpkg-query", f'cat "{self.installed}"; exit 1')
        self.stand_in("apt-get", f'echo "apt-get $* [${{DEBIAN_FRONTEND:-}}]" >>"{self.log}"')
        self.have()
        self.user(0)
        os.makedirs(os.path.join(self.root, "build/fonts"))
        open(os.path.join(self.root, "build/fonts/complete"), "w").close()

    def stand_in(self, name, script):
        path = os.path.join(self.root, "bin", name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(f"#!{shutil.which('bash')}\n{script}\n")
        os.chmod(path, 0o755)

    def user(self, number):
        self.stand_in("id", f"echo {number}")

    def have(self, *packages):
        with open(self.installed, "w", encoding="utf-8") as file:
            file.write("".join(f"{name} installed\n" for name in packages))

    def packages(self, group):
        """The packages of a group as setup would ask for them on an empty machine."""
        self.have()
        self.dev("setup", group)
        names = self.calls()[-1].split("--no-install-recommends ")[1].split(" [")[0].split()
        os.remove(self.log)
        return names

    def calls(self):
        if not os.path.exists(self.log):
            return []
        with open(self.log, encoding="utf-8") as file:
            return file.read().splitlines()

    def dev(self, *arguments):
        """Runs ./dev without HOME and with nothing on the path but the stand-ins."""
        return subprocess.run(
            [os.path.join(self.root, "dev"), *arguments], capture_output=True, text=True,
            env={"PATH": os.path.join(self.root, "bin")}, check=False, cwd="/",
        )


class SetupTest(DevTest):
    def test_nothing_missing_asks_no_package_manager(self):
        self.have(*self.packages("all"))
        for group in ("demo", "test", "browser", "bench", "package", "docs", "all"):
            self.assertEqual(self.dev("setup", group).returncode, 0)
        self.assertEqual(self.calls(), [])

    def test_root_updates_once_and_installs_what_is_missing(self):
        have = self.packages("demo")
        have.remove("libfmt-dev")
        have.remove("cmake")
        self.have(*have)
        self.assertEqual(self.dev("setup", "demo").returncode, 0)
        self.assertEqual(self.calls(), [
            "apt-get update [noninteractive]",
            "apt-get install -y --no-install-recommends cmake libfmt-dev [noninteractive]",
        ])

    def test_a_user_goes_through_sudo(self):
        self.user(1000)
        self.stand_in("sudo", f'echo "sudo $1 $2" >>"{self.log}"; exec "$@"')
        self.assertEqual(self.dev("setup", "demo").returncode, 0)
        calls = self.calls()
        self.assertEqual(len(calls), 4)
        self.assertEqual(calls[0], "sudo env DEBIAN_FRONTEND=noninteractive")
        self.assertTrue(calls[3].endswith("[noninteractive]"))

    def test_a_user_without_sudo_gets_one_line_with_the_command(self):
        self.user(1000)
        have = self.packages_as_root("demo")
        have.remove("cmake")
        self.have(*have)
        done = self.dev("setup", "demo")
        self.assertNotEqual(done.returncode, 0)
        self.assertEqual(len(done.stderr.splitlines()), 1)
        self.assertTrue(done.stderr.rstrip().endswith(
            "apt-get update && apt-get install -y --no-install-recommends cmake"), done.stderr)
        self.assertEqual(self.calls(), [])

    def packages_as_root(self, group):
        self.user(0)
        packages = self.packages(group)
        self.user(1000)
        return packages

    def test_a_failed_installation_fails_and_names_the_command(self):
        self.stand_in("apt-get", '[ "$1" = update ]')
        done = self.dev("setup", "demo")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("apt-get install -y --no-install-recommends g++", done.stderr)

    def test_a_package_that_was_removed_but_left_its_configuration_is_missing(self):
        have = self.packages("demo")
        have.remove("cmake")
        self.have(*have)
        with open(self.installed, "a", encoding="utf-8") as file:
            file.write("cmake config-files\n")
        self.dev("setup", "demo")
        self.assertIn("recommends cmake [", self.calls()[-1])

    def test_no_dpkg_is_one_line(self):
        os.remove(os.path.join(self.root, "bin", "dpkg-query"))
        done = self.dev("setup")
        self.assertNotEqual(done.returncode, 0)
        self.assertEqual(len(done.stderr.splitlines()), 1)

    def test_the_default_group_is_test(self):
        self.assertEqual(self.packages("test"), self.packages_of_default())

    def packages_of_default(self):
        self.have()
        self.dev("setup")
        return self.calls()[-1].split("--no-install-recommends ")[1].split(" [")[0].split()

    def test_every_group_holds_the_demo_and_names_nothing_twice(self):
        demo = set(self.packages("demo"))
        for group in ("test", "browser", "bench", "package", "all"):
            names = self.packages(group)
            self.assertLess(demo, set(names))
            self.assertEqual(len(names), len(set(names)))

    def test_all_holds_every_group(self):
        everything = set(self.packages("all"))
        for group in ("test", "browser", "bench", "package", "docs"):
            self.assertLessEqual(set(self.packages(group)), everything)

    def test_the_fonts_of_the_bench_are_fetched_when_they_are_not_there(self):
        self.have(*self.packages("all"))
        os.remove(os.path.join(self.root, "build/fonts/complete"))
        self.stand_in("apt-get", f'echo "apt-get $*" >>"{self.log}"; exit 1')
        self.assertEqual(self.dev("setup", "test").returncode, 0)
        self.assertEqual(self.calls(), [])
        done = self.dev("setup", "bench")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("the fonts could not be fetched: apt-get download fonts-noto", done.stderr)
        self.assertEqual(len(self.calls()), 1)

    def test_the_browser_is_in_its_own_group(self):
        """It is large, and one test wants it; what every change must pass asks for it by name."""
        self.assertNotIn("chromium", self.packages("test"))
        self.assertEqual(set(self.packages("browser")) - set(self.packages("test")), {"chromium"})
        with open(os.path.join(ROOT, ".ci", "run"), encoding="utf-8") as file:
            self.assertIn("./dev setup browser\n", file.read())

    def test_unknown_group(self):
        self.assertEqual(self.dev("setup", "toast").returncode, 2)
        self.assertEqual(self.calls(), [])

    def test_each_package_has_its_reason(self):
        with open(os.path.join(ROOT, "dev"), encoding="utf-8") as file:
            lists = re.findall(r"<<'LIST'\n(.*?)\nLIST", file.read(), re.DOTALL)
        self.assertEqual(len(lists), 6)
        for line in "\n".join(lists).split("\n"):
            self.assertRegex(line, r"^[a-z0-9+.-]+ {2,}\S.*")


class CommandTest(DevTest):
    def setUp(self):
        super().setUp()
        self.have(*self.packages("all"))

    def test_help_names_every_command(self):
        text = self.dev("help").stdout
        for name in ("setup", "build", "run", "demo", "test", "lint", "bench", "fuzz", "docs",
                     "install", "package", "help"):
            self.assertRegex(text, rf"(?m)^  {name}\b")

    def test_no_command_shows_the_help(self):
        self.assertEqual(self.dev().stdout, self.dev("help").stdout)
        self.assertEqual(self.dev().returncode, 0)

    def test_wrong_calls_are_status_2_and_one_line(self):
        for call in (["frobnicate"], ["build", "fast"], ["test", "--preset", "fast"],
                     ["test", "--preset"], ["lint", "everything"], ["install"],
                     ["install", ""], ["install", "/a", "/b"], ["package", "deb"]):
            with self.subTest(call=call):
                done = self.dev(*call)
                self.assertEqual(done.returncode, 2)
                self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)

    def stand_in_build(self, cmake, qxfont='pwd; printf "<%s>" "$@"; exit 3'):
        """A tool to build, a build that runs the given script, and the binary that it leaves."""
        os.makedirs(os.path.join(self.root, "tools/qxfont"))
        open(os.path.join(self.root, "tools/qxfont/CMakeLists.txt"), "w").close()
        self.stand_in("cmake", cmake)
        binary = os.path.join(self.root, "build/release/tools/qxfont")
        os.makedirs(binary)
        self.stand_in("made", qxfont)
        shutil.move(os.path.join(self.root, "bin/made"), os.path.join(binary, "qxfont"))

    def test_run_prints_nothing_of_its_own_and_hands_on_the_status(self):
        self.stand_in_build("echo building; echo warning >&2")
        done = self.dev("run", "info", "a file.ttf")
        self.assertEqual(done.stdout, "/\n<info><a file.ttf>")
        self.assertEqual(done.stderr, "")
        self.assertEqual(done.returncode, 3)

    def test_run_shows_why_the_build_failed(self):
        self.stand_in_build("echo no luck; exit 1")
        done = self.dev("run", "list")
        self.assertIn("no luck", done.stderr)
        self.assertEqual(done.stdout, "")
        self.assertEqual(done.returncode, 125)

    def test_run_without_a_tool_to_build_says_so(self):
        done = self.dev("run", "list")
        self.assertEqual((done.stdout, done.stderr), ("", "dev: qxfont is not there yet\n"))
        self.assertEqual(done.returncode, 2)

    def stand_in_release(self):
        """A configured release build; cmake, cpack and python3 tell what they were asked."""
        for name in ("cmake", "cpack"):
            self.stand_in(name, f'echo "{name} $*" >>"{self.log}"')
        self.made = os.path.join(self.root, "build", "release")

    def test_install_builds_for_the_prefix_and_says_where(self):
        self.stand_in_release()
        done = self.dev("install", "/opt/fonts")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual([re.sub(r" -j \d+", "", call) for call in self.calls()], [
            "cmake --preset release -DCMAKE_INSTALL_PREFIX=/opt/fonts",
            f"cmake --build {self.made} --target installed",
            f"cmake --install {self.made} --strip",
        ])
        self.assertIn("dev: installed below /opt/fonts: ", done.stderr)

    def test_install_takes_a_folder_of_where_it_was_called(self):
        self.stand_in_release()
        self.assertIn("installed below /here/it: ", self.dev("install", "here/it").stderr)
        self.assertIn("-DCMAKE_INSTALL_PREFIX=/here/it", self.calls()[0])

    def test_install_fails_with_cmake_and_says_nothing_of_success(self):
        self.stand_in("cmake", '[ "$1" != --install ]')
        done = self.dev("install", "/opt/fonts")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr, "dev: not everything could be installed below /opt/fonts\n")

    def test_package_makes_both_kinds_each_for_its_prefix(self):
        self.stand_in_release()
        out = os.path.join(self.root, "build", "package")
        os.makedirs(out)
        open(os.path.join(out, "old.deb"), "w").close()
        self.dev("package")  # ends at the look into packages, which are none here
        asked = [call for call in self.calls() if "--build" not in call]
        config = os.path.join(self.made, "CPackConfig.cmake")
        self.assertEqual(asked, [
            "cmake --preset release -DCMAKE_INSTALL_PREFIX=/usr",
            f"cpack --config {config} -G DEB -B {out}",
            "cmake --preset release -DCMAKE_INSTALL_PREFIX=/usr/local",
            f"cpack --config {config} -G TGZ -B {out}",
        ])
        self.assertFalse(os.path.exists(out))

    def test_package_fails_with_the_look_into_what_it_made(self):
        self.stand_in_release()
        folder = os.path.join(self.root, "tests", "consumer")
        os.makedirs(folder)
        for status in (0, 1):
            with open(os.path.join(folder, "packages_test.py"), "w", encoding="utf-8") as file:
                file.write(f"raise SystemExit({status})\n")
            self.assertEqual(self.dev("package").returncode, status)

    def stand_in_demo(self, text):
        os.mkdir(os.path.join(self.root, "examples"))
        with open(os.path.join(self.root, "examples/demo.txt"), "w", encoding="utf-8") as file:
            file.write(text)
        for name in ("pdftoppm", "pdffonts"):
            self.stand_in(name, f'echo "{name} ${{@: -1}}"')

    def test_demo_explains_each_style_of_its_text_once(self):
        self.stand_in_build("", 'printf "[%s]" "$@"; echo')
        self.stand_in_demo(
            "#font DejaVu Sans:600 22\nA\n\n#font DejaVu Sans 11\nB\n\n#font Lato:italic\nC\n\n"
            "#font Lato:300:italic 9.5\nD\n\n#font Lato-Light.ttf 12\nE\n\n#fonts are text\n"
            "\\#font of no paragraph\n#font IPAGothic 14\n#font Lato:italic 30\n")
        done = self.dev("demo")
        self.assertEqual(done.returncode, 0, done.stderr)
        asked = re.findall(r"\[match\](.*)\[--explain\]", done.stdout)
        self.assertEqual(asked, [
            "[DejaVu Sans]", "[IPAGothic]", "[DejaVu Sans][--weight][600]", "[Lato][--italic]",
            "[Lato][--weight][300][--italic]", "[Lato-Light.ttf]",
        ])

    def test_demo_says_where_its_files_are(self):
        self.stand_in_build("", "")
        self.stand_in_demo("text\n")
        done = self.dev("demo")
        self.assertIn("build/demo/demo.pdf", done.stdout)
        self.assertIn("build/demo/demo.png", done.stdout)

    def test_demo_fails_with_the_tool(self):
        self.stand_in_build("", '[ "$1" = match ] || exit 3')
        self.stand_in_demo("text\n")
        self.assertEqual(self.dev("demo").returncode, 3)
        self.stand_in("made", '[ "$1" != match ] || exit 1')
        shutil.move(os.path.join(self.root, "bin/made"),
                    os.path.join(self.root, "build/release/tools/qxfont/qxfont"))
        self.assertEqual(self.dev("demo").returncode, 1)

    def stand_in_guide(self, status):
        os.mkdir(os.path.join(self.root, "tools"))
        with open(os.path.join(self.root, "tools/check_guide.py"), "w", encoding="utf-8") as file:
            file.write(f"print('checked')\nraise SystemExit({status})\n")

    def test_docs_says_where_the_reference_is(self):
        self.stand_in_guide(0)
        self.stand_in("doxygen", 'echo "doxygen $*"')
        done = self.dev("docs")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("build/docs/html/index.html", done.stdout)
        self.assertEqual(done.stderr, "checked\ndoxygen docs/Doxyfile\n")

    def test_docs_fails_on_a_guide_or_a_reference_that_is_not_right(self):
        self.stand_in_guide(1)
        self.stand_in("doxygen", "exit 1")
        done = self.dev("docs")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr, "checked\ndev: docs: the guide differs from its sources\n")
        shutil.rmtree(os.path.join(self.root, "tools"))
        self.stand_in_guide(0)
        done = self.dev("docs")
        self.assertEqual(done.returncode, 1)
        self.assertIn("dev: docs: the reference is incomplete\n", done.stderr)


if __name__ == "__main__":
    unittest.main()
