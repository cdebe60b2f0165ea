#!/usr/bin/env python3
"""Says whether a PNG shows something: check_picture.py FILE [LIKE].

Status 1 when the file is no whole picture, or when nearly all of it is one colour or none but a few colours occur, as in
an empty window. With LIKE also when that picture shows something else: the two may differ in a few pixels only, since
the fonts of menus and captions are the machine's own.
"""

import collections
import pathlib
import struct
import sys
import zlib

SIGNATURE = b"\x89PNG\r\n\x1a\n"
CHANNELS = {0: 1, 2: 3, 6: 4}  # grey, red green blue, the same with transparency; eight bits each
LEAST_COLOURS = 6
MOST_OF_ONE_COLOUR = 0.985
LEAST_SIDE = 100
MOST_DIFFERENT = 0.04


def chunks(data):
    at = len(SIGNATURE)
    while at < len(data):
        length, kind = struct.unpack_from(">I4s", data, at)
        body = data[at + 8:at + 8 + length]
        if zlib.crc32(kind + body) != struct.unpack_from(">I", data, at + 8 + length)[0]:
            raise ValueError("a part of the file is damaged")
        yield kind, body
        at += 12 + length


def paeth(left, above, corner):
    guess = left + above - corner
    nearest = min((abs(guess - left), 0, left), (abs(guess - above), 1, above), (abs(guess - corner), 2, corner))
    return nearest[2]


def unfilter(kind, row, above, step):
    predict = {
        0: lambda i: 0,
        1: lambda i: row[i - step] if i >= step else 0,
        2: lambda i: above[i],
        3: lambda i: ((row[i - step] if i >= step else 0) + above[i]) // 2,
        4: lambda i: paeth(row[i - step], above[i], above[i - step]) if i >= step else above[i],
    }[kind]
    for i, value in enumerate(row):
        row[i] = (value + predict(i)) & 0xFF
    return row


def rows(data):
    """The rows of a picture, each a list of colours."""
    if not data.startswith(SIGNATURE):
        raise ValueError("no PNG file")
    parts = list(chunks(data))
    width, height, depth, kind, _, _, interlaced = struct.unpack(">IIBBBBB", parts[0][1])
    if depth != 8 or kind not in CHANNELS or interlaced:
        raise ValueError("a kind of picture that the sample host does not write")
    if min(width, height) < LEAST_SIDE:
        raise ValueError(f"too small: {width} by {height}")
    step = CHANNELS[kind]
    pixels = zlib.decompress(b"".join(body for name, body in parts if name == b"IDAT"))
    above = bytearray(width * step)
    for y in range(height):
        start = y * (width * step + 1)
        above = unfilter(pixels[start], bytearray(pixels[start + 1:start + 1 + width * step]), above, step)
        yield list(zip(*(above[i::step] for i in range(step))))


def shows_something(data):
    counts = collections.Counter()
    for row in rows(data):
        counts.update(row)
    share = max(counts.values()) / sum(counts.values())
    if len(counts) < LEAST_COLOURS or share > MOST_OF_ONE_COLOUR:
        raise ValueError(f"{len(counts)} colours, {share:.1%} of it one")


def compare(data, like):
    if data == like:
        return
    ours, theirs = list(rows(data)), list(rows(like))
    if (len(ours), len(ours[0])) != (len(theirs), len(theirs[0])):
        raise ValueError("has another size than before")
    different = sum(a != b for our, their in zip(ours, theirs) for a, b in zip(our, their))
    share = different / (len(ours) * len(ours[0]))
    if share > MOST_DIFFERENT:
        raise ValueError(f"is another picture than before: {share:.1%} of it differ")


def main(path, like=None):
    try:
        data = pathlib.Path(path).read_bytes()
        shows_something(data)
        if like:
            compare(data, pathlib.Path(like).read_bytes())
    except (OSError, ValueError, IndexError, struct.error, zlib.error) as error:
        print(f"{path}: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
