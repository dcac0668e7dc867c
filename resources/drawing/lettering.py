"""Captions as outlines, so that no picture depends on the fonts of the machine that renders it.

The outlines come from Liberation Sans, fitted to whole pixel rows at the size at which they stand
in the window. The texts that the program draws get the same fitting, so both look alike.
"""

import freetype

FOLDERS = ("/usr/share/fonts/truetype/liberation2", "/usr/share/fonts/truetype/liberation")
TRACKING = 0.12  # pixels added between letters: small print reads better a little wider set
_faces = {}


def _face(bold):
    if bold not in _faces:
        name = "LiberationSans-Bold.ttf" if bold else "LiberationSans-Regular.ttf"
        for folder in FOLDERS:
            try:
                _faces[bold] = freetype.Face(f"{folder}/{name}")
                break
            except freetype.FT_Exception:
                continue
        else:
            raise SystemExit(f"{name} is missing: apt-get install fonts-liberation2")
    return _faces[bold]


def outline(text, pixels, bold=False):
    """Path data of `text` with its origin on the baseline, and its advance width in pixels.

    It has `pixels` per em.
    """
    face = _face(bold)
    face.set_char_size(round(pixels * 64), 0, 72, 72)
    commands, pen, previous = [], 0.0, 0
    for letter in text:
        index = face.get_char_index(letter)
        if previous:
            pen += face.get_kerning(previous, index, freetype.FT_KERNING_UNFITTED).x / 64
        face.load_glyph(index, freetype.FT_LOAD_TARGET_LIGHT | freetype.FT_LOAD_NO_BITMAP)
        commands += _glyph(face.glyph.outline, pen)
        pen += face.glyph.linearHoriAdvance / 65536 + TRACKING
        previous = index
    return "".join(commands), pen - TRACKING


def caption(text, x, baseline, pixels, colour, anchor="middle", bold=False):
    """`text` as one filled path.

    `anchor` says which part of it stands at `x`: "start", "middle" or "end".
    """
    data, width = outline(text, pixels, bold)
    left = round(x - {"start": 0.0, "middle": 0.5, "end": 1.0}[anchor] * width)
    return f'<path fill="{colour}" transform="translate({left} {baseline})" d="{data}"/>\n'


def _glyph(shape, pen):
    """Path commands of one quadratic outline; y grows upward in the font and downward here."""

    def at(point):
        return f"{pen + point[0] / 64:.2f} {-point[1] / 64:.2f}"

    commands, start = [], 0
    for end in shape.contours:
        points = shape.points[start : end + 1]
        on = [tag & 1 for tag in shape.tags[start : end + 1]]
        first = next(place for place, is_on in enumerate(on) if is_on)
        points, on = points[first:] + points[:first], on[first:] + on[:first]
        commands.append("M" + at(points[0]))
        control = None
        for point, is_on in list(zip(points, on))[1:] + [(points[0], 1)]:
            if is_on:
                commands.append(
                    "L" + at(point) if control is None else f"Q{at(control)} {at(point)}"
                )
                control = None
                continue
            if control is not None:  # between two control points lies an implied point on the curve
                middle = ((control[0] + point[0]) / 2, (control[1] + point[1]) / 2)
                commands.append(f"Q{at(control)} {at(middle)}")
            control = point
        commands.append("Z")
        start = end + 1
    return commands
