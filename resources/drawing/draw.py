#!/usr/bin/env python3
"""Writes ../artwork/bmpNNNNN.svg, the sources of the window's pictures.

They come from one palette and one set of shapes. Run it after a change in this folder and keep what
it wrote: the build renders the SVG files and has no use for this script. Needs fonts-liberation2
and python3-freetype.
"""

from pathlib import Path

import controls
from background import background

PICTURES = {
    128: background,
    133: controls.spare,
    134: lambda: controls.handle(controls.IDLE),
    135: lambda: controls.meter(True),
    136: lambda: controls.meter(False),
    137: lambda: controls.switch("process", controls.IDLE),
    138: lambda: controls.switch("phase", controls.IDLE),
    139: controls.about,
    140: lambda: controls.handle(controls.HOVER),
    141: lambda: controls.switch("process", controls.HOVER),
    142: lambda: controls.switch("phase", controls.HOVER),
    143: lambda: controls.arrow(controls.HOVER),
    989: controls.manual_button,
    19899: lambda: controls.default_button("preset", 47, 6),
    19990: lambda: controls.default_button("bank", 37, 2),
    19991: lambda: controls.memory_button("A", False),
    19992: lambda: controls.memory_button("B", False),
    19993: controls.load_button,
    19994: controls.save_button,
    19995: lambda: controls.memory_button("A", True),
    19996: lambda: controls.memory_button("B", True),
    19997: controls.rocker,
    19998: controls.load_button,
    19999: controls.save_button,
}


def main():
    folder = Path(__file__).resolve().parent.parent / "artwork"
    folder.mkdir(exist_ok=True)
    for number, draw in PICTURES.items():
        (folder / f"bmp{number:05d}.svg").write_text(draw(), encoding="ascii")


if __name__ == "__main__":
    main()
