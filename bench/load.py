"""One file of many keys: it is loaded, and every key is queried as an integer."""

import random

import tools

KEYS_PER_SECTION = 20
# Queries in steps of a large prime are spread all over the file.
SCATTERED = 611953

READERS = {
    "newlines": "floor: finds newlines",
    "paramgen": "paramgen, glibc",
    "paramgen_musl": "paramgen, musl",
    "gkeyfile": "GKeyFile",
    "inih": "inih and unordered_map",
    "simpleini": "SimpleIni",
    "property_tree": "Boost.PropertyTree",
}
# How many times slower than paramgen with glibc a peer is expected to be.
TARGETS = {"gkeyfile": 1.5, "inih": 2, "simpleini": 3, "property_tree": 3}
# Numbers of keys, and how often they are measured.
ROUNDS = {1000: 101, 10000: 51, 100000: 21, 1000000: 7}
SHORT_ROUNDS = {1000: 1, 2000: 1}
TEXTS = ("enabled", "off", "main stream", "sensor_a", "/mnt/card/movie", "H.265 high profile")


class KeyFile:
    """A file of keys like a product's: sections, comments, numbers, some texts."""

    def __init__(self, directory, keys):
        self.keys = keys
        self.path = directory / f"keys_{keys}.ini"
        self.entry = directory / f"entry_{keys}.ini"
        self.sum = 0
        self.entry.write_text("[module]\nmodule_num = 1\nmodule1 = keys\n\n"
                              f"[keys]\ncfg_filename = {self.path.name}\n")
        self.write()
        self.size = self.path.stat().st_size

    def write(self):
        chance = random.Random(self.keys)
        with open(self.path, "w") as file:
            for key in range(self.keys):
                section, name = divmod(key, KEYS_PER_SECTION)
                if name == 0:
                    file.write(f"{'' if key == 0 else chr(10)}[sect{section}]\n")
                if chance.random() < 0.05:
                    file.write("# what the next value is for, and in which unit\n")
                if chance.random() < 0.05:
                    file.write(f"key{name} = {chance.choice(TEXTS)}\n")
                else:
                    value = chance.choice((chance.randrange(10), chance.randrange(10000),
                                           -chance.randrange(100), chance.randrange(2**31)))
                    self.sum += value
                    file.write(f"key{name} = {value}\n")

    def command(self, reader, step=1):
        preset = "host-static" if reader == "paramgen_musl" else "release"
        ours = reader.startswith("paramgen")
        program = tools.BUILT[preset] / ("reader_paramgen" if ours else f"reader_{reader}")
        return [str(program), str(self.entry if ours else self.path), str(self.keys),
                str(KEYS_PER_SECTION), str(step)]

    def run(self, reader, step=1):
        """Times of loading and of querying in nanoseconds, and the peak memory in bytes."""
        helper = str(tools.BUILT["release"] / "peak_memory")
        stdout, stderr = tools.output_of([helper, *self.command(reader, step)], self.path.parent)
        loading, asking, total = map(int, stdout.split())
        if reader != "newlines" and total != self.sum:
            raise SystemExit(f"{reader} adds {self.keys} keys up to {total}, not {self.sum}")
        return loading, asking, int(stderr) * 1024


def measure(file, readers, rounds):
    """Of every reader, in turn: times of loading, querying and both in nanoseconds, and memory."""
    runs = {reader: [] for reader in readers}
    for _ in range(rounds):
        for reader in readers:
            loading, asking, memory = file.run(reader)
            runs[reader].append((loading, asking, loading + asking, memory))
    return runs


def print_readers(file, rounds):
    runs = measure(file, READERS, rounds)
    medians = {reader: [tools.median(column) for column in zip(*values)]
               for reader, values in runs.items()}
    best = {reader: min(run[2] for run in values) for reader, values in runs.items()}
    rows = []
    for reader, (loading, asking, both, memory) in medians.items():
        rows.append([READERS[reader], *(f"{time / 1e6:.2f}" for time in (loading, asking, both)),
                     f"{both / medians['newlines'][2]:.1f}",
                     f"{both / medians['paramgen'][2]:.2f}",
                     f"{best[reader] / 1e6:.2f}", f"{best[reader] / best['newlines']:.1f}",
                     f"{best[reader] / best['paramgen']:.2f}", TARGETS.get(reader, ""),
                     f"{memory / 2**20:.1f}", f"{memory / file.size:.1f}"])
    tools.print_table(
        f"{file.keys:,} keys, {file.size:,} bytes; medians of {rounds} and the best of them, times in"
        " ms",
        ["reader", "load", "ask", "both", "/ floor", "/ paramgen", "best: both", "/ floor",
         "/ paramgen", "target", "peak MiB", "/ file"], rows)


def print_comparison(directory, short):
    """Configuration access compared with other readers."""
    for keys, rounds in (SHORT_ROUNDS if short else ROUNDS).items():
        print_readers(KeyFile(directory, keys), rounds)
    print("targets, besides those in the table (at 100,000 keys): at 100,000 keys 25 times the floor;"
          " at 1,000,000 keys memory 4 times the file", flush=True)


def time_per_key(file, step):
    """The best time in nanoseconds. Not the median: other work delays a long run more often."""
    runs = [file.run("paramgen", step) for _ in range(min(101, max(7, 300000 // file.keys)))]
    return tools.undisturbed([loading + asking for loading, asking, _ in runs]) / file.keys


def instructions_per_key(file):
    """With the static program's libc: a dynamic one resolves its functions while it runs."""
    return tools.count_instructions(file.command("paramgen_musl"), file.path.parent,
                                    only=("BenchLoad", "BenchSum")) / file.keys


def print_growth(directory, short):
    """How the cost of a key grows with the number of keys."""
    rows, costs = [], {}
    for keys in SHORT_ROUNDS if short else ROUNDS:
        file = KeyFile(directory, keys)
        cost = [time_per_key(file, step) for step in (1, SCATTERED)]
        cost.append(instructions_per_key(file) if keys <= 100000 else None)
        costs[keys] = cost
        rows.append([f"{keys:,}", *("" if value is None else f"{value:.1f}" for value in cost)])
    tools.print_table("What a key costs, loading and asking",
                      ["keys", "ns, in the file's order", "ns, all over the file", "instructions"],
                      rows)
    for unit, column, more, fewer, target in (
            ("time", 0, 1000000, 10000, ", target 2.5"), ("time", 0, 1000000, 1000, ""),
            ("time, all over the file", 1, 1000000, 10000, ", target 2.5"),
            ("instructions", 2, 100000, 10000, ", target 1.1")):
        if more in costs:
            print(f"{unit} at {more:,} keys / at {fewer:,}:"
                  f" {costs[more][column] / costs[fewer][column]:.2f}{target}", flush=True)


def instructions_of_loading(entry, keys=0):
    command = [str(tools.BUILT["host-static"] / "reader_paramgen"), str(entry), str(keys), "1", "1"]
    return tools.count_instructions(command, entry.parent, only=("BenchLoad",))


def many_modules(directory, count):
    """An entry file with many modules, all of one short file."""
    (directory / "module.ini").write_text("[s]\nkey = 1\n")
    lines = ["[module]", f"module_num = {count}"]
    lines += [f"module{number} = m{number}" for number in range(1, count + 1)]
    lines += [f"[m{number}]\ncfg_filename = module.ini" for number in range(1, count + 1)]
    entry = directory / f"modules_{count}.ini"
    entry.write_text("\n".join(lines) + "\n")
    return entry


def keys_of_two(directory, bits, zero, one):
    """An entry file of keys whose names are binary numbers, written with two characters."""
    names = [f"{number:0{bits}b}".replace("0", zero).replace("1", one) for number in range(2**bits)]
    (directory / "module.ini").write_text("[s]\nkey = 1\n")
    entry = directory / "crafted.ini"
    entry.write_text("[module]\nmodule_num = 1\nmodule1 = m\n[m]\ncfg_filename = module.ini\n[s]\n"
                     + "".join(f"{name} = 1\n" for name in names))
    return entry


def print_hostile(directory, short):
    """Many modules, and keys that are crafted to collide, in instructions."""
    few, many = (10, 80) if short else (1000, 8000)
    costs = {count: instructions_of_loading(many_modules(directory, count)) / count
             for count in (few, many)}
    tools.print_table("Instructions for a module, loading",
                      ["modules", "instructions"], [[f"{count:,}", f"{cost:,.0f}"]
                                                    for count, cost in costs.items()])
    print(f"at {many:,} modules / at {few:,}: {costs[many] / costs[few]:.2f}, target 1.5")
    bits = 8 if short else 16
    pairs = {"0 and 1": ("0", "1"), "@ and `": ("@", "`"), "^ and ~": ("^", "~")}
    loads = {what: instructions_of_loading(keys_of_two(directory, bits, *pair))
             for what, pair in pairs.items()}
    tools.print_table(f"Instructions for loading {2**bits:,} keys, names made of",
                      ["two characters", "instructions", "/ 0 and 1"],
                      [[what, f"{cost:,}", f"{cost / loads['0 and 1']:.2f}"]
                       for what, cost in loads.items()])
    print("target: 2 times", flush=True)
