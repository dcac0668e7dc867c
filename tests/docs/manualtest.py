"""Tests of the manual as it is built: the PDF opens with its outline, and the page has everything
in one file and no reference that leads nowhere."""
import html.parser
import pathlib
import re
import sys
import unittest

SOURCE, PDF, PAGE = map(pathlib.Path, sys.argv[1:4])


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.names, self.references, self.pictures = set(), [], []
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        self.names.add(attributes.get("id"))
        self.references += [attributes["href"]] if "href" in attributes else []
        self.pictures += [attributes["src"]] if tag == "img" else []


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
            self.assertTrue(picture.startswith("data:image/png;base64,"), picture[:80])

    def test_has_no_reference_that_leads_nowhere(self):
        page = Page(PAGE.read_text())
        inside = [name[1:] for name in page.references if name.startswith("#")]
        self.assertGreater(len(inside), 5)
        self.assertEqual([name for name in inside if name not in page.names], [])

    def test_has_no_words_for_the_pdf_alone(self):
        text = PAGE.read_text()
        for word in ("###Page###", "FrameBreak", "|preferences|"):
            self.assertNotIn(word, text)


unittest.main(argv=sys.argv[:1])
