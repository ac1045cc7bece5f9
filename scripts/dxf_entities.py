#!/usr/bin/python3
"""Loads a DXF with ezdxf and checks its entity counts against the drawing buffers' counts.

Usage: dxf_entities.py FILE LINES ARCS TEXTS
"""
import collections
import sys

import ezdxf

path, lines, arcs, texts = sys.argv[1], *map(int, sys.argv[2:5])
counts = collections.Counter(e.dxftype() for e in ezdxf.readfile(path).modelspace())
found = (counts["LINE"], counts["CIRCLE"] + counts["ARC"], counts["TEXT"])
if found != (lines, arcs, texts) or sum(counts.values()) != sum(found):
    sys.exit(f"{path}: ezdxf read {dict(counts)}, the buffers held {lines} lines, "
             f"{arcs} arcs and {texts} texts")
print(f"{path}: ezdxf read {lines} LINE, {arcs} CIRCLE/ARC, {texts} TEXT as in the buffers")
