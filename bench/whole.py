"""The whole program on the example product."""

import re
import shutil
import subprocess

import tools

# A way of linking, and the preset that builds it.
WAYS = {
    "host_static": "host-static",
    "static": "release",
    "static_pie": "release",
    "dynamic": "release",
    "dynamic_libstdcxx": "release",
}
NAMES = {
    "host_static": "musl, static: `host-static`",
    "static": "glibc, static",
    "static_pie": "glibc, static, position-independent",
    "dynamic": "glibc, dynamic",
    "dynamic_libstdcxx": "glibc and libstdc++, dynamic",
}


class Product:
    """A copy of the example product, and how the programs are run on it."""

    def __init__(self, directory):
        self.directory = directory / "product"
        shutil.copytree(tools.ROOT / "examples/dashcam", self.directory, dirs_exist_ok=True)
        self.output = directory / "output"
        self.files = sorted(str(file.relative_to(self.directory))
                            for file in self.directory.rglob("*.ini"))
        stdout, _ = tools.output_of([self.program("paramgen", "host_static")], self.directory)
        self.bytes = len(stdout.encode())

    def program(self, name, way):
        return str(tools.BUILT[WAYS[way]] / f"{name}_{way}")

    def commands(self, way):
        """The program, the floor, and the empty program."""
        return [[self.program("paramgen", way)],
                [self.program("floor", way), str(self.bytes), *self.files],
                [self.program("empty", way)]]

    def times(self, way, output, rounds):
        """The medians of the wall times of the commands, in microseconds."""
        race = [str(tools.BUILT["release"] / "race"), str(rounds), str(output)]
        for number, command in enumerate(self.commands(way)):
            race += ["--"] * (number > 0) + command
        lines, _ = tools.output_of(race, self.directory)
        columns = zip(*(map(int, line.split()) for line in lines.splitlines()))
        return [tools.median(column) / 1000 for column in columns]

    def instructions(self, way):
        return [tools.count_instructions(command, self.directory)
                for command in self.commands(way)]

    def output_writes(self, way):
        """How many calls write to standard output."""
        trace = self.directory / "trace"
        with open(self.output, "w") as output:
            subprocess.run(["strace", "-e", "trace=write,writev", "-o", trace,
                            self.program("paramgen", way)],
                           cwd=self.directory, stdout=output, check=True)
        return len(re.findall(r"^writev?\(1,", trace.read_text(), re.MULTILINE))


def print_instructions(product, ways):
    rows = []
    for way in ways:
        program, floor, empty = product.instructions(way)
        rows.append([NAMES[way], f"{program:,}", f"{floor:,}", f"{empty:,}",
                     f"{program - empty:,}"])
    tools.print_table(
        f"Instructions of a whole run ({len(product.files)} files, {product.bytes:,} bytes of"
        " output). Target for `host-static`: 4,000,000 above empty, aim 2,500,000",
        ["linked", "paramgen", "floor", "empty", "above empty"], rows)


def print_times(product, ways, rounds):
    rows = []
    for way in ways:
        for output in ("pipe", product.output):
            program, floor, empty = product.times(way, output, rounds)
            rows.append([NAMES[way], "pipe" if output == "pipe" else "file", f"{program:.0f}",
                         f"{floor:.0f}", f"{empty:.0f}", f"{program / floor:.2f}"])
    tools.print_table(
        f"Wall time of a whole run in microseconds, median of {rounds} runs in turn. Target for"
        " `host-static`: 2.5 times the floor, aim 2",
        ["linked", "output", "paramgen", "floor", "empty", "paramgen / floor"], rows)


def print_whole_run(directory, short):
    product = Product(directory)
    ways = ["host_static"] if short else list(WAYS)
    for way in ways[1:]:
        tools.build(WAYS[way], [f"bench_{way}"])
    print_instructions(product, ways)
    print_times(product, ways, 5 if short else 500)
    print(f"calls that write to standard output, a file: {product.output_writes('host_static')}"
          " (target: at most 10)", flush=True)


def print_profile(directory, short):
    """Where the instructions of a whole run go, by function."""
    product = Product(directory)
    record = product.directory / "profile"
    tools.count_instructions(product.commands("host_static")[0], product.directory, record=record)
    for title, inclusive in (("in the function itself", "no"), ("with what it calls", "yes")):
        told, _ = tools.output_of(["callgrind_annotate", "--auto=no", f"--inclusive={inclusive}",
                                   str(record)], product.directory)
        lines = re.findall(r"^ *([\d,]+) \( *([\d.]+)%\)  [^:\n]*:(.*?)(?: \[.*)?$", told,
                           re.MULTILINE)
        rows = [[re.sub(r"paramgen::|\(.*", "", name.replace("(anonymous namespace)::", "")),
                 count, share] for count, share, name in lines]
        tools.print_table(f"Instructions by function, {title}", ["function", "instructions", "%"],
                          rows[:5 if short else 40])
