#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints each non-empty cell of a BIFF2 worksheet as row<TAB>col<TAB>xlrd type<TAB>value.

Usage: read_biff2.py FILE [ENCODING of the LABEL texts, default cp1252]. The writer's BOF
document type 10 is handed to xlrd as the 0x0010 it takes for a worksheet.
"""
import sys

import xlrd

data = bytearray(open(sys.argv[1], "rb").read())
if data[6:8] == b"\x0a\x00":
    data[6:8] = b"\x10\x00"
encoding = sys.argv[2] if len(sys.argv) > 2 else "cp1252"
sheet = xlrd.open_workbook(file_contents=bytes(data), encoding_override=encoding).sheet_by_index(0)
out = open(sys.stdout.fileno(), "w", encoding="utf-8", closefd=False)
for row in range(sheet.nrows):
    for col in range(sheet.ncols):
        ctype = sheet.cell_type(row, col)
        if ctype != xlrd.XL_CELL_EMPTY:
            value = sheet.cell_value(row, col)
            text = repr(value) if ctype == xlrd.XL_CELL_NUMBER else value
            out.write("%d\t%d\t%d\t%s\n" % (row, col, ctype, text))
out.flush()
