"""Lets the gallery write its picture, and looks whether that has the gallery's size.

Usage: gallery_test.py RUNNER GALLERY FOLDER     RUNNER starts Windows programs, and is empty on Windows
"""

import os
import struct
import subprocess
import sys

runner, gallery, folder = sys.argv[1:]
SIZE = (996, 760)

for language in ("en", "zh"):
    name = f"gallery-{language}.bmp"
    path = os.path.join(folder, name)
    if os.path.exists(path):
        os.remove(path)
    command = [runner] if runner else []
    command += [gallery, "--language", language, "--picture", name]
    code = subprocess.run(command, cwd=folder, timeout=120, check=False).returncode
    assert code == 0, f"{language}: the gallery ended with {code}"
    with open(path, "rb") as file:
        data = file.read()
    assert data[:2] == b"BM"
    assert struct.unpack_from("<ii", data, 18) == SIZE
    assert len(data) == 54 + SIZE[0] * SIZE[1] * 3
    # A window that painted nothing has one colour.
    pixels = data[54:]
    assert len({pixels[i : i + 3] for i in range(0, len(pixels), 3)}) > 50, f"{language}: nothing was painted"
