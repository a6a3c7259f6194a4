"""Reads the PNG files that the renderer writes and writes (and reads) 24-bit Windows bitmaps.

A picture is a tuple (width, height, rows); rows run from the top, each one `bytes` of R, G, B.
"""

import struct
import zlib


def _unfilter(data, width, height, step):
    """Undoes the row filters of PNG; `step` is the number of bytes in a pixel."""
    stride = width * step
    rows, above = [], bytes(stride)
    for y in range(height):
        kind, line = data[y * (stride + 1)], bytearray(data[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            left = line[i - step] if i >= step else 0
            corner = above[i - step] if i >= step else 0
            if kind == 1:
                guess = left
            elif kind == 2:
                guess = above[i]
            elif kind == 3:
                guess = (left + above[i]) // 2
            elif kind == 4:
                sums = left + above[i] - corner
                guess = min((left, above[i], corner), key=lambda value: abs(sums - value))
            else:
                guess = 0
            line[i] = (line[i] + guess) & 0xFF
        rows.append(bytes(line))
        above = line
    return rows


def decode_png(data):
    """Decodes an opaque 8-bit RGB or RGBA PNG; raises ValueError for any other."""
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        raise ValueError("the renderer's output is no PNG file")
    pos, packed, head = 8, b"", None
    while pos < len(data):
        size, kind = struct.unpack_from(">I4s", data, pos)
        body = data[pos + 8:pos + 8 + size]
        if kind == b"IHDR":
            head = struct.unpack(">IIBBBBB", body)
        elif kind == b"IDAT":
            packed += body
        pos += size + 12
    width, height, depth, colour, _, _, interlace = head
    if depth != 8 or colour not in (2, 6) or interlace:
        raise ValueError("the renderer's PNG is not plain 8-bit RGB or RGBA")
    step = 4 if colour == 6 else 3
    rows = _unfilter(zlib.decompress(packed), width, height, step)
    if step == 4:
        if any(value != 255 for row in rows for value in row[3::4]):
            raise ValueError("the drawing leaves transparent pixels")
        rows = [b"".join(row[i:i + 3] for i in range(0, len(row), 4)) for row in rows]
    return width, height, rows


def encode_png(picture):
    """Encodes a picture as an RGB PNG file."""
    width, height, rows = picture

    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    packed = zlib.compress(b"".join(b"\0" + row for row in rows))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", packed) + chunk(b"IEND", b""))


def encode_bmp(picture):
    """Encodes a picture as a 24-bit uncompressed bottom-up bitmap file."""
    width, height, rows = picture
    padding = bytes(-width * 3 % 4)
    pixels = b"".join(
        b"".join(row[i:i + 3][::-1] for i in range(0, len(row), 3)) + padding for row in reversed(rows))
    head = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(pixels), 0, 0, 0, 0)
    return struct.pack("<2sIHHI", b"BM", 54 + len(pixels), 0, 0, 54) + head + pixels


def decode_bmp(data):
    """Decodes what encode_bmp wrote; raises ValueError for any other bitmap."""
    if len(data) < 54 or data[:2] != b"BM":
        raise ValueError("no bitmap file")
    size, width, height, planes, depth, packing = struct.unpack_from("<IiiHHI", data, 14)
    stride = (width * 3 + 3) // 4 * 4
    if (size, planes, depth, packing) != (40, 1, 24, 0) or height <= 0 or len(data) != 54 + stride * height:
        raise ValueError("not a 24-bit uncompressed bottom-up bitmap")
    rows = []
    for y in reversed(range(height)):
        line = data[54 + y * stride:54 + y * stride + width * 3]
        rows.append(b"".join(line[i:i + 3][::-1] for i in range(0, len(line), 3)))
    return width, height, rows
