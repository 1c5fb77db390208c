#!/usr/bin/env python3
"""The binding declares what the header declares: every function, record and constant, and nothing else."""

import ctypes
import pathlib
import re
import unittest

from vostel import _declarations as declared
from vostel import _records

HEADER = pathlib.Path(__file__).resolve().parents[3] / "include/vostel.h"

PLAIN = {"int32_t": ctypes.c_int32, "uint32_t": ctypes.c_uint32, "int64_t": ctypes.c_int64,
         "uint64_t": ctypes.c_uint64, "uint8_t": ctypes.c_uint8, "size_t": ctypes.c_size_t,
         "ptrdiff_t": ctypes.c_ssize_t, "double": ctypes.c_double}


def without_comments(text):
    return re.sub(r"//[^\n]*|/\*.*?\*/", "", text, flags=re.DOTALL)


class Header:
    """What a C header of this one's plain form declares."""

    def __init__(self, text):
        text = without_comments(text)
        self.aliases = {name: PLAIN[plain] for plain, name in re.findall(r"typedef (\w+)\s+(Vostel\w+);", text)}
        self.constants, self.records = {}, {}
        for body in re.findall(r"\benum \{(.*?)\}", text, re.DOTALL):
            value = -1
            for entry in filter(None, (part.strip() for part in body.split(","))):
                name, _, given = (part.strip() for part in entry.partition("="))
                value = int(given, 0) if given else value + 1
                self.constants[name] = value
        for name, body in re.findall(r"typedef struct (\w+) \{(.*?)\}", text, re.DOTALL):
            fields = [field.strip() for field in body.split(";") if field.strip()]
            self.records[name] = [self.parameter(field) for field in fields]
        self.functions = {
            name: (result.strip(), [] if of == "void" else [self.parameter(part)[1] for part in of.split(",")])
            for result, name, of in re.findall(r"VOSTEL_CALL\s+([\w\s*]+?)\b(vostel_\w+)\((.*?)\);", text, re.DOTALL)}

    def parameter(self, text):
        """Name and type of `const double* values`."""
        words, stars, name = re.fullmatch(r"([\w\s]+?)(\**)\s*(\w+)", text.strip()).groups()
        return name, self.type(words.replace("const", "").strip(), len(stars))

    def type(self, name, stars):
        if stars and name == "char":
            return ctypes.c_char_p
        if stars and name == "void":
            return ctypes.c_void_p
        if name == "VostelListener":
            return declared.Listener
        found = PLAIN.get(name) or self.aliases.get(name) or getattr(declared, name[len("Vostel"):])
        return ctypes.POINTER(found) if stars else found


class Declarations(unittest.TestCase):
    header = Header(HEADER.read_text(encoding="utf-8"))

    def test_the_header_is_understood(self):
        self.assertGreater(len(self.header.functions), 80)
        self.assertGreater(len(self.header.records), 12)
        self.assertGreater(len(self.header.constants), 60)

    def test_functions_have_the_header_s_parameters(self):
        expected = {name: tuple(of) for name, (_, of) in self.header.functions.items()}
        found = {**declared.TEXTS, **declared.FUNCTIONS}
        self.assertEqual(set(found), set(expected))
        for name in expected:
            self.assertEqual(found[name], expected[name], name)

    def test_three_functions_return_text_and_all_others_a_status(self):
        results = {name: result.replace(" ", "") for name, (result, _) in self.header.functions.items()}
        self.assertEqual({name for name, result in results.items() if result == "constchar*"}, set(declared.TEXTS))
        self.assertEqual({name for name, result in results.items() if result == "VostelStatus"},
                         set(declared.FUNCTIONS))

    def test_records_have_the_header_s_fields(self):
        found = {"Vostel" + name: of._fields_ for name, of in vars(declared).items()
                 if isinstance(of, type) and issubclass(of, ctypes.Structure) and hasattr(of, "_fields_")}
        self.assertEqual(set(found), set(self.header.records))
        for name, fields in self.header.records.items():
            self.assertEqual(list(found[name]), fields, name)

    def test_constants_have_the_header_s_values(self):
        found = {"VOSTEL_" + name: value for name, value in vars(declared).items()
                 if re.fullmatch("[A-Z][A-Z0-9_]*", name) and isinstance(value, int)}
        self.assertEqual(found, self.header.constants)

    def test_the_listener_has_the_header_s_form(self):
        text = re.search(r"typedef void \(\*VostelListener\)\((.*?)\);", HEADER.read_text(encoding="utf-8")).group(1)
        self.assertEqual([self.header.parameter(part)[1] for part in text.split(",")],
                         list(declared.Listener._argtypes_))

    def test_records_for_users_have_the_fields_of_the_library_s(self):
        for name in ("Limits", "View", "Style"):
            fields = [field for field, _ in getattr(declared, name)._fields_ if field != "size"]
            self.assertEqual(list(getattr(_records, name)._fields), fields)
        fields = [field for field, _ in declared.Measures._fields_ if field not in ("size", "valid")]
        self.assertEqual(list(_records.Measures._fields), fields)
        self.assertEqual(list(_records._VALID), fields)

    def test_every_kind_and_event_has_a_word(self):
        block = re.search(r"/// Kinds of objects.*?\};", HEADER.read_text(encoding="utf-8"), re.DOTALL).group(0)
        kinds = set(re.findall(r"VOSTEL_(\w+) =", block))
        self.assertEqual({word.upper() for word in _records.KINDS.values()}, kinds)
        block = re.search(r"/// What listeners can hear of.*?\};", HEADER.read_text(encoding="utf-8"), re.DOTALL)
        events = dict(re.findall(r"VOSTEL_(\w+) = (\d+)", block.group(0)))
        self.assertEqual({event.name: str(event.value) for event in _records.Events}, events)

    def test_a_change_of_the_header_is_found(self):
        text = HEADER.read_text(encoding="utf-8")
        changed = Header(text.replace("vostel_undo(int32_t canvas)", "vostel_undo(int64_t canvas)"))
        self.assertNotEqual(tuple(changed.functions["vostel_undo"][1]), declared.FUNCTIONS["vostel_undo"])
        changed = Header(text.replace("VOSTEL_I16, ", "VOSTEL_I8, VOSTEL_I16, ").replace(
            "    double   top;      ", "    int32_t  top;      "))
        self.assertNotEqual(changed.constants, self.header.constants)
        self.assertNotEqual(changed.records["VostelView"], self.header.records["VostelView"])


if __name__ == "__main__":
    unittest.main()
