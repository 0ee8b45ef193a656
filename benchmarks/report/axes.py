"""The axes of the performance report: their cases, contenders and goals, in the order of the page."""

import dataclasses

OURS = "korrin"


@dataclasses.dataclass(frozen=True)
class Goal:
    """A bound on our figure, or on how many times as fast as a peer we are."""

    case: str
    items: int | None
    bound: float
    peer: str | None = None  # compares with this peer; otherwise the figure itself is meant

    def is_met(self, figure, ratio):
        return ratio >= self.bound if self.peer else figure <= self.bound


@dataclasses.dataclass(frozen=True)
class Axis:
    key: str
    title: str
    cases: dict  # case in the benchmarks' names -> what the page calls it
    peers: dict  # contender in the benchmarks' names -> what the page calls it
    goals: tuple = ()
    case_heading: str = "case"
    unit: str = "time"  # "time" in nanoseconds, "bytes", "document" (bytes for each of the document) or "count"
    has_chart: bool = True


def growing(case, bounds, peer=None):
    """Goals of one case at several sizes."""
    return tuple(Goal(case, items, bound, peer) for items, bound in bounds.items())


COPIED = "vectors, copied for undo"
EVERY_SIZE = (30, 1_000, 10_000, 100_000)
LAYOUTS = {"compact": "compact", "indented": "indented", "shuffled": "keys shuffled"}

READERS = {"nlohmann-json": "nlohmann-json", "simdjson": "simdjson (DOM)"}
READING = (growing("compact", {30: 20, 1_000: 18, 100_000: 15}, "nlohmann-json")
           + growing("compact", dict.fromkeys(EVERY_SIZE, 1), "simdjson")
           + growing("indented", dict.fromkeys(EVERY_SIZE, 1.1), "simdjson"))

AXES = (
    Axis("decode", "Reading a document", LAYOUTS, READERS, READING, case_heading="layout"),
    Axis("decode-varied", "Reading varied contents", LAYOUTS, READERS, READING, case_heading="layout"),
    Axis("reading-heap", "Heap while reading", {"compact": "compact"},
         {"nlohmann-json": "nlohmann-json", "simdjson": "simdjson (DOM)"},
         growing("compact", dict.fromkeys(EVERY_SIZE, 1.5)), case_heading="layout", unit="document"),
    Axis("encode", "Writing a document", {"compact": "compact"}, {"nlohmann-json": "nlohmann-json"},
         growing("compact", {30: 18, 1_000: 14, 100_000: 8}, "nlohmann-json"), case_heading="layout"),
    Axis("encode-varied", "Writing varied contents", {"compact": "compact"}, {"nlohmann-json": "nlohmann-json"},
         growing("compact", dict.fromkeys(EVERY_SIZE, 1), "nlohmann-json"), case_heading="layout"),
    Axis("delete", "Deletion",
         {"short": "one item", "long": "one item, long texts", "beside-thread": "one item, second thread",
          "tenth": "every tenth item"},
         {"vectors": COPIED},
         growing("short", {30: 3, 1_000: 40, 100_000: 15}, "vectors")
         + growing("long", {30: 3, 1_000: 40, 100_000: 15}, "vectors")
         + growing("beside-thread", {30: 3, 1_000: 40, 100_000: 15}, "vectors")),
    Axis("undo", "Undo of a deletion", {"whole": "undo", "besides-change-set": "without change set"},
         {"vectors": "vectors, exchanged"},
         growing("besides-change-set", dict.fromkeys(EVERY_SIZE, 10_000))),
    Axis("undo-heap", "Heap kept for an undo entry", {"entry": "entry"}, {"vectors": COPIED},
         growing("entry", {30: 2_500, 1_000: 5_000, 100_000: 40_000}), unit="bytes"),
    Axis("replace", "Replacement of items", {"one": "one item", "tenth": "every tenth item"},
         {"vectors": COPIED, "vectors-in-place": "vectors, in place"}),
    Axis("grouping", "Grouping", {"two": "two items", "tenth": "every tenth item"}, {"vectors": COPIED}),
    Axis("open", "Opening a document", {"plain": "no unknown keys", "unknown": "one in each item"},
         {"parts": "its parts alone"}, has_chart=False),
    Axis("drag", "A step of a drag", {"step": "step"}, {"vectors-in-place": "vectors, in place"}, has_chart=False),
    Axis("drag-heap", "Heap that a drag leaves behind", {"one-step": "1 step", "steps": "10,000 steps"}, {},
         unit="bytes", has_chart=False),
    Axis("undo-redo", "Undo and redo", {"move": "of a move", "delete": "of a deletion"},
         {"vectors-in-place": "vectors, in place", "vectors": "vectors, exchanged"}, has_chart=False),
    Axis("paste", "Paste of 1,000 items", {"thousand": "paste"}, {"vectors": COPIED}, has_chart=False),
    Axis("note", "Noting a state for recovery", {"while-writing": "while the worker writes"}, {}, has_chart=False),
    Axis("alignment", "Alignment", {"left": "left edges", "distribution": "distribution"},
         {"vectors": "loops over vectors"}),
    Axis("validation", "Validation", {"whole": "whole plot"}, {"vectors": "loops over vectors"}),
    Axis("preflight", "Preflight", {"clean": "few findings", "findings": "many findings"},
         {"vectors": "loops over vectors"},
         growing("clean", dict.fromkeys((10_000, 100_000), 1), "vectors")
         + growing("findings", dict.fromkeys((10_000, 100_000), 1), "vectors")),
    Axis("copy", "Copy of a project", {"project": "project"}, {"vectors": "vectors"}),
    Axis("copy-allocations", "Allocations of a copy", {"project": "project"}, {"vectors": "vectors"},
         growing("project", dict.fromkeys(EVERY_SIZE, 0)), unit="count", has_chart=False),
    Axis("text-equality", "Equality of texts",
         {"plain": "plain", "wide": "wide, stable", "combining": "two spellings"},
         {"memcmp": "memcmp", "utf8proc": "utf8proc each time"},
         (Goal("plain", 1_000, 1 / 1.5, "memcmp"),), case_heading="texts"),
    Axis("raster", "Size of a raster image", {"png": "PNG", "jpeg": "JPEG"},
         {"libspng": "libspng", "turbojpeg": "TurboJPEG"},
         (Goal("png", None, 10, "libspng"), Goal("jpeg", None, 10, "turbojpeg")), case_heading="format"),
    Axis("page-box", "Page box of a PDF", {"table": "table", "object-streams": "object streams"},
         {"qpdf-page-list": "qpdf, list of pages", "qpdf-first-leaf": "qpdf, first leaf"},
         (Goal("table", None, 100, "qpdf-page-list"), Goal("object-streams", None, 100, "qpdf-page-list")),
         case_heading="objects in"),
)
