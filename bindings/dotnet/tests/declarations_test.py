#!/usr/bin/env python3
"""The assembly declares what the header declares: every function, record and constant, and nothing else; and of the
class library it takes only what every .NET has. Run with the programs of the build in the current folder."""

import collections
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
HEADER = HERE.parents[2] / "include/vostel.h"

# Types of C as .NET has them in memory. Lists and buffers are pointers or arrays of bytes, texts are bytes.
PLAIN = {"int32_t": {"Int32"}, "uint32_t": {"UInt32"}, "int64_t": {"Int64"}, "uint64_t": {"UInt64"},
         "size_t": {"UIntPtr"}, "ptrdiff_t": {"IntPtr"}, "double": {"Double"}, "VostelObject": {"UInt64"},
         "VostelStatus": {"Status:Int32"}, "VostelKind": {"ObjectKind:Int32"}, "VostelPixel": {"PixelType:Int32"},
         "VostelListener": {"NativeListener"}, "char*": {"Byte[]", "Byte*", "IntPtr"}, "void*": {"IntPtr"},
         "uint8_t*": {"Byte*"}}
FLAGS = {"ObjectFlags", "EventTypes", "MeasureFlags"}    # in records; calls take plain numbers
RECORDS = {"VostelEvent": "NativeEvent", "VostelFrame": "NativeFrame", "VostelPlane": "NativePlane",
           "VostelProfile": "NativeProfile"}


def record(name):
    return RECORDS.get(name, name[len("Vostel"):])


def types(name):
    """What a type of C may be."""
    if name in PLAIN:
        return PLAIN[name]
    if not name.endswith("*"):
        return {record(name)}
    return {target + "*" for target in types(name[:-1])}


def pascal(name):
    return "".join(word.capitalize() for word in name.lower().split("_"))


class Header:
    def __init__(self, text):
        text = re.sub(r"//[^\n]*|/\*.*?\*/", "", text, flags=re.DOTALL)
        self.constants, self.records = {}, {}
        for body in re.findall(r"\benum \{(.*?)\}", text, re.DOTALL):
            value = -1
            for entry in filter(None, (part.strip() for part in body.split(","))):
                name, _, given = (part.strip() for part in entry.partition("="))
                value = int(given, 0) if given else value + 1
                self.constants[pascal(name[len("VOSTEL_"):])] = value
        for name, body in re.findall(r"typedef struct (\w+) \{(.*?)\}", text, re.DOTALL):
            self.records[name] = [self.parameter(field) for field in body.split(";") if field.strip()]
        self.functions = {
            name: (result.replace("const", "").replace(" ", ""),
                   [] if of == "void" else [self.parameter(part)[1] for part in of.split(",")])
            for result, name, of in re.findall(r"VOSTEL_CALL\s+([\w\s*]+?)\b(vostel_\w+)\((.*?)\);", text, re.DOTALL)}
        listener = re.search(r"typedef void \(\*VostelListener\)\((.*?)\);", text).group(1)
        self.listener = [self.parameter(part)[1] for part in listener.split(",")]

    def parameter(self, text):
        words, stars, name = re.fullmatch(r"([\w\s]+?)(\**)\s*(\w+)", text.strip()).groups()
        return name, words.replace("const", "").strip() + stars

    def layouts(self, folder):
        """Sizes and offsets, as the compiler of the system has them."""
        lines = ['#include "vostel.h"', "#include <stdio.h>", "int main(void) {"]
        for name, fields in self.records.items():
            lines.append(f'    printf("{name} %zu", sizeof({name}));')
            lines += [f'    printf(" %zu", offsetof({name}, {field}));' for field, _ in fields]
            lines.append('    puts("");')
        source, program = os.path.join(folder, "layouts.c"), os.path.join(folder, "layouts")
        pathlib.Path(source).write_text("\n".join(lines) + "\n    return 0;\n}\n", encoding="ascii")
        subprocess.run([os.environ.get("CC", "cc"), "-I", HEADER.parent, source, "-o", program], check=True)
        printed = subprocess.run([program], check=True, capture_output=True, text=True).stdout
        return {name: [int(number) for number in numbers] for name, *numbers in map(str.split, printed.splitlines())}


class Assembly:
    def __init__(self, printed):
        self.functions, self.records, self.uses = {}, {}, set()
        self.constants = collections.defaultdict(list)
        for line in printed.splitlines():
            what, name, *rest = line.split(" ")
            if what == "function":
                library, convention, result, *parameters = rest
                self.functions[name] = (library, convention, result, [of for of in parameters if of])
            elif what == "record":
                self.records[name] = (int(rest[0]), [])
            elif what == "field":
                self.records[name][1].append((rest[0], int(rest[1]), rest[2]))
            elif what == "constant":
                self.constants[rest[0]].append(int(rest[1]))
            elif what == "listener":
                self.listener = [name, *rest]
            else:
                self.uses.add(line.partition(" ")[2])


class Declarations(unittest.TestCase):
    header = Header(HEADER.read_text(encoding="utf-8"))

    @classmethod
    def setUpClass(cls):
        printed = subprocess.run(["mono", "Cases.exe", "--declarations"], check=True, capture_output=True, text=True)
        cls.assembly = Assembly(printed.stdout)

    def test_the_header_is_understood(self):
        self.assertGreater(len(self.header.functions), 80)
        self.assertGreater(len(self.header.records), 12)
        self.assertGreater(len(self.header.constants), 60)

    def test_functions_have_the_header_s_parameters(self):
        self.assertEqual(set(self.assembly.functions), set(self.header.functions))
        for name, (result, parameters) in self.header.functions.items():
            library, convention, found, declared = self.assembly.functions[name]
            self.assertEqual((library, convention), ("VostelObj", "Cdecl"))
            self.assertIn(found, types(result), name)
            self.assertEqual(len(declared), len(parameters), name)
            for given, expected in zip(declared, parameters):
                self.assertIn(given, types(expected), f"{name}: {expected}")

    def test_records_lie_as_the_compiler_lays_them(self):
        with tempfile.TemporaryDirectory() as folder:
            layouts = self.header.layouts(folder)
        self.assertEqual(set(self.assembly.records), {record(name) for name in self.header.records})
        for name, fields in self.header.records.items():
            size, declared = self.assembly.records[record(name)]
            self.assertEqual([size, *(offset for _, offset, _ in declared)], layouts[name], name)
            self.assertEqual([field for field, _, _ in declared], [pascal(field) for field, _ in fields], name)
            for (field, _, given), (_, expected) in zip(declared, fields):
                enumeration, _, plain = given.partition(":")
                if enumeration in FLAGS:
                    given = plain
                elif expected.endswith("*"):
                    expected = "void*"
                self.assertIn(given, types(expected), f"{name}.{field}")

    def test_constants_have_the_header_s_values(self):
        found = dict(self.assembly.constants)
        self.assertEqual(set(found.pop("None")), {0})
        events = [value for name, value in self.header.constants.items() if found.get(name) and
                  re.search(r"(Added|Chang\w+|Removed|Stale|Destroyed)$", name)]
        self.assertEqual(found.pop("All"), [sum(events)])
        self.assertEqual(found, {name: [value] for name, value in self.header.constants.items()})

    def test_the_listener_takes_two_pointers(self):
        self.assertEqual([name[-1] for name in self.header.listener], ["*", "*"])
        self.assertEqual(self.assembly.listener, ["IntPtr", "IntPtr"])

    def test_only_what_netstandard_2_has_is_used(self):
        """A member that comes new has to be looked up and put into the list."""
        listed = set((HERE / "netstandard2.0.txt").read_text(encoding="utf-8").splitlines())
        self.assertEqual(self.assembly.uses - listed, set())

    def test_a_change_of_the_header_is_found(self):
        text = HEADER.read_text(encoding="utf-8")
        changed = Header(text.replace("vostel_undo(int32_t canvas)", "vostel_undo(int64_t canvas)")
                         .replace("VOSTEL_I16, ", "VOSTEL_I8, VOSTEL_I16, ")
                         .replace("    double   top;      ", "    int32_t  top;      "))
        self.assertNotIn("Int32", types(changed.functions["vostel_undo"][1][0]))
        self.assertNotEqual(changed.constants, self.header.constants)
        with tempfile.TemporaryDirectory() as folder:
            self.assertNotEqual(changed.layouts(folder)["VostelView"][1:], [0, 8, 16, 24, 0])
        self.assertNotEqual(changed.records["VostelView"], self.header.records["VostelView"])


if __name__ == "__main__":
    unittest.main()
