"""paramtool diff and dump, next to cmp and xxd on the same images."""

import resource
import shutil
import subprocess
import time

import check
import tools

# Each command, and what does the least that can be done for it.
COMMANDS = [
    ("cmp", ["cmp", "-l", "a.bin", "b.bin"]),
    ("paramtool diff", [check.PARAMTOOL, "diff", "a.bin", "b.bin"]),
    ("paramtool diff of one image", [check.PARAMTOOL, "diff", "a.bin", "a.bin"]),
    ("xxd", ["xxd", "a.bin"]),
    ("paramtool dump", [check.PARAMTOOL, "dump", "a.bin"]),
    ("paramtool dump --format=csv", [check.PARAMTOOL, "dump", "--format=csv", "a.bin"]),
    ("paramtool dump --format=json", [check.PARAMTOOL, "dump", "--format=json", "a.bin"]),
    ("paramtool get", [check.PARAMTOOL, "get", "devmng/gsensor:sensitivity", "a.bin"]),
]


def make_images(directory):
    """The example's image, and one in which ten bytes differ."""
    product = directory / "imaged"
    shutil.copytree(tools.ROOT / "examples/dashcam", product)
    subprocess.run([check.PARAMGEN], cwd=product, stdout=subprocess.DEVNULL, check=True)
    image = bytearray((product / "param.bin").read_bytes())
    (directory / "a.bin").write_bytes(image)
    for offset in range(24000, 24040, 4):
        image[offset] ^= 1
    (directory / "b.bin").write_bytes(image)


def processor():
    """Processor time of all programs that have run so far, in milliseconds."""
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return (usage.ru_utime + usage.ru_stime) * 1000


def measure(command, directory, runs):
    """Processor and wall time of a run that hardly anything delayed, in milliseconds."""
    spent, wall = [], []
    for _ in range(runs):
        before, start = processor(), time.perf_counter()
        subprocess.run(command, cwd=directory, stdout=subprocess.DEVNULL)
        wall.append((time.perf_counter() - start) * 1000)
        spent.append(processor() - before)
    return tools.undisturbed(spent), tools.undisturbed(wall)


def print_images(directory, short):
    make_images(directory)
    rows = []
    for name, command in COMMANDS:
        spent, wall = measure(command, directory, 3 if short else 200)
        instructions = count(command, directory)
        rows.append([name, f"{spent:.2f}", f"{wall:.2f}", f"{instructions / 1e6:.1f}"])
    tools.print_table("Images. Aim for diff: 3 ms of a processor, with its start",
                      ["", "processor ms", "wall ms", "million instructions"], rows)


def count(command, directory):
    """Number of instructions of a run, whose exit status may say that images differ."""
    run = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", *command],
                         cwd=directory, capture_output=True, text=True)
    return tools.collected(run.stderr)
