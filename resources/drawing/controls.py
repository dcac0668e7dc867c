"""The pictures of everything that moves: handle, meter, switches, buttons and the about panel."""

from background import HANDLE_HEIGHT, HANDLE_WIDTH, METER_HEIGHT, METER_WIDTH
from lettering import caption
from palette import (BLUE, GLOW, INK, LIT_TRACK, METER_BACK, METER_EVEN, METER_MID, METER_SIDE,
                     PALE, STEEL, WHITE, mixed)
from shapes import (HOVER, IDLE, INK_OF, PRESSED, disk, filled, folder, picture, plate, sign,
                    stacked, triangle)

STATES = (IDLE, HOVER, PRESSED)
HOLE_OF = {IDLE: "#f2f6f9", HOVER: GLOW, PRESSED: BLUE}  # what shows through an icon's openings


def handle(state):
    """134, and 140 under the pointer: a slider's handle with a mark in its middle."""
    w, h = HANDLE_WIDTH, HANDLE_HEIGHT
    bottom, edge, ridge = ("#cfdbe4", STEEL, PALE) if state == IDLE else (GLOW, BLUE, STEEL)
    body = (
        f'<rect x="1.5" y="2" width="{w - 3}" height="{h - 2.5}" rx="3.5" fill="{INK}" '
        f'opacity=".22"/>\n'
        f'<rect x="1.5" y=".5" width="{w - 3}" height="{h - 2.5}" rx="3" fill="url(#cap)" '
        f'stroke="{edge}"/>\n'
        f'<rect x="{w / 2 - 1}" y="3" width="2" height="{h - 7.5}" rx="1" fill="{BLUE}"/>\n'
    )
    for x in (4, w - 5):
        body += f'<rect x="{x}" y="6" width="1" height="{h - 13.5}" fill="{ridge}"/>\n'
    return picture(w, h, body, [("cap", WHITE, bottom)])


def spare():
    """133: the family's sign by itself."""
    return picture(24, 24, sign(12, 12))


def meter(lit):
    """135 lit, 136 unlit: one bar, warm at the left (side), cool at the right (mid).

    The window cuts the two at any pixel. A bar without parts looks right wherever it ends, and the
    line at 1:1 is the same in both, so that it stays whole.
    """
    colours = [METER_SIDE, METER_EVEN, METER_MID]
    if not lit:
        colours = [mixed(METER_BACK, bright, 0.16) for bright in colours]
    stops = "".join(
        f'<stop offset="{place / 2:g}" stop-color="{colour}"/>'
        for place, colour in enumerate(colours)
    )
    middle = METER_WIDTH // 2
    body = (
        f'<defs><linearGradient id="bar">{stops}</linearGradient></defs>\n'
        f'<rect width="{METER_WIDTH}" height="{METER_HEIGHT}" fill="{METER_BACK}"/>\n'
        f'<rect y="2" width="{METER_WIDTH}" height="{METER_HEIGHT - 4}" fill="url(#bar)"/>\n'
        f'<rect x="{middle - 2}" width="4" height="{METER_HEIGHT}" fill="{METER_BACK}"/>\n'
        f'<rect x="{middle - 1}" width="2" height="{METER_HEIGHT}" fill="{WHITE}"/>\n'
    )
    return picture(METER_WIDTH, METER_HEIGHT, body)


def switch(name, state):
    """137 and 138, and 141 and 142 under the pointer: a sliding switch with its name below.

    Off above on.
    """
    return stacked(42, 30, [_switch(name, False, state), _switch(name, True, state)])


def _switch(name, is_on, state):
    hover = state == HOVER
    if is_on:
        track, edge, knob, rim = "url(#pressed)", BLUE, GLOW, WHITE
        if hover:
            track, knob = LIT_TRACK, WHITE
    else:
        track, edge, knob, rim = "#c3d0da", STEEL, "url(#idle)", STEEL
        if hover:
            track, edge, rim = GLOW, BLUE, BLUE
    middle = 31 if is_on else 11
    body = (
        f'<rect x="3.5" y="1.5" width="35" height="15" rx="7.5" fill="{track}" stroke="{edge}"/>\n'
    )
    if is_on:
        body += f'<rect x="13" y="5" width="2" height="8" rx="1" fill="{GLOW}"/>\n'
    else:
        body += f'<circle cx="28" cy="9" r="3" fill="none" stroke="{edge}" stroke-width="1.5"/>\n'
    body += f'<circle cx="{middle}" cy="9" r="6" fill="{knob}" stroke="{rim}"/>\n'
    return body + caption(name, 21, 27, 11, INK)


def arrow(state):
    """143: the list's arrow under the pointer, over the one in the panel."""
    body = plate(0, 0, 10, 14, state) + triangle(4.5, 7.5, "down", INK_OF[state])
    return stacked(10, 14, [body])


def rocker():
    """19997: steps to the preset before and after.

    At rest, over left, over right, pressed left, pressed right.
    """
    rows = ((IDLE, IDLE), (HOVER, IDLE), (IDLE, HOVER), (PRESSED, IDLE), (IDLE, PRESSED))
    images = []
    for left, right in rows:
        body = plate(1, 1, 15, 13, left) + plate(16, 1, 15, 13, right)
        body += triangle(8.2, 7.5, "left", INK_OF[left])
        body += triangle(23.8, 7.5, "right", INK_OF[right])
        images.append(body)
    return stacked(31, 14, images)


def save_button():
    """19994 and 19999: a disk."""
    images = [plate(0, 0, 12, 14, s) + disk(2, 3, INK_OF[s], HOLE_OF[s]) for s in STATES]
    return stacked(12, 14, images)


def load_button():
    """19993 and 19998: an open folder."""
    return stacked(12, 14, [plate(0, 0, 12, 14, s) + folder(1.8, 3, INK_OF[s]) for s in STATES])


def memory_button(letter, stores):
    """19995, 19996 (store) and 19991, 19992 (recall): an arrow into the letter or out of it."""
    images = []
    for state in STATES:
        arrow = filled("M2.5 2H9.5L6 5.3Z" if stores else "M2.5 5.2H9.5L6 1.9Z", INK_OF[state])
        words = caption(letter, 6, 12, 8, INK_OF[state], bold=True)
        images.append(plate(0, 0, 12, 14, state) + arrow + words)
    return stacked(12, 14, images)


def default_button(name, width, left):
    """19899 and 19990: a caption on a plate; under the pointer it says which click it wants.

    The controls are of different widths. The plates are not: both stand in one line, `left` pixels
    from their control's edge.
    """
    plate_width = 35
    images = []
    for state in STATES:
        ink = WHITE if state == PRESSED else INK
        words = "2\u00d7 click" if state == HOVER else name
        body = plate(left, 0, plate_width, 10, state, 3)
        images.append(body + caption(words, left + plate_width / 2, 7, 8, ink))
    return stacked(width, 10, images)


def manual_button():
    """989: a question mark."""
    images = [
        plate(0, 0, 16, 14, state) + caption("?", 8, 11, 11, INK_OF[state], bold=True)
        for state in STATES
    ]
    return stacked(16, 14, images)


def about():
    """139: a light panel.

    The program writes four lines on it, 8, 25, 42 and 79 pixels below its top, 15 tall each.
    """
    width, height = 224, 104
    body = (
        f'<rect x="1" y="1" width="{width - 2}" height="{height - 2}" rx="5" fill="url(#sheet)" '
        f'stroke="{BLUE}" stroke-width="2"/>\n'
    )
    middle, y = width // 2, 68
    for x in (20, middle + 18):
        body += f'<rect x="{x}" y="{y}" width="{middle - 38}" height="1" fill="{PALE}"/>\n'
    body += sign(middle, y + 0.5)
    return picture(width, height, body, [("sheet", WHITE, "#e9f1f5")])
