"""Composes the strips as SVG texts from the palette, the table of strips and the drawings."""

import json
import re
import xml.etree.ElementTree as ElementTree
from pathlib import Path

SVG = "http://www.w3.org/2000/svg"
# A look's entries that describe the button's face; all others are colour roles of the drawings.
FACE_KEYS = {"fill", "border", "inner", "shine", "sunk", "shadow", "shift"}
ROLE = re.compile(r"([a-z-]+)-(line|fill)$")


class SkinError(Exception):
    """A fault in the skin's sources, with a text for the designer."""


class Strip:
    """One bitmap: its name, the size and states of its frames, and how they are drawn."""

    def __init__(self, name, family, entry):
        merged = {**{k: v for k, v in family.items() if k != "strips"}, **entry}
        self.name = name
        self.family = merged["family"]
        self.width, self.height = merged["frame"]
        self.look = merged["look"]
        self.ground = merged["ground"]
        self.states = merged["states"]
        self.face = merged.get("face")
        self.art = merged.get("art", "")
        self.caption = merged.get("caption")

    @property
    def is_resource(self):
        """False for a file that isn't loaded by an id."""
        return self.name.startswith("IDB_")

    def caption_of(self, state):
        """The colour of the text that the code draws on a frame, or None without one."""
        return self.caption.get(state) if isinstance(self.caption, dict) else self.caption

    def art_of(self, state):
        """The drawings of one state, as (name, x, y) from the lowest to the uppermost."""
        text = self.art[state] if isinstance(self.art, dict) else self.art
        for word in text.split():
            name, _, place = word.partition("@")
            x, y = place.split(",") if place else (0, 0)
            yield name, int(x), int(y)


def load_strips(folder):
    """Reads the table of strips, in its order."""
    strips = []
    for family in _load_json(folder / "strips.json"):
        for name, entry in family["strips"].items():
            try:
                strips.append(Strip(name, family, entry))
            except (KeyError, ValueError) as error:
                raise SkinError(f"strips.json: {name}: {error} is missing or wrong") from error
    return strips


def _load_json(path):
    try:
        return json.loads(path.read_text(encoding="utf-8"))
    except (OSError, ValueError) as error:
        raise SkinError(f"{path.name}: {error}") from error


def _blend(first, last, part):
    pairs = [(int(first[i:i + 2], 16), int(last[i:i + 2], 16)) for i in (1, 3, 5)]
    return "#" + "".join(f"{round(a + (b - a) * part):02x}" for a, b in pairs)


def _round_rect(x, y, width, height, radius):
    return f'<rect x="{x}" y="{y}" width="{width}" height="{height}" rx="{radius}"'


class Composer:
    """Turns strips into SVG texts. Every frame is opaque: its ground is drawn first."""

    def __init__(self, folder):
        self._folder = Path(folder)
        palette = _load_json(self._folder / "palette.json")
        self._grounds, self._looks = palette["grounds"], palette["looks"]
        self._art = {}

    def compose(self, strip):
        """The whole strip, its frames side by side in the order of the states."""
        frames = "".join(self._frame(strip, index, state) for index, state in enumerate(strip.states))
        return (f'<svg xmlns="{SVG}" width="{strip.width * len(strip.states)}" height="{strip.height}" '
                f'fill="none">{frames}</svg>')

    def _frame(self, strip, index, state):
        try:
            look = self._looks[strip.look][state]
        except KeyError as error:
            raise SkinError(f"{strip.name}: palette.json has no look {strip.look}, {state}") from error
        # Class names and gradients hold for the whole file, so each frame has its own.
        scope = f"frame{index}"
        face = self._face(strip, look, scope) if strip.face else ""
        drawings = "".join(
            f'<g transform="translate({x},{y + look.get("shift", 0)})">{self._drawing(strip, state, name, look)}</g>'
            for name, x, y in strip.art_of(state))
        return (f'<svg x="{index * strip.width}" width="{strip.width}" height="{strip.height}">'
                f'{self._ground(strip)}{face}<style>{self._roles(scope, look)}</style>'
                f'<g class="{scope}">{drawings}</g></svg>')

    def _ground(self, strip):
        """Rows of one colour each, so that a button's ground equals the picture it stands on."""
        name, _, offset = strip.ground.partition("+")
        if name not in self._grounds:
            raise SkinError(f"{strip.name}: palette.json has no ground {name}")
        ground = self._grounds[name]
        top, bottom = ground["fill"][0], ground["fill"][-1]
        lines, last = ground.get("lines", {}), max(ground.get("rows", 1) - 1, 1)
        rows = []
        for y in range(strip.height):
            row = y + int(offset or 0)
            colour = lines.get(str(row)) or _blend(top, bottom, min(row / last, 1))
            rows.append(f'<rect y="{y}" width="{strip.width}" height="1" fill="{colour}"/>')
        return "".join(rows)

    @staticmethod
    def _face(strip, look, scope):
        """The button's body: a rounded rectangle with its shadow, its border and its inner light."""
        left, top, right, bottom = strip.face["inset"]
        radius = strip.face["radius"]
        width, height = strip.width - left - right, strip.height - top - bottom
        parts, y = [], top + look.get("shift", 0)
        if "shadow" in look:
            parts.append(_round_rect(left, top + 1, width, height, radius) + f' fill="{look["shadow"]}"/>')
        if "fill" in look:
            first, last = look["fill"]
            parts.append(f'<linearGradient id="{scope}" gradientUnits="userSpaceOnUse" x1="0" y1="{y}" x2="0" '
                         f'y2="{y + height}"><stop stop-color="{first}"/>'
                         f'<stop offset="1" stop-color="{last}"/></linearGradient>')
            parts.append(_round_rect(left, y, width, height, radius) + f' fill="url(#{scope})"/>')
        for line in ("shine", "sunk"):
            if line in look:
                parts.append(f'<path d="M{left + radius - 1} {y + 1.5}H{left + width - radius + 1}" '
                             f'stroke="{look[line]}"/>')
        if "inner" in look:
            parts.append(_round_rect(left + 1.5, y + 1.5, width - 3, height - 3, radius - 1.5)
                         + f' stroke="{look["inner"]}"/>')
        if "border" in look:
            parts.append(_round_rect(left + 0.5, y + 0.5, width - 1, height - 1, radius - 0.5)
                         + f' stroke="{look["border"]}"/>')
        return "".join(parts)

    @staticmethod
    def _roles(scope, look):
        return "".join(f".{scope} .{role}-line{{stroke:{colour}}}.{scope} .{role}-fill{{fill:{colour}}}"
                       for role, colour in look.items() if role not in FACE_KEYS)

    def _drawing(self, strip, state, name, look):
        if name not in self._art:
            self._art[name] = self._load_art(name)
        text, roles = self._art[name]
        missing = sorted(roles - look.keys())
        if missing:
            raise SkinError(f"{strip.name}: art/{name}.svg uses {', '.join(missing)}, which the look "
                            f"{strip.look}, {state} in palette.json does not name")
        return text

    def _load_art(self, name):
        """The drawing without its own style, which serves a viewer only, and the roles that it uses."""
        try:
            root = ElementTree.parse(self._folder / "art" / f"{name}.svg").getroot()
        except (OSError, ElementTree.ParseError) as error:
            raise SkinError(f"art/{name}.svg: {error}") from error
        ElementTree.register_namespace("", SVG)
        roles = set()
        for element in root.iter():
            for word in element.get("class", "").split():
                match = ROLE.match(word)
                if not match:
                    raise SkinError(f"art/{name}.svg: the class {word} ends in neither -line nor -fill")
                roles.add(match[1])
        shapes = [ElementTree.tostring(child, encoding="unicode") for child in root
                  if child.tag != f"{{{SVG}}}style"]
        return "".join(shapes), roles
