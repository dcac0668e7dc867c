"""Tests of the manual as it is built: the PDF opens with its outline, and the page has everything
in one file and no reference that leads nowhere; and of its table of presets."""
import html.parser
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

SOURCE, PDF, PAGE, WIDEN = map(pathlib.Path, sys.argv[1:5])


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.names, self.references, self.pictures = set(), [], []
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        self.names.add(attributes.get("id"))
        self.references += [attributes["href"]] if "href" in attributes else []
        self.pictures += [attributes] if tag == "img" else []


class Manual(unittest.TestCase):
    def test_opens_with_its_outline_beside_it(self):
        self.assertIn(b"/PageMode /UseOutlines", PDF.read_bytes())

    def test_has_links_from_page_to_page(self):
        references = re.findall(r"`?[\w: ]+`?_(?=[\s.,;:)])", SOURCE.read_text())
        self.assertGreater(len(references), 5)
        self.assertGreaterEqual(PDF.read_bytes().count(b"/Subtype /Link"), len(references))

    def test_is_one_page_with_all_of_its_pictures(self):
        page = Page(PAGE.read_text())
        pictures = SOURCE.read_text().count(".. image:: ")
        self.assertEqual(len(page.pictures), pictures)
        for picture in page.pictures:
            self.assertTrue(picture["src"].startswith("data:image/png;base64,"), picture["alt"])
            self.assertRegex(picture["alt"], r"^\w.* ")  # for who does not see it, no file's name

    def test_has_no_reference_that_leads_nowhere(self):
        page = Page(PAGE.read_text())
        inside = [name[1:] for name in page.references if name.startswith("#")]
        self.assertGreater(len(inside), 5)
        self.assertEqual([name for name in inside if name not in page.names], [])

    def test_has_the_factorys_presets_with_their_values(self):
        table = SOURCE.read_text().split("\nFactory presets\n")[1].split("In all of them")[0]
        cells = re.findall(r"^   [* ] - (.*)$", table, re.M)[10:]
        rows = {cells[at]: cells[at + 1:at + 5] for at in range(0, len(cells), 5)}
        self.assertEqual(list(rows)[-1], "...31")
        self.assertEqual(len(rows), 26)
        with tempfile.TemporaryDirectory() as home:
            for number, row in rows.items():
                self.assertEqual(row, self.preset(home, number.removeprefix("...")), number)

    @staticmethod
    def preset(home, number):
        """Its name, and its values as the window shows them, frequencies cut to whole hertz."""
        said = subprocess.run([WIDEN, "--preset", number, "--list-presets", "--list-params",
                               "--json"], env={**os.environ, "HOME": home, "XDG_CONFIG_HOME": home},
                              capture_output=True, text=True, check=True).stdout
        told = json.loads(said)
        name, = (preset["name"] for preset in told["presets"] if preset["current"])
        width, frequency, emphasis = (parameter["value"] for parameter in told["parameters"][:3])
        return [name, f"{100 * width:.0f}%", f"{int(20 + 980 * frequency ** 2)}Hz",
                f"{100 * emphasis:.0f}%"]

    def test_has_no_words_for_the_pdf_alone(self):
        text = PAGE.read_text()
        for word in ("###Page###", "FrameBreak", "|preferences|"):
            self.assertNotIn(word, text)


unittest.main(argv=sys.argv[:1])
