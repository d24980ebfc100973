#!/usr/bin/env python3
"""Tests of tools/check_layers.py, on small trees made in a temporary folder."""

import contextlib
import io
import os
import sys
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "tools"))

import check_layers  # noqa: E402


class LayersTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = folder.name

    def add(self, path, *includes):
        """Writes a file whose lines are the given includes, with their quotes or brackets."""
        self.add_text(path, "".join(f"#include {include}\n" for include in includes))

    def add_text(self, path, text):
        path = os.path.join(self.root, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def errors(self):
        return check_layers.Checker(self.root).errors

    def run_main(self, *arguments):
        """The exit status, standard output and standard error of the program on the tree."""
        out, err = io.StringIO(), io.StringIO()
        with contextlib.redirect_stdout(out), contextlib.redirect_stderr(err):
            status = check_layers.main(["--root", self.root, *arguments])
        return status, out.getvalue(), err.getvalue()


class DirectionTest(LayersTest):
    # Every row, lowest first; the two rows of layer 3 are kept apart by a test of their own.
    ORDER = (
        "include/qxcommon", "include/qxfontservice", "src/common", "src/service/errors",
        "src/font/contract", "src/type1", "src/embed", "src/font", "src/pool", "src/service",
    )

    def name(self, folder):
        return '"' + folder.split("/", 1)[1] + '/a.h"'

    def test_each_row_may_include_every_lower_one(self):
        for index, folder in enumerate(self.ORDER):
            self.add(f"{folder}/a.h", *(self.name(lower) for lower in self.ORDER[:index]))
        self.assertEqual(self.errors(), [])

    def test_no_row_may_include_a_higher_one(self):
        for folder in self.ORDER:
            self.add(f"{folder}/a.h")
        for index, folder in enumerate(self.ORDER):
            for higher in self.ORDER[index + 1:]:
                with self.subTest(folder=folder, higher=higher):
                    self.add(f"{folder}/b.cpp", self.name(higher))
                    errors = self.errors()
                    self.assertEqual(len(errors), 1, errors)
                    self.assertIn(f"{folder}/b.cpp:1", errors[0])
            self.add(f"{folder}/b.cpp")

    def test_contract_and_layout_do_not_see_each_other(self):
        self.add("src/font/contract/a.h")
        self.add("src/layout/b.h", '"font/contract/a.h"')
        self.assertIn("do not see each other", self.errors()[0])
        self.add("src/layout/b.h")
        self.add("src/font/contract/a.h", '"layout/b.h"')
        self.assertIn("do not see each other", self.errors()[0])

    def test_a_subfolder_belongs_to_the_longest_row(self):
        self.assertEqual(check_layers.row_of("src/font/cmap/format4.h").layer, 6)
        self.assertEqual(check_layers.row_of("src/font/contract/font_key.h").layer, 3)
        self.assertEqual(check_layers.row_of("src/service/errors/code.h").layer, 2)

    def test_a_name_that_only_begins_like_a_row_is_another_folder(self):
        self.add("src/fonts/a.h")
        self.assertEqual(self.errors(), ["src/fonts/a.h: no row of the layer table holds its folder"])

    def test_the_library_does_not_see_tests(self):
        self.add("tests/support/a.h")
        self.add("src/pool/b.cpp", '"support/a.h"')
        self.assertIn("sees include/ and src/ only", self.errors()[0])


class OutsideTest(LayersTest):
    def test_tests_see_everything(self):
        self.add("src/service/a.h")
        self.add("include/qxfontservice/b.h")
        self.add("tests/support/c.h")
        self.add("tests/common/d_test.cpp", '"service/a.h"', '"qxfontservice/b.h"', '"support/c.h"')
        self.assertEqual(self.errors(), [])

    def test_builders_see_bytes_and_the_platform_only(self):
        self.add("src/common/bytes/a.h")
        self.add("tests/support/b.h", '"common/bytes/a.h"')
        self.assertEqual(self.errors(), [])
        self.add("src/font/c.h")
        self.add("tests/support/b.h", '"font/c.h"')
        self.assertIn("builders know nothing of the readers", self.errors()[0])

    def test_hosts_see_public_headers_and_their_own(self):
        self.add("include/qxfontservice/a.h")
        self.add("tools/qxfont/style.h")
        self.add("tools/qxfont/pdf/page.cpp", '"qxfontservice/a.h"', '"style.h"', '"pdf/page.h"')
        self.add("tools/qxfont/pdf/page.h")
        self.assertEqual(self.errors(), [])

    def test_hosts_do_not_look_inside(self):
        self.add("src/common/a.h")
        for host in ("tools/qxfont", "examples", "bindings/python", "tests/consumer"):
            self.add(f"{host}/b.cpp", '"common/a.h"')
        errors = self.errors()
        self.assertEqual(len(errors), 4, errors)
        for error in errors:
            self.assertIn("hosts see include/ only", error)

    def test_unknown_folder(self):
        self.add("src/fresh/a.h")
        self.add("elsewhere/b.cpp")
        self.add("src/loose.h")
        self.assertEqual(len(self.errors()), 3)

    def test_the_build_folder_is_not_read(self):
        self.add("build/x/a.h", '"nothing.h"')
        self.assertEqual(self.errors(), [])


class ToolTestsTest(LayersTest):
    """The tests of a tool look inside it, and no other test does."""

    def test_tests_of_tools_name_the_files_of_tools(self):
        self.add("tools/qxfont/cli/a.h")
        self.add("tests/tools/qxfont/a_test.cpp", '"qxfont/cli/a.h"')
        self.assertEqual(self.errors(), [])

    def test_other_tests_do_not(self):
        self.add("tools/qxfont/cli/a.h")
        self.add("tests/common/a_test.cpp", '"qxfont/cli/a.h"')
        self.assertEqual(len(self.errors()), 1)


class SpellingTest(LayersTest):
    def test_project_header_in_angle_brackets(self):
        self.add("include/qxcommon/uri.h")
        self.add("src/common/a.cpp", "<qxcommon/uri.h>", "<vector>", "<unicode/unistr.h>")
        self.assertEqual(
            self.errors(),
            ["src/common/a.cpp:1: project header in angle brackets: <qxcommon/uri.h>"],
        )

    def test_header_of_others_in_quotes(self):
        self.add("src/common/a.cpp", '"zlib.h"')
        self.assertIn("is no project header", self.errors()[0])

    def test_header_named_from_its_own_folder(self):
        self.add("src/font/cmap/format4.h")
        self.add("src/font/cmap/format4.cpp", '"format4.h"')
        self.assertIn('"format4.h" is written "font/cmap/format4.h"', self.errors()[0])

    def test_includes_in_block_comments_do_not_count_but_keep_the_lines(self):
        self.add_text("src/common/a.h", '/*\n#include "gone.h"\n*/\n  #  include "missing.h"\n')
        self.assertEqual(len(self.errors()), 1)
        self.assertIn("src/common/a.h:4", self.errors()[0])

    def test_macros_as_includes_are_left_alone(self):
        self.add_text("src/font/a.cpp", "#include FT_FREETYPE_H\n")
        self.assertEqual(self.errors(), [])


class CircleTest(LayersTest):
    def test_circle_of_files(self):
        self.add("src/common/text/a.h", '"common/text/b.h"')
        self.add("src/common/text/b.h", '"common/text/a.h"')
        self.assertEqual(
            self.errors(),
            ["circle of files: src/common/text/a.h -> src/common/text/b.h -> src/common/text/a.h"],
        )

    def test_a_file_that_includes_itself(self):
        self.add("src/common/a.h", '"common/a.h"')
        self.assertEqual(self.errors(), ["circle of files: src/common/a.h -> src/common/a.h"])

    def test_circle_of_folders_without_a_circle_of_files_names_the_includes(self):
        self.add("src/common/text/a.h", '"common/uri/b.h"')
        self.add("src/common/uri/b.h")
        self.add("src/common/uri/c.h", '"common/text/d.h"')
        self.add("src/common/text/d.h")
        self.assertEqual(self.errors(), [
            "circle of folders: src/common/text -> src/common/uri -> src/common/text",
            "  src/common/text/a.h includes src/common/uri/b.h",
            "  src/common/uri/c.h includes src/common/text/d.h",
        ])

    def test_two_ways_to_one_file_are_no_circle(self):
        self.add("src/common/a.h", '"common/b.h"', '"common/c.h"')
        self.add("src/common/b.h", '"common/d.h"')
        self.add("src/common/c.h", '"common/d.h"')
        self.add("src/common/d.h")
        self.assertEqual(self.errors(), [])

    def test_a_long_chain_does_not_exhaust_the_walk(self):
        count = 3000
        for index in range(count):
            self.add(f"src/common/h{index}.h", f'"common/h{index + 1}.h"')
        self.add(f"src/common/h{count}.h")
        self.assertEqual(self.errors(), [])


class GraphTest(LayersTest):
    PAGE = "docs/architecture.md"

    def setUp(self):
        super().setUp()
        self.add("include/qxcommon/a.h")
        self.add("src/common/bytes/b.h", '"qxcommon/a.h"')
        self.add("src/font/c.h", '"common/bytes/b.h"', '"qxcommon/a.h"')
        self.marks = f"{check_layers.GRAPH_BEGIN}\n{check_layers.GRAPH_END}\n"

    def page(self):
        with open(os.path.join(self.root, self.PAGE), encoding="utf-8") as file:
            return file.read()

    def test_graph_lists_layers_folders_and_what_they_include(self):
        graph = check_layers.graph_text(check_layers.Checker(self.root))
        self.assertEqual(graph.split("\n"), [
            "```text",
            "0  include/qxcommon",
            "1  src/common/bytes  include/qxcommon",
            "6  src/font          include/qxcommon, src/common/bytes",
            "```",
        ])

    def test_stale_graph_fails_and_write_refreshes_it(self):
        self.add_text(self.PAGE, "# Before\n" + self.marks + "after\n")
        status, _, err = self.run_main()
        self.assertEqual(status, 1)
        self.assertIn("stale", err)
        self.assertEqual(self.run_main("--write")[0], 0)
        self.assertEqual(self.run_main()[0], 0)
        self.assertTrue(self.page().startswith("# Before\n"))
        self.assertTrue(self.page().endswith("after\n"))

    def test_a_new_include_makes_the_graph_stale(self):
        self.add_text(self.PAGE, self.marks)
        self.run_main("--write")
        self.add("src/pool/d.h", '"font/c.h"')
        self.assertEqual(self.run_main()[0], 1)

    def test_writing_twice_changes_nothing(self):
        self.add_text(self.PAGE, self.marks)
        self.run_main("--write")
        before = self.page()
        self.run_main("--write")
        self.assertEqual(self.page(), before)

    def test_page_without_marks_fails(self):
        self.add_text(self.PAGE, "nothing here\n")
        self.assertEqual(self.run_main()[0], 1)
        self.assertEqual(self.run_main("--write")[0], 1)
        self.assertEqual(self.page(), "nothing here\n")

    def test_missing_page_fails(self):
        self.assertEqual(self.run_main()[0], 1)

    def test_print_shows_the_graph(self):
        self.add_text(self.PAGE, self.marks)
        self.assertIn("src/common/bytes", self.run_main("--print")[1])

    def test_an_error_of_layers_fails_the_run_though_the_graph_is_fresh(self):
        self.add_text(self.PAGE, self.marks)
        self.add("src/common/up.cpp", '"font/c.h"')
        status, _, err = self.run_main("--write")
        self.assertEqual(status, 1)
        self.assertIn("upward", err)


if __name__ == "__main__":
    unittest.main()
