#!/usr/bin/env python3
"""Draws how the time for a line grows with the number of lines, as SVG, from what bench_table writes
with --growth."""

import csv
import math
import sys

WIDTH, HEIGHT, LEFT, RIGHT, TOP, BOTTOM = 720, 420, 70, 190, 30, 50
STYLES = {"keywords": "#1b6ca8", "atoms": "#b3541e"}


def read(path):
    """Returns, by name of a curve, its points: lines, nanoseconds for a line."""
    curves = {}
    with open(path, encoding="utf-8") as file:
        for row in csv.DictReader(file, delimiter="\t"):
            lines = float(row["lines"])
            for key, name in (("seconds", row["work"]), ("floor_seconds", row["work"] + ", floor")):
                curves.setdefault(name, []).append((lines, 1e9 * float(row[key]) / lines))
    return curves


class Plot:
    def __init__(self, curves):
        points = [point for curve in curves.values() for point in curve]
        self.curves = curves
        self.x_range = [math.floor(math.log10(min(x for x, _ in points))),
                        math.ceil(math.log10(max(x for x, _ in points)) - 0.01)]
        self.y_range = [math.floor(math.log10(min(y for _, y in points))),
                        math.ceil(math.log10(max(y for _, y in points)))]

    @staticmethod
    def scaled(value, value_range, begin, end):
        low, high = value_range
        return begin + (math.log10(value) - low) / (high - low) * (end - begin)

    def x(self, lines):
        return self.scaled(lines, self.x_range, LEFT, WIDTH - RIGHT)

    def y(self, nanoseconds):
        return self.scaled(nanoseconds, self.y_range, HEIGHT - BOTTOM, TOP)

    def grid(self):
        for power in range(self.x_range[0], self.x_range[1] + 1):
            x = self.x(10.0 ** power)
            yield f'<path d="M{x:.1f} {TOP}V{HEIGHT - BOTTOM}" stroke="#ddd"/>'
            yield (f'<text x="{x:.1f}" y="{HEIGHT - BOTTOM + 18}" text-anchor="middle">'
                   f'10<tspan dy="-5" font-size="9">{power}</tspan></text>')
        for power in range(self.y_range[0], self.y_range[1] + 1):
            y = self.y(10.0 ** power)
            yield f'<path d="M{LEFT} {y:.1f}H{WIDTH - RIGHT}" stroke="#ddd"/>'
            yield f'<text x="{LEFT - 8}" y="{y + 4:.1f}" text-anchor="end">{10 ** power}</text>'

    def lines(self):
        for name, curve in self.curves.items():
            colour = STYLES[name.split(",")[0]]
            dashes = ' stroke-dasharray="5 4"' if "floor" in name else ""
            path = "L".join(f"{self.x(a):.1f} {self.y(b):.1f}" for a, b in curve)
            yield f'<path d="M{path}" fill="none" stroke="{colour}" stroke-width="2"{dashes}/>'
            x, y = curve[-1]
            yield (f'<text x="{self.x(x) + 8:.1f}" y="{self.y(y) + 4:.1f}" fill="{colour}">'
                   f"{name}</text>")

    def svg(self):
        yield (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" '
               'font-family="sans-serif" font-size="12">')
        yield f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#fff"/>'
        yield from self.grid()
        yield from self.lines()
        yield (f'<text x="{(LEFT + WIDTH - RIGHT) / 2}" y="{HEIGHT - 10}" text-anchor="middle">'
               "lines</text>")
        yield (f'<text transform="translate(18 {HEIGHT / 2}) rotate(-90)" text-anchor="middle">'
               "nanoseconds for a line</text>")
        yield "</svg>"


def main():
    print("\n".join(Plot(read(sys.argv[1])).svg()))


if __name__ == "__main__":
    main()
