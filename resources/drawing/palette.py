"""The colours of the window, named by what they are used for."""

PANEL = "#e3eaef"  # flat: captions and values show a slice of it from a few pixels lower down
PANEL_EDGE = "#f6f9fb"  # light line along the panel's upper edge
DRAWER = "#d2dde5"  # behind the preset bar
DRAWER_LINE = "#a9bbc8"
FIELD = "#bdcfda"  # 189, 207, 218: the colour that the name field also fills itself with
FIELD_EDGE = "#8299a9"

INK = "#27282d"  # 39, 40, 45: small captions, close to the black of the displays
BLUE = "#2d2d78"  # 45, 45, 120: icons, word mark, whatever is pressed
STEEL = "#4f6677"  # lines, outlines of handles and switches
QUIET = "#3d5160"  # second-rank lettering: scales, end numbers, maker, manual
TICK = "#6f7f8d"  # marks of the sliders' scales, at least 3:1 on the panel
PALE = "#9fb2c0"  # outlines of what is at rest
GLOW = "#a2dde3"  # 162, 221, 227: whatever is under the pointer
WHITE = "#ffffff"

BUTTON_TOP = "#fbfdfe"
BUTTON_BOTTOM = "#e6edf2"
PRESSED_TOP = "#232360"  # darker above: light falls from above, so this is a hollow
PRESSED_BOTTOM = "#3d3d93"

LIT_TRACK = "#46469f"  # of a switch that is on and under the pointer

GROOVE_TOP = "#8da2b1"
GROOVE_BOTTOM = "#c7d4dd"

METER_BACK = "#1f2433"
METER_SIDE = "#f4a261"  # S: warm
METER_EVEN = "#f3ead2"  # as much side as mid
METER_MID = "#6cc5d6"  # M: cool


def mixed(first, second, share):
    """The colour that lies `share` (0..1) of the way from `first` to `second`."""
    pairs = zip(_channels(first), _channels(second))
    return "#" + "".join(f"{round(a + (b - a) * share):02x}" for a, b in pairs)


def _channels(colour):
    return [int(colour[place : place + 2], 16) for place in (1, 3, 5)]
