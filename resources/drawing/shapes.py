"""The parts that the pictures share: plates, icons and the word mark.

One unit is one pixel of the window.
"""

from palette import (BLUE, BUTTON_BOTTOM, BUTTON_TOP, GLOW, PALE, PRESSED_BOTTOM, PRESSED_TOP,
                     STEEL, WHITE)

IDLE, HOVER, PRESSED = "idle", "hover", "pressed"
INK_OF = {IDLE: BLUE, HOVER: BLUE, PRESSED: WHITE}  # what stands on a plate in each state

GRADIENTS = {
    "idle": (BUTTON_TOP, BUTTON_BOTTOM),
    "hover": (GLOW, GLOW),
    "pressed": (PRESSED_TOP, PRESSED_BOTTOM),
}
EDGES = {IDLE: PALE, HOVER: BLUE, PRESSED: BLUE}


def picture(width, height, body, gradients=()):
    """A whole SVG file; `gradients` are (id, colour at the top, colour at the bottom)."""
    definitions = "".join(
        f'<linearGradient id="{name}" x1="0" y1="0" x2="0" y2="1">'
        f'<stop offset="0" stop-color="{top}"/>'
        f'<stop offset="1" stop-color="{bottom}"/></linearGradient>\n'
        for name, top, bottom in gradients
    )
    definitions = f"<defs>\n{definitions}</defs>\n" if definitions else ""
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
        f'viewBox="0 0 {width} {height}">\n{definitions}{body}</svg>\n'
    )


def stacked(width, height, images):
    """Equally tall images below each other, each drawn by itself at 0,0."""
    body = ""
    for place, image in enumerate(images):
        body += f'<g transform="translate(0 {height * place})">\n{image}</g>\n'
    gradients = [(name, *GRADIENTS[name]) for name in GRADIENTS]
    return picture(width, height * len(images), body, gradients)


def plate(left, top, width, height, state, radius=2.5):
    """A button's body with its outline inside the given box."""
    return (
        f'<rect x="{left + 0.5:g}" y="{top + 0.5:g}" width="{width - 1:g}" height="{height - 1:g}" '
        f'rx="{radius:g}" fill="url(#{state})" stroke="{EDGES[state]}"/>\n'
    )


def filled(data, colour):
    return f'<path fill="{colour}" d="{data}"/>\n'


def disk(x, y, colour, hole):
    """Save: a disk, 8 by 8, with its upper left corner at x,y.

    `hole` is the colour of shutter and label.
    """
    return (
        filled(f"M{x} {y}h6.5l1.5 1.5v6.5h-8z", colour)
        + filled(f"M{x + 3} {y}h2v2h-2z", hole)
        + filled(f"M{x + 2} {y + 4}h4v3h-4z", hole)
    )


def folder(x, y, colour):
    """Load: an open folder, 9 by 8, with its upper left corner at x,y."""
    return filled(f"M{x} {y + 8}v-8h3.5l1 1.5h3v1.5h-5.2z", colour) + filled(
        f"M{x + 0.7} {y + 8}l2-4.2h6.6l-2 4.2z", colour
    )


def triangle(x, y, direction, colour, size=3.5):
    """An arrow head around its middle; `direction` is "left", "right" or "down"."""
    s, h = size, size * 0.62
    data = {
        "left": f"M{x + h} {y - s}v{2 * s}L{x - h} {y}z",
        "right": f"M{x - h} {y - s}v{2 * s}L{x + h} {y}z",
        "down": f"M{x - s} {y - h}h{2 * s}L{x} {y + h}z",
    }[direction]
    return (
        f'<path fill="{colour}" stroke="{colour}" stroke-width=".8" stroke-linejoin="round" '
        f'd="{data}"/>\n'
    )


# Letters of the word mark as strokes, and their widths; small letters are 7 units tall,
# tall ones 10.5.
_MARK = {
    "T": ("M0-10.5H8.4M4.2-10.5V0", 8.4),
    "r": ("M0 0V-7M0-3.2Q0-7 3.8-7", 3.8),
    "e": ("M.1-3.5H7A3.5 3.5 0 1 0 5.9-.9", 7.0),
    "l": ("M0 0V-10.5", 0.0),
    "v": ("M0-7L3.2 0L6.4-7", 6.4),
    "a": ("M7-7V0M7-3.5A3.5 3.5 0 1 1 0-3.5A3.5 3.5 0 1 1 7-3.5", 7.0),
    "n": ("M0 0V-7M0-3.6A3.3 3.4 0 0 1 6.6-3.6V0", 6.6),
}
_MARK_GAPS = {"Tr": 3.4, "re": 2.9, "el": 4.6, "lv": 3.9, "va": 3.3, "an": 4.6}


def word_mark(x, baseline, colour=BLUE, stroke=1.8):
    """The product's name as strokes from x; the drawing and its width."""
    name, data, pen = "Trelvan", "", 0.0
    for place, letter in enumerate(name):
        path, width = _MARK[letter]
        data += f'<path transform="translate({pen:.2f} 0)" d="{path}"/>\n'
        pen += width + _MARK_GAPS.get(name[place : place + 2], 0.0)
    group = (
        f'<g transform="translate({x:g} {baseline:g})" fill="none" stroke="{colour}" '
        f'stroke-width="{stroke:g}" stroke-linecap="round" stroke-linejoin="round">\n{data}</g>\n'
    )
    return group, pen


def arcs(x, y, side, colour=STEEL, radii=(4.5, 8.0)):
    """Sound leaving a point to one side (-1 left, +1 right), fainter the farther it is."""
    drawn = ""
    for place, radius in enumerate(radii):
        rise, run = radius * 0.707, side * radius * 0.707
        sweep = 1 if side > 0 else 0
        drawn += (
            f'<path fill="none" stroke="{colour}" stroke-width="1.6" stroke-linecap="round" '
            f'opacity="{1 - 0.4 * place:.2f}" d="M{x + run:.2f} {y - rise:.2f}'
            f'A{radius:g} {radius:g} 0 0 {sweep} {x + run:.2f} {y + rise:.2f}"/>\n'
        )
    return drawn


def sign(x, y, colour=BLUE):
    """The family's sign around x,y, 16 wide: one source that sounds to both sides."""
    dot = f'<circle cx="{x:g}" cy="{y:g}" r="1.6" fill="{colour}"/>\n'
    return arcs(x, y, -1, colour) + arcs(x, y, 1, colour) + dot
