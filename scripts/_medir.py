"""Runs the cases of the benchmark program side by side and prints one line for each."""
import argparse
import json
import os
import statistics
import subprocess
import sys

SIDES = ("propio", "suelo")


def cases(program):
    listed = subprocess.run([program, "--benchmark_list_tests"], check=True,
                            stdout=subprocess.PIPE, text=True).stdout.split()
    return list(dict.fromkeys(name.split("/")[0] for name in listed))


def run(program, case, side):
    """Milliseconds and peak megabytes of one run."""
    out = subprocess.run(
        [program, f"--benchmark_filter=^{case}/{side}(/|$)", "--benchmark_format=json"],
        check=True, stdout=subprocess.PIPE, text=True,
        env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}).stdout
    result = json.loads(out)["benchmarks"][0]
    if result.get("error_occurred"):
        sys.exit(f"{case}/{side}: {result.get('error_message')}")
    return result["real_time"], result["rss_mb"]


def measure(program, case, rounds):
    for side in SIDES:  # prepares the data and warms the files up
        run(program, case, side)
    runs = {side: [] for side in SIDES}
    for _ in range(rounds):
        for side in SIDES:
            runs[side].append(run(program, case, side))
    times = {side: statistics.median(r[0] for r in runs[side]) for side in SIDES}
    memory = {side: max(r[1] for r in runs[side]) for side in SIDES}
    return {"name": case, "ours": round(times["propio"], 3), "floor": round(times["suelo"], 3),
            "ratio": round(times["propio"] / times["suelo"], 3),
            "rss": round(memory["propio"], 1), "rss_floor": round(memory["suelo"], 1)}


def main():
    parser = argparse.ArgumentParser(prog="scripts/bench", description="Mide contra el suelo.")
    parser.add_argument("programa", help=argparse.SUPPRESS)
    parser.add_argument("nombres", nargs="*", metavar="NOMBRE", help="casos; todos si no se indica")
    parser.add_argument("--json", action="store_true", help="una lista JSON (ms y MB)")
    parser.add_argument("--rondas", type=int, default=5, help="vueltas de cada caso (5)")
    options = parser.parse_args()

    known = cases(options.programa)
    unknown = [name for name in options.nombres if name not in known]
    if unknown:
        parser.error(f"no existe: {', '.join(unknown)}. Casos: {', '.join(known)}")
    results = []
    for case in options.nombres or known:
        result = measure(options.programa, case, options.rondas)
        results.append(result)
        if not options.json:
            print("{name:<22} {ours:>10.1f} ms  suelo {floor:>10.1f} ms  x{ratio:.2f}  "
                  "{rss:>7.1f} MB  (suelo {rss_floor:.1f} MB)".format(**result), flush=True)
    if options.json:
        print(json.dumps(results, indent=2))


if __name__ == "__main__":
    main()
