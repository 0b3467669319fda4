"""The whole program on the example product."""

import os
import re
import shutil
import subprocess

import tools

# Ways of linking, and the preset of each.
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


# Numbers of random products, by the size of their files.
RANDOM_PRODUCTS = {"37 KB": 716, "106 KB": 17}


class Product:
    """A product, and runs of programs on it: a copy of the example, or the random product of the
    tests that has this number."""

    def __init__(self, directory, number=None):
        self.directory = directory / ("product" if number is None else f"product{number}")
        if number is None:
            shutil.copytree(tools.ROOT / "examples/dashcam", self.directory, dirs_exist_ok=True)
        else:
            maker = tools.BUILT["release"] / "make_product"
            tools.output_of([str(maker), str(number), str(self.directory)], directory)
        self.output = directory / "output"
        self.files = sorted(str(file.relative_to(self.directory))
                            for file in self.directory.rglob("*.ini"))
        stdout, _ = tools.output_of([self.program("paramgen", "host_static")], self.directory)
        self.bytes = len(stdout.encode(errors="surrogateescape"))

    def program(self, name, way):
        return str(tools.BUILT[WAYS[way]] / f"{name}_{way}")

    def commands(self, way):
        """The program, the floor, and the empty program."""
        return [[self.program("paramgen", way)],
                [self.program("floor", way), str(self.bytes), *self.files],
                [self.program("empty", way)]]

    def times(self, ways, output, rounds):
        """The wall times in nanoseconds of each command of every way of linking."""
        commands = [command for way in ways for command in self.commands(way)]
        columns = self.race(commands, output, rounds)
        return [columns[first:first + 3] for first in range(0, len(columns), 3)]

    def race(self, commands, output, rounds):
        """The wall times in nanoseconds of each command, run in turn."""
        race = [str(tools.BUILT["release"] / "race"), str(rounds), str(output), *commands[0]]
        for command in commands[1:]:
            race += ["--", *command]
        lines, _ = tools.output_of(race, self.directory)
        return list(zip(*(map(int, line.split()) for line in lines.splitlines())))

    def system_calls(self, command):
        """Number of system calls, and of those that write to standard output, a file."""
        trace = self.directory / "trace"
        with open(self.output, "w") as output:
            subprocess.run(["strace", "-o", trace, *command], cwd=self.directory, stdout=output,
                           check=True)
        calls = re.findall(r"^(\w+)\((\w*)", trace.read_text(), re.MULTILINE)
        return len(calls), calls.count(("write", "1")) + calls.count(("writev", "1"))

    def page_faults(self, command):
        run = subprocess.Popen(command, cwd=self.directory, stdout=subprocess.DEVNULL)
        return os.wait4(run.pid, 0)[2].ru_minflt


def print_instructions(product, ways):
    rows = []
    for way in ways:
        program, floor, empty = [tools.count_instructions(command, product.directory)
                                 for command in product.commands(way)]
        rows.append([NAMES[way], f"{program:,}", f"{floor:,}", f"{empty:,}",
                     f"{program - empty:,}"])
    tools.print_table(
        f"Instructions of a whole run ({len(product.files)} files, {product.bytes:,} bytes of"
        " output). Target for `host-static`: 3,900,000 above empty, aim 3,400,000",
        ["linked", "paramgen", "floor", "empty", "above empty"], rows)


def print_times(product, ways, rounds):
    rows = []
    for output in ("pipe", product.output):
        for way, times in zip(ways, product.times(ways, output, rounds)):
            row = [NAMES[way], "pipe" if output == "pipe" else "file"]
            for typical in (tools.median, tools.undisturbed):
                program, floor, empty = map(typical, times)
                row += [*(f"{time / 1000:.0f}" for time in (program, floor, empty)),
                        f"{program / floor:.2f}"]
            rows.append(row)
    tools.print_table(
        f"Wall time of a whole run in microseconds, {rounds} runs in turn: medians, and what a tenth"
        " of the runs stays below. Target for `host-static`: 2.5 times the floor, aim 2.1",
        ["linked", "output", "paramgen", "floor", "empty", "/ floor",
         "tenth: paramgen", "floor", "empty", "/ floor"], rows)


def print_kernel(product):
    rows = [[name, *product.system_calls(command), product.page_faults(command)]
            for name, command in zip(("paramgen", "floor", "empty"),
                                     product.commands("host_static"))]
    tools.print_table("What the kernel is asked for by `host-static`. Target: at most 10 writes",
                      ["program", "system calls", "writes to standard output", "page faults"], rows)


def print_whole_run(directory, short):
    product = Product(directory)
    ways = ["host_static"] if short else list(WAYS)
    for way in ways[1:]:
        tools.build(WAYS[way], [f"bench_{way}"])
    print_instructions(product, ways)
    print_times(product, ways, 5 if short else 500)
    print_kernel(product)


def ratio(times, others):
    """The median of the ratios of runs that follow each other, and what a tenth of them is below."""
    ratios = [time / other for time, other in zip(times, others)]
    return f"{tools.median(ratios):.2f} ({tools.undisturbed(ratios):.2f})"


def print_products(directory, short):
    """The example and random products by `host-static`, compared with the floor and, if
    PARAMGEN_BASELINE names one, with another build of the program."""
    baseline = os.environ.get("PARAMGEN_BASELINE")
    rows = []
    for name, number in {"example": None, **RANDOM_PRODUCTS}.items():
        product = Product(directory, number)
        program, floor, empty = product.commands("host_static")
        instructions, start = [tools.count_instructions(command, product.directory)
                               for command in (program, empty)]
        faults, unavoidable = [product.page_faults(command) for command in (program, floor)]
        row = [name, f"{instructions - start:,}", faults - unavoidable]
        others = [floor, [baseline]] if baseline else [floor]
        for output in (product.output, "pipe"):
            times = product.race([program, *others], output, 5 if short else 500)
            row += [ratio(times[0], other) for other in times[1:]]
        rows.append(row)
    by = ["/ floor", "/ baseline"] if baseline else ["/ floor"]
    tools.print_table(
        "Products by `host-static`: instructions, page faults, and wall time as medians of ratios (what"
        " a tenth of them is below). Targets for the example: 3,900,000 instructions, 45 page faults,"
        " 2.5 times the floor",
        ["product", "above empty", "faults above floor", *(f"file {what}" for what in by),
         *(f"pipe {what}" for what in by)], rows)


def plain_name(function, names):
    """A function's name without namespaces and arguments."""
    if function.startswith("0x"):
        return names.get(int(function, 16), function)
    return re.sub(r"paramgen::|\(anonymous namespace\)::|(?<=\w)\(.*", "", function)


def print_profile(directory, short):
    """The instructions of a whole run, by function."""
    product = Product(directory)
    record = product.directory / "profile"
    command = product.commands("host_static")[0]
    tools.count_instructions(command, product.directory, record=record)
    symbols, _ = tools.output_of(["nm", "--extern-only", *command], product.directory)
    names = {int(address, 16): name
             for address, name in re.findall(r"^(\w+) T (\w+)$", symbols, re.MULTILINE)}
    for title, inclusive in (("in the function itself", "no"), ("with what it calls", "yes")):
        told, _ = tools.output_of(["callgrind_annotate", "--auto=no", f"--inclusive={inclusive}",
                                   str(record)], product.directory)
        lines = re.findall(r"^ *([\d,]+) \( *([\d.]+)%\)  [^:\n]*:(.*?)(?: \[.*)?$", told,
                           re.MULTILINE)
        rows = [[plain_name(name, names), count, share] for count, share, name in lines]
        tools.print_table(f"Instructions by function, {title}", ["function", "instructions", "%"],
                          rows[:5 if short else 40])
