"""Captions as outlines, so that no picture depends on the fonts of the machine that renders it.

Each caption is drawn twice from Liberation Sans. At the window's own size every stem and every step
between letters is fitted to whole pixels: small print is as crisp as it gets. Enlarged, such
outlines would look coarse: there the free ones take their place. The SVG files show the first;
`../artwork/larger.css` turns both round.
"""

import freetype

FOLDERS = ("/usr/share/fonts/truetype/liberation2", "/usr/share/fonts/truetype/liberation")
# pixels added between free letters: small print reads better a little wider set
TRACKING = 0.12
FREE = freetype.FT_LOAD_NO_HINTING | freetype.FT_LOAD_NO_BITMAP
# The font's own instructions fit heights alone, and better than the automatic ones do.
FITTED_HEIGHT = freetype.FT_LOAD_TARGET_NORMAL | freetype.FT_LOAD_NO_BITMAP
FITTED_WIDTH = (
    freetype.FT_LOAD_TARGET_MONO | freetype.FT_LOAD_FORCE_AUTOHINT | freetype.FT_LOAD_NO_BITMAP
)
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


def _free(text, pixels, bold):
    """Each letter's contours, left to right from 0, as lists of (x, y, is on the curve)."""
    face = _face(bold)
    face.set_char_size(round(pixels * 64), 0, 72, 72)
    letters, pen, previous = [], 0.0, 0
    for letter in text:
        index = face.get_char_index(letter)
        if previous:
            pen += face.get_kerning(previous, index, freetype.FT_KERNING_UNFITTED).x / 64
        face.load_glyph(index, FREE)
        letters.append(_moved(_contours(face.glyph.outline), pen))
        pen += face.glyph.linearHoriAdvance / 65536 + TRACKING
        previous = index
    return letters, pen - TRACKING


def _fitted(text, pixels, bold):
    """The same with whole pixels for stems, and between the letters as near to the free text's."""
    face = _face(bold)
    free, _ = _free(text, pixels, bold)
    letters, end, free_end = [], 0, None
    for letter, free_letter in zip(text, free):
        index = face.get_char_index(letter)
        face.load_glyph(index, FITTED_HEIGHT)
        heights = _contours(face.glyph.outline)
        face.load_glyph(index, FITTED_WIDTH)
        widths = _contours(face.glyph.outline)
        shape = [
            [(x, y, on) for (x, _, on), (_, y, _) in zip(wide, high)]
            for wide, high in zip(widths, heights)
        ]
        if not shape:  # a blank
            continue
        left, right = _extent(shape)
        if right - left < 1.5:  # a point, which has no stem to fit
            shape = [[(round((x - left) / (right - left)), y, on) for x, y, on in contour]
                     for contour in shape]
            left, right = 0, 1
        free_left, free_right = _extent(free_letter)
        if free_end is not None:
            end += max(1, round(free_left - free_end))
        letters.append(_moved(shape, end - round(left)))
        end += round(right) - round(left)
        free_end = free_right
    return letters, end


def _extent(shape):
    places = [x for contour in shape for x, _, _ in contour]
    return min(places), max(places)


def _moved(shape, right):
    return [[(x + right, y, on) for x, y, on in contour] for contour in shape]


def _contours(shape):
    contours, start = [], 0
    for end in shape.contours:
        rows = zip(shape.points[start : end + 1], shape.tags[start : end + 1])
        contours.append([(x / 64, y / 64, tag & 1) for (x, y), tag in rows])
        start = end + 1
    return contours


def caption(text, x, baseline, pixels, colour, anchor="middle", bold=False):
    """`text` as one filled path for the window's own size and another for larger ones.

    `anchor` says which part of it stands at `x`: "start", "middle" or "end".
    """
    share = {"start": 0.0, "middle": 0.5, "end": 1.0}[anchor]
    letters, width = _fitted(text, pixels, bold)
    left = round(x - share * width)
    middle = left + share * width  # the free one's place: where the fitted one stands
    drawn = _path("at-1x", colour, left, baseline, letters)
    letters, width = _free(text, pixels, bold)
    left = f"{middle - share * width:.2f}"
    return drawn + _path('at-larger" display="none', colour, left, baseline, letters)


def _path(kind, colour, left, baseline, letters):
    data = "".join(_drawn(contour) for letter in letters for contour in letter)
    return (
        f'<path class="{kind}" fill="{colour}" transform="translate({left} {baseline})" '
        f'd="{data}"/>\n'
    )


def _drawn(points):
    """Path commands of one quadratic contour; y grows upward in the font and downward here."""

    def at(point):
        return f"{point[0]:.2f} {-point[1]:.2f}"

    first = next(place for place, point in enumerate(points) if point[2])
    points = points[first:] + points[:first]
    commands, control = ["M" + at(points[0])], None
    for point in points[1:] + points[:1]:
        if point[2]:
            commands.append("L" + at(point) if control is None else f"Q{at(control)} {at(point)}")
            control = None
            continue
        if control is not None:  # between two control points lies an implied point on the curve
            middle = ((control[0] + point[0]) / 2, (control[1] + point[1]) / 2)
            commands.append(f"Q{at(control)} {at(middle)}")
        control = point
    return "".join(commands) + "Z"
