"""The images of thousands of product variants, made by ninja."""

import os
import pathlib
import resource
import shutil
import subprocess
import time

import tools

PARAMGEN = tools.BUILT["host-static"] / "paramgen_host_static"
EMPTY = tools.BUILT["host-static"] / "empty_host_static"


def make_variants(directory, count):
    """Writes products that differ in their model only. Their equal files are hard links."""
    example = tools.ROOT / "examples/dashcam"
    files = [file.relative_to(example) for file in example.rglob("*.ini")]
    own = (example / "devmng.ini").read_text()
    base = directory / "base"
    shutil.copytree(example, base)
    for number in range(count):
        variant = directory / f"variant{number}"
        for file in files:
            (variant / file).parent.mkdir(parents=True, exist_ok=True)
            if file != pathlib.Path("devmng.ini"):
                os.link(base / file, variant / file)
        (variant / "devmng.ini").write_text(own.replace("RoadView", f"V{number}"))


def write_build_file(directory, name, program, output, count):
    """Writes a build file that runs `program` in each variant's directory."""
    lines = [f"rule run\n  command = cd $dir && exec {program} >/dev/null\n"]
    for number in range(count):
        variant = f"variant{number}"
        lines.append(f"build {variant}/{output}: run {variant}/devmng.ini\n  dir = {variant}\n")
    (directory / name).write_text("".join(lines))


def timed_ninja(directory, name):
    """Wall time and CPU time of ninja with two jobs, in seconds."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    start = time.monotonic()
    subprocess.run(["ninja", "-j2", "-f", name], cwd=directory, check=True, capture_output=True)
    wall = time.monotonic() - start
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return wall, after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime


def check_variants(directory, count):
    """Checks that every image exists and contains the variant's model."""
    for number in range(count):
        image = (directory / f"variant{number}" / "param.bin").read_bytes()
        if len(image) != 29928 or f"V{number} X4".encode() not in image:
            raise SystemExit(f"variant {number} has no image of its own")


def print_fleet(directory, short):
    count = 20 if short else 10_000
    directory = directory / "fleet"
    directory.mkdir()
    make_variants(directory, count)
    write_build_file(directory, "images.ninja", PARAMGEN, "param.bin", count)
    write_build_file(directory, "nothing.ninja", EMPTY, "none", count)
    rows = []

    def measure(what, name, number):
        wall, processors = timed_ninja(directory, name)
        rows.append([what, number, f"{wall:.2f}", f"{processors:.2f}",
                     f"{wall / number * 1000:.2f}", f"{processors / number * 1000:.2f}"])

    measure("as many empty processes", "nothing.ninja", count)
    measure("all images", "images.ninja", count)
    check_variants(directory, count)
    measure("as many empty processes, again", "nothing.ninja", count)
    measure("nothing has changed", "images.ninja", 1)
    (directory / "variant7/devmng.ini").touch()
    measure("one variant has changed", "images.ninja", 1)
    tools.print_table(f"{count} variants, `ninja -j2`",
                      ["", "processes", "wall s", "CPU s", "wall ms each", "CPU ms each"], rows)
