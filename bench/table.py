"""Prints the benchmarks' results as a table of ratios: zqvote's time by each peer's, from the quickest repetition of
each, which the other work of the machine disturbs least."""

import json
import sys

UNITS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def quickest(path):
    """Name of each benchmark, and its quickest CPU time in nanoseconds; and the counters that stand alone."""
    times, counters = {}, {}
    with open(path, encoding="utf-8") as results:
        for run in json.load(results)["benchmarks"]:
            if run["run_type"] != "iteration":
                continue
            name = run["run_name"].split("/iterations:")[0].split("/repeats:")[0]
            nanoseconds = run["cpu_time"] * UNITS[run["time_unit"]]
            times[name] = min(nanoseconds, times.get(name, nanoseconds))
            if "MiB" in run:
                counters[name] = run["MiB"]
    return times, counters


# In words; of a tally the voters and whether they come shuffled.
LABELS = {"memory": "20 votes at their limits in memory", "report/0": "report, 200 voters", "report/1": "report, signed",
          "file/load": "load a vote at its limits", "file/save": "save it", "wire/encode": "encode an answer",
          "wire/decode": "decode it"}
LABELS.update({f"tally/{voters}/{shuffled}": f"count 20 questions, {voters} voters{', shuffled' * shuffled}"
               for voters in (100, 300, 1000, 3000, 10000) for shuffled in (0, 1)})


def readable(nanoseconds):
    for unit, size in (("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def sort_key(name):
    """By words, with numbers by their size."""
    return [(1, int(word), "") if word.isdigit() else (0, 0, word) for word in name.split("/")]


def main():
    times, counters = quickest(sys.argv[1])
    print("| work | zqvote | peer | its time | ratio |")
    print("|---|---|---|---|---|")
    for name, ours in sorted(times.items(), key=lambda entry: sort_key(entry[0])):
        if "zqvote" not in name:
            continue
        before, after = name.split("zqvote")
        work = (before + after.lstrip("/")).strip("/")
        work = LABELS.get(work, work)
        peers = [other for other in times
                 if other != name and other.startswith(before) and other.endswith(after) and "zqvote" not in other
                 and other[len(before):len(other) - len(after)].count("/") == 0]
        shown = f"{counters[name]:.1f} MiB" if name in counters else readable(ours)
        if not peers:
            print(f"| {work} | {shown} | | | |")
        for peer in peers:
            label = peer[len(before):len(peer) - len(after)]
            print(f"| {work} | {shown} | {label} | {readable(times[peer])} | {ours / times[peer]:.2f} |")


main()
