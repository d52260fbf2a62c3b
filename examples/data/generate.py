#!/usr/bin/env python3
"""Makes the sample data of this folder, or checks that they are what it makes.

    generate.py            writes the files beside this script
    generate.py --check    compares them; exit code 1 and a message when one differs

Only +, -, *, / and the square root are used on floating-point numbers, and a random generator of
its own: both give the same digits on every machine.
"""

import math
import pathlib
import sys
from datetime import date, timedelta

COLUMNS, ROWS, CELL = 200, 160, 50
NODATA = -9999


class Random:
    """A linear congruential generator."""

    def __init__(self, seed):
        self.state = seed

    def fraction(self):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % (1 << 64)
        return (self.state >> 33) / (1 << 31)

    def spread(self):
        """Between -1 and 1, more often near 0."""
        return self.fraction() + self.fraction() + self.fraction() - 1.5


class Noise:
    """Smooth random heights between -1 and 1, in several octaves."""

    def __init__(self, seed):
        random = Random(seed)
        self.lattice = [[2 * random.fraction() - 1 for _ in range(64)] for _ in range(64)]

    def octave(self, x, y):
        column, row = math.floor(x), math.floor(y)
        fx, fy = x - column, y - row
        fx, fy = fx * fx * (3 - 2 * fx), fy * fy * (3 - 2 * fy)

        def at(i, j):
            return self.lattice[(row + j) % 64][(column + i) % 64]

        south = at(0, 0) + (at(1, 0) - at(0, 0)) * fx
        north = at(0, 1) + (at(1, 1) - at(0, 1)) * fx
        return south + (north - south) * fy

    def at(self, x, y, octaves=5):
        total, weight = 0.0, 1.0
        for _ in range(octaves):
            total += weight * self.octave(x, y)
            x, y, weight = 2 * x + 17.3, 2 * y + 5.1, weight / 2
        return total / 2


def wave(turns):
    """A sine of whole turns, close enough (Bhaskara's formula)."""
    turns -= math.floor(turns)
    half = turns * 2 - (1 if turns >= 0.5 else 0)
    bow = 4 * half * (1 - half)
    value = 4 * bow / (5 - bow)
    return value if turns < 0.5 else -value


def cone(distance, radius, height):
    """A volcano's flank, steeper towards the top."""
    rise = max(0.0, 1 - distance / radius)
    return height * (0.45 * rise + 0.55 * rise * rise * rise)


def island_height(x, y, coast, rock):
    """Metres above the sea at x, y in kilometres from the lower left corner."""
    bend = 0.9 * coast.at(x * 0.35, y * 0.35)
    dx, dy = x - 4.4, y - 3.9
    crater = math.sqrt(dx * dx + dy * dy) + 0.15 * bend
    main = math.sqrt(dx * dx + 1.35 * dy * dy) + bend * min(1.0, crater / 1.5)
    dx, dy = x - 7.0, y - 5.3
    side = math.sqrt(dx * dx + dy * dy) + 0.6 * bend
    height = cone(main, 4.1, 2150) + cone(side, 2.3, 820) - 130
    ridges = 1 - abs(rock.at(x * 0.8, y * 0.8, 6)) * 2
    height += 0.24 * max(height, 0.0) * (ridges - 0.55)
    if crater < 0.55:
        inside = (0.55 - crater) / 0.55
        height -= 640 * inside * (2 - inside)
    return height


def island():
    coast, rock = Noise(11), Noise(23)
    lines = [f"ncols         {COLUMNS}", f"nrows         {ROWS}", "xllcorner     412000.0", "yllcorner     3118000.0",
             f"cellsize      {CELL:.1f}", f"NODATA_value  {NODATA}"]
    for row in range(ROWS):
        y = (ROWS - row - 0.5) * CELL / 1000
        heights = (island_height((column + 0.5) * CELL / 1000, y, coast, rock) for column in range(COLUMNS))
        lines.append(" ".join(f"{height:.1f}" if height > 0 else str(NODATA) for height in heights))
    return "\n".join(lines) + "\n"


def sky(rain, wind, cold):
    if rain > 14 or wind > 16:
        return "storm"
    if rain > 0:
        return "snow" if cold else "rain"
    return "fog" if wind < 3.4 else "sun"


def station():
    random = Random(7)
    lines = ["# Daily means of a weather station on the island, 640 m above the sea.",
             "# An empty field is a value that was not measured.",
             "date,temperature_C,precipitation_mm,wind_m_s,weather"]
    first = date(2022, 1, 1)
    front, drift = 0.0, 0.0
    for day in range(730):
        today = first + timedelta(days=day)
        season = wave((day - 110) / 365.25)
        front = 0.8 * front + 0.9 * random.spread()
        drift = 0.9 * drift + 0.6 * random.spread()
        temperature = 9.5 + 8.2 * season + 2.4 * drift - 0.8 * front
        rain = max(0.0, 5.5 * (front - 0.25 + 0.25 * random.spread() - 0.4 * season))
        wind = max(0.3, 5.2 - 1.3 * season + 2.2 * front + 1.6 * random.spread())
        weather = sky(rain, wind, temperature < 1)
        gauge_failed = 430 <= day < 452
        fields = [f"{temperature:.1f}" if random.fraction() > 0.008 else "",
                  f"{rain:.1f}" if not gauge_failed else "",
                  f"{wind:.1f}" if random.fraction() > 0.02 else "", weather]
        lines.append(",".join([today.isoformat()] + fields))
    return "\n".join(lines) + "\n"


def main(arguments):
    folder = pathlib.Path(__file__).resolve().parent
    differing = []
    for name, make in {"volcanic_island.asc": island, "weather_station.csv": station}.items():
        content = make().encode("ascii")
        path = folder / name
        if arguments != ["--check"]:
            path.write_bytes(content)
        elif not path.exists() or path.read_bytes() != content:
            differing.append(name)
    if differing:
        print(f"{', '.join(differing)}: not what {pathlib.Path(__file__).name} makes. Run it without --check.")
    return 1 if differing else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
