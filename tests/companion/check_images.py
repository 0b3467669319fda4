#!/usr/bin/env python3
"""Runs every command of paramtool that reads an image on images that are none, or spoilt.

Usage: check_images.py PARAMTOOL EXAMPLE.
"""
import hashlib
import itertools
import os
import subprocess
import sys
import tempfile

PARAMTOOL, EXAMPLE = (os.path.abspath(path) for path in sys.argv[1:])
SIZE = 29928

# Each command with the exit status on 29,928 bytes of anything: 0, or 1 where it tells a difference.
COMMANDS = [
    (["dump", "IMAGE"], 0),
    (["dump", "--format=json", "IMAGE"], 0),
    (["dump", "--format=csv", "IMAGE"], 0),
    (["dump", "--non-default", "IMAGE"], 0),
    (["diff", "IMAGE", EXAMPLE], 1),
    (["diff", "--stat", EXAMPLE, "IMAGE"], 1),
    (["diff", "--format=json", "IMAGE", EXAMPLE], 1),
    (["diff", "--format=markdown", "IMAGE", EXAMPLE], 1),
    (["diff", "IMAGE", "IMAGE"], 0),
    (["identify", "IMAGE", EXAMPLE], 1),
    (["decompile", "IMAGE", "-o", "out"], 1),
    (["decompile", "IMAGE", "--all", "--lossy", "-o", "out"], 1),
    (["decompile", "IMAGE", "--like", EXAMPLE, "-o", "out"], 1),
    (["explain", "--format=json", "*", "IMAGE"], 0),
    (["get", "devmng/gsensor:sensitivity", "IMAGE"], 0),
    (["report", "IMAGE", "-o", "page.html"], 0),
    (["report", EXAMPLE, "--against", "IMAGE", "-o", "page.html"], 0),
]


def noise(size):
    blocks = (hashlib.sha256(bytes([number % 256, number // 256])).digest() for number in itertools.count())
    return b"".join(itertools.islice(blocks, size // 32 + 1))[:size]


# Images that are none, and what must be said.
REFUSED = {
    "empty": (b"", "has 0 bytes, an image has 29928"),
    "short": (noise(SIZE - 1), "has 29927 bytes, an image has 29928"),
    "long": (noise(SIZE + 1), "is longer than an image and does not begin with one"),
    "endless": ("/dev/zero", "is longer than an image and does not begin with one"),
    "nothing": (None, "No such file or directory"),
}
SPOILT = {"zeros": bytes(SIZE), "ones": b"\xff" * SIZE, "noise": noise(SIZE),
          "text": (b"%s%n<b>\x1b[2J\xe2\x80\xae;\"'|`\r\n" * 1500)[:SIZE]}


def run(command, image):
    done = subprocess.run([PARAMTOOL, *[image if part == "IMAGE" else part for part in command]],
                          capture_output=True, check=False, timeout=300)
    return done.returncode, done.stdout, done.stderr.decode(errors="replace")


def require(holds, *what):
    if not holds:
        sys.exit(f"does not hold: {what}")


def check_refused():
    for name, (content, told) in REFUSED.items():
        if isinstance(content, bytes):
            with open(name, "wb") as file:
                file.write(content)
        elif content is not None:
            os.symlink(content, name)
        for command, _ in COMMANDS:
            status, out, err = run(command, name)
            require(status == 2, command, name, status, err)
            require(out == b"" and err == f"paramtool: {name}: {told}\n", command, name, out, err)
            require(not os.path.exists("out") and not os.path.exists("page.html"), command, name)


def check_spoilt():
    for name, content in SPOILT.items():
        with open(name, "wb") as file:
            file.write(content)
        for command, expected in COMMANDS:
            status, out, err = run(command, name)
            # A number that stands for no name, or a text, may be none that `set` accepts.
            require(status == expected, command, name, status, err)
            require(("--format=csv" in command or b"\x1b" not in out) and "\x1b" not in err, command, name)
            for made in ("page.html",):
                if os.path.exists(made):
                    os.remove(made)
            subprocess.run(["rm", "-rf", "out"], check=True)


with tempfile.TemporaryDirectory() as home:
    os.chdir(home)
    check_refused()
    check_spoilt()
    os.chdir("/")
