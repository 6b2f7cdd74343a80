"""Glyphs drawn by hand where the rasteriser's 1-bit result was not legible.

Each entry: character -> (first row in the cell, rows of '#' and '.').
"""
STATUS_HAND = {}
STAFF_HAND = {}
