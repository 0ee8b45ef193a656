"""One chart for each axis, as SVG: growth with the number of items, or bars where nothing grows.

Both scales are logarithmic. A chart carries its own background and a dark set of colours.
"""

import math
from xml.sax.saxutils import escape

from axes import OURS
from tables import FORMATS

STYLE = """
  text { font: 12px system-ui, "Segoe UI", "DejaVu Sans", sans-serif; fill: #24292f; }
  .back { fill: #ffffff; stroke: #d0d7de; } .grid { stroke: #d8dee4; } .frame { stroke: #8c959f; fill: none; }
  .head { font-weight: 600; } .curve { fill: none; stroke-width: 2.2; }
  .s0 { stroke: #0969da; } .s1 { stroke: #bc4c00; } .s2 { stroke: #1a7f37; }
  .f0 { fill: #0969da; } .f1 { fill: #bc4c00; } .f2 { fill: #1a7f37; }
  @media (prefers-color-scheme: dark) {
    text { fill: #e6edf3; } .back { fill: #0d1117; stroke: #30363d; } .grid { stroke: #30363d; }
    .frame { stroke: #6e7681; }
    .s0 { stroke: #58a6ff; } .s1 { stroke: #f0883e; } .s2 { stroke: #56d364; }
    .f0 { fill: #58a6ff; } .f1 { fill: #f0883e; } .f2 { fill: #56d364; }
  }
"""
WIDTH, PANEL_HEIGHT = 760, 250
LEFT, RIGHT, GAP = 84, 24, 26
WORDS = {"time": "processor time", "bytes": "heap", "document": "heap for each byte of the document"}


def text(x, y, words, anchor="start", style=""):
    return f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" class="{style}">{escape(words)}</text>'


def line(x1, y1, x2, y2, style):
    return f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" class="{style}"/>'


def marker(x, y, series):
    """Contenders differ by shape as well as by colour."""
    if series == 0:
        return f'<circle cx="{x:.1f}" cy="{y:.1f}" r="4" class="f0"/>'
    if series == 1:
        return f'<rect x="{x - 3.6:.1f}" y="{y - 3.6:.1f}" width="7.2" height="7.2" class="f1"/>'
    return f'<path d="M{x:.1f} {y - 5:.1f} l4.8 8.6 h-9.6 z" class="f2"/>'


def legend(names, y):
    """The contenders' names in one row above the panels."""
    parts, x = [], LEFT
    for series, name in enumerate(names):
        parts += [marker(x, y - 4, series), text(x + 10, y, name)]
        x += 44 + 7.4 * len(name)
    return parts


class LogScale:
    """Whole decades of values, laid out from one pixel to another."""

    def __init__(self, values, first, last):
        self.low = math.floor(math.log10(min(values)) + 1e-9)
        self.high = max(self.low + 1, math.ceil(math.log10(max(values)) - 1e-9))
        self.first, self.last = first, last

    def at(self, value):
        share = (math.log10(value) - self.low) / (self.high - self.low)
        return self.first + share * (self.last - self.first)

    def ticks(self):
        return [10.0**power for power in range(self.low, self.high + 1)]


def tick_label(value, unit):
    """Powers of ten need no zeros behind the point."""
    figure, *name = FORMATS[unit](value).split(" ")
    return " ".join([figure.rstrip("0").rstrip(".") if "." in figure else figure, *name])


def svg(title, height, parts):
    return "\n".join(
        [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {height}" width="{WIDTH}" height="{height}" role="img">',
         f"<title>{escape(title)}</title>", f"<style>{STYLE}</style>",
         f'<rect x="0.5" y="0.5" width="{WIDTH - 1}" height="{height - 1}" rx="6" class="back"/>', *parts, "</svg>", ""])


def contenders(axis):
    return [OURS, *axis.peers]


def names(axis):
    return ["KorrinCore", *axis.peers.values()]


def growth(axis, results):
    """One panel for each case; all share the vertical scale."""
    sizes = results.sizes(axis.key, next(iter(axis.cases)))
    curves = {(case, who): [(n, results.least(axis.key, case, who, n)) for n in sizes]
              for case in axis.cases for who in contenders(axis)}
    values = [value for curve in curves.values() for _, value in curve if value]
    top, bottom = 66, 66 + PANEL_HEIGHT
    vertical = LogScale(values, bottom, top)
    panel = (WIDTH - LEFT - RIGHT - GAP * (len(axis.cases) - 1)) / len(axis.cases)
    parts = legend(names(axis), 26)
    for place, (case, name) in enumerate(axis.cases.items()):
        left = LEFT + place * (panel + GAP)
        horizontal = lambda n: left + 12 + (panel - 24) * math.log(n / sizes[0]) / math.log(sizes[-1] / sizes[0])
        parts.append(text(left + panel / 2, top - 10, name if len(axis.cases) > 1 else "", "middle", "head"))
        for value in vertical.ticks():
            parts.append(line(left, vertical.at(value), left + panel, vertical.at(value), "grid"))
            if place == 0:
                parts.append(text(left - 8, vertical.at(value) + 4, tick_label(value, axis.unit), "end"))
        for n in sizes:
            parts += [line(horizontal(n), top, horizontal(n), bottom, "grid"),
                      text(horizontal(n), bottom + 18, f"{n // 1000}k" if n >= 1000 else str(n), "middle")]
        parts.append(f'<rect x="{left:.1f}" y="{top}" width="{panel:.1f}" height="{PANEL_HEIGHT}" class="frame"/>')
        for series, who in reversed(list(enumerate(contenders(axis)))):
            points = [(horizontal(n), vertical.at(value)) for n, value in curves[case, who] if value]
            path = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
            parts.append(f'<polyline points="{path}" class="curve s{series}"/>')
            parts += [marker(x, y, series) for x, y in points]
    parts.append(text(LEFT + (WIDTH - LEFT - RIGHT) / 2, bottom + 40, "items in the plot", "middle"))
    middle = (top + bottom) / 2
    parts.append(f'<g transform="rotate(-90 18 {middle:.0f})">{text(18, middle + 4, WORDS[axis.unit], "middle")}</g>')
    return svg(f"{axis.title}: {WORDS[axis.unit]} by number of items", bottom + 54, parts)


def bars(axis, results):
    """A bar for each contender of each case, with its figure at the end."""
    rows = [(case, series, results.least(axis.key, case, who, size))
            for case in axis.cases for size in results.sizes(axis.key, case)
            for series, who in enumerate(contenders(axis)) if results.least(axis.key, case, who, size)]
    left, top, step = 130, 44, 22
    height = top + step * len(rows) + 12 * len(axis.cases)
    scale = LogScale([value for _, _, value in rows], left, WIDTH - RIGHT - 70)
    parts = legend(names(axis), 26)
    for value in scale.ticks():
        parts += [line(scale.at(value), top, scale.at(value), height, "grid"),
                  text(scale.at(value), height + 18, tick_label(value, axis.unit), "middle")]
    y, former = top, None
    for case, series, value in rows:
        if case != former:
            y += 12 if former else 6
            parts.append(text(left - 10, y + 13, axis.cases[case], "end", "head"))
        former = case
        parts += [f'<rect x="{left}" y="{y + 3}" width="{max(2, scale.at(value) - left):.1f}" height="14" class="f{series}"/>',
                  text(scale.at(value) + 6, y + 14, FORMATS[axis.unit](value))]
        y += step
    parts.append(text(left + (WIDTH - left - RIGHT) / 2, height + 38, WORDS[axis.unit] + " (logarithmic)", "middle"))
    return svg(f"{axis.title}: {WORDS[axis.unit]}", height + 52, parts)


def chart(axis, results):
    grows = len(results.sizes(axis.key, next(iter(axis.cases)))) > 1
    return growth(axis, results) if grows else bars(axis, results)
