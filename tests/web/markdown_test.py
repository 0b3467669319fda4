"""Markdown as a renderer takes it: every row of a table has the cells of its heading, and its texts."""

import html.parser
import json
import os
import subprocess
import tempfile
import unittest

import products

PARAMTOOL = os.environ.get("PARAMTOOL", "build/plain/paramtool")
COLUMNS = ["key", "what it is", "type", "unit", "default", "offset", "read"]


class Tables(html.parser.HTMLParser):
    """The texts of all cells, by tables and rows. What markup a text holds is its text."""

    def __init__(self, rendered):
        super().__init__()
        self.tables = []
        self.cell = None
        self.feed(rendered)

    def handle_starttag(self, tag, attrs):
        if tag == "table":
            self.tables.append([])
        elif tag == "tr":
            self.tables[-1].append([])
        elif tag in ("th", "td"):
            self.cell = ""

    def handle_data(self, data):
        if self.cell is not None:
            self.cell += data

    def handle_endtag(self, tag):
        if tag in ("th", "td"):
            self.tables[-1][-1].append(self.cell)
            self.cell = None


def output(*command):
    """What a command prints. The differences of two trees are no failure."""
    done = subprocess.run(command, capture_output=True, timeout=300)
    if done.returncode > (1 if command[1] == "diff" else 0):
        raise AssertionError(done.stderr.decode())
    return done.stdout.decode()


def render(text):
    done = subprocess.run(["cmark-gfm", "-e", "table"], input=text.encode(), check=True,
                          capture_output=True, timeout=60)
    return done.stdout.decode()


class MarkdownTest(unittest.TestCase):
    def check_shape(self, rendered):
        """The tables. Nothing in the text is left over as a row or read as markup."""
        tables = Tables(rendered).tables
        for table in tables:
            self.assertEqual({len(row) for row in table}, {len(table[0])}, table[0])
        for leftover in ["raw HTML omitted", "<p>|"]:
            self.assertFalse(leftover in rendered, leftover)
        return tables

    def test_the_reference_has_a_whole_row_for_each_key(self):
        keys = json.loads(output(PARAMTOOL, "reference", "--format=json"))["keys"]
        tables = self.check_shape(render(output(PARAMTOOL, "reference", "--format=markdown")))
        rows = [row for table in tables for row in table[1:]]
        self.assertTrue(all(table[0] == COLUMNS for table in tables))
        self.assertEqual(len(rows), len(keys))
        for row, key in zip(rows, keys):
            about = ": ".join(key[name] for name in ("about", "numbers") if name in key)
            rest = [key.get(name, "") for name in ("type", "unit", "default", "offset", "condition")]
            self.assertEqual(row, [key["key"], about, *rest])

    def test_the_format_document_has_its_tables(self):
        path = os.path.join(products.ROOT, "docs", "format.md")
        with open(path, encoding="utf-8") as file:
            # What is made stands between comments.
            text = "".join(line for line in file if not line.startswith("<!--"))
        tables = self.check_shape(render(text))
        lines = [line for line in text.splitlines() if line.startswith("|")]
        rulers = [line for line in lines if set(line) <= set("|-: ")]
        self.assertEqual(len(tables), len(rulers))
        self.assertEqual(sum(map(len, tables)), len(lines) - len(rulers))

    def test_differences_of_hostile_texts_stay_in_their_cells(self):
        with tempfile.TemporaryDirectory() as home:
            example = products.example(os.path.join(home, "example"))
            hostile = products.hostile(os.path.join(home, "hostile"))
            tables = self.check_shape(render(
                output(PARAMTOOL, "diff", "--format=markdown", example, hostile)))
        self.assertEqual(len(tables), 1)
        cells = [cell for row in tables[0] for cell in row]
        for text in ["<script>attacked=1</script>", "a|b`c`*d*_e_ [f](g)"]:
            self.assertTrue(any(text in cell for cell in cells), text)


if __name__ == "__main__":
    unittest.main()
