"""Writes the figures of the performance report into its page, and the charts beside it.

    python3 benchmarks/report RESULTS PAGE

RESULTS is a folder with the results of the benchmark programs, as script/bench leaves it, and a line about the
run in run.txt. In PAGE whatever stands between "<!-- figures: NAME -->" and "<!-- end -->" is replaced; the rest
is written by hand. Charts go to the folder images/performance beside PAGE.
"""

import pathlib
import re
import sys

import charts
import tables
from axes import AXES
from measurements import Measurements

REGION = re.compile(r"(<!-- figures: ([a-z-]+) -->\n)(.*?)(<!-- end -->)", re.DOTALL)


def regions(results, run):
    """What belongs into each region of the page."""
    texts = {axis.key: tables.axis_table(axis, results) for axis in AXES}
    by_key = {axis.key: axis for axis in AXES}
    texts["preflight-rates"] = tables.preflight_table(by_key["preflight"], results)
    texts["missed"] = tables.missed_goals(results)
    texts["peers-ahead"] = tables.peers_ahead(results)
    texts["run"] = run
    return texts


def main(results_folder, page):
    results = Measurements(sorted(results_folder.glob("*.json")))
    texts = regions(results, (results_folder / "run.txt").read_text().strip())
    former = page.read_text()
    missing = texts.keys() - {match[1] for match in REGION.findall(former)}
    if missing:
        sys.exit(f"{page} has no place for: {', '.join(sorted(missing))}")
    page.write_text(REGION.sub(lambda match: f"{match[1]}\n{texts[match[2]]}\n\n{match[4]}", former))
    images = page.parent / "images/performance"
    images.mkdir(parents=True, exist_ok=True)
    for axis in AXES:
        if axis.has_chart and results.sizes(axis.key, next(iter(axis.cases))):
            (images / f"{axis.key}.svg").write_text(charts.chart(axis, results))


if len(sys.argv) != 3:
    sys.exit(__doc__)
main(*map(pathlib.Path, sys.argv[1:]))
