#!/usr/bin/env python3
"""Runs check_guide.py over small guides of its own."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
SCRIPT = os.path.join(HERE, "..", "..", "tools", "check_guide.py")

PROGRAM = """#include "qxfontservice/service.h"
int main() {
  // [open]
  if (FontServiceOpen(nullptr, nullptr)) {
    return 5;
  }
  // [open end]
}
"""
PAGE = """# Opening

<!-- examples/open.cpp [open] -->
```cpp
if (FontServiceOpen(nullptr, nullptr)) {
  return 5;
}
```
"""
CONTENTS = "# Guide\n\n- [Opening](opening.md)\n"


class CheckGuideTest(unittest.TestCase):
    def setUp(self):
        self.root = tempfile.mkdtemp(prefix="check-guide-test-")
        self.addCleanup(shutil.rmtree, self.root, ignore_errors=True)
        self.write("include/qxfontservice/service.h", "int FontServiceOpen(const char*, void*);\n")
        self.write("examples/open.cpp", PROGRAM)
        self.write("docs/guide/opening.md", PAGE)
        self.write("docs/guide/README.md", CONTENTS)

    def write(self, name, text):
        path = os.path.join(self.root, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def read(self, name):
        with open(os.path.join(self.root, name), encoding="utf-8") as file:
            return file.read()

    def check(self, *arguments):
        return subprocess.run([sys.executable, SCRIPT, "--root", self.root, *arguments],
                              capture_output=True, encoding="utf-8", check=False)

    def assert_clean(self):
        done = self.check()
        self.assertEqual((done.returncode, done.stderr), (0, ""))

    def assert_error(self, text):
        done = self.check()
        self.assertEqual(done.returncode, 1)
        self.assertIn(text, done.stderr)
        self.assertEqual(done.stderr.count("\n"), 1, done.stderr)

    def test_a_block_as_in_its_source_is_clean(self):
        self.assert_clean()

    def test_a_block_that_differs_is_told_and_written(self):
        self.write("docs/guide/opening.md", PAGE.replace("return 5", "return 6"))
        self.assert_error("docs/guide/opening.md:4: differs from examples/open.cpp [open]")
        self.assertEqual(self.check("--write").returncode, 0)
        self.assertEqual(self.read("docs/guide/opening.md"), PAGE)

    def test_a_source_that_changes_is_told(self):
        self.write("examples/open.cpp", PROGRAM.replace("return 5", "return 7"))
        self.assert_error("differs from examples/open.cpp [open]")

    def test_a_block_without_a_source_is_told(self):
        self.write("docs/guide/opening.md", PAGE + "\n```sh\nls\n```\n")
        self.assert_error("no comment above the block names its source")

    def test_sources_that_are_not_there_are_told(self):
        more = PAGE + "\n<!-- examples/open.cpp [shut] -->\n```cpp\n```\n"
        self.write("docs/guide/opening.md", more)
        self.assert_error("examples/open.cpp has no region [shut]")
        self.write("docs/guide/opening.md", more.replace("open.cpp [shut]", "shut.cpp [shut]"))
        self.assert_error("there is no file examples/shut.cpp")

    def test_a_region_that_no_page_shows_is_told(self):
        self.write("examples/more.cpp", "// [more]\nint more;\n// [more end]\n")
        self.assert_error("examples/more.cpp: no page shows [more]")

    def test_marks_that_do_not_match_are_told(self):
        self.write("examples/more.cpp", "// [more]\nint more;\n")
        self.assert_error("examples/more.cpp: 3: [more] has no end")
        self.write("examples/more.cpp", "// [more end]\n")
        self.assert_error("examples/more.cpp: 1: [more] ends without a beginning")

    def test_marks_inside_a_region_are_left_out(self):
        self.write("examples/open.cpp", PROGRAM.replace(
            "    return 5;\n", "    // [five]\n    return 5;\n    // [five end]\n"))
        self.write("docs/guide/opening.md",
                   PAGE + "\n<!-- examples/open.cpp [five] -->\n```cpp\nreturn 5;\n```\n")
        self.assert_clean()

    def test_regions_of_xml(self):
        self.write("examples/a.xml", "<a>\n  <!-- [b] -->\n  <b/>\n  <!-- [b end] -->\n</a>\n")
        self.write("docs/guide/opening.md",
                   PAGE + "\n<!-- examples/a.xml [b] -->\n```xml\n<b/>\n```\n")
        self.assert_clean()

    def test_links_lead_somewhere(self):
        for link in ("README.md", "#opening", "opening.md#opening", "../../examples/open.cpp",
                     "https://example.org/x"):
            self.write("docs/guide/opening.md", PAGE + f"\n[here]({link})\n")
            self.assert_clean()
        for link in ("gone.md", "#gone", "README.md#gone", "../../examples/gone.cpp"):
            self.write("docs/guide/opening.md", PAGE + f"\n[here]({link})\n")
            self.assert_error(f"{link} leads nowhere")

    def test_the_contents_name_each_page(self):
        self.write("docs/guide/more.md", "# More\n")
        self.assert_error("docs/guide/README.md: does not name more.md")

    def test_names_of_the_interface_are_known(self):
        self.write("docs/guide/opening.md", PAGE + "\n`FontServiceOpen`, `hb_shape`, `--json`.\n")
        self.assert_clean()
        for name in ("FS_Gone", "getGone", "ext::goneWord", "QXGone"):
            self.write("docs/guide/opening.md", PAGE + f"\nCall `{name}(nullptr)`.\n")
            self.assert_error("no header has " + name.split("::")[-1])


if __name__ == "__main__":
    unittest.main()
