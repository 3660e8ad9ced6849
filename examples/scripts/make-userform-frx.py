#!/usr/bin/env python3
"""Writes examples/ExcelDemo/frmFilter.frx, the binary half of the exported
user form frmFilter: an OLE compound file holding the form's controls as
Microsoft Forms 2.0 persists them (stream "f" with the sites, stream "o" with
each control's properties, storage "i<ID>" for the frame).

Standard library only, and written from the file formats alone, so that the
program's reader meets bytes it did not make itself."""

import struct
import sys
from pathlib import Path

HIMETRIC_PER_PIXEL = 2540 / 96


def himetric(pixels):
    return round(pixels * HIMETRIC_PER_PIXEL)


def pad4(data, base=0):
    return data + b"\0" * ((-(len(data) + base)) % 4)


# --- Microsoft Forms structures ---------------------------------------------

def count_and_flag(text, compressed=True):
    """The size of a string in bytes with the top bit set for 8-bit text."""
    if compressed:
        return len(text.encode("cp1252")) | 0x80000000
    return len(text.encode("utf-16-le"))


def fm_string(text, compressed=True):
    return text.encode("cp1252") if compressed else text.encode("utf-16-le")


class Block:
    """A property mask with its data block: each property aligned to its own
    size, counted from the start of the structure (data_offset is where the
    data block starts in it)."""

    def __init__(self, data_offset):
        self.mask = 0
        self.data = b""
        self.offset = data_offset

    def add(self, bit, size, value):
        self.mask |= 1 << bit
        while (self.offset + len(self.data)) % size:
            self.data += b"\0"
        self.data += value.to_bytes(size, "little")

    def flag(self, bit):
        self.mask |= 1 << bit

    def finish(self):
        return pad4(self.data, self.offset)


def extra_strings_and_sizes(parts, base):
    """An extra data block: strings padded to four bytes, sizes and positions as pairs."""
    out = b""
    for part in parts:
        out += part
        out = pad4(out, base)
    return out


def pair(a, b):
    return struct.pack("<ii", a, b)


# A minimal TextProps after a control: the control's font (here: none of its own).
TEXT_PROPS = b"\x00\x02\x04\x00" + struct.pack("<I", 0)

STD_FONT = bytes.fromhex("0352E30B918FCE119DE300AA004BB851")


def std_font(name, points):
    face = name.encode("cp1252")
    return (STD_FONT + struct.pack("<BHBHIB", 1, 0, 0, 400, int(points * 10000), len(face)) + face)


def form_control(width, height, next_id, sites, caption=None, font=None, class_table=True):
    block = Block(8)
    block.add(3, 4, next_id)
    if not class_table:
        block.add(6, 4, 0x8004)  # enabled, and no class table is saved
    if caption is not None:
        block.add(19, 4, count_and_flag(caption))
    if font:
        block.add(20, 2, 0xFFFF)
    data = block.finish()
    block.flag(10)
    block.flag(11)
    extra = pair(himetric(width), himetric(height)) + pair(0, 0)
    if caption is not None:
        extra += pad4(fm_string(caption))
    body = struct.pack("<I", block.mask) + data + extra
    out = struct.pack("<BBH", 0, 4, len(body)) + body
    if font:
        out += std_font(*font)
    if class_table:
        out += struct.pack("<H", 0)
    depths = b"\x00" + (bytes([0x80 | len(sites), 1]) if len(sites) > 1 else b"\x01")
    site_bytes = pad4(depths) + b"".join(sites)
    out += struct.pack("<II", len(sites), len(site_bytes))
    return out + site_bytes


CLASS = {"Frame": 14, "CommandButton": 17, "Label": 21, "TextBox": 23, "ListBox": 24,
         "CheckBox": 26, "OptionButton": 27}


def site(name, control_id, tab_index, kind, x, y, object_size, tag=None, tip=None, visible=True):
    block = Block(8)
    block.add(0, 4, count_and_flag(name))
    if tag is not None:
        block.add(1, 4, count_and_flag(tag))
    block.add(2, 4, control_id)
    block.add(4, 4, 0x33 if visible else 0x31)
    if object_size:
        block.add(5, 4, object_size)
    block.add(6, 2, tab_index)
    block.add(7, 2, CLASS[kind])
    if tip is not None:
        block.add(11, 4, count_and_flag(tip))
    data = block.finish()
    block.flag(8)
    parts = [fm_string(name)]
    if tag is not None:
        parts.append(fm_string(tag))
    parts.append(pair(himetric(x), himetric(y)))
    if tip is not None:
        parts.append(fm_string(tip))
    extra = extra_strings_and_sizes(parts, 8 + len(data))
    body = struct.pack("<I", block.mask) + data + extra
    return struct.pack("<HH", 0, len(body)) + body


def command_button(caption, width, height):
    block = Block(8)
    block.add(3, 4, count_and_flag(caption))
    data = block.finish()
    block.flag(5)
    extra = pad4(fm_string(caption)) + pair(himetric(width), himetric(height))
    body = struct.pack("<I", block.mask) + data + extra
    return struct.pack("<BBH", 0, 2, len(body)) + body + TEXT_PROPS


def label(caption, width, height):
    block = Block(8)
    block.add(0, 4, 0x80000012)  # ForeColor: the window text colour
    block.add(3, 4, count_and_flag(caption))
    data = block.finish()
    block.flag(5)
    extra = pad4(fm_string(caption)) + pair(himetric(width), himetric(height))
    body = struct.pack("<I", block.mask) + data + extra
    return struct.pack("<BBH", 0, 2, len(body)) + body + TEXT_PROPS


DISPLAY_STYLE = {"TextBox": 1, "ListBox": 2, "CheckBox": 4, "OptionButton": 5}


def morph_data(kind, width, height, value=None, caption=None, compressed=True, enabled=True, max_length=None,
               list_rows=None):
    block = Block(12)
    various = 0x2C80081B if enabled else 0x2C800819
    block.add(0, 4, various)
    if max_length is not None:
        block.add(3, 4, max_length)
    block.add(6, 1, DISPLAY_STYLE[kind])
    if list_rows is not None:
        block.add(14, 2, list_rows)
    if value is not None:
        block.add(22, 4, count_and_flag(value))
    if caption is not None:
        block.add(23, 4, count_and_flag(caption, compressed))
    data = block.finish()
    block.flag(8)
    extra = pair(himetric(width), himetric(height))
    if value is not None:
        extra += pad4(fm_string(value))
    if caption is not None:
        extra += pad4(fm_string(caption, compressed))
    body = struct.pack("<Q", block.mask) + data + extra
    return struct.pack("<BBH", 0, 2, len(body)) + body + TEXT_PROPS


def controls(entries):
    """The sites for "f" and the properties for "o" of a list of controls."""
    sites, objects = [], b""
    for entry in entries:
        obj = entry.get("object", b"")
        sites.append(site(entry["name"], entry["id"], entry["tab"], entry["kind"], entry["x"], entry["y"], len(obj),
                          entry.get("tag"), entry.get("tip")))
        objects += obj
    return sites, objects


def frm_filter():
    """The storages and streams of frmFilter's controls."""
    frame_sites, frame_objects = controls([
        dict(name="optYear", id=4, tab=0, kind="OptionButton", x=8, y=16,
             object=morph_data("OptionButton", 128, 18, value="1", caption="Whole year")),
        dict(name="optQuarter", id=5, tab=1, kind="OptionButton", x=8, y=40,
             object=morph_data("OptionButton", 128, 18, value="0", caption="Last quarter", compressed=False)),
    ])
    form_sites, form_objects = controls([
        dict(name="lblRegions", id=1, tab=0, kind="Label", x=8, y=8, object=label("Regions:", 150, 14)),
        dict(name="lstRegions", id=2, tab=1, kind="ListBox", x=8, y=24, tag="regions",
             object=morph_data("ListBox", 150, 124, list_rows=8)),
        dict(name="fraPeriod", id=3, tab=2, kind="Frame", x=168, y=8),
        dict(name="chkTotals", id=6, tab=3, kind="CheckBox", x=168, y=88,
             object=morph_data("CheckBox", 144, 18, value="1", caption="Show totals", enabled=False)),
        dict(name="txtTitle", id=7, tab=4, kind="TextBox", x=8, y=156,
             object=morph_data("TextBox", 304, 22, value="Sales by region", max_length=40)),
        dict(name="cmdApply", id=8, tab=5, kind="CommandButton", x=156, y=190, tip="Show the chosen regions",
             object=command_button("Apply", 76, 26)),
        dict(name="cmdCancel", id=9, tab=6, kind="CommandButton", x=236, y=190,
             object=command_button("Cancel", 76, 26)),
    ])
    return {
        "f": form_control(320, 228, 10, form_sites, font=("Tahoma", 8.25)),
        "o": form_objects,
        "i3": {
            "f": form_control(144, 72, 6, frame_sites, caption="Period", font=("Tahoma", 8.25), class_table=False),
            "o": frame_objects,
        },
    }


# --- the compound file --------------------------------------------------------

SECTOR = 512
MINI = 64
CUTOFF = 4096
FREE, END, FATSECT, NOSTREAM = 0xFFFFFFFF, 0xFFFFFFFE, 0xFFFFFFFD, 0xFFFFFFFF


class Entry:
    def __init__(self, name, kind, data=b"", children=()):
        self.name, self.kind, self.data, self.children = name, kind, data, list(children)
        self.left = self.right = self.child = NOSTREAM
        self.start, self.size = END, 0


def tree(storage_name, content, kind=1):
    children = []
    for name, value in content.items():
        if isinstance(value, dict):
            children.append(tree(name, value))
        else:
            children.append(Entry(name, 2, value))
    return Entry(storage_name, kind, children=children)


def sort_key(entry):
    return (len(entry.name), entry.name.upper())


def link_siblings(entries):
    """A balanced binary tree of the entries; all nodes black is allowed."""
    if not entries:
        return NOSTREAM
    ordered = sorted(entries, key=sort_key)
    middle = len(ordered) // 2
    root = ordered[middle]
    root.left = link_siblings(ordered[:middle])
    root.right = link_siblings(ordered[middle + 1:])
    return root.index


def flatten(entry, out):
    entry.index = len(out)
    out.append(entry)
    for child in entry.children:
        flatten(child, out)


def chain(fat, first, count):
    for i in range(count):
        fat[first + i] = first + i + 1 if i + 1 < count else END


def compound_file(root_content):
    root = tree("Root Entry", root_content, kind=5)
    entries = []
    flatten(root, entries)
    for entry in entries:
        entry.child = link_siblings(entry.children)

    # Small streams go to the mini stream, large ones to sectors of their own.
    mini_stream, mini_fat, big = b"", [], []
    for entry in entries:
        if entry.kind != 2:
            continue
        entry.size = len(entry.data)
        if entry.size == 0:
            entry.start = END
        elif entry.size < CUTOFF:
            count = -(-entry.size // MINI)
            entry.start = len(mini_fat)
            mini_fat += [0] * count
            chain(mini_fat, entry.start, count)
            mini_stream += entry.data + b"\0" * (count * MINI - entry.size)
        else:
            big.append(entry)

    mini_fat_bytes = b"".join(struct.pack("<I", v) for v in mini_fat)
    mini_fat_bytes = mini_fat_bytes.ljust(-(-len(mini_fat_bytes) // SECTOR) * SECTOR, b"\xff")
    mini_stream = mini_stream.ljust(-(-len(mini_stream) // SECTOR) * SECTOR, b"\0")

    dir_sectors = -(-len(entries) * 128 // SECTOR)
    mini_fat_sectors = len(mini_fat_bytes) // SECTOR
    mini_stream_sectors = len(mini_stream) // SECTOR
    big_sectors = [-(-len(e.data) // SECTOR) for e in big]
    others = dir_sectors + mini_fat_sectors + mini_stream_sectors + sum(big_sectors)
    fat_sectors = 1
    while fat_sectors * (SECTOR // 4) < fat_sectors + others:
        fat_sectors += 1
    assert fat_sectors <= 109
    fat = [FREE] * (fat_sectors * SECTOR // 4)
    for i in range(fat_sectors):
        fat[i] = FATSECT
    at = fat_sectors
    first_dir = at
    chain(fat, at, dir_sectors)
    at += dir_sectors
    first_mini_fat = at if mini_fat_sectors else END
    chain(fat, at, mini_fat_sectors)
    at += mini_fat_sectors
    if mini_stream_sectors:
        root.start, root.size = at, len(mini_fat) * MINI
        chain(fat, at, mini_stream_sectors)
        at += mini_stream_sectors
    body = b""
    for entry, count in zip(big, big_sectors):
        entry.start = at
        chain(fat, at, count)
        at += count
        body += entry.data.ljust(count * SECTOR, b"\0")
    # The directory, now that the root and the large streams know their sectors.
    directory = b""
    for entry in entries:
        name = entry.name.encode("utf-16-le") + b"\0\0"
        start, size = (0, 0) if entry.kind == 1 else (entry.start, entry.size)
        directory += (name.ljust(64, b"\0") + struct.pack("<HBB", len(name), entry.kind, 1)
                      + struct.pack("<III", entry.left, entry.right, entry.child) + b"\0" * 16
                      + struct.pack("<I", 0) + b"\0" * 16 + struct.pack("<IQ", start, size))
    directory = directory.ljust(dir_sectors * SECTOR, b"\0")

    difat = [i for i in range(fat_sectors)] + [FREE] * (109 - fat_sectors)
    header = (bytes.fromhex("D0CF11E0A1B11AE1") + b"\0" * 16
              + struct.pack("<HHHHH", 0x3E, 3, 0xFFFE, 9, 6) + b"\0" * 6
              + struct.pack("<IIIIIIIII", 0, fat_sectors, first_dir, 0, CUTOFF, first_mini_fat, mini_fat_sectors,
                            END, 0)
              + b"".join(struct.pack("<I", v) for v in difat))
    assert len(header) == SECTOR
    fat_bytes = b"".join(struct.pack("<I", v) for v in fat)
    return header + fat_bytes + directory + mini_fat_bytes + mini_stream + body


def frx(compound, client_width_twips, client_height_twips):
    """Excel's header before the compound file: its size and the outer size of the form in twips."""
    outer_width = client_width_twips + 2 * 120
    outer_height = client_height_twips + 465 + 120
    return (b"LB" + struct.pack("<HI", 8, len(compound)) + b"\0" * 8
            + struct.pack("<II", outer_width, outer_height) + compound)


def main():
    root = Path(__file__).resolve().parent.parent
    target = Path(sys.argv[1]) if len(sys.argv) > 1 else root / "ExcelDemo" / "frmFilter.frx"
    target.write_bytes(frx(compound_file(frm_filter()), 4800, 3420))
    print(f"wrote {target}")


if __name__ == "__main__":
    main()
