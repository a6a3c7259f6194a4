#!/usr/bin/env python3
"""Checks the rendered skin: sizes, states that differ in lightness, and captions that can be read.

Exits with 1 and one line for each fault. Colours play no part in telling states apart, so that
the skin serves people who don't see them well.
"""

import argparse
import itertools
import sys
from pathlib import Path
from statistics import fmean as mean

sys.dont_write_bytecode = True

from compose import SkinError, load_strips  # noqa: E402
from raster import decode_bmp  # noqa: E402

# Two states are told apart at a glance if their lightness (CIE L*, 0 to 100) differs enough over the
# whole frame, or enough in the fiftieth part of it that differs most: a glyph without a face.
LEAST_ON_AVERAGE = 4.0
LEAST_AT_PEAK = 20.0
PEAK_PART = 50
# Contrast of a caption: WCAG 2.1 asks 4.5 of text, and nothing of disabled controls.
LEAST_CONTRAST = 4.5
LEAST_OF_DISABLED = 2.5


def luminance(colour):
    """Relative luminance of an sRGB colour, by WCAG 2.1."""
    linear = [v / 12.92 if v <= 0.04045 else ((v + 0.055) / 1.055) ** 2.4 for v in (c / 255 for c in colour)]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def lightness(colour):
    """CIE L* of an sRGB colour."""
    y = luminance(colour)
    return 116 * y ** (1 / 3) - 16 if y > 216 / 24389 else y * 24389 / 27


def contrast(one, other):
    first, second = sorted((luminance(one), luminance(other)), reverse=True)
    return (first + 0.05) / (second + 0.05)


def frames_of(strip, picture):
    """For each state its rows of (R, G, B)."""
    for index, state in enumerate(strip.states):
        left = index * strip.width
        yield state, [[tuple(row[x * 3:x * 3 + 3]) for x in range(left, left + strip.width)] for row in picture[2]]


def face_behind_text(frame):
    """The mean colour of the rows and columns that a caption covers."""
    height, width = len(frame), len(frame[0])
    pixels = [pixel for row in frame[height // 2 - 4:height // 2 + 4] for pixel in row[width * 2 // 5:width * 4 // 5]]
    return [mean(channel) for channel in zip(*pixels)]


def faults_of(strip, picture, report):
    size = (strip.width * len(strip.states), strip.height)
    if picture[:2] != size:
        yield f"is {picture[0]} x {picture[1]}, not {size[0]} x {size[1]}"
        return
    frames = dict(frames_of(strip, picture))
    light = {state: [lightness(pixel) for row in frame for pixel in row] for state, frame in frames.items()}
    for one, other in itertools.combinations(strip.states, 2):
        differences = sorted((abs(a - b) for a, b in zip(light[one], light[other])), reverse=True)
        average, strongest = mean(differences), mean(differences[:max(len(differences) // PEAK_PART, 1)])
        text = f"{one} and {other} differ by {average:.1f} in lightness, at the peak by {strongest:.1f}"
        report(f"{strip.name}: {text}")
        if average < LEAST_ON_AVERAGE and strongest < LEAST_AT_PEAK:
            yield f"{text}; {LEAST_ON_AVERAGE} or {LEAST_AT_PEAK} is the least"
    for state, frame in frames.items():
        caption = strip.caption_of(state)
        if not caption:
            continue
        found = contrast([int(caption[i:i + 2], 16) for i in (1, 3, 5)], face_behind_text(frame))
        report(f"{strip.name}: caption on {state}, contrast {found:.1f}")
        wanted = LEAST_OF_DISABLED if state == "disabled" else LEAST_CONTRAST
        if found < wanted:
            yield f"the caption on {state} has a contrast of {found:.1f}, {wanted} is the least"


def check(out, report):
    for strip in load_strips(Path(__file__).resolve().parent):
        try:
            picture = decode_bmp((out / f"{strip.name}.bmp").read_bytes())
        except (OSError, ValueError) as error:
            yield f"{strip.name}: {error}"
            continue
        yield from (f"{strip.name}: {fault}" for fault in faults_of(strip, picture, report))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--out", type=Path, required=True, help="folder that make_skin.py wrote")
    parser.add_argument("--verbose", action="store_true", help="print every measured value")
    arguments = parser.parse_args()
    try:
        faults = list(check(arguments.out, print if arguments.verbose else lambda line: None))
    except SkinError as error:
        sys.exit(f"check_skin: {error}")
    for fault in faults:
        print(fault)
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
