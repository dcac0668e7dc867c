#!/usr/bin/env python3
"""Writes the manual's figures as SVG: figures.py <photograph of the window> <output folder>.

window.svg is the photograph with numbers; flow.svg shows the signal's way; comb.svg the levels of
the two channels and of their sum over frequency. Needs nothing but Python.
"""

import base64
import math
import sys
from pathlib import Path

BLUE, STEEL = "#2d2d78", "#4f6677"
INK, WARM = "#27282d", "#d9772b"
FONT = 'font-family="Liberation Sans, Arial, sans-serif"'


def svg(width, height, body):
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
        f'viewBox="0 0 {width} {height}">\n'
        f'<rect width="{width}" height="{height}" fill="#fff"/>\n{body}</svg>\n'
    )


def text(x, y, words, size=11, anchor="middle", colour=INK, weight="normal"):
    return (
        f'<text x="{x:g}" y="{y:g}" {FONT} font-size="{size}" font-weight="{weight}" '
        f'text-anchor="{anchor}" fill="{colour}">{words}</text>\n'
    )


def line(points, colour=STEEL, width=1.0, extra=""):
    data = " ".join(f"{x:g},{y:g}" for x, y in points)
    return (
        f'<polyline points="{data}" fill="none" stroke="{colour}" stroke-width="{width:g}" '
        f'{extra}/>\n'
    )


# Number, the control's place in the window, the side on which its number stands and the place
# along that side.
MARKS = (
    (1, 31, 33, "left", 33), (2, 12, 63, "left", 63), (3, 20, 95, "left", 95),
    (4, 12, 127, "left", 127), (5, 94, 160, "left", 160), (6, 207, 160, "right", 160),
    (7, 208, 193, "right", 178), (8, 277, 194, "right", 198), (9, 14, 244, "below", 14),
    (10, 45, 242, "below", 45), (11, 77, 244, "below", 77), (12, 140, 239, "below", 140),
    (13, 212, 239, "below", 207), (14, 235, 236, "below", 233), (15, 260, 244, "below", 260),
    (16, 285, 244, "below", 286),
)


def labelled_window(photograph):
    scale, left, top = 1.6, 50, 10  # of the window's own pixels
    width, height = 302 * scale, 251 * scale
    right, bottom = left + width, top + height
    bytes_in_text = base64.b64encode(photograph.read_bytes()).decode("ascii")
    body = (
        f'<image x="{left}" y="{top}" width="{width:g}" height="{height:g}" '
        f'href="data:image/png;base64,{bytes_in_text}"/>\n'
        f'<rect x="{left}" y="{top}" width="{width:g}" height="{height:g}" '
        f'fill="none" stroke="{STEEL}"/>\n'
    )
    for number, x, y, side, along in MARKS:
        x, y = left + x * scale, top + y * scale
        along = (left if side == "below" else top) + along * scale
        at = {
            "left": (left - 26, along),
            "right": (right + 26, along),
            "below": (along, bottom + 26),
        }[side]
        body += line([at, (x, y)], WARM, 1.1)
        body += f'<circle cx="{x:g}" cy="{y:g}" r="2.4" fill="{WARM}"/>\n'
        body += f'<circle cx="{at[0]:g}" cy="{at[1]:g}" r="10" fill="{WARM}"/>\n'
        body += text(at[0], at[1] + 4, str(number), 11.5, colour="#fff", weight="bold")
    return svg(round(right + 50), round(bottom + 46), body)


def flow():
    """Mid straight through; side from mid by delay, emphasis and depth."""
    body, y, low = "", 46, 116

    def box(x, at, width, first, second):
        return (
            f'<rect x="{x}" y="{at - 21}" width="{width}" height="42" rx="6" '
            f'fill="#eef4f7" stroke="{BLUE}" stroke-width="1.3"/>\n'
            + text(x + width / 2, at - 3, first, 12, colour=BLUE, weight="bold")
            + text(x + width / 2, at + 13, second, 10.5, colour=STEEL)
        )

    def arrow(points):
        (x0, y0), (x1, y1) = points[-2:]
        angle = math.degrees(math.atan2(y1 - y0, x1 - x0))
        head = (
            f'<path transform="translate({x1:g} {y1:g}) rotate({angle:g})" fill="{INK}" '
            f'd="M0 0L-8-4V4Z"/>\n'
        )
        return line(points, INK, 1.3) + head

    def plus(x, at, sign):
        return (
            f'<circle cx="{x}" cy="{at}" r="10" fill="#fff" stroke="{BLUE}" stroke-width="1.3"/>\n'
            + text(x, at + 5.5, sign, 16, colour=BLUE, weight="bold")
        )

    body += text(28, y - 12, "L in", 12) + text(28, y + 24, "R in", 12)
    body += arrow([(44, y - 16), (70, y - 8)]) + arrow([(44, y + 20), (70, y + 8)])
    body += box(70, y, 84, "mid", "(L + R) / 2")
    body += arrow([(154, y), (590, y)])
    body += arrow([(185, y), (185, low), (205, low)])
    body += box(205, low, 92, "freq", "delay of 1 / freq") + arrow([(297, low), (317, low)])
    body += box(317, low, 92, "emph", "less bass") + arrow([(409, low), (429, low)])
    body += box(429, low, 92, "depth, phase", "level and sign") + arrow([(521, low), (590, low)])
    body += arrow([(548, y), (593, low - 8)]) + arrow([(548, low), (593, y + 8)])
    for x, at in ((185, y), (548, y), (548, low)):
        body += f'<circle cx="{x}" cy="{at}" r="3" fill="{INK}"/>\n'
    body += text(535, low + 18, "side", 10.5, colour=STEEL)
    body += text(535, y - 10, "mid", 10.5, colour=STEEL)
    for at, sign, words in ((y, "+", "L out"), (low, "&#8722;", "R out")):
        body += plus(600, at, sign) + arrow([(610, at), (640, at)])
        body += text(647, at + 4, words, 12, "start")
    return svg(690, 150, body)


def comb():
    """Level over frequency for side = half of the delayed mid (depth 50 %, emph 0 %)."""
    left, right, top, bottom, most = 64, 610, 12, 150, 6.0

    def x_of(ratio):
        return left + (right - left) * ratio / 6

    def y_of(decibels):
        return top + (bottom - top) * (most - decibels) / 14

    def curve(gain, colour, width, dash=""):
        points = []
        for step in range(601):
            ratio = step / 100
            real = 1 + gain * math.cos(2 * math.pi * ratio)
            imaginary = -gain * math.sin(2 * math.pi * ratio)
            level = 10 * math.log10(real**2 + imaginary**2)
            points.append((round(x_of(ratio), 2), round(y_of(level), 2)))
        return line(points, colour, width, dash)

    body = ""
    for decibels in (6, 3, 0, -3, -6):
        body += line([(left, y_of(decibels)), (right, y_of(decibels))], "#dbe4ea", 1)
        words = f"{decibels:+d} dB" if decibels else "0 dB"
        body += text(left - 8, y_of(decibels) + 4, words, 12, "end", STEEL)
    for ratio in range(7):
        body += line([(x_of(ratio), top), (x_of(ratio), bottom)], "#dbe4ea", 1)
        label = "0" if ratio == 0 else "freq" if ratio == 1 else f"{ratio} &#215; freq"
        body += text(x_of(ratio), bottom + 17, label, 12, "middle", STEEL)
    body += curve(0.5, BLUE, 2) + curve(-0.5, WARM, 2)
    body += line([(left, y_of(0)), (right, y_of(0))], INK, 2, 'stroke-dasharray="7 4"')
    for x, colour, words in (
        (150, BLUE, "left"), (270, WARM, "right"), (390, INK, "both folded to mono")
    ):
        body += line([(x, 186), (x + 26, 186)], colour, 2.4) + text(x + 34, 190, words, 12, "start")
    return svg(650, 200, body)


def main():
    window, output = labelled_window(Path(sys.argv[1])), Path(sys.argv[2])
    output.mkdir(parents=True, exist_ok=True)
    for name, drawing in (("window", window), ("flow", flow()), ("comb", comb())):
        (output / f"{name}.svg").write_text(drawing, encoding="utf-8")


if __name__ == "__main__":
    main()
