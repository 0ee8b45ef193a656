"""What the benchmark programs measured: one figure for each axis, case, contender and size."""

import collections
import json
import statistics

Key = collections.namedtuple("Key", "axis case contender items")


class Measurements:
    """Reads the results of all rounds, in Google Benchmark's JSON format."""

    def __init__(self, files):
        self.values = collections.defaultdict(list)
        self.counters = {}
        for file in files:
            for run in json.loads(file.read_text())["benchmarks"]:
                self._add(run)

    def _add(self, run):
        parts = run["name"].split("/")
        items = int(parts[3]) if len(parts) > 3 else None
        key = Key(*parts[:3], items)
        nanoseconds = {"ns": 1, "us": 1e3, "ms": 1e6}[run["time_unit"]]
        # A program that does not measure time says what it measured.
        self.values[key].append(run.get("value", run["cpu_time"] * nanoseconds))
        self.counters[key] = run

    def sizes(self, axis, case):
        """The sizes at which a case was measured, the smallest first; [None] for one without size."""
        return sorted({key.items for key in self.values if key[:2] == (axis, case)}, key=lambda n: n or 0)

    def least(self, axis, case, contender, items):
        """The least of all rounds: other work on the machine can only add. None when not measured."""
        values = self.values.get(Key(axis, case, contender, items))
        return min(values) if values else None

    def spread(self, axis, case, contender, items):
        """How far the median of the rounds lies above the least, as a fraction."""
        values = self.values[Key(axis, case, contender, items)]
        return statistics.median(values) / min(values) - 1 if min(values) else 0.0

    def counter(self, axis, case, contender, items, name):
        return self.counters[Key(axis, case, contender, items)][name]
