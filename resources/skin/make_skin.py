#!/usr/bin/env python3
"""Renders the skin: one 24-bit bitmap for each strip, and the resource lines that name them.

Writes into the folder given by --out: IDB_NAME.bmp for each bitmap id of ResourceIds.h,
skin.rc.inc, and confskin/VCMsgNotify.bmp for the notifier. Needs rsvg-convert.
"""

import argparse
import re
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

sys.dont_write_bytecode = True

import sheet  # noqa: E402
from compose import Composer, SkinError, load_strips  # noqa: E402
from raster import decode_png, encode_bmp  # noqa: E402

HERE = Path(__file__).resolve().parent
RENDERER = "rsvg-convert"


def render(svg):
    """The PNG file of an SVG text."""
    done = subprocess.run([RENDERER, "--format=png"], input=svg.encode(), capture_output=True, check=False)
    if done.returncode:
        raise SkinError(f"{RENDERER}: {done.stderr.decode(errors='replace').strip()}")
    return done.stdout


def bitmap_ids(header):
    """The names of the bitmap ids that the module and its resource module agree on."""
    try:
        return set(re.findall(r"^#define (IDB_\w+) ", header.read_text(encoding="utf-8"), re.MULTILINE))
    except OSError as error:
        raise SkinError(f"the list of resource ids cannot be read: {error}") from error


def check_names(strips, header):
    """Every bitmap id must have its strip, and every strip its id."""
    drawn, wanted = {strip.name for strip in strips if strip.is_resource}, bitmap_ids(header)
    if wanted - drawn:
        raise SkinError(f"strips.json has no strip for {', '.join(sorted(wanted - drawn))}")
    if drawn - wanted:
        raise SkinError(f"{header.name} has no id for {', '.join(sorted(drawn - wanted))}")


def render_strip(composer, strip):
    """The strip's picture, of exactly the size that the table asks for."""
    try:
        picture = decode_png(render(composer.compose(strip)))
    except ValueError as error:
        raise SkinError(f"{strip.name}: {error}") from error
    size = (strip.width * len(strip.states), strip.height)
    if picture[:2] != size:
        raise SkinError(f"{strip.name}: rendered as {picture[:2]}, not {size}")
    return picture


def write_if_changed(path, data):
    """Leaves an equal file alone, so that what depends on it isn't built again."""
    path.parent.mkdir(parents=True, exist_ok=True)
    if not path.exists() or path.read_bytes() != data:
        path.write_bytes(data)


def make(out, header, sheet_file):
    if not shutil.which(RENDERER):
        raise SkinError(f"{RENDERER} is not installed; it comes with the package librsvg2-bin")
    strips, composer = load_strips(HERE), Composer(HERE)
    check_names(strips, header)
    with ThreadPoolExecutor() as pool:
        pictures = list(pool.map(lambda strip: render_strip(composer, strip), strips))
    for strip, picture in zip(strips, pictures):
        write_if_changed(out / f"{strip.name}.bmp", encode_bmp(picture))
    lines = [f'{strip.name} BITMAP "{strip.name}.bmp"\n' for strip in strips if strip.is_resource]
    write_if_changed(out / "skin.rc.inc", "".join(lines).encode())
    if sheet_file:
        write_if_changed(sheet_file, render(sheet.compose(list(zip(strips, pictures)))))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--out", type=Path, required=True, help="folder for the bitmaps")
    parser.add_argument("--header", type=Path, default=HERE.parent / "ResourceIds.h", help="the list of resource ids")
    parser.add_argument("--sheet", type=Path, help="also write a contact sheet, a PNG file, to look at")
    arguments = parser.parse_args()
    try:
        make(arguments.out, arguments.header, arguments.sheet)
    except (SkinError, OSError) as error:
        sys.exit(f"make_skin: {error}")


if __name__ == "__main__":
    main()
