#!/usr/bin/env python3
"""Lays the manual page beside what the built qxfont tells of itself."""

import os
import re
import subprocess
import unittest

QXFONT = os.environ["QXFONT"]
ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
PAGE = os.path.join(ROOT, "docs", "man", "qxfont.1")
STATUS = os.path.join(ROOT, "tools", "qxfont", "cli", "status.h")
EVERYWHERE = {"-h", "--help"}


def help_of(*command):
    return subprocess.run([QXFONT, *command, "--help"], check=True, capture_output=True,
                          text=True).stdout


def options_of_help(text):
    return {name for line in re.findall(r"(?m)^ +(-[-a-z0-9,]+)", text) for name in line.split(",")}


def commands_of_help(text):
    return re.findall(r"(?m)^  ([a-z][-a-z0-9]*)", text.split("Subcommands:\n")[1])


def options_of_page(text):
    return set(re.findall(r"(?<![-\w])--?[a-z][-a-z0-9]*", text))


class Page:
    """The text of each section and subsection of the page, without its macros and fonts."""

    def __init__(self):
        with open(PAGE, encoding="utf-8") as file:
            self.source = file.read()
        plain = re.sub(r"\\f[A-Z]", "", self.source).replace("\\-", "-")
        self.sections = {}
        self.explained = {}
        for part in re.split(r"(?m)^\.S(?=[HS] )", plain)[1:]:
            head, _, text = part[2:].partition("\n")
            self.explained[head] = options_of_page("\n".join(re.findall(r"\.TP\n(.*)", text)))
            self.sections[head] = re.sub(r"(?m)^\.[A-Z]+ ?", "", text)

    def commands(self):
        """The subsections that are named like a command; the other ones begin with a capital."""
        return [name for name in self.sections if name[0].islower()]

    def options(self, command):
        text = self.sections[command]
        names = options_of_page(text)
        for group in ("Face options", "Source options"):
            if f"[{group.lower()}]" in text:
                names |= options_of_page(self.sections[group])
        return names


class ManualTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.page = Page()
        cls.help = help_of()

    def test_groff_and_its_macros_find_no_fault(self):
        done = subprocess.run(["groff", "-man", "-Tutf8", "-ww", "-z", PAGE], capture_output=True,
                              text=True, check=False)
        self.assertEqual((done.stdout, done.stderr, done.returncode), ("", "", 0))

    def test_the_page_has_the_commands_in_the_order_of_the_help(self):
        self.assertEqual(self.page.commands(), commands_of_help(self.help))

    def test_the_options_of_the_program_itself(self):
        self.assertEqual(options_of_page(self.page.sections["OPTIONS"]),
                         options_of_help(self.help))

    def test_each_command_has_the_options_of_its_help(self):
        for command in commands_of_help(self.help):
            with self.subTest(command=command):
                told = options_of_help(help_of(command)) - EVERYWHERE
                self.assertGreater(len(told), 3)
                self.assertEqual(self.page.options(command), told)
                explained = set().union(*(self.page.explained[section] for section in (
                    command, "Face options", "Source options", "JSON")))
                # Those of "features" are not said twice for "shape".
                if command == "shape":
                    explained |= self.page.explained["features"]
                self.assertEqual(told - explained, set())

    def test_each_command_has_its_arguments(self):
        for command in commands_of_help(self.help):
            synopsis = self.page.sections[command].split("\n\n")[0]
            for name in re.findall(r"(?m)^  ([A-Z]+) TEXT", help_of(command)):
                with self.subTest(command=command, argument=name):
                    self.assertRegex(synopsis, rf"\b{name}\b")

    def test_each_value_of_a_choice_is_named(self):
        for command in commands_of_help(self.help):
            for choice in re.findall(r"one of ([\w, -]+)", help_of(command)):
                for value in choice.split(", "):
                    with self.subTest(command=command, value=value):
                        self.assertRegex(self.page.sections[command], rf"\b{value}\b")

    def test_each_exit_status(self):
        with open(STATUS, encoding="utf-8") as file:
            statuses = re.findall(r"(?m)^  \w+ = (\d+)", file.read())
        self.assertGreater(len(statuses), 6)
        self.assertEqual(re.findall(r"(?m)^(\d+)$", self.page.sections["EXIT STATUS"]), statuses)


if __name__ == "__main__":
    unittest.main()
