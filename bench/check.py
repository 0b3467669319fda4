"""paramtool check: on the example next to paramgen, on large files, and on thousands of products."""

import resource
import shutil
import subprocess
import time

import fleet
import tools

PARAMGEN = tools.ROOT / "build/release/paramgen"
PARAMTOOL = tools.ROOT / "build/release/paramtool"


def wall(command, directory, runs):
    """Wall time of a run that hardly anything delayed, in milliseconds."""
    times = []
    for _ in range(runs):
        start = time.perf_counter()
        subprocess.run(command, cwd=directory, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        times.append((time.perf_counter() - start) * 1000)
    return tools.undisturbed(times)


def spent():
    """Processor time of all commands so far, in seconds."""
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return usage.ru_utime + usage.ru_stime


def processor(command, directory):
    """Processor time of one run, in seconds."""
    before = spent()
    subprocess.run(command, cwd=directory, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return spent() - before


def print_example(directory, short):
    product = directory / "checked"
    shutil.copytree(tools.ROOT / "examples/dashcam", product)
    runs = 3 if short else 100
    rows = []
    for what, command in (("paramgen", [PARAMGEN]), ("paramtool check", [PARAMTOOL, "check", "."])):
        rows.append([what, wall(command, product, runs),
                     tools.count_instructions(command, product) / 1e6])
    rows.append(["times", rows[1][1] / rows[0][1], rows[1][2] / rows[0][2]])
    tools.print_table("The example", ["", "wall ms", "million instructions"],
                      [[name, f"{first:.2f}", f"{second:.1f}"] for name, first, second in rows])


def write_large(product, text, count):
    """A copy of the example with `count` further lines in one of its files."""
    shutil.copytree(tools.ROOT / "examples/dashcam", product)
    with open(product / "media/media_common.ini", "a") as file:
        file.write(text(count))


def without_effect(count):
    return "\n[disp.0.window.0]\n" + "".join(f"key{i} = {i}\n" for i in range(count))


def unknown(count):
    return "\n[disp.0.csc]\n" + "".join(f"luma{i} = {i}\n" for i in range(count))


def suppressed(count):
    return "\n[disp.0.csc]\n" + "".join(
        f"luma{i} = {i} ; paramtool: ignore unknown-key (old)\n" for i in range(count))


def print_growth(directory, short):
    counts = [1_000, 2_000] if short else [10_000, 100_000, 1_000_000]
    check = [PARAMTOOL, "check", "."]
    alone = min(processor(check, tools.ROOT / "examples/dashcam") for _ in range(5))
    rows = []
    for what, text in (("nothing to tell", without_effect), ("each is unknown", unknown),
                       ("each is suppressed", suppressed)):
        each = []
        for count in counts:
            product = directory / "large"
            write_large(product, text, count)
            runs = 1 if count == counts[-1] else 5
            least = min(processor(check, product) for _ in range(runs))
            each.append((least - alone) / count * 1e6)
            shutil.rmtree(product)
        rows.append([what, *[f"{cost:.2f}" for cost in each], f"{each[-1] / each[0]:.2f}"])
    tools.print_table("Microseconds of a processor for each line added to the example",
                      ["", *[f"{count:,} lines" for count in counts], "last by first"], rows)


def print_many(directory, short):
    count = 20 if short else 10_000
    products = directory / "many"
    products.mkdir()
    fleet.make_variants(products, count)
    names = [f"variant{number}" for number in range(count)]
    rows = []
    for jobs in (1, 2):
        start = time.perf_counter()
        before = spent()
        subprocess.run([PARAMTOOL, "check", "--strict", f"--jobs={jobs}", *names], cwd=products,
                       check=True)
        used = spent() - before
        rows.append([f"--jobs {jobs}", f"{time.perf_counter() - start:.1f}", f"{used:.1f}",
                     f"{used / count * 1000:.2f}"])
    tools.print_table(f"{count} products of the example's size",
                      ["", "wall s", "processor s", "processor ms each"], rows)


def print_check(directory, short):
    print_example(directory, short)
    print_growth(directory, short)
    print_many(directory, short)
