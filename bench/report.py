#!/usr/bin/env python3
"""Draws the tables and the plot of docs/performance.md from the results of a bench.

    report.py RESULTS.json PAGE.md

What stands between the marks of the page is written anew; the plot goes beside the page, as
performance.svg. Standard library only.
"""

import json
import math
import os
import sys
from xml.sax.saxutils import escape

BEGIN = "<!-- results: written by ./dev bench -->"
END = "<!-- end of the results -->"

# The plot: a bar a row on a scale of powers of ten, a tick where the row has to come.
WIDTH, NAMES, LINE, MARGIN = 900, 420, 20, 30
MET, MISSED, TICK = "#3b7a57", "#b5473c", "#222222"


def number(value):
    """Three digits that count: 0.52, 5.30, 161."""
    if value is None:
        return ""
    if value >= 100:
        return f"{value:,.0f}"
    return f"{value:.3g}" if value < 10 else f"{value:.1f}"


def amount(value, unit):
    """A time in the unit that reads best, or a number of bytes or calls."""
    what, _, rest = unit.partition(" ")
    behind = f" {rest}" if rest else ""
    if what != "ns":
        return f"{number(value)} {unit}"
    for factor, name in ((1e6, "ms"), (1e3, "µs"), (1, "ns")):
        if value >= factor or name == "ns":
            return f"{number(value / factor)} {name}{behind}"
    return ""


def bound(row, value):
    sign = "" if row["goal"] == "at least" else "at most "
    return f"{sign}{number(value)}x" if value else ""


def result_table(rows):
    lines = ["| # | Work | Beside | Ratio | Must | Aim | Ours | Theirs |",
             "|---|---|---|---|---|---|---|---|"]
    for row in rows:
        mark = "" if row["met"] else " (missed)"
        lines.append(
            f"| {row['row']} | {row['name']} | {row['peer']} | {number(row['ratio'])}x{mark} "
            f"| {bound(row, row['must'])} | {bound(row, row['aim'])} "
            f"| {amount(row['ours_ns'], row['unit'])} | {amount(row['peer_ns'], row['unit'])} |")
    return lines


def growth_table(rows):
    lines = ["| Cost | Grows | At most |", "|---|---|---|"]
    for row in rows:
        mark = "" if row["met"] else " (missed)"
        lines.append(f"| {row['name']} | {number(row['ratio'])}{mark} | {number(row['limit'])} |")
    return lines


def remarks(results):
    lines = []
    for key, title in (("not_comparable", "not comparable"), ("left_out", "left out")):
        lines += [f"- {row['name']}: {title}: {row['why']}" for row in results[key]]
    return lines


def head(results):
    machine = results["machine"]
    versions = ", ".join(f"{v['name']} {v['version']}" for v in results["versions"])
    return [f"{machine['processor']}, {machine['cores']} cores, {machine['system']}, "
            f"{machine['compiler']}; load {machine['load']:.2f} when it began. {versions}. "
            f"{results['rounds']} rounds, best against best."]


def text_of(results):
    parts = [head(results), ["![Ratios to the peers](performance.svg)"],
             result_table(results["rows"]), growth_table(results["growth"])]
    if remarks(results):
        parts.append(remarks(results))
    return "\n\n".join("\n".join(part) for part in parts)


def plot(rows):
    """The rows that are compared with other software, as bars of a logarithmic scale."""
    rows = [row for row in rows if row["goal"] == "at least"]
    top = max([10.0] + [row["ratio"] for row in rows] + [row["must"] for row in rows])
    decades = max(1, math.ceil(math.log10(top)))
    scale = (WIDTH - NAMES - 2 * MARGIN) / decades

    def at(ratio):
        return NAMES + max(0.0, math.log10(max(ratio, 1.0))) * scale

    height = LINE * len(rows) + 2 * MARGIN
    out = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{height}" '
           'font-family="sans-serif" font-size="12">',
           f'<rect width="{WIDTH}" height="{height}" fill="white"/>']
    for decade in range(decades + 1):
        x = at(10 ** decade)
        out.append(f'<line x1="{x:.1f}" y1="{MARGIN - 8}" x2="{x:.1f}" y2="{height - MARGIN + 4}" '
                   'stroke="#dddddd"/>')
        out.append(f'<text x="{x:.1f}" y="{MARGIN - 12}" text-anchor="middle">{10 ** decade:,}x'
                   '</text>')
    for index, row in enumerate(rows):
        y = MARGIN + LINE * index
        must = at(row["must"])
        out.append(f'<text x="{NAMES - 8}" y="{y + 13}" text-anchor="end">'
                   f'{escape(row["name"])}: {escape(row["peer"])}</text>')
        out.append(f'<rect x="{NAMES}" y="{y + 3}" width="{at(row["ratio"]) - NAMES:.1f}" '
                   f'height="{LINE - 7}" fill="{MET if row["met"] else MISSED}"/>')
        out.append(f'<line x1="{must:.1f}" y1="{y}" x2="{must:.1f}" y2="{y + LINE - 2}" '
                   f'stroke="{TICK}" stroke-width="2"/>')
        out.append(f'<text x="{max(at(row["ratio"]), must) + 6:.1f}" y="{y + 13}">'
                   f'{number(row["ratio"])}x</text>')
    out.append("</svg>")
    return "\n".join(out) + "\n"


def main(results_path, page_path):
    with open(results_path, encoding="utf-8") as file:
        results = json.load(file)
    with open(page_path, encoding="utf-8") as file:
        page = file.read()
    begin, end = page.find(BEGIN), page.find(END)
    if begin < 0 or end < begin:
        print(f"report: {page_path} has no marks for the results", file=sys.stderr)
        return 1
    page = page[:begin + len(BEGIN)] + "\n" + text_of(results) + "\n" + page[end:]
    with open(page_path, "w", encoding="utf-8") as file:
        file.write(page)
    with open(os.path.join(os.path.dirname(page_path), "performance.svg"), "w",
              encoding="utf-8") as file:
        file.write(plot(results["rows"]))
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
