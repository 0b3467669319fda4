"""Helpers of bench/run: builds, runs, medians, instructions, tables."""

import pathlib
import re
import statistics
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILT = {preset: ROOT / "build" / preset / "bench" for preset in ("host-static", "release")}


def need_packages(packages):
    subprocess.run(["bash", "-euc", '. scripts/packages.sh; need_packages "$@"', "bash", *packages],
                   cwd=ROOT, check=True)


def build(preset, targets):
    """Builds targets in the preset's build directory."""
    for command in (["cmake", "--preset", preset, "-DPARAMGEN_BENCH=ON"],
                    ["cmake", "--build", f"build/{preset}", "--target", *targets]):
        run = subprocess.run(command, cwd=ROOT, capture_output=True, text=True)
        if run.returncode != 0:
            raise SystemExit(run.stdout + run.stderr)


def output_of(command, directory):
    """Standard output and standard error of a run that must succeed. Random products have values
    that are no UTF-8."""
    run = subprocess.run(command, cwd=directory, capture_output=True, text=True,
                         errors="surrogateescape")
    if run.returncode != 0:
        raise SystemExit(f"{command} failed: {run.returncode}\n{run.stdout[-500:]}{run.stderr}")
    return run.stdout, run.stderr


def count_instructions(command, directory, only=(), record=None):
    """Number of instructions in user space, of the whole run or only inside some functions."""
    out = f"--callgrind-out-file={record or '/dev/null'}"
    collect = [f"--toggle-collect={function}" for function in only]
    _, told = output_of(["valgrind", "--tool=callgrind", out, *collect, *command], directory)
    return collected(told)


def collected(told):
    """The number of instructions that callgrind tells."""
    return int(re.search(r"Collected : (\d+)", told)[1])


def median(values):
    return statistics.median(values)


def undisturbed(values):
    """The tenth percentile of the times: these runs were hardly delayed by other work."""
    return sorted(values)[len(values) // 10]


def print_table(title, head, rows):
    """Prints a Markdown table, with the first column left-aligned and the others right-aligned."""
    rows = [[str(cell) for cell in row] for row in [head, *rows]]
    widths = [max(len(row[column]) for row in rows) for column in range(len(head))]
    lines = [[cell.ljust(width) if column == 0 else cell.rjust(width)
              for column, (cell, width) in enumerate(zip(row, widths))] for row in rows]
    lines.insert(1, ["-" * width if column == 0 else "-" * (width - 1) + ":"
                     for column, width in enumerate(widths)])
    print(f"\n{title}\n")
    for line in lines:
        print("| " + " | ".join(line) + " |")
    print(flush=True)
