#!/usr/bin/env python3
"""Tests of tools/tidy.py: which files count as changed, and through what they are looked at."""

import contextlib
import io
import json
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "tools"))

import tidy  # noqa: E402

# No configuration of the machine: the tests bring an author of their own.
GIT = {
    "PATH": os.environ["PATH"], "GIT_CONFIG_NOSYSTEM": "1", "GIT_CONFIG_GLOBAL": os.devnull,
    "GIT_AUTHOR_NAME": "a", "GIT_AUTHOR_EMAIL": "a@example.org",
    "GIT_COMMITTER_NAME": "a", "GIT_COMMITTER_EMAIL": "a@example.org",
}


class RepositoryTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = os.path.join(folder.name, "origin")
        os.mkdir(self.root)
        self.git("init", "-q", "-b", "main")

    def git(self, *arguments, root=None):
        done = subprocess.run(
            ["git", *arguments], cwd=root or self.root, env=GIT, check=True,
            capture_output=True, text=True,
        )
        return done.stdout.strip()

    def write(self, name, text="\n", root=None):
        path = os.path.join(root or self.root, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def commit(self, *names, root=None):
        for name in names:
            self.write(name, f"// {name} {os.urandom(4).hex()}\n", root)
        self.git("add", "-A", root=root)
        self.git("commit", "-q", "-m", "c", "--allow-empty", root=root)

    def clone(self, *options):
        target = os.path.join(os.path.dirname(self.root), "clone")
        self.git("clone", "-q", *options, "file://" + self.root, target)
        return target


class ChangedFilesTest(RepositoryTest):
    def test_a_branch_is_compared_with_main(self):
        self.commit("a.cpp")
        self.git("checkout", "-q", "-b", "work")
        self.commit("b.cpp")
        self.commit("c.cpp")
        self.assertEqual(tidy.changed_files(self.root), ["b.cpp", "c.cpp"])

    def test_what_main_gained_meanwhile_does_not_count(self):
        self.commit("a.cpp")
        self.git("checkout", "-q", "-b", "work")
        self.commit("b.cpp")
        self.git("checkout", "-q", "main")
        self.commit("d.cpp")
        self.git("checkout", "-q", "work")
        self.assertEqual(tidy.changed_files(self.root), ["b.cpp"])

    def test_main_itself_is_compared_with_some_commits_back(self):
        self.commit("old.cpp")
        for index in range(tidy.FALLBACK_COMMITS):
            self.commit(f"n{index:02}.cpp")
        changed = tidy.changed_files(self.root)
        self.assertEqual(len(changed), tidy.FALLBACK_COMMITS)
        self.assertNotIn("old.cpp", changed)

    def test_a_short_history_gives_the_files_of_the_last_commit(self):
        self.commit("a.cpp")
        self.commit("b.cpp")
        self.assertEqual(tidy.changed_files(self.root), ["b.cpp"])

    def test_the_first_commit_gives_all_its_files(self):
        self.commit("a.cpp", "b.cpp")
        self.assertEqual(tidy.changed_files(self.root), ["a.cpp", "b.cpp"])

    def test_a_clone_of_one_branch_is_compared_with_what_it_tracks(self):
        self.commit("a.cpp")
        self.git("checkout", "-q", "-b", "work")
        clone = self.clone("--single-branch", "--branch", "work")
        self.git("branch", "-q", "-m", "mine", root=clone)
        self.commit("b.cpp", root=clone)
        self.commit("c.cpp", root=clone)
        self.assertEqual(tidy.changed_files(clone), ["b.cpp", "c.cpp"])

    def test_a_clone_without_history_gives_all_files(self):
        self.commit("a.cpp")
        self.commit("b.cpp")
        self.assertEqual(tidy.changed_files(self.clone("--depth", "1")), ["a.cpp", "b.cpp"])

    def test_uncommitted_changes_count_and_deleted_files_do_not(self):
        self.commit("a.cpp", "b.cpp")
        self.git("checkout", "-q", "-b", "work")
        self.commit("c.cpp")
        self.write("a.cpp", "// changed\n")
        os.remove(os.path.join(self.root, "b.cpp"))
        self.assertEqual(tidy.changed_files(self.root), ["a.cpp", "c.cpp"])


class SourcesTest(RepositoryTest):
    SOURCES = ["src/p/a.cpp", "src/p/user.cpp", "tests/p/b_test.cpp", "tests/p/z_test.cpp"]

    def setUp(self):
        super().setUp()
        self.write("src/p/a.cpp", '#include "p/a.h"\n')
        self.write("src/p/user.cpp", '#include "p/a.h"\n#include "p/b.h"\n#include "p/c.h"\n')
        self.write("tests/p/b_test.cpp", '#include "p/b.h"\n')
        self.write("tests/p/z_test.cpp", '#include "p/a.h"\n')

    def check(self, *files):
        return tidy.sources_to_check(self.root, list(files), self.SOURCES)

    def test_a_source_is_checked_itself(self):
        self.assertEqual(self.check("src/p/user.cpp"), ["src/p/user.cpp"])

    def test_a_header_is_seen_through_its_own_source(self):
        self.assertEqual(self.check("src/p/a.h"), ["src/p/a.cpp"])

    def test_a_header_without_source_is_seen_through_its_test(self):
        self.assertEqual(self.check("src/p/b.h"), ["tests/p/b_test.cpp"])

    def test_any_other_header_is_seen_through_who_includes_it(self):
        self.assertEqual(self.check("src/p/c.h"), ["src/p/user.cpp"])

    def test_what_is_not_compiled_is_left_out(self):
        self.assertEqual(self.check("README.md", "src/p/unused.h", "windows.cpp"), [])

    def test_the_library_comes_before_its_tests(self):
        self.assertEqual(
            self.check("tests/p/b_test.cpp", "src/p/user.cpp"),
            ["src/p/user.cpp", "tests/p/b_test.cpp"],
        )

    def test_compiled_sources_leave_out_what_the_build_generated(self):
        entries = [
            {"file": os.path.join(self.root, name)}
            for name in ("src/p/a.cpp", "src/p/a.cpp", "build/asan/made.cpp", "../other.cpp")
        ]
        self.write("build/asan/compile_commands.json", json.dumps(entries))
        self.assertEqual(tidy.compiled_sources(self.root, "build/asan"), ["src/p/a.cpp"])


class TidyTest(RepositoryTest):
    def setUp(self):
        super().setUp()
        self.assertIsNotNone(shutil.which("clang-tidy"), "./dev setup test installs clang-tidy")
        self.write(".clang-tidy", "Checks: '-*,modernize-use-nullptr'\nWarningsAsErrors: '*'\n")
        self.write("good.cpp", "int* p = nullptr;\n")
        self.write("bad.cpp", "int* p = 0;\n")
        self.write("compile_commands.json", json.dumps([
            {"directory": self.root, "file": name, "command": f"c++ -c {name}"}
            for name in ("good.cpp", "bad.cpp")
        ]))

    def run_tidy(self, seconds, *sources):
        checker = tidy.Tidy(self.root, ".", seconds)
        out = io.StringIO()
        with contextlib.redirect_stdout(out):
            for source in sources:
                checker.check(source)
        return checker, out.getvalue()

    def test_findings_are_shown_and_counted(self):
        checker, out = self.run_tidy(None, "good.cpp", "bad.cpp")
        self.assertEqual(checker.failed, ["bad.cpp"])
        self.assertIn("modernize-use-nullptr", out)
        self.assertNotIn("good.cpp", out)

    def test_what_the_time_did_not_reach_is_kept_apart_from_what_is_clean(self):
        checker, _ = self.run_tidy(-1, "good.cpp", "bad.cpp")
        self.assertEqual(checker.left, ["good.cpp", "bad.cpp"])
        self.assertEqual(checker.failed, [])


if __name__ == "__main__":
    unittest.main()
