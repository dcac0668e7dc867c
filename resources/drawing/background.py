"""Resource 128: the window's panel with everything that does not move."""

from lettering import caption
from palette import (BLUE, DRAWER, DRAWER_LINE, FIELD, FIELD_EDGE, GROOVE_BOTTOM, GROOVE_TOP, INK,
                     METER_BACK, PALE, PANEL, PANEL_EDGE, QUIET, TICK, WHITE)
from shapes import picture, sign, triangle, word_mark

# The lowest controls end at 243: 8 pixels below them, as to the left of the bar.
WIDTH, HEIGHT = 302, 251
METER_LEFT, METER_TOP, METER_WIDTH, METER_HEIGHT = 60, 25, 182, 15
SLIDER_LEFT, SLIDER_RIGHT = 63, 239
# Each slider's top, and what its ends mean: value 1 is at the left.
SLIDERS = ((51, "100", "0"), (83, "1k", "20"), (115, "100", "0"))
HANDLE_WIDTH, HANDLE_HEIGHT = 16, 23
DRAWER_TOP = 203


def background():
    body = f'<rect width="{WIDTH}" height="{HEIGHT}" fill="{PANEL}"/>\n'
    body += f'<rect width="{WIDTH}" height="1" fill="{PANEL_EDGE}"/>\n'
    body += _meter_frame()
    body += "".join(_slider(*slider) for slider in SLIDERS)
    body += _name()
    body += _drawer()
    return picture(WIDTH, HEIGHT, body, [("groove", GROOVE_TOP, GROOVE_BOTTOM)])


def _meter_frame():
    """The hollow around the meter, and its scale: the ratio of side to mid at five places."""
    body = (
        f'<rect x="{METER_LEFT - 2}" y="{METER_TOP - 2}" width="{METER_WIDTH + 4}" '
        f'height="{METER_HEIGHT + 4}" rx="3" fill="{METER_BACK}"/>\n'
        f'<rect x="{METER_LEFT - 1}" y="{METER_TOP + METER_HEIGHT + 2}" width="{METER_WIDTH + 2}" '
        f'height="1" fill="{WHITE}" opacity=".8"/>\n'
    )
    for place, text in enumerate(("4:1", "2:1", "1:1", "1:2", "1:4")):
        body += caption(text, METER_LEFT + METER_WIDTH * place / 4, 17, 9, QUIET)
    # Whole pixels nearest to those places.
    for x, width in ((60, 1), (105, 1), (150, 2), (196, 1), (241, 1)):
        body += f'<rect x="{x}" y="19" width="{width}" height="3" fill="{QUIET}"/>\n'
    return body


def _slider(top, highest, lowest):
    """A groove that widens to the left, where the value is highest.

    A mark stands at each tenth of the handle's way, and a number beside the first and the last:
    below them the next slider's handle begins.
    """
    middle = top + HANDLE_HEIGHT / 2
    left, right = SLIDER_LEFT + 3, SLIDER_RIGHT - 3
    groove = (
        f"M{left + 4} {middle - 4}L{right - 1.2} {middle - 1.2}"
        f"A1.2 1.2 0 0 1 {right - 1.2} {middle + 1.2}"
        f"L{left + 4} {middle + 4}A4 4 0 0 1 {left + 4} {middle - 4}Z"
    )
    body = f'<path transform="translate(0 1)" fill="{WHITE}" d="{groove}"/>\n'
    body += f'<path fill="url(#groove)" d="{groove}"/>\n'
    first, last = SLIDER_LEFT + HANDLE_WIDTH / 2, SLIDER_RIGHT - HANDLE_WIDTH / 2
    for tenth in range(11):
        x = first + (last - first) * tenth / 10
        height = 4 if tenth % 5 == 0 else 2
        body += (
            f'<rect x="{x - 1:g}" y="{top + HANDLE_HEIGHT + 1}" width="2" height="{height}" '
            f'fill="{TICK}"/>\n'
        )
    baseline = top + HANDLE_HEIGHT + 7
    body += caption(highest, first - 4, baseline, 8, QUIET, "end")
    return body + caption(lowest, last + 4, baseline, 8, QUIET, "start")


def _name():
    """The sign, the product's and the maker's name over the area that opens the about panel.

    That area goes from 70 to 225 pixels from the left.
    """
    baseline, scale = 197, 0.92
    drawn, width = word_mark(0, 0)
    width *= scale
    maker = "by Orv"
    whole = 23 + width + 6 + 29  # sign, word mark, gap, maker
    left = 147.5 - whole / 2
    body = sign(round(left + 8), baseline - 4)
    body += f'<g transform="translate({left + 23:.2f} {baseline}) scale({scale})">\n{drawn}</g>\n'
    return body + caption(maker, left + 23 + width + 6, baseline + 1, 10, QUIET, "start")


def _drawer():
    """The preset bar's ground: column heads, the name's field and the list's arrow."""
    body = (
        f'<rect y="{DRAWER_TOP}" width="{WIDTH}" height="{HEIGHT - DRAWER_TOP}" fill="{DRAWER}"/>\n'
    )
    body += f'<rect y="{DRAWER_TOP - 1}" width="{WIDTH}" height="1" fill="{DRAWER_LINE}"/>\n'
    for text, x in (
        ("save", 14), ("default", 45.5), ("load", 77), ("store", 259.5), ("recall", 285.5)
    ):
        body += caption(text, x, 212, 9, INK)
    body += (
        f'<rect x="87.5" y="219.5" width="130" height="18" rx="3" fill="{FIELD}" '
        f'stroke="{FIELD_EDGE}"/>\n'
        f'<rect x="89" y="238" width="127" height="1" fill="{WHITE}" opacity=".7"/>\n'
    )
    body += f'<rect x="204" y="223" width="1" height="11" fill="{FIELD_EDGE}" opacity=".6"/>\n'
    body += triangle(211.5, 228.5, "down", BLUE)
    for row in (221, 236):  # the middle of each row: save, default, load
        for left, right in ((21, 27), (64, 70)):
            body += (
                f'<rect x="{left}" y="{row}" width="{right - left}" height="1" fill="{PALE}"/>\n'
            )
    body += caption("manual", 257, 198, 9, QUIET, "end")
    return body
