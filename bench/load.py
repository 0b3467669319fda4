"""One file of many keys: loaded, and asked for every key as an integer."""

import random

import tools

KEYS_PER_SECTION = 20
# All over the file: a prime that divides none of the numbers of keys.
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
TEXTS = ("enabled", "off", "main stream", "sensor_a", "/mnt/card/movie", "H.265 high profile")


class KeyFile:
    """A file of keys as a product might have them: sections, comments, numbers, some texts."""

    def __init__(self, directory, keys):
        self.keys = keys
        self.path = directory / f"keys_{keys}.ini"
        self.entry = directory / f"entry_{keys}.ini"
        self.sum = 0
        if not self.path.exists():
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
        """Nanoseconds of loading and of asking, and the peak of the memory in bytes."""
        helper = str(tools.BUILT["release"] / "peak_memory")
        stdout, stderr = tools.output_of([helper, *self.command(reader, step)], self.path.parent)
        loading, asking, total = map(int, stdout.split())
        if reader != "newlines" and total != self.sum:
            raise SystemExit(f"{reader} adds {self.keys} keys up to {total}, not {self.sum}")
        return loading, asking, int(stderr) * 1024


def medians(file, readers, rounds):
    """Of every reader: the medians of loading, asking, both (in nanoseconds), and memory."""
    runs = {reader: [] for reader in readers}
    for _ in range(rounds):
        for reader in readers:
            loading, asking, memory = file.run(reader)
            runs[reader].append((loading, asking, loading + asking, memory))
    return {reader: [tools.median(column) for column in zip(*values)]
            for reader, values in runs.items()}


def print_comparison(directory, short):
    """Our configuration access beside other readers."""
    for keys, rounds in {1000: 3, 5000: 1}.items() if short else ROUNDS.items():
        file = KeyFile(directory, keys)
        measured = medians(file, READERS, rounds)
        floor, ours = measured["newlines"], measured["paramgen"]
        rows = []
        for reader, (loading, asking, both, memory) in measured.items():
            target = f"{TARGETS[reader]}" if reader in TARGETS else ""
            rows.append([READERS[reader], *(f"{time / 1e6:.2f}" for time in (loading, asking, both)),
                         f"{both / floor[2]:.1f}", f"{both / ours[2]:.2f}", target,
                         f"{memory / 2**20:.1f}", f"{memory / file.size:.1f}"])
        tools.print_table(
            f"{keys:,} keys, {file.size:,} bytes, median of {rounds}; times in ms. Targets: at"
            " 100,000 keys 25 times the floor and faster than the peers as told; at 1,000,000 keys"
            " memory at most 4 times the file",
            ["reader", "load", "ask", "both", "/ floor", "/ paramgen", "target", "peak MiB",
             "/ file"], rows)


ROUNDS = {1000: 101, 10000: 51, 100000: 15, 1000000: 5}


def print_growth(directory, short):
    """How the cost of a key grows with their number."""
    sizes = [1000, 5000] if short else [1000, 10000, 100000, 1000000]
    rows = []
    for keys in sizes:
        file = KeyFile(directory, keys)
        instructions = ""
        if keys <= 100000:
            count = tools.count_instructions(file.command("paramgen_musl"), directory,
                                             only=("BenchLoad", "BenchSum"))
            instructions = f"{count / keys:.1f}"
        times = []
        for step in (1, SCATTERED):
            runs = [file.run("paramgen", step)[:2] for _ in range(max(5, 100000 // keys))]
            times.append(tools.median([sum(run) for run in runs]) / keys)
        rows.append([f"{keys:,}", f"{times[0]:.1f}", f"{times[1]:.1f}", instructions])
    tools.print_table(
        "Growth, per key, loading and asking. Targets: time at 1,000,000 keys 2.5 times that at"
        " 10,000; instructions at 100,000 keys 1.1 times those at 10,000",
        ["keys", "ns, in the file's order", "ns, all over the file", "instructions"], rows)
