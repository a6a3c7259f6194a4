"""The contact sheet: every strip in its own size with and without its colours, and magnified."""

import base64

from raster import encode_png

ZOOM = 3
LEFT, GAP, LABEL = 12, 12, 15


def _magnified(picture, zoom):
    """The picture with each pixel as a square, which the renderer would smooth."""
    width, height, rows = picture
    wide = [b"".join(row[i:i + 3] * zoom for i in range(0, len(row), 3)) for row in rows]
    return width * zoom, height * zoom, [row for row in wide for _ in range(zoom)]


def _image(picture, x, y, style=""):
    data = base64.b64encode(encode_png(picture)).decode()
    return (f'<image x="{x}" y="{y}" width="{picture[0]}" height="{picture[1]}" {style} '
            f'href="data:image/png;base64,{data}"/>')


def compose(entries):
    """The sheet's SVG text, from pairs of strip and picture."""
    column = max(picture[0] for _, picture in entries)
    width = 2 * LEFT + column * (1 + ZOOM) + GAP
    parts, y, family = [], GAP, None
    for strip, picture in entries:
        if strip.family != family:
            family = strip.family
            parts.append(f'<text x="{LEFT}" y="{y + 14}" font-size="15" font-weight="bold">{family}</text>')
            y += 14 + GAP
        parts.append(f'<text x="{LEFT}" y="{y + LABEL - 4}" font-size="11">{strip.name}: {strip.width} x '
                     f'{strip.height}, {", ".join(strip.states)}</text>')
        y += LABEL
        parts.append(_image(picture, LEFT, y))
        parts.append(_image(picture, LEFT, y + picture[1] + 4, 'filter="url(#grey)"'))
        parts.append(_image(_magnified(picture, ZOOM), LEFT + column + GAP, y))
        y += picture[1] * ZOOM + GAP
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{y}" font-family="sans-serif">'
            f'<filter id="grey" x="0" y="0" width="1" height="1"><feColorMatrix type="saturate" values="0"/></filter>'
            f'<rect width="{width}" height="{y}" fill="#fff"/>{"".join(parts)}</svg>')
