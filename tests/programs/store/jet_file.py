#!/usr/bin/env python3
"""Writes a Jet database for the tests: jet_file.py STORE VERSION FILE [--loop].

Copies the tables of STORE, a SQLite file, to FILE, of version 3 or 4. A blob contains the unchanged bytes of a text. A
column with a long text becomes one of long texts. Each table also contains two copies of its first row, one deleted and
one abandoned, and its last row has moved. With --loop the first part of each long text is followed by itself.
"""
import collections
import itertools
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
CODE_PAGE_932_WITHOUT_A_KEY = bytes.fromhex("df41fb8abc4e")  # under the fixed cipher of the first page

Column = collections.namedtuple("Column", "name kind number fixed fixed_at variable size")


def compressed(text):
    """Returns Latin letters as one byte each, with a zero byte to switch to two bytes and back."""
    runs = ["".join(run) for _, run in itertools.groupby(text, lambda letter: letter < "\u0100")]
    parts = [run.encode("latin-1" if run < "\u0100" else "utf-16-le") for run in runs]
    return b"\xff\xfe" + (b"\0" if text >= "\u0100" else b"") + b"\0".join(parts)


class JetFile:
    def __init__(self, jet, loops):
        self.loops = loops
        self.jet4 = jet == 4
        # The page size; the offset of the row count in a data page; the offsets of the row and column counts, the maps
        # and the first column in a table's page; the size of a column's entry.
        (self.page, self.rows_at, self.table_rows, self.table_columns, self.table_maps, self.columns_at,
         self.column_size) = (4096, 12, 16, 45, 55, 63, 25) if self.jet4 else (2048, 8, 12, 25, 35, 43, 18)
        self.pages = [bytearray(self.page) for _ in range(5)]
        self.pages[0][0:21] = b"\x00\x01\x00\x00Standard Jet DB\x00" + bytes([self.jet4])
        self.pages[0][0x3C:0x42] = CODE_PAGE_932_WITHOUT_A_KEY
        self.kept = []
        self.objects = []

    def new_page(self):
        if self.kept:
            return self.kept.pop()
        self.pages.append(bytearray(self.page))
        return len(self.pages) - 1

    def text(self, value):
        if isinstance(value, bytes):
            return value
        if not self.jet4:
            return value.encode("cp932")
        plain = value.encode("utf-16-le")
        return plain if 0 in plain[::2] else min(plain, compressed(value), key=len)

    # Data pages.

    def data_page(self, owner):
        number = self.new_page()
        self.pages[number][0:8] = b"\x01\x01\0\0" + owner
        return number

    def put_row(self, number, row, flags=0):
        """Returns the row's place in the page, or None if there is no space."""
        page, at = self.pages[number], self.rows_at
        count = struct.unpack_from("<H", page, at)[0]
        end = struct.unpack_from("<H", page, at + 2 * count)[0] & 0x1FFF if count else self.page
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
        most = self.page - 200
        if len(data) <= 64:
            return struct.pack("<IIi", len(data) | 0x80000000, 0, 0) + data
        if len(data) <= most:
            return struct.pack("<IIi", len(data) | 0x40000000, self.put_row(self.data_page(b"LVAL"), data), 0)
        place = 0
        for at in reversed(range(0, len(data), most)):
            place = self.put_row(self.data_page(b"LVAL"), struct.pack("<I", place) + data[at:at + most])
        if self.loops:
            page = self.pages[place >> 8]
            struct.pack_into("<I", page, struct.unpack_from("<H", page, self.rows_at + 2)[0], place)
        return struct.pack("<IIi", len(data), place, 0)

    def row(self, columns, values):
        fixed, variable, mask = b"", [], 0
        for column, value in zip(columns, values):
            if value is not None and (value or column.kind != BOOL):
                mask |= 1 << column.number
            if column.fixed:
                fixed += struct.pack(FORMATS[column.kind], value or 0) if column.kind != BOOL else b""
            else:
                data = b"" if value is None else self.text(value)
                variable.append(data if column.kind == TEXT or value is None else self.long_value(data))
        return self.assembled(len(columns), fixed, variable, mask.to_bytes((len(columns) + 7) // 8, "little"))

    def assembled(self, count, fixed, variable, mask):
        body = struct.pack("<H" if self.jet4 else "<B", count) + fixed
        offsets = list(itertools.accumulate(map(len, variable), initial=len(body)))
        body += b"".join(variable)
        if self.jet4:
            table = b"".join(struct.pack("<H", offset) for offset in reversed(offsets))
            return body + table + struct.pack("<H", len(variable)) + mask
        jumps = next(count for count in itertools.count()
                     if (len(body) + len(offsets) + count + len(mask)) // 256 <= count)
        first = [next((i for i, offset in enumerate(offsets) if offset >= 256 * (jump + 1)), 255)
                 for jump in range(jumps)]
        table = bytes(offset % 256 for offset in reversed(offsets))
        return body + table + bytes(reversed(first)) + bytes([len(variable)]) + mask

    # Tables.

    def add_table(self, name, described, rows, deleted=(), page=None):
        columns = []
        for number, (column, kind) in enumerate(described):
            fixed = [known for known in columns if known.fixed]
            size = struct.calcsize(FORMATS[kind]) if kind in FORMATS else 255
            columns.append(Column(column, kind, number, kind in FORMATS, sum(known.size for known in fixed),
                                  number - len(fixed), size))
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
        body = bytearray(self.columns_at)
        struct.pack_into("<I", body, self.table_rows, rows)
        variable = sum(not column.fixed for column in columns)
        struct.pack_into("<BHHH", body, self.table_columns - 5, 0x4E, len(columns), variable, len(columns))
        struct.pack_into("<II", body, self.table_maps, maps, maps + 1)
        for column in columns:
            entry = bytearray(self.column_size)
            entry[0] = column.kind
            struct.pack_into("<HHH", entry, 5 if self.jet4 else 1, column.number, column.variable, column.number)
            entry[15 if self.jet4 else 13] = 3 if column.fixed else 2
            size = column.size if column.fixed or not self.jet4 else 2 * column.size
            struct.pack_into("<HH", entry, 21 if self.jet4 else 14, column.fixed_at, size)
            body += entry
        for column in columns:
            name = column.name.encode("utf-16-le" if self.jet4 else "cp932")
            body += struct.pack("<H" if self.jet4 else "<B", len(name)) + name
        body += b"\xff\xff"
        struct.pack_into("<I", body, 8, len(body))
        self.put_over_pages(number, bytes(body))

    def put_over_pages(self, number, body):
        room = self.page - 8
        parts = [body[at:at + room] for at in range(8, len(body), room)]
        numbers = [number] + [self.new_page() for _ in parts[1:]]
        for number, following, part in zip(numbers, numbers[1:] + [0], parts):
            self.pages[number][:] = (b"\x02\x01VC" + struct.pack("<I", following) + part).ljust(self.page, b"\0")

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
