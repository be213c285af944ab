#!/usr/bin/env python3
"""Writes a Jet 3 or Jet 4 database for tests: writeJet.py TABLES.json OUTPUT.mdb [3|4].

TABLES.json is a list of {"name", "columns": [[name, type], ...], "rows": [[value, ...], ...]}, null for NULL; the types
are those of TYPES below. "lies": a count of rows other than the true one for the table's definition, as a file has it
that was not closed in order. "link": true makes it a table of another database.

What is written is what a reader needs: the header, the catalogue of objects, and of each table its definition, its map of
pages and its rows. There are no indexes and no properties.
"""
import json
import struct
import sys

TYPES = {"bool": (1, 0), "byte": (2, 1), "int": (3, 2), "long": (4, 4), "money": (5, 8), "single": (6, 4),
         "double": (7, 8), "date": (8, 8), "binary": (9, None), "text": (10, None), "ole": (11, None),
         "memo": (12, None)}
PACK = {"byte": "<B", "int": "<h", "long": "<i", "single": "<f", "double": "<d", "date": "<d"}
DATA, DEFINITION = 1, 2
OBJECTS_PAGE = 2  # where the catalogue of objects always is


def rc4(key, data):
    state = list(range(256))
    j = 0
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) % 256
        state[i], state[j] = state[j], state[i]
    i = j = 0
    out = bytearray()
    for byte in data:
        i = (i + 1) % 256
        j = (j + state[i]) % 256
        state[i], state[j] = state[j], state[i]
        out.append(byte ^ state[(state[i] + state[j]) % 256])
    return bytes(out)


class Database:
    def __init__(self, version, codepage):
        self.is_jet3 = version == 3
        self.codepage = codepage
        self.page_size = 2048 if self.is_jet3 else 4096
        self.pages = [b""] * 3  # header, map of all pages, catalogue of objects

    def add(self, page=b""):
        self.pages.append(page)
        return len(self.pages) - 1

    def encoded(self, text):
        if self.is_jet3:
            return text.encode(f"cp{self.codepage}")
        try:  # as the program of the format does: one byte a letter where that is enough
            if 2 < len(text) < 512 and "\0" not in text:
                return b"\xff\xfe" + text.encode("latin-1")
        except UnicodeEncodeError:
            pass
        return text.encode("utf-16-le")

    def data_page(self, owner, rows):
        """A page of rows; `owner` is the page of the table's definition, or b"LVAL"."""
        head = 10 if self.is_jet3 else 14
        page = bytearray(self.page_size)
        end = self.page_size
        for number, row in enumerate(rows):
            end -= len(row)
            page[end:end + len(row)] = row
            struct.pack_into("<H", page, head + 2 * number, end)
        assert end >= head + 2 * len(rows), "the rows do not fit the page"
        struct.pack_into("<BBH", page, 0, DATA, 1, end - head - 2 * len(rows))
        page[4:8] = owner if isinstance(owner, bytes) else struct.pack("<I", owner)
        struct.pack_into("<H", page, head - 2, len(rows))
        return bytes(page)

    def long_value(self, data):
        """The twelve bytes that stand in the row, with the value behind them where it is short."""
        if len(data) <= 64:
            return struct.pack("<III", len(data) | 0x80000000, 0, 0) + data
        room = self.page_size - 20
        if len(data) <= room:
            page = self.add(self.data_page(b"LVAL", [data]))
            return struct.pack("<III", len(data) | 0x40000000, page << 8, 0)
        pieces = [data[at:at + room] for at in range(0, len(data), room)]
        following = 0
        for piece in reversed(pieces):
            following = self.add(self.data_page(b"LVAL", [struct.pack("<I", following) + piece])) << 8
        return struct.pack("<III", len(data), following, 0)

    def variable(self, kind, value):
        if kind == "text":
            return self.encoded(value)
        if kind == "memo":
            return self.long_value(self.encoded(value))
        raw = bytes.fromhex(value)
        return raw if kind == "binary" else self.long_value(raw)

    def row(self, columns, values):
        fixed, variable, nulls = bytearray(), [], bytearray((len(columns) + 7) // 8)
        for number, ((_, kind), value) in enumerate(zip(columns, values)):
            size = TYPES[kind][1]
            if value is not None and (kind != "bool" or value):
                nulls[number // 8] |= 1 << number % 8
            if size is None:
                variable.append(b"" if value is None else self.variable(kind, value))
            elif kind == "money":
                fixed += struct.pack("<q", round((value or 0) * 10000))
            elif size:
                fixed += struct.pack(PACK[kind], value or 0)
        if self.is_jet3:
            return self.row3(len(columns), fixed, variable, nulls)
        body = struct.pack("<H", len(columns)) + fixed
        offsets = []
        for value in variable:
            offsets.append(len(body))
            body += value
        if variable:
            offsets.append(len(body))
            body += b"".join(struct.pack("<H", offset) for offset in reversed(offsets))
            body += struct.pack("<H", len(variable))
        return bytes(body + nulls)

    @staticmethod
    def row3(count, fixed, variable, nulls):
        body = bytes([count]) + fixed
        if not variable:
            return bytes(body + nulls)
        offsets = []
        for value in variable:
            offsets.append(len(body))
            body += value
        offsets.append(len(body))
        # Offsets are bytes: a table says at which of them the next 256 begin.
        jumps = 0
        while (len(body) + len(offsets) + jumps + 1 + len(nulls) - 1) // 256 > jumps:
            jumps += 1
        firsts = [next((i for i, offset in enumerate(offsets) if offset >= 256 * (j + 1)), 0xff)
                  for j in range(jumps)]
        body += bytes(offset % 256 for offset in reversed(offsets))
        body += bytes(reversed(firsts))
        return bytes(body + bytes([len(variable)]) + nulls)

    def definition(self, table, row_count, map_page):
        columns = table["columns"]
        is_system = table["name"].startswith("MSys")
        variable_count = sum(TYPES[kind][1] is None for _, kind in columns)
        counts = struct.pack("<BHHHIIII", 0x53 if is_system else 0x4e, len(columns), variable_count, len(columns),
                             0, 0, map_page << 8, map_page << 8 | 1)
        if self.is_jet3:
            body = struct.pack("<II", row_count, 0) + counts
        else:
            body = struct.pack("<IIIIIQ", 0, row_count, 0, 1, 0, 0) + counts
        offset, place = 0, 0
        for number, (_, kind) in enumerate(columns):
            code, size = TYPES[kind]
            flags = 2 | (size is not None)
            length = size if size is not None else 0 if kind in ("memo", "ole") else 255 if self.is_jet3 else 510
            if self.is_jet3:
                body += struct.pack("<BHHHHHHBHH", code, number, place, number, 0x409, self.codepage, 0, flags,
                                    offset, length)
            else:
                body += struct.pack("<BIHHHHHBBIHH", code, 0, number, place, number, 0x409, 0, flags, 1, 0, offset,
                                    length)
            offset += size or 0
            place += size is None
        for name, _ in columns:
            text = name.encode(f"cp{self.codepage}" if self.is_jet3 else "utf-16-le")
            body += struct.pack("<B" if self.is_jet3 else "<H", len(text)) + text
        return struct.pack("<I", len(body) + 12) + body + b"\xff\xff"

    def write_definition(self, body, first):
        """Over as many pages as it needs, the first of them `first`."""
        room = self.page_size - 8
        pieces = [body[at:at + room] for at in range(0, len(body), room)]
        pages = [first] + [self.add() for _ in pieces[1:]]
        for number, piece in enumerate(pieces):
            following = pages[number + 1] if number + 1 < len(pages) else 0
            mark = b"VC" if self.is_jet3 else struct.pack("<H", room - len(piece))
            page = struct.pack("<BB", DEFINITION, 1) + mark + struct.pack("<I", following) + piece
            self.pages[pages[number]] = page.ljust(self.page_size, b"\0")

    def write_table(self, table, first):
        rows = [self.row(table["columns"], values) for values in table["rows"]]
        head = 10 if self.is_jet3 else 14
        used, at = [], 0
        while at < len(rows):
            filled, end = [], head
            while at < len(rows) and len(filled) < 200 and end + 2 + len(rows[at]) <= self.page_size:
                end += 2 + len(rows[at])
                filled.append(rows[at])
                at += 1
            assert filled, f"a row of {table['name']} is longer than a page"
            used.append(self.add(self.data_page(first, filled)))
        bits = bytearray(self.page_size // 2)
        for page in used:
            bits[page // 8] |= 1 << page % 8
        maps = [b"\0" + struct.pack("<I", 0) + content for content in (bytes(bits), bytes(64))]
        map_page = self.add(self.data_page(1, maps))
        self.write_definition(self.definition(table, table.get("lies", len(rows)), map_page), first)

    def header(self):
        page = bytearray(self.page_size)
        page[0:20] = b"\0\1\0\0Standard Jet DB\0"
        page[0x14] = 0 if self.is_jet3 else 1
        struct.pack_into("<HHI", page, 0x3a, 0x409, self.codepage, 0)
        end = 0x18 + (126 if self.is_jet3 else 128)
        page[0x18:end] = rc4(bytes([0xc7, 0xda, 0x39, 0x6b]), bytes(page[0x18:end]))
        return bytes(page)

    def write(self, tables, output):
        objects = {"name": "MSysObjects",
                   "columns": [["Id", "long"], ["ParentId", "long"], ["Name", "text"], ["Type", "int"],
                               ["Flags", "long"], ["LvProp", "ole"]],
                   "rows": [[OBJECTS_PAGE, 0, "MSysObjects", 1, -0x80000000, None]]}
        for table in tables:
            first = self.add()
            self.write_table(table, first)
            objects["rows"].append([first, 0, table["name"], 6 if table.get("link") else 1, 0, None])
        self.write_table(objects, OBJECTS_PAGE)
        self.pages[0] = self.header()
        with open(output, "wb") as file:
            for page in self.pages:
                file.write(page.ljust(self.page_size, b"\0"))


def main(source, output, version="4", codepage="1252"):
    with open(source, encoding="utf-8") as file:
        tables = json.load(file)
    Database(int(version), int(codepage)).write(tables, output)


if __name__ == "__main__":
    main(*sys.argv[1:])
