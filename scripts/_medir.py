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
    """What one run measured: milliseconds, those of this processor alone, peak megabytes; a server's round trips."""
    out = subprocess.run(
        [program, f"--benchmark_filter=^{case}/{side}(/|$)", "--benchmark_format=json"],
        check=True, stdout=subprocess.PIPE, text=True,
        env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}).stdout
    result = json.loads(out)["benchmarks"][0]
    if result.get("error_occurred"):
        sys.exit(f"{case}/{side}: {result.get('error_message')}")
    return {name: result.get(name, 0) for name in ("real_time", "cpu_ms", "rss_mb", "viajes")}


def measure(program, case, rounds):
    for side in SIDES:  # prepares the data and warms the files up
        run(program, case, side)
    runs = {side: [] for side in SIDES}
    for _ in range(rounds):
        for side in SIDES:
            runs[side].append(run(program, case, side))
    def middle(name):
        return [statistics.median(r[name] for r in runs[side]) for side in SIDES]
    times, processor = middle("real_time"), middle("cpu_ms")
    memory = [max(r["rss_mb"] for r in runs[side]) for side in SIDES]
    return {"name": case, "ours": round(times[0], 3), "floor": round(times[1], 3),
            "ratio": round(times[0] / times[1], 3), "cpu": round(processor[0], 1),
            "cpu_floor": round(processor[1], 1), "rss": round(memory[0], 1),
            "rss_floor": round(memory[1], 1), "trips": round(runs["propio"][0]["viajes"])}


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
                  "{rss:>7.1f} MB  (suelo {rss_floor:.1f} MB)".format(**result)
                  + ("  proceso {cpu:.0f} ms (suelo {cpu_floor:.0f})  {trips} viajes".format(**result)
                     if result["trips"] else ""), flush=True)
    if options.json:
        print(json.dumps(results, indent=2))


if __name__ == "__main__":
    main()
