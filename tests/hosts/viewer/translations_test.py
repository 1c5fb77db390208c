#!/usr/bin/env python3
"""What a program puts into the texts of the viewer, and how it reads them, is the same in each translation: places
such as %1 and %n, the letter that & marks, dots of a dialog, tags, keys, patterns of files, line breaks and blanks at
the ends."""

import collections
import pathlib
import re
import unittest
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[3]
FOLDER = ROOT / "hosts/viewer/translations"
PLACE = re.compile(r"%L?(?:\d{1,2}|n)")
TAG = re.compile(r"</?[a-z]\w*[^<>]*>")
KEY = re.compile(r"(?:(?:Ctrl|Alt|Shift)\+)+[A-Z0-9]|\bF\d+\b")
PATTERN = re.compile(r"\*\.[\w.]+")    # of files
WIDE = "（），：；、"    # has its blank within
LETTER = re.compile(r"&(?!&)\S")    # a mnemonic; two of them in a row are one to be read


def marks(text):
    """How often each mark is in a text."""
    plain = text.replace("&&", "")
    found = [mark for kind in (PLACE, TAG, KEY, PATTERN) for mark in kind.findall(text)]
    found += ["&"] * len(LETTER.findall(plain))
    found += ["..."] * text.count("...") + ["line break"] * text.count("\n")
    found += ["blank at the start"] * text[:1].isspace() + ["blank at the end"] * text[-1:].isspace()
    return collections.Counter(found)


def differences(source, translation):
    """The marks that one of two texts has more often than the other."""
    first, second = marks(source), marks(translation)
    for end, letter in ("start", translation[:1]), ("end", translation[-1:]):
        if letter and letter in WIDE:
            del first[f"blank at the {end}"]
    return sorted((first - second) | (second - first))


def messages(path):
    """Context, text and each of its translations, which are several where something is counted."""
    for context in xml.etree.ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            forms = translation.findall("numerusform") or [translation]
            for form in forms:
                yield context.findtext("name"), message.findtext("source"), form.text or ""


class Marks(unittest.TestCase):
    def test_a_lost_place_is_found(self):
        self.assertEqual(differences("%1 of %2", "%2"), ["%1"])
        self.assertEqual(differences("Added %n objects of %1", "%1: %1"), ["%1", "%n"])

    def test_places_may_change_their_order(self):
        self.assertEqual(differences("%1 of %2 pictures", "%2 幅图像中的 %1"), [])

    def test_a_lost_letter_and_lost_dots_are_found(self):
        self.assertEqual(differences("&Open...", "打开(O)..."), ["&"])
        self.assertEqual(differences("&Open...", "打开(&O)"), ["..."])
        self.assertEqual(differences("This && that", "这个和那个"), [])

    def test_a_broken_tag_and_blanks_are_found(self):
        self.assertEqual(differences("<p>Qt %1</p>", "<p>Qt %1<p>"), ["</p>", "<p>"])
        self.assertEqual(differences(" px", "px"), ["blank at the start"])
        self.assertEqual(differences(" (straight)", "（直线）"), [])
        self.assertEqual(differences("a\nb", "a b"), ["line break"])

    def test_a_lost_key_and_a_lost_pattern_are_found(self):
        self.assertEqual(differences("Press Ctrl+O or F4", "按 Ctrl+P"), ["Ctrl+O", "Ctrl+P", "F4"])
        self.assertEqual(differences("Table (*.csv)", "表格 (*.cvs)"), ["*.csv", "*.cvs"])


class Translations(unittest.TestCase):
    def test_every_mark_of_every_text_is_kept(self):
        for path in sorted(FOLDER.glob("*.ts")):
            count = 0
            for context, source, translation in messages(path):
                count += 1
                with self.subTest(file=path.name, context=context, source=source):
                    self.assertEqual(differences(source, translation), [], translation)
            self.assertGreater(count, 5, path.name)

    def test_all_translations_of_the_viewer_are_looked_at(self):
        self.assertEqual([path.name for path in sorted(FOLDER.glob("*.ts"))], ["viewer_en.ts", "viewer_zh_CN.ts"])


if __name__ == "__main__":
    unittest.main()
