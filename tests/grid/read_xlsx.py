#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints an XLSX workbook's first sheet, as openpyxl reads it, as one JSON object.

Usage: read_xlsx.py FILE. "cells" maps each non-empty cell ("B2") to [value, Python type name,
number format, hyperlink target or null]; dates are ISO texts. "bold" lists the bold cells,
"freeze" is the frozen panes' top-left cell, "widths" the set column widths by letter.
"""
import datetime
import json
import sys

import openpyxl

sheet = openpyxl.load_workbook(sys.argv[1]).worksheets[0]
cells, bold = {}, []
for row in sheet.iter_rows():
    for cell in row:
        if cell.value is None:
            continue
        value = cell.value
        if isinstance(value, datetime.datetime):
            value = value.isoformat()
        link = cell.hyperlink.target if cell.hyperlink else None
        cells[cell.coordinate] = [value, type(cell.value).__name__, cell.number_format, link]
        if cell.font.b:
            bold.append(cell.coordinate)
widths = {key: dim.width for key, dim in sheet.column_dimensions.items() if dim.customWidth}
json.dump({"cells": cells, "bold": bold, "freeze": sheet.freeze_panes, "widths": widths},
          sys.stdout, ensure_ascii=False)
