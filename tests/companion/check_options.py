#!/usr/bin/env python3
"""Runs `paramtool check` with its options as a user does: several trees at a time, only what is new,
kinds of findings, terminals, closed pipes.

Usage: check_options.py PARAMTOOL EXAMPLE.
"""
import json
import os
import pty
import shutil
import subprocess
import sys
import tempfile
import time

PARAMTOOL, EXAMPLE = (os.path.abspath(path) for path in sys.argv[1:])
SIGPIPE = -13


def check(*arguments, expect=0):
    """Runs paramtool check, which must exit with `expect`. Returns both its outputs."""
    done = subprocess.run([PARAMTOOL, "check", *arguments], capture_output=True, text=True, check=False)
    if done.returncode != expect:
        sys.exit(f"{arguments}: exit status {done.returncode}, not {expect}\n{done.stdout}{done.stderr}")
    return done.stdout, done.stderr


def require(holds, what):
    if not holds:
        sys.exit(f"does not hold: {what}")


def spoil(tree, file, before, after):
    path = os.path.join(tree, file)
    with open(path, encoding="utf-8") as source:
        text = source.read()
    require(before in text, f"{before} in {path}")
    with open(path, "w", encoding="utf-8") as target:
        target.write(text.replace(before, after, 1))


def make_trees():
    """A good tree, one with a warning, one with an error, and one that is none."""
    for tree in ("good", "warned", "failing"):
        shutil.copytree(EXAMPLE, tree)
    spoil("warned", "devmng.ini", "sensitivity = 2", "sensitivity = 0x2")
    spoil("failing", "devmng.ini", "sensitivity = 2", "sensitivity = 99999999999")
    os.mkdir("empty")


def check_kinds():
    require(check("good") == ("", ""), "nothing is said about a good tree")
    out, err = check("warned")
    require(out.startswith("warned/devmng.ini:19:15: warning: '0x2' is read as decimal, that is 0; "
                           "did you mean '2'? [hexadecimal]\n"), out)
    require(err == "paramtool: 0 errors, 1 warning\n", err)
    require(check("--disable", "values", "warned") == ("", ""), "a group can be disabled")
    check("--error", "lost", "warned")
    check("--error", "hexadecimal", "warned", expect=1)
    check("--strict", "warned", expect=1)
    check("--disable", "all", "failing", expect=1)
    check("--enable", "nonsense", "good", expect=2)
    out, _ = check("empty", expect=1)
    require("[entry-missing]" in out, out)
    check(expect=2)


def check_jobs():
    trees = ["good", "warned", "failing", "empty", "warned", "good", "failing"]
    for form in ("text", "json", "sarif", "github"):
        alone = check(f"--format={form}", *trees, expect=1)
        for jobs in ("3", "100") if form == "text" else ("2",):
            together = check(f"--format={form}", "--jobs", jobs, *trees, expect=1)
            require(together == alone, f"{form} with {jobs} jobs is as with one")
    for jobs in ("0", "-1", "x", "1025"):
        check("--jobs", jobs, "good", expect=2)


def check_against():
    require(check("--against", "warned", "warned") == ("", ""), "what was there is not new")
    out, _ = check("--against", "good", "warned")
    require("[hexadecimal]" in out, out)
    with open("known.json", "w", encoding="utf-8") as file:
        file.write(check("--format=json", "warned")[0])
    require(check("--against", "known.json", "warned") == ("", ""), "nor what a file has")
    out, err = check("--against", "failing", "failing", expect=1)
    require(out == "" and "1 error not shown, known before" in err, err)
    check("--against", "nowhere", "warned", expect=2)
    with open("known.json", "w", encoding="utf-8") as file:
        file.write('{"schema":1')
    check("--against", "known.json", "warned", expect=2)


def check_output_file():
    out, _ = check("--format=json", "-o", "found.json", "warned")
    require(out == "", "a result goes to its file alone")
    with open("found.json", encoding="utf-8") as file:
        require(len(json.load(file)["findings"]) == 1, "it is whole")
    check("-o", "no/such/file", "warned", expect=2)
    with open("/dev/full", "w", encoding="utf-8") as full:
        done = subprocess.run([PARAMTOOL, "check", "warned"], stdout=full, stderr=subprocess.PIPE,
                              check=False)
    require(done.returncode == 2, "what cannot be written is an error")


def check_closed_pipe():
    """As in `paramtool check many | head -1`."""
    shutil.copytree(EXAMPLE, "many")
    with open("many/media/media_common.ini", "a", encoding="utf-8") as file:
        file.write("[disp.0.csc]\n" + "luma = 50\n" * 600)
    for options in (["many"], ["--jobs", "2", "many", "many", "many"], ["--format=json", "many"]):
        for ends_by_signal in (True, False):  # this process ignores the signal
            with subprocess.Popen([PARAMTOOL, "check", *options], stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE, restore_signals=ends_by_signal) as process:
                process.stdout.readline() if "--format=json" not in options else process.stdout.read(1)
                process.stdout.close()
                told = process.stderr.read()
                status = process.wait()
            require(told == b"", f"{options}: {told}")
            ends = (0, 1, SIGPIPE) if ends_by_signal else (0, 1, 2)
            require(status in ends, f"{options}: exit status {status}")


def seen_on_terminal(*arguments):
    """What paramtool check writes to standard error when that is a terminal."""
    ours, theirs = pty.openpty()
    with subprocess.Popen([PARAMTOOL, "check", *arguments], stdout=subprocess.DEVNULL,
                          stderr=theirs) as process:
        os.close(theirs)
        seen = b""
        try:
            while piece := os.read(ours, 65536):
                seen += piece
        except OSError:
            pass  # the other end is closed
        process.wait()
    os.close(ours)
    return seen


def check_progress():
    start = time.monotonic()
    require(check(*["good"] * 20)[1] == "", "without a terminal none is told")
    count = 20 + int(20 * 3 / (time.monotonic() - start))  # they take three seconds
    seen = seen_on_terminal(*["good"] * count)
    require(b"\r" in seen and f" of {count} trees".encode() in seen, f"progress is told: {seen}")
    require(seen.endswith(b"\r\x1b[K"), f"and taken away at the end: {seen}")
    require(b"trees" not in seen_on_terminal("good"), "one tree alone has none")


def main():
    with tempfile.TemporaryDirectory() as directory:
        os.chdir(directory)
        make_trees()
        for each in (check_kinds, check_jobs, check_against, check_output_file, check_closed_pipe,
                     check_progress):
            each()
        os.chdir("/")


main()
