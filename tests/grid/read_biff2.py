#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Reads a BIFF2 worksheet with xlrd and prints each non-empty cell as
row<TAB>col<TAB>ctype<TAB>value (zero-based row and column, xlrd's cell type, the value).

Usage: read_biff2.py FILE [ENCODING]
ENCODING is the code page of the LABEL texts (default cp1252): a BIFF2 file
without a CODEPAGE record does not say which one it used.

The writer stores the BOF document type as 10 (0x000A), where xlrd only takes
a worksheet's 0x0010; the copy handed to xlrd has that one field corrected.
"""
import sys

import xlrd


def main():
    path = sys.argv[1]
    encoding = sys.argv[2] if len(sys.argv) > 2 else "cp1252"
    with open(path, "rb") as stream:
        data = bytearray(stream.read())
    if data[6:8] == b"\x0a\x00":
        data[6:8] = b"\x10\x00"
    book = xlrd.open_workbook(file_contents=bytes(data), encoding_override=encoding)
    sheet = book.sheet_by_index(0)
    out = open(sys.stdout.fileno(), "w", encoding="utf-8", closefd=False)
    for row in range(sheet.nrows):
        for col in range(sheet.ncols):
            ctype = sheet.cell_type(row, col)
            if ctype != xlrd.XL_CELL_EMPTY:
                value = sheet.cell_value(row, col)
                text = repr(value) if ctype == xlrd.XL_CELL_NUMBER else value
                out.write("%d\t%d\t%d\t%s\n" % (row, col, ctype, text))
    out.flush()


if __name__ == "__main__":
    main()
