"""The C header: it compiles everywhere without a warning, and reads what `paramtool dump` reads."""

import json
import os
import subprocess
import tempfile
import unittest

import products

PARAMTOOL = os.environ.get("PARAMTOOL", "build/plain/paramtool")
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Wundef", "-Wcast-align",
            "-Werror"]
MUSL = "/usr/include/arm-linux-musleabihf"
LIBRARIES = "/usr/lib/arm-linux-musleabihf"


def output(*command):
    return subprocess.run(command, check=True, capture_output=True).stdout.decode()


def arm_flags(compiler):
    """Flags for a compiler's own headers and musl's."""
    if compiler == "clang":
        flags = ["--target=arm-linux-musleabihf", "-march=armv7-a", "-mfloat-abi=hard"]
        own = output("clang", "-print-resource-dir").strip() + "/include"
    else:
        flags = []
        own = os.path.dirname(output(compiler, "-print-libgcc-file-name").strip()) + "/include"
    return [*flags, "-nostdinc", "-isystem", own, "-isystem", MUSL]


class HeaderTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.home = tempfile.TemporaryDirectory()
        cls.directory = cls.home.name
        output(PARAMTOOL, "layout", "--format=c", "-o", cls.file("param_image.h"))
        cls.dump = json.loads(output(PARAMTOOL, "dump", "--format=json",
                                     os.path.join(products.ROOT, "examples", "dashcam")))
        with open(cls.file("image.bin"), "wb") as image:
            image.write(bytes.fromhex("".join(entry["raw"] for entry in cls.dump["entries"])))

    @classmethod
    def tearDownClass(cls):
        cls.home.cleanup()

    @classmethod
    def file(cls, name):
        return os.path.join(cls.directory, name)

    def numbers(self):
        """Members that hold whole numbers, and what they are."""
        return [(entry["member"], entry["value"]) for entry in self.dump["entries"]
                if entry["type"] not in ("bytes", "text", "f32")]

    def texts(self):
        return [(entry["member"], entry["value"]) for entry in self.dump["entries"]
                if entry["type"] == "text" and entry["value"].isprintable()]

    def program(self):
        """A program that prints all of them, having read the image from an odd address."""
        lines = ['#include "param_image.h"', "#include <stdio.h>",
                 "static struct paramgen_image image;",
                 "static char bytes[PARAMGEN_IMAGE_SIZE + 2];",
                 "int main(void) {",
                 "    const size_t size = fread(bytes + 1, 1, PARAMGEN_IMAGE_SIZE + 1, stdin);",
                 "    if (paramgen_image_read(&image, bytes + 1, size - 1) != -1) { return 2; }",
                 "    if (paramgen_image_read(&image, bytes, size) != -1) { return 3; }",
                 "    if (paramgen_image_read(&image, bytes + 1, size) != 0) { return 1; }"]
        lines += [f'    printf("%lld\\n", (long long)image.{member});'
                  for member, _ in self.numbers()]
        lines += [f'    printf("%.*s\\n", (int)sizeof image.{member}, image.{member});'
                  for member, _ in self.texts()]
        return "\n".join([*lines, "    return 0;", "}", ""])

    def expected(self):
        return [str(value) for _, value in [*self.numbers(), *self.texts()]]

    def write_program(self):
        with open(self.file("program.c"), "w", encoding="utf-8") as file:
            file.write(self.program())
        return self.file("program.c")

    def read(self, *command):
        with open(self.file("image.bin"), "rb") as image:
            done = subprocess.run(command, check=True, stdin=image, capture_output=True)
        return done.stdout.decode().splitlines()

    def test_it_compiles_in_every_language_without_a_warning(self):
        source = ('#include "param_image.h"\nint main(void) { struct paramgen_image image; '
                  'return paramgen_image_read(&image, "", 0) + 1; }\n')
        for suffix in ["c", "cpp"]:
            with open(self.file("empty." + suffix), "w", encoding="utf-8") as file:
                file.write(source)
        for compiler, standard, suffix in [
                ("gcc", "c99", "c"), ("gcc", "gnu99", "c"), ("gcc", "c11", "c"), ("clang", "c99", "c"),
                ("clang", "c11", "c"), ("g++", "c++11", "cpp"), ("g++", "c++20", "cpp"),
                ("clang++", "c++11", "cpp"), ("clang++", "c++20", "cpp")]:
            with self.subTest(f"{compiler} {standard}"):
                extra = ["-Wold-style-cast"] if suffix == "cpp" else []
                output(compiler, "-std=" + standard, *WARNINGS, *extra, "-fshort-enums", "-c",
                       self.file("empty." + suffix), "-o", "/dev/null")
        for compiler in ["clang", "arm-linux-gnueabihf-gcc"]:
            for standard in ["c99", "c11"]:
                with self.subTest(f"{compiler} {standard}, ARM"):
                    output(compiler, *arm_flags(compiler), "-std=" + standard, *WARNINGS, "-c",
                           self.file("empty.c"), "-o", "/dev/null")

    def test_it_reads_what_dump_reads(self):
        output("gcc", "-std=c99", "-O0", "-Wall", "-Werror", self.write_program(), "-o",
               self.file("program"))
        self.assertEqual(self.read(self.file("program")), self.expected())

    def test_so_it_does_on_the_target(self):
        compiler = "arm-linux-gnueabihf-gcc"
        program = self.file("program.arm")
        output(compiler, *arm_flags(compiler), "-std=c99", "-O0", "-static", "-nostdlib",
               LIBRARIES + "/crt1.o", LIBRARIES + "/crti.o", self.write_program(),
               "-Wl,--start-group", LIBRARIES + "/libc.a",
               output(compiler, "-print-libgcc-file-name").strip(), "-Wl,--end-group",
               LIBRARIES + "/crtn.o", "-o", program)
        self.assertEqual(self.read("qemu-arm", program), self.expected())


if __name__ == "__main__":
    unittest.main()
