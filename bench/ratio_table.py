#!/usr/bin/env python3
"""Runs zrdraw_bench once and prints every benchmark's time as a ratio to its
baselines of the same size, measured in the same run, as a Markdown table.

    bench/ratio_table.py [BINARY] [--json FILE] [-- BENCHMARK_ARGS...]

BINARY defaults to build/release/bench/zrdraw_bench. --json FILE reads the
JSON output of an earlier run (--benchmark_format=json) instead of running.
Arguments after -- go to the binary (e.g. --benchmark_filter=Mux
--benchmark_min_time=0.2). A ratio of 2.0 means twice the baseline's time.
"""
import argparse
import json
import re
import subprocess
import sys

NS_PER_UNIT = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


def line_bytes(m):
    # The 24-bit types (5, 6) write 3 bytes a pixel, the others 4.
    return "BM_LineBytesMemset/%d" % (3000 if m["t"] in ("5", "6") else 4000)


# (benchmark name pattern, [(label, baseline name template or function)]):
# the first pattern that matches names the baselines.
ADAPTER = r"(?P<k>v210:\d/width:\d+/height:\d+)"
RULES = [
    (r"^BM_(Mux|MuxForm|MuxGrid|MuxCrossfadeWithGrid|WeighPlane|WeighPlaneForm|Peer)/"
     r".*?(?P<w>\d+)x(?P<h>\d+)",
     [("r2w1", "BM_ReadTwoWriteOne/{w}/{h}"), ("memcpy", "BM_Memcpy/{w}/{h}")]),
    (r"^BM_(SetMemoryFast|EraseCanvas|FillRect|FillRectRows)/(?P<w>\d+)/(?P<h>\d+)$",
     [("memset", "BM_Memset/{w}/{h}")]),
    (r"^BM_Wipe/.*/fmt(?P<f>\d+)/(?P<s>\d+x\d+)/",
     [("r2w1", "BM_FxReadTwoWriteOne/fmt{f}/{s}/real_time"),
      ("memcpy", "BM_FxMemcpy/fmt{f}/{s}/real_time")]),
    (r"^BM_Dissolve(FrontDoor|OneBand)/(?P<k>format:\d+/width:\d+/height:\d+)/",
     [("r2w1", "BM_DissolveReadTwoWriteOne/{k}"), ("memcpy", "BM_DissolveMemcpy/{k}")]),
    (r"^BM_Adapter(FrontDoor|OneBand)/" + ADAPTER,
     [("r2w1", "BM_AdapterReadTwoWriteOne/{k}"), ("memcpy", "BM_AdapterMemcpy/{k}/copy:0")]),
    (r"^BM_AdapterExpand/" + ADAPTER, [("memcpy", "BM_AdapterMemcpy/{k}/copy:1")]),
    (r"^BM_AdapterPack/" + ADAPTER, [("memcpy", "BM_AdapterMemcpy/{k}/copy:2")]),
    (r"^(ResizeHalf/\w+|BM_ResizeHalf_Libyuv)/(?P<w>\d+)/(?P<h>\d+)$",
     [("memcpy out", "BM_ResizeBaseline_MemcpyOutput/{w}/{h}"), ("memcpy", "BM_Memcpy/{w}/{h}")]),
    (r"^BM_Line(Diagonal|Shallow|Steep|Horiz)/(?P<t>\d+)$", [("memset", line_bytes)]),
    (r"^BM_Overlay/(?P<t>\d+)$", [("memcpy", "BM_OverlayFrameMemcpy/{t}")]),
    (r"^BM_Backend(?P<k>\w+)/type:\d+$", [("type 1", "BM_Backend{k}/type:1")]),
    (r"^BM_WipeDriverOverhead/", [("4 threads", "BM_FxFourThreads/real_time")]),
]


def baselines(name):
    for pattern, bases in RULES:
        m = re.match(pattern, name)
        if m:
            return [(label, base(m) if callable(base) else base.format(**m.groupdict()))
                    for label, base in bases]
    return []


def run(binary, extra):
    out = subprocess.run([binary, "--benchmark_format=json", *extra], stdout=subprocess.PIPE, check=True)
    return json.loads(out.stdout)


def heap(counter):
    if counter is None:
        return ""
    for unit, size in (("MiB", 1 << 20), ("KiB", 1 << 10)):
        if counter >= size:
            return "%.1f %s" % (counter / size, unit)
    return "%d B" % counter


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("binary", nargs="?", default="build/release/bench/zrdraw_bench")
    parser.add_argument("--json", help="read this JSON output instead of running the binary")
    argv = sys.argv[1:]
    extra = argv[argv.index("--") + 1 :] if "--" in argv else []
    args = parser.parse_args(argv[: len(argv) - len(extra) - (1 if "--" in argv else 0)])
    if args.json:
        with open(args.json) as f:
            report = json.load(f)
    else:
        report = run(args.binary, extra)

    runs = [b for b in report["benchmarks"]
            if b.get("run_type") != "aggregate" and not b.get("error_occurred")]
    times = {b["name"]: b["real_time"] * NS_PER_UNIT[b["time_unit"]] for b in runs}
    print("| Benchmark | us | ratio | to | ratio | to | heap peak |")
    print("|---|---:|---:|---|---:|---|---:|")
    for b in runs:
        cells = []
        for label, base in baselines(b["name"]):
            cells += ["%.2f" % (times[b["name"]] / times[base]), label] if base in times else ["", ""]
        cells += [""] * (4 - len(cells))
        print("| %s | %.1f | %s | %s |"
              % (b["name"], times[b["name"]] / 1e3, " | ".join(cells), heap(b.get("heap_peak"))))
    ctx = report.get("context", {})
    load = " ".join("%.2f" % x for x in ctx.get("load_avg", []))
    print("\n%s, %s CPUs at %s MHz, load average %s"
          % (ctx.get("date", ""), ctx.get("num_cpus", "?"), ctx.get("mhz_per_cpu", "?"), load))


if __name__ == "__main__":
    sys.exit(main())
