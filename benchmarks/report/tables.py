"""The figures of the performance report as Markdown tables."""

from axes import AXES, OURS


def time(nanoseconds):
    for unit, size in (("ns", 1), ("µs", 1e3), ("ms", 1e6), ("s", 1e9)):
        if nanoseconds < 999.5 * size or unit == "s":
            return f"{number(nanoseconds / size)} {unit}"


def number(value):
    """With three digits that count, or all where there are more before the point."""
    if value == 0:
        return "0"
    decimals = 2 if value < 9.995 else 1 if value < 99.95 else 0
    return f"{value:,.{decimals}f}"


def size(value):
    for unit, factor in (("B", 1), ("kB", 1e3), ("MB", 1e6)):
        if value < 999.5 * factor or unit == "MB":
            return f"{number(value / factor)} {unit}"


FORMATS = {"time": time, "bytes": size, "document": number, "count": lambda value: f"{value:,.0f}"}
PEER_HEADINGS = {"time": "times as fast as {}", "bytes": "{}, times as much", "document": "{}, times as much",
                 "count": "{}"}
HEADINGS = {"time": "time", "bytes": "heap", "document": "heap, times the document", "count": "allocations"}


def markdown(rows):
    """A table whose first row is the heading. Columns that are empty throughout are left out."""
    kept = [any(row[i] for row in rows[1:]) for i in range(len(rows[0]))]
    lines = ["| " + " | ".join(cell for cell, keep in zip(row, kept) if keep) + " |" for row in rows]
    return "\n".join([lines[0], "|" + "---|" * sum(kept)] + lines[1:])


def figures_of(axis, results):
    """(case, items, our figure, {peer: times as fast}) of everything that was measured."""
    for case in axis.cases:
        for items in results.sizes(axis.key, case):
            ours = results.least(axis.key, case, OURS, items)
            figures = {peer: results.least(axis.key, case, peer, items) for peer in axis.peers}
            yield case, items, ours, {peer: theirs / ours for peer, theirs in figures.items() if theirs and ours}


def bound_of(goal, axis):
    return f"{goal.bound:.3g}" if goal.peer else FORMATS[axis.unit](goal.bound)


def verdict(goal, ours, ratios, axis):
    met = goal.is_met(ours, ratios.get(goal.peer))
    return f"{'at least' if goal.peer else 'at most'} {bound_of(goal, axis)}: {'met' if met else '**missed**'}"


def find_goal(axis, case, items, peer):
    return next((g for g in axis.goals if (g.case, g.items, g.peer) == (case, items, peer)), None)


def axis_table(axis, results):
    grows = len({items for _, items, _, _ in figures_of(axis, results)}) > 1
    rows = [[axis.case_heading if len(axis.cases) > 1 else "", "items", HEADINGS[axis.unit], "goal", "spread"]]
    for name in axis.peers.values():
        rows[0] += [PEER_HEADINGS[axis.unit].format(name), "goal"]
    for case, items, ours, ratios in figures_of(axis, results):
        def goal_cell(peer):
            goal = find_goal(axis, case, items, peer)
            return verdict(goal, ours, ratios, axis) if goal else ""
        spread = results.spread(axis.key, case, OURS, items)
        row = [axis.cases[case] if len(axis.cases) > 1 else "", f"{items:,}" if grows else "",
               FORMATS[axis.unit](ours), goal_cell(None), f"{spread:.0%}" if axis.unit == "time" else ""]
        for peer in axis.peers:
            if axis.unit == "count":  # nothing is no multiple of anything
                row.append(FORMATS[axis.unit](results.least(axis.key, case, peer, items)))
            else:
                row.append(number(ratios[peer]) if peer in ratios else "")
            row.append(goal_cell(peer))
        rows.append(row)
    return markdown(rows)


RECORD_GOAL = 60  # nanoseconds, with 1,000 items


def preflight_table(axis, results):
    """What one record and what one finding costs."""
    rows = [["items", "records", "time for a record", "goal", "time for a finding"]]
    for items in results.sizes(axis.key, "clean"):
        count = lambda case, name: results.counter(axis.key, case, OURS, items, name)
        clean, faulty = (results.least(axis.key, case, OURS, items) for case in ("clean", "findings"))
        record = clean / count("clean", "records")
        finding = (faulty - clean) / (count("findings", "issues") - count("clean", "issues"))
        met = "met" if record <= RECORD_GOAL else "**missed**"
        rows.append([f"{items:,}", f"{count('clean', 'records'):,.0f}", time(record),
                     f"at most {RECORD_GOAL} ns: {met}" if items == 1_000 else "", time(finding)])
    return markdown(rows)


def missed_goals(results):
    """The goals of all axes that this run missed."""
    rows = [["axis", "case", "items", "measured", "goal"]]
    for axis in AXES:
        for case, items, ours, ratios in figures_of(axis, results):
            for goal in axis.goals:
                if (goal.case, goal.items) != (case, items) or goal.is_met(ours, ratios.get(goal.peer)):
                    continue
                measured = number(ratios[goal.peer]) if goal.peer else FORMATS[axis.unit](ours)
                beside = f" times as fast as {axis.peers[goal.peer]}" if goal.peer else ""
                rows.append([axis.title, axis.cases[case], f"{items:,}" if items else "", measured + beside,
                             bound_of(goal, axis)])
    return markdown(rows) if len(rows) > 1 else "Every goal is met."


def peers_ahead(results):
    """Where a peer took less than we did."""
    rows = [["axis", "case", "items", "peer", "times as fast as the peer"]]
    for axis in AXES:
        for case, items, _, ratios in figures_of(axis, results):
            rows += [[axis.title, axis.cases[case], f"{items:,}" if items else "", axis.peers[peer], number(ratio)]
                     for peer, ratio in ratios.items() if ratio < 1]
    return markdown(rows) if len(rows) > 1 else "No peer is ahead anywhere."
