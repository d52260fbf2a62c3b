#!/usr/bin/env python3
"""Writes the vector sources of the built-in icons and cursors to resources/svg.

One family: 24 by 24 units unless the name says otherwise, strokes of two units with round ends,
and tones between light and dark, so that an icon shows on either ground. A colour has a meaning:
blue acts, green adds, red takes away, orange points something out, grey is what there is already.
Cursors are black with a white outline, and their hot spot is where the cursor service puts it.
"""

import pathlib
import sys

BLUE, GREEN, RED, ORANGE, GREY, PURPLE = "#1e84dc", "#2c9a42", "#e0443e", "#e07a0c", "#7f8992", "#9a5fd0"


# ---- elements

def shape(d, fill="none", stroke=None, width=2.0, extra=""):
    line = f' stroke="{stroke}" stroke-width="{width}" stroke-linecap="round" stroke-linejoin="round"' if stroke else ""
    return f'<path d="{d}" fill="{fill}"{line}{extra}/>'


def line(d, colour, width=2.0):
    return shape(d, stroke=colour, width=width)


def solid(d, colour):
    return shape(d, fill=colour, stroke=colour, width=1)


def disc(x, y, r):
    return f"M{x - r},{y}a{r},{r} 0 1 0 {2 * r},0a{r},{r} 0 1 0 {-2 * r},0z"


def box(x, y, w, h):
    return f"M{x},{y}h{w}v{h}h{-w}z"


def plus(x, y, r):
    return f"M{x - r},{y}h{2 * r}M{x},{y - r}v{2 * r}"


def minus(x, y, r):
    return f"M{x - r},{y}h{2 * r}"


def gradient(name, colours, x2="1", y2="0"):
    step = 1 / (len(colours) - 1)
    stops = "".join(f'<stop offset="{i * step:.3f}" stop-color="{c}"/>' for i, c in enumerate(colours))
    return f'<linearGradient id="{name}" x1="0" y1="0" x2="{x2}" y2="{y2}">{stops}</linearGradient>'


def turned(degrees, content, x=12, y=12):
    return f'<g transform="rotate({degrees} {x} {y})">{content}</g>'


def badge(sign, colour, x=18, y=18, r=5):
    """A small sign in a disc of its own, over the lower right corner."""
    return (shape(disc(x, y, r), fill=colour) + line(sign(x, y, r - 2.2), "#ffffff", 1.8))


# ---- vcr

def triangle(x, right, h=7, w=9):
    side = w if right else -w
    return solid(f"M{x},{12 - h}l{side},{h}l{-side},{h}z", BLUE)


def bar(x):
    return solid(box(x + 0.5, 5.5, 1, 13), BLUE)


VCR = {
    "vcr-play": triangle(7, True, 8, 12),
    "vcr-pause": solid(box(6.5, 5.5, 3, 13), BLUE) + solid(box(14.5, 5.5, 3, 13), BLUE),
    "vcr-next": bar(5) + triangle(10, True),
    "vcr-previous": bar(17) + triangle(14, False),
    "vcr-last": triangle(3, True, 6, 7) + triangle(11, True, 6, 7) + bar(19),
    "vcr-first": triangle(21, False, 6, 7) + triangle(13, False, 6, 7) + bar(3),
    "vcr-export": (shape(box(2.5, 4.5, 13, 15), stroke=GREY, width=1.6)
                   + "".join(shape(box(x, y, 1.8, 1.8), fill=GREY) for x in (4.3, 11.9) for y in (6.6, 11.1, 15.6))
                   + line("M9,12h12M17.2,8l4,4l-4,4", ORANGE, 2.4)),
}

# ---- lists and arrows

ARROW = line("M12,20.5v-16M5.5,11l6.5,-6.5l6.5,6.5", BLUE, 2.6)


def signed_disc(sign, colour, x=12, y=12, r=9):
    return shape(disc(x, y, r), fill=colour) + line(sign(x, y, r * 0.52), "#ffffff", 2.4)


GEAR = ("".join(turned(45 * i, shape("M9.9,1.8h4.2l0.7,4.4h-5.6z", fill=GREY)) for i in range(8))
        + shape(disc(12, 12, 5.4), stroke=GREY, width=4))

ACTIONS = {
    "plus": line(plus(12, 12, 7), BLUE, 4),
    "minus": line(minus(12, 12, 7), BLUE, 4),
    "add": signed_disc(plus, GREEN),
    "add-all": (shape(disc(8.5, 8.5, 7), fill=GREEN, extra=' fill-opacity="0.5"')
                + signed_disc(plus, GREEN, 14.5, 14.5, 7.5)),
    "remove": signed_disc(minus, RED),
    "delete": (line("M4,6.5h16M9.2,6v-2.5h5.6v2.5M6,7l1,14h10l1,-14", RED, 1.9)
               + line("M10,10.5v7M14,10.5v7", RED, 1.7)),
    "clear": (turned(-40, shape("M4.5,8h14.5v8.5h-14.5z", stroke=BLUE, width=1.8)
                     + solid("M5,8.5h5v7.5h-5z", BLUE), 12, 12) + line("M11,21.5h10", GREY, 1.8)),
    "up": ARROW,
    "right": turned(90, ARROW),
    "down": turned(180, ARROW),
    "left": turned(270, ARROW),
    "filter": solid("M3,4h18l-7,8.5v7.5l-4,-2.5v-5z", BLUE),
    "settings": GEAR,
    "combine": (shape(disc(9, 12, 6), stroke=GREY) + shape(disc(15, 12, 6), stroke=GREY)
                + solid("M12,6.8a6,6 0 0 1 0,10.4a6,6 0 0 1 0,-10.4z", ORANGE)),
}

# ---- text


def tex(colour, y=0.0, width=2.0):
    d = f"M1.5,{y + 6}h7M5,{y + 6}v9.5M14.2,{y + 9}h-5v9.5h5M9.2,{y + 13.7}h4M16,{y + 6}l6.5,9.5M22.5,{y + 6}l-6.5,9.5"
    return line(d, colour, width)


TEXT = {
    "latex": tex(BLUE),
    "latex_regenerate": (tex(BLUE, -5, 1.9) + line("M19.6,16.2a4,4 0 1 0 0.6,3.4", ORANGE, 1.9)
                         + solid("M21,12.8v4.6h-4.6z", ORANGE)),
}

# ---- contours

HILL = "M10,3.5c5,-1.6 10.5,1 11,6c0.4,4 -3,4.6 -5,7c-2,2.4 -5,4.6 -8.6,3.4c-4,-1.4 -5.6,-6 -4.6,-9.6c0.9,-3.4 3.8,-5.7 7.2,-6.8z"
INNER = "M11,7.6c3,-0.9 6.2,0.4 6.4,2.8c0.2,2.2 -2,2.8 -3.4,4.2c-1.4,1.4 -3.4,2.2 -5.2,1.2c-1.9,-1 -2.5,-3.2 -1.8,-5c0.6,-1.7 2.2,-2.6 4,-3.2z"
PEAK = "M11.6,10.6c1.2,-0.4 2.2,0 2.2,0.8c0,0.9 -1.2,1.2 -1.8,1.7c-0.8,0.6 -1.9,0.3 -1.9,-0.7c0,-0.9 0.7,-1.5 1.5,-1.8z"

CONTOURS = {
    "addcontour": line(HILL, GREY, 1.8) + line(INNER, BLUE, 1.9) + badge(plus, GREEN),
    "delcontour": line(HILL, GREY, 1.8) + line(INNER, BLUE, 1.9) + badge(minus, RED),
    "addNewContours": line(HILL, BLUE, 1.9) + line(INNER, ORANGE, 1.9) + line(PEAK, RED, 1.7) + badge(plus, GREEN),
}

# ---- directions: the horizontal axis is the first letter, the vertical one the second

LETTERS = {"x": "M0,0l4.4,5.6M4.4,0l-4.4,5.6", "y": "M0,0l2.2,2.8l2.2,-2.8M2.2,2.8v2.8", "z": "M0,0h4.4l-4.4,5.6h4.4"}
AXES = {"x": RED, "y": GREEN, "z": BLUE}


def letter(name, x, y):
    return f'<g transform="translate({x} {y})">{line(LETTERS[name], AXES[name], 1.6)}</g>'


def plane(first, second):
    return (shape(box(6, 10, 8, 8), fill=ORANGE, extra=' fill-opacity="0.55"')
            + line("M5,19h15M17.4,16.4l2.6,2.6l-2.6,2.6", AXES[first])
            + line("M5,19v-15M2.4,6.6l2.6,-2.6l2.6,2.6", AXES[second])
            + letter(first, 17.6, 8.8) + letter(second, 11, 2.2))


SPACE = (line("M10.5,13.5v-10M8,6l2.5,-2.5l2.5,2.5", BLUE) + line("M10.5,13.5l9.5,4.2M18.4,14.2l1.6,3.5l-3.7,1.2", RED)
         + line("M10.5,13.5l-7.5,6.2M3.6,15.9l-0.6,3.8l3.9,0.1", GREEN)
         + letter("z", 15.4, 2.6) + letter("x", 18, 7.8) + letter("y", 9.4, 17.2))

DIRECTIONS = {
    "orientation-xy": plane("x", "y"), "orientation-xz": plane("x", "z"), "orientation-yz": plane("y", "z"),
    "orientation-xyz": SPACE,
}

# ---- probes


def crosshair(x, y, colour):
    return line(disc(x, y, 2.6), colour, 1.6) + line(f"M{x - 4.4},{y}h8.8M{x},{y - 4.4}v8.8", colour, 1.3)


PROBES = {
    "ThreePoints": (shape("M5,18.5l3.5,-13l11.5,9z", fill=BLUE, stroke=BLUE, width=1.4, extra=' fill-opacity="0.4"')
                    + "".join(shape(disc(x, y, 2.9), fill=ORANGE) for x, y in ((5, 18.5), (8.5, 5.5), (20, 14.5)))),
    "DeltaProbe": (line("M6,18L18,6", GREY, 1.6) + crosshair(6, 18, BLUE) + crosshair(18, 6, BLUE)
                   + line("M17.5,13.5l4,7.5h-8z", ORANGE, 1.9)),
}

# ---- gradients and other pictures

RAINBOW = ["#2b5fd9", "#1fa8c9", "#37b24d", "#f2c21a", "#e8590c", "#d6336c"]
RAMP = ["#2b5fd9", "#37b24d", "#f2c21a", "#d6336c"]


def ramp(y, h, name="g"):
    return (f"<defs>{gradient(name, RAMP)}</defs>" + shape(box(2.8, y, 18.4, h), fill=f"url(#{name})", stroke=GREY, width=1.4))


BELL = "M2,20c5,0 5.5,-15.5 10,-15.5c4.5,0 5,15.5 10,15.5"
BARS = [(3.2, 16.2), (7.4, 11.2), (11, 7.4), (14.6, 11.2), (18.8, 16.2)]

PICTURES = {
    "icon-gradient-plain-01": ramp(5.8, 12.4),
    "icon-gradient-arrow-01": ramp(3.8, 9) + line("M4,18.5h16M16.6,15.1l3.4,3.4l-3.4,3.4", BLUE, 2.2),
    "icon-gradient-arrow-02": ramp(3.8, 9) + line("M20,18.5h-16M7.4,15.1l-3.4,3.4l3.4,3.4", BLUE, 2.2),
    "icon-distribution": ("".join(shape(box(x - 1.3, y, 2.6, 20.2 - y), fill=GREY, extra=' fill-opacity="0.75"')
                                  for x, y in BARS) + line(BELL, ORANGE, 2) + line("M2,21.4h20", GREY, 1.4)),
}


def control_point(sign, colour):
    return (line("M1.8,14.5c5.2,0 4.6,-9.5 11,-9.8", GREY, 1.7) + solid(box(4.6, 7.4, 4.6, 4.6), BLUE)
            + badge(sign, colour, 13, 13, 4.4))


def diamond(colour):
    light, edge = {"grey": ("#b4bcc4", GREY), "blue": ("#5aaef2", BLUE)}[colour]
    return (shape("M11.5,2l9.5,9.5l-9.5,9.5l-9.5,-9.5z", fill=edge, stroke=edge, width=1.6)
            + shape("M11.5,4.4l7.1,7.1h-14.2z", fill=light))


SWATCHES = RAINBOW + ["#9a5fd0", "#7f8992", "#20262c"]
OTHER_SIZES = {
    "icon-control-point-add-18x18": (18, control_point(plus, GREEN)),
    "icon-control-point-remove-18x18": (18, control_point(minus, RED)),
    "diamond-grey-23x23": (23, diamond("grey")),
    "diamond-blue-23x23": (23, diamond("blue")),
    # A bitmap without transparency: the colours cover it all.
    "multi_color": (24, "".join(shape(box(i % 3 * 8, i // 3 * 8, 8, 8), fill=c) for i, c in enumerate(SWATCHES))),
}

ICONS = {name: (24, body) for group in (VCR, ACTIONS, TEXT, CONTOURS, DIRECTIONS, PROBES, PICTURES)
         for name, body in group.items()} | OTHER_SIZES


# ---- cursors

def outlined(d, width=1.6, fill="none"):
    """The same path in white, one unit wider on each side, and in black over it."""
    return (shape(d, fill="#ffffff" if fill != "none" else "none", stroke="#ffffff", width=width + 2)
            + shape(d, fill=fill, stroke="#000000", width=width))


def lens(sign):
    """The lens is centred on the pixel 7, 7."""
    return (outlined("M12,12l8,8", 2.6) + shape(disc(7.5, 7.5, 5.5), fill="#ffffff", extra=' fill-opacity="0.35"')
            + outlined(disc(7.5, 7.5, 5.5), 1.4) + line(sign(7.5, 7.5, 2.5), "#000000", 1.2))


# Four ways from the pixel 10, 10.
FOUR_ARROWS = ("M10.5,3v15M3,10.5h15M8,5.5l2.5,-2.5l2.5,2.5M8,15.5l2.5,2.5l2.5,-2.5"
               "M5.5,8l-2.5,2.5l2.5,2.5M15.5,8l2.5,2.5l-2.5,2.5")
# Two arrows about the pixel 10, 10, and that pixel.
TURN = ("M3.6,9.4a7,7 0 0 1 12.4,-3.2M17.4,11.6a7,7 0 0 1 -12.4,3.2M16.6,2.6v4h-4M4.4,18.4v-4h4")
RAYS = ("M11.5,4v-2.5M11.5,19v2.5M4,11.5h-2.5M19,11.5h2.5"
        "M6.2,6.2l-1.8,-1.8M16.8,16.8l1.8,1.8M6.2,16.8l-1.8,1.8M16.8,6.2l1.8,-1.8")

CURSORS = {
    # The tip is the pixel 1, 1; the handle is what gets adjusted.
    "adjustor": (24, outlined("M1.5,1.5l0,11l3.2,-2.8l2.4,5l2,-1l-2.3,-4.7l4.2,-0.4z", 1, "#000000")
                 + outlined(box(13.5, 13.5, 7, 7), 1.4) + shape(box(16, 16, 2, 2), fill="#000000")),
    "translate": (21, outlined(FOUR_ARROWS, 1.3)),
    "rotate": (21, outlined(TURN, 1.5) + outlined(disc(10.5, 10.5, 0.6), 1, "#000000")),
    "zoom-in": (24, lens(plus)),
    "zoom-out": (24, lens(minus)),
    # The centre pixel of 21 by 21, free to see through.
    "cross": (21, outlined("M10.5,1.5v6.5M10.5,13v6.5M1.5,10.5h6.5M13,10.5h6.5", 1)
              + shape(box(10, 10, 1, 1), fill="#000000")),
    "lightsource": (23, outlined(RAYS, 1.5) + outlined(disc(11.5, 11.5, 4), 1.4)
                    + shape(box(11, 11, 1, 1), fill="#000000")),
}


def write(folder, pictures):
    folder.mkdir(parents=True, exist_ok=True)
    for name, (size, body) in sorted(pictures.items()):
        text = (f'<svg xmlns="http://www.w3.org/2000/svg" width="{size}" height="{size}" '
                f'viewBox="0 0 {size} {size}">\n{body.replace("><", ">" + chr(10) + "<")}\n</svg>\n')
        (folder / f"{name}.svg").write_text(text, encoding="utf-8")


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent / "svg")
    write(root / "icons", ICONS)
    write(root / "cursors", CURSORS)


if __name__ == "__main__":
    main()
