#!/usr/bin/env python3
"""Writes a Jet database for the tests: jet_file.py STORE VERSION FILE [--loop].

Copies the tables of STORE, a SQLite file, to FILE, of version 3 or 4. A blob contains the unchanged bytes of a text. A
column with a long text becomes one of long texts. Each table also contains two copies of its first row, one deleted and
one abandoned, and its last row has moved. With --loop the first part of each long text is followed by itself.
"""
import sqlite3
import struct
import sys

BOOL, INT, LONG, DATETIME, TEXT, OLE, MEMO = 1, 3, 4, 8, 10, 11, 12
TYPES = {"TEXT": TEXT, "MEMO": MEMO, "BOOLEAN": BOOL, "SMALLINT": INT, "INTEGER": LONG,
         "DATETIME": DATETIME}
FORMATS = {BOOL: "", INT: "<h", LONG: "<i", DATETIME: "<d"}
CATALOG = [("Id", LONG), ("ParentId", LONG), ("Name", TEXT), ("Type", INT), ("Flags", LONG), ("LvProp", OLE)]
MOVED, FROM_ELSEWHERE = 0x4000, 0x8000
DELETED = MOVED | FROM_ELSEWHERE


class Layout:
    """The offsets in the pages of an engine's version."""

    def __init__(self, jet):
        self.jet4 = jet == 4
        self.page = 4096 if self.jet4 else 2048
        self.rows_at = 12 if self.jet4 else 8          # the number of rows in a data page
        self.table_rows = 16 if self.jet4 else 12      # in a table's page: rows, columns, maps, first column
        self.table_columns = 45 if self.jet4 else 25
        self.table_maps = 55 if self.jet4 else 35
        self.columns_at = 63 if self.jet4 else 43
        self.column_size = 25 if self.jet4 else 18


def rc4(key, data):
    state, j, out = list(range(256)), 0, bytearray()
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) % 256
        state[i], state[j] = state[j], state[i]
    i = j = 0
    for byte in data:
        i = (i + 1) % 256
        j = (j + state[i]) % 256
        state[i], state[j] = state[j], state[i]
        out.append(byte ^ state[(state[i] + state[j]) % 256])
    return bytes(out)


def compressed(units):
    """Returns Latin letters as one byte each, with a zero byte to switch to two bytes and back, or None if impossible."""
    out, narrow = bytearray(b"\xff\xfe"), True
    for at in range(0, len(units), 2):
        low, high = units[at], units[at + 1]
        if low == 0:
            return None
        if (high == 0) != narrow:
            out.append(0)
            narrow = not narrow
        out += bytes([low]) if narrow else bytes([low, high])
    return bytes(out)


class Column:
    def __init__(self, name, kind, number, fixed_at, variable):
        self.name, self.kind, self.number = name, kind, number
        self.fixed_at, self.variable = fixed_at, variable
        self.fixed = kind in FORMATS
        self.size = struct.calcsize(FORMATS[kind]) if self.fixed else 255


class JetFile:
    def __init__(self, jet, loops):
        self.loops = loops
        self.layout = Layout(jet)
        self.pages = [self.first_page(jet)] + [self.empty_page() for _ in range(4)]
        self.kept = []
        self.objects = []

    def empty_page(self):
        return bytearray(self.layout.page)

    def first_page(self, jet):
        page = self.empty_page()
        page[0:20] = b"\x00\x01\x00\x00Standard Jet DB\x00"
        page[20] = 1 if jet == 4 else 0
        length = 128 if jet == 4 else 126
        secret = bytearray(length)
        struct.pack_into("<H", secret, (0x6E if jet == 4 else 0x3A) - 0x18, 0x411)
        struct.pack_into("<H", secret, 0x3C - 0x18, 932)
        page[0x18:0x18 + length] = rc4(b"\xc7\xda\x39\x6b", bytes(secret))
        return page

    def new_page(self):
        if self.kept:
            return self.kept.pop()
        self.pages.append(self.empty_page())
        return len(self.pages) - 1

    def text(self, value):
        if isinstance(value, bytes):
            return value
        if not self.layout.jet4:
            return value.encode("cp932")
        plain = value.encode("utf-16-le")
        short = compressed(plain)
        return short if short is not None and len(short) < len(plain) else plain

    # Data pages.

    def data_page(self, owner):
        number = self.new_page()
        page = self.pages[number]
        page[0:2] = b"\x01\x01"
        page[4:8] = owner
        return number

    def put_row(self, number, row, flags=0):
        """Returns the row's place in the page, or None if there is no space."""
        page, at = self.pages[number], self.layout.rows_at
        count = struct.unpack_from("<H", page, at)[0]
        end = struct.unpack_from("<H", page, at + 2 * count)[0] & 0x1FFF if count else self.layout.page
        start = end - len(row)
        if start < at + 2 + 2 * (count + 1):
            return None
        page[start:end] = row
        struct.pack_into("<H", page, at + 2 + 2 * count, start | flags)
        struct.pack_into("<H", page, at, count + 1)
        struct.pack_into("<H", page, 2, start - at - 4 - 2 * count)
        return number << 8 | count

    def long_value(self, data):
        """Stores a text in the row, in one page, or in a chain of pages, by its length."""
        most = self.layout.page - 200
        if len(data) <= 64:
            return struct.pack("<IIi", len(data) | 0x80000000, 0, 0) + data
        if len(data) <= most:
            return struct.pack("<IIi", len(data) | 0x40000000, self.put_row(self.data_page(b"LVAL"), data), 0)
        place = 0
        for at in reversed(range(0, len(data), most)):
            place = self.put_row(self.data_page(b"LVAL"), struct.pack("<I", place) + data[at:at + most])
        if self.loops:
            page = self.pages[place >> 8]
            struct.pack_into("<I", page, struct.unpack_from("<H", page, self.layout.rows_at + 2)[0], place)
        return struct.pack("<IIi", len(data), place, 0)

    def row(self, columns, values):
        fixed, mask = bytearray(), bytearray((len(columns) + 7) // 8)
        variable = [b""] * sum(not column.fixed for column in columns)
        for column, value in zip(columns, values):
            if value is not None and not (column.kind == BOOL and not value):
                mask[column.number // 8] |= 1 << column.number % 8
            if column.fixed:
                number = struct.pack(FORMATS[column.kind], value or 0) if column.kind != BOOL else b""
                fixed[column.fixed_at:column.fixed_at + len(number)] = number
            elif value is not None:
                data = self.text(value)
                variable[column.variable] = data if column.kind == TEXT else self.long_value(data)
        return self.assembled(len(columns), bytes(fixed), variable, bytes(mask))

    def assembled(self, count, fixed, variable, mask):
        body = struct.pack("<H" if self.layout.jet4 else "<B", count) + fixed
        offsets = []
        for data in variable:
            offsets.append(len(body))
            body += data
        offsets.append(len(body))
        if self.layout.jet4:
            table = b"".join(struct.pack("<H", offset) for offset in reversed(offsets))
            return body + table + struct.pack("<H", len(variable)) + mask
        jumps = 0
        while (len(body) + len(offsets) + jumps + len(mask)) // 256 > jumps:
            jumps += 1
        first = [next((i for i, offset in enumerate(offsets) if offset >= 256 * (jump + 1)), 255)
                 for jump in range(jumps)]
        table = bytes(offset % 256 for offset in reversed(offsets))
        return body + table + bytes(reversed(first)) + bytes([len(variable)]) + mask

    # Tables.

    def add_table(self, name, described, rows, deleted=(), page=None):
        columns, fixed_at, variable = [], 0, 0
        for place, (column, kind) in enumerate(described):
            columns.append(Column(column, kind, place, fixed_at, variable))
            if columns[-1].fixed:
                fixed_at += columns[-1].size
            else:
                variable += 1
        number = self.new_page() if page is None else page
        maps = self.usage_maps(number, self.put_rows(number, columns, rows, deleted))
        self.put_definition(number, columns, len(rows), maps)
        self.objects.append((number, 0x0F000001, name, 1, 0, None))

    def put_rows(self, owner, columns, rows, deleted):
        used = []

        def put(row, flags):
            place = self.put_row(used[-1], row, flags) if used else None
            if place is None:
                used.append(self.data_page(struct.pack("<I", owner)))
                place = self.put_row(used[-1], row, flags)
                if place is None:
                    raise ValueError("a row is longer than a page")
            return place

        for flags, some in ((DELETED, deleted), (FROM_ELSEWHERE, deleted), (0, rows[:-1])):
            for values in some:
                put(self.row(columns, values), flags)
        for values in rows[-1:]:
            put(struct.pack("<I", put(self.row(columns, values), FROM_ELSEWHERE)), MOVED)
        return used

    def usage_maps(self, owner, used):
        number = self.data_page(struct.pack("<I", owner))
        first = used[0] if used else 0
        bits = bytearray(max(64, (used[-1] - first) // 8 + 1 if used else 0))
        for page in used:
            bits[(page - first) // 8] |= 1 << (page - first) % 8
        place = self.put_row(number, struct.pack("<BI", 0, first) + bytes(bits))
        self.put_row(number, struct.pack("<BI", 0, 0) + bytes(64))
        return place

    def put_definition(self, number, columns, rows, maps):
        layout = self.layout
        body = bytearray(layout.columns_at)
        struct.pack_into("<I", body, layout.table_rows, rows)
        variable = sum(not column.fixed for column in columns)
        struct.pack_into("<BHHH", body, layout.table_columns - 5, 0x4E, len(columns), variable, len(columns))
        struct.pack_into("<II", body, layout.table_maps, maps, maps + 1)
        for column in columns:
            entry = bytearray(layout.column_size)
            entry[0] = column.kind
            flags = 3 if column.fixed else 2
            if layout.jet4:
                struct.pack_into("<IHHHH", entry, 1, 0x659, column.number, column.variable, column.number, 0x411)
                struct.pack_into("<BB", entry, 15, flags, 1)
                struct.pack_into("<HH", entry, 21, column.fixed_at, column.size if column.fixed else 2 * column.size)
            else:
                struct.pack_into("<HHHH", entry, 1, column.number, column.variable, column.number, 0x411)
                struct.pack_into("<BHH", entry, 13, flags, column.fixed_at, column.size)
            body += entry
        for column in columns:
            name = column.name.encode("utf-16-le") if layout.jet4 else column.name.encode("cp932")
            body += struct.pack("<H" if layout.jet4 else "<B", len(name)) + name
        body += b"\xff\xff"
        struct.pack_into("<I", body, 8, len(body))
        self.put_over_pages(number, bytes(body))

    def put_over_pages(self, number, body):
        size = self.layout.page
        self.pages[number][:] = body[:size].ljust(size, b"\0")
        self.pages[number][0:4] = b"\x02\x01VC"
        rest = body[size:]
        while rest:
            following = self.new_page()
            struct.pack_into("<I", self.pages[number], 4, following)
            self.pages[following][:] = (b"\x02\x01VC\0\0\0\0" + rest[:size - 8]).ljust(size, b"\0")
            number, rest = following, rest[size - 8:]

    def write(self, path):
        self.kept = [4, 3]  # for the catalog, so that a truncated file still contains it
        self.add_table("MSysObjects", CATALOG, list(self.objects), page=2)
        with open(path, "wb") as file:
            file.write(b"".join(self.pages))


def main():
    store = sqlite3.connect(sys.argv[1])
    jet = JetFile(int(sys.argv[2]), sys.argv[4:] == ["--loop"])
    for (name,) in store.execute("SELECT name FROM sqlite_schema WHERE type = 'table'").fetchall():
        rows = store.execute(f"SELECT * FROM {name}").fetchall()
        described = [[column[1], TYPES[column[2]]] for column in store.execute(f"PRAGMA table_info({name})")]
        for place, column in enumerate(described):
            if any(isinstance(row[place], str) and len(row[place]) > 255 for row in rows):
                column[1] = MEMO
        jet.add_table(name, described, rows, rows[:1])
    jet.write(sys.argv[3])


main()
