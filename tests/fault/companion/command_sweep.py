#!/usr/bin/env python3
"""Lets each system call of `paramtool set` and `paramtool decompile` fail in turn, and the disk be
full. Files must then be as they were, or be changed wholly with exit status 0; no temporary file
may stay.

Usage: command_sweep.py PARAMTOOL PARAMGEN EXAMPLE. Exits with 77 where strace cannot be used. To
save time, only every 8th call that changes something fails, and every 60th of the others; all of
them with PARAMGEN_SWEEP=every in the environment.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile

PARAMTOOL, PARAMGEN, EXAMPLE = (os.path.abspath(path) for path in sys.argv[1:])
EVERY = os.environ.get("PARAMGEN_SWEEP") == "every"
HOME = tempfile.mkdtemp()
IMAGE = os.path.join(HOME, "image.bin")

# Calls that change files, or what later calls work on. All others only read.
CHANGING = {"chmod", "fchmod", "fchmodat", "fchown", "fsync", "link", "linkat", "mkdir", "mkdirat", "rename",
            "renameat", "renameat2", "rmdir", "unlink", "unlinkat", "write", "chdir", "fchdir", "dup2"}
REMOVING = {"rmdir", "unlink", "unlinkat"}  # when they fail, what they were to remove stays
ERRORS = {"write": ["ENOSPC", "EINTR"], "openat": ["EMFILE"], "brk": ["ENOMEM"], "mmap": ["ENOMEM"]}
# How a process begins and ends.
UNTOUCHED = {"execve", "exit_group", "arch_prctl", "set_tid_address", "set_robust_list", "rseq", "exit", "brk"}
UNTOUCHED |= {"umask", "geteuid", "getegid"}  # these cannot fail


def run(command, home):
    environment = {**os.environ, "ASAN_OPTIONS": "detect_leaks=0"}  # a traced process cannot be searched
    return subprocess.run(command, cwd=home, capture_output=True, check=False, env=environment)


def traced(scenario, home, *options):
    return run(["strace", "-f", "--seccomp-bpf", "-qq", *options, PARAMTOOL, *scenario.command], home)


def files_in(home):
    """All that is below a directory: rights, and the bytes of files."""
    found = {}
    for directory, names, files in os.walk(home):
        for name in [*names, *files]:
            path = os.path.join(directory, name)
            content = None
            if name in files:
                with open(path, "rb") as file:
                    content = file.read()
            found[os.path.relpath(path, home)] = (os.stat(path).st_mode, content)
    return found


def without_temporary(files):
    """Without the files and directories whose names end in six random characters."""
    temporary = re.compile(r"\.[A-Za-z0-9]{6}(/|$)")
    return {path: content for path, content in files.items() if not temporary.search(path)}


class Scenario:
    """A command, what it works on, and the directory of its result."""

    def __init__(self, name, command, prepare, tree):
        self.name, self.command, self.prepare, self.tree = name, command, prepare, tree

    def make_home(self, home):
        shutil.rmtree(home, ignore_errors=True)
        os.mkdir(home)
        self.prepare(home)

    def is_done(self, home, after):
        """Whether everything is as after a run in which nothing failed. A tree that is decompiled may
        lack modules that are not needed, when reading its model fails."""
        if files_in(home) == after:
            return True
        if self.name == "set":
            return False
        tree = os.path.join(home, self.tree)
        outside = {path for path in files_in(home) if not path.startswith(self.tree)}
        return (os.stat(tree).st_mode == after[self.tree][0]
                and outside == {path for path in after if not path.startswith(self.tree)}
                and run([PARAMTOOL, "diff", "image.bin", tree], home).returncode == 0)


def copy_example(home):
    shutil.copytree(EXAMPLE, os.path.join(home, "tree"))


def put_image(home):
    copy_example(home)
    shutil.copyfile(IMAGE, os.path.join(home, "image.bin"))


def put_image_and_directory(home):
    put_image(home)
    os.mkdir(os.path.join(home, "empty"), mode=0o750)


SCENARIOS = [
    Scenario("set", ["set", "tree", "gsensor:sensitivity=1", "volume:num=2", "keytone:enable=0"], copy_example, "tree"),
    Scenario("decompile", ["decompile", "image.bin", "-o", "new"], put_image, "new"),
    Scenario("decompile to an empty directory", ["decompile", "image.bin", "-o", "empty"], put_image_and_directory,
             "empty"),
    Scenario("decompile over a tree", ["decompile", "image.bin", "--like", "tree", "--force", "-o", "tree"], put_image,
             "tree"),
]


def calls_of(scenario, home):
    """Names and numbers of the system calls of a run in which nothing fails, from the first on that is
    about its arguments. Those before load the program."""
    log = home + ".calls"
    scenario.make_home(home)
    done = traced(scenario, home, "-o", log)
    assert done.returncode == 0, done.stderr
    counts = {}
    calls = []
    begun = False
    with open(log, encoding="utf-8", errors="replace") as lines:
        for line in lines:
            call = re.match(r"\d+ +(\w+)\(", line)
            begun = begun or ('"tree' in line or '"image.bin"' in line) and 'execve' not in line
            if call:
                counts[call[1]] = counts.get(call[1], 0) + 1
            if call and begun and call[1] not in UNTOUCHED:
                changes = call[1] in CHANGING or "O_CREAT" in line or "O_WRONLY" in line
                calls.append((call[1], counts[call[1]], changes, "write(1" in line or "write(2" in line))
    return calls


def check(scenario, home, before, after, what, told):
    """Checks what a run has left behind, of which call `what` has failed. `told`: that call writes the
    result, when everything else is done."""
    name = what.split(":")[0]
    done = scenario.status
    files = files_in(home)
    if name in REMOVING:
        files, before, after = (without_temporary(each) for each in (files, before, after))
    if files == before:
        good = done != 0
    elif told:
        good = files == after
    else:
        good = done == 0 and (files == after if name in REMOVING else scenario.is_done(home, after))
    if not good or done < 0 or done > 127:
        different = sorted({path for path in {*files, *before} if files.get(path, 0) != before.get(path, 0)})
        sys.exit(f"{scenario.name}: {what}: exit status {done}: {scenario.told}\nnot as before: {different}")


def sweep(scenario, home):
    calls = calls_of(scenario, home)
    after = files_in(home)
    scenario.make_home(home)
    before = files_in(home)
    assert before != after, "a run changes something"
    count = 0
    for number, (name, occurrence, changes, told) in enumerate(calls):
        if not EVERY and number % (8 if changes else 60) != 0:
            continue
        for error in ERRORS.get(name, ["EIO"]):
            whens = [f"{occurrence}", f"{occurrence}+"] if error == "ENOSPC" else [f"{occurrence}"]
            for when in whens:
                run_one(scenario, home, before, after, f"{name}:error={error}:when={when}", told)
                count += 1
    print(f"{scenario.name}: {len(calls)} system calls, {count} runs with failures")


def run_one(scenario, home, before, after, what, told):
    """A run in which a call fails. The files are made anew when it has changed them."""
    if files_in(home) != before:
        scenario.make_home(home)
    name = what.split(":")[0]
    done = traced(scenario, home, "-o", "/dev/null", "-e", f"trace={name}", "-e", f"inject={what}")
    scenario.status, scenario.told = done.returncode, done.stderr.decode(errors="replace")
    check(scenario, home, before, after, what, told)


def make_image():
    """The example's image, with other values in two files."""
    tree = os.path.join(HOME, "other")
    shutil.copytree(EXAMPLE, tree)
    for command in ([PARAMTOOL, "set", tree, "gsensor:sensitivity=1", "volume:num=2"], [PARAMGEN]):
        done = run(command, tree)
        assert done.returncode == 0, done.stderr
    shutil.copyfile(os.path.join(tree, "param.bin"), IMAGE)


def fill(directory, free):
    """Leaves `free` bytes of a file system, at most."""
    with open(os.path.join(directory, "filler"), "wb") as filler:
        state = os.fstatvfs(filler.fileno())
        os.posix_fallocate(filler.fileno(), 0, max(1, state.f_bavail * state.f_frsize - free))


def fill_disk(scenario, disk):
    """Runs on a file system with less and less room until it is too little, and then with none."""
    home = os.path.join(disk, "home")
    failed = 0
    for pages in [*range(40), 200]:
        scenario.make_home(home)
        before = files_in(home)
        fill(disk, pages * 4096)
        done = run([PARAMTOOL, *scenario.command], home)
        os.remove(os.path.join(disk, "filler"))
        files = files_in(home)
        if done.returncode != 0:
            failed += 1
            if files != before:
                sys.exit(f"{scenario.name}: {pages} pages free: files are not as before: {done.stderr}")
    if not 0 < failed < 41 or done.returncode != 0:
        sys.exit(f"{scenario.name}: a full disk was seen {failed} times")
    print(f"{scenario.name}: the disk was full {failed} times")


def sweep_disks():
    disk = os.path.join(HOME, "disk")
    os.mkdir(disk)
    if run(["mount", "-t", "tmpfs", "-o", "size=2m", "tmpfs", disk], "/").returncode != 0:
        print("no file system can be mounted: no full disk")
        return
    try:
        for scenario in SCENARIOS:
            fill_disk(scenario, disk)
    finally:
        run(["umount", disk], "/")


def main():
    if shutil.which("strace") is None or run(["strace", "-o", "/dev/null", "true"], "/").returncode != 0:
        sys.exit(77)
    make_image()
    for scenario in SCENARIOS:
        sweep(scenario, os.path.join(HOME, "home"))
    sweep_disks()


try:
    main()
finally:
    shutil.rmtree(HOME)
