"""The C header: it compiles everywhere without a warning, and reads what `paramtool dump` reads."""

import itertools
import json
import os
import random
import struct
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
    if compiler.startswith("clang"):
        flags = ["--target=arm-linux-musleabihf", "-march=armv7-a", "-mfloat-abi=hard"]
        own = output("clang", "-print-resource-dir").strip() + "/include"
    else:
        flags = []
        own = os.path.dirname(output(compiler, "-print-libgcc-file-name").strip()) + "/include"
    return [*flags, "-nostdinc", "-isystem", own, "-isystem", MUSL]


# A key of each kind, and what `paramtool get` has to say of it.
KINDS = {
    "i32": ("media_common/venc.video.main.h264.qvbr:psnr_fluctuate_ll", "-18"),
    "u32": ("workmode_record/osd:osdcnt", "4"),
    "u8": ("media_common/venc.snap.single:largethumbnail_num", "2"),
    "i16": ("media_common/aenc.0.aac:band_width", "-14500"),
    "u64": ("cam0_mediamode0/vb.pool.0:blk_size", "12441600"),
    "f32": ("cam0_mediamode0/vcap.pipe.0:isp_framerate", "-0.1"),
    "bool": ("workmode_record/photosource.0:enable", "1"),
    "text": ("devmng/devinfo:model", "RoadView X4"),
    "name": ("workmode_photo/phototype.0.burst:mediamode", "QX_PARAM_MEDIAMODE_1080P_60"),
}


def product(directory):
    """The example with a negative number, and a float without an exact form."""
    products.example(directory)
    products.edit(directory, "media/media_common.ini", ("= 14500", "= -14500"))
    products.edit(directory, "camera/mediamode/mode0_2160p_30.ini",
                  ("= 29.97", "= -0.1"))
    return directory


class Image:
    """An image, and how `paramtool dump` reads it."""

    def __init__(self, path, dump):
        self.path = path
        self.entries = [entry for entry in dump["entries"] if entry["type"] != "bytes"]

    def expected(self):
        """What a C program prints: numbers in decimal, the bytes of floats, texts up to their end."""
        lines = []
        for entry in self.entries:
            if entry["type"] == "f32":
                lines.append(bytes.fromhex(entry["raw"])[::-1].hex())
            elif entry["type"] == "text":
                lines.append(bytes.fromhex(entry["raw"]).partition(b"\0")[0].hex())
            else:
                lines.append(str(entry["value"]))
        return lines


class HeaderTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.home = tempfile.TemporaryDirectory()
        cls.directory = cls.home.name
        output(PARAMTOOL, "layout", "--format=c", "-o", cls.file("param_image.h"))
        cls.tree = product(cls.file("product"))
        dump = json.loads(output(PARAMTOOL, "dump", "--format=json", cls.tree))
        cls.image = cls.write("image.bin", bytes.fromhex("".join(e["raw"] for e in dump["entries"])))
        with open(cls.image.path, "rb") as file:
            whole = file.read()
        middle = random.Random(1).randbytes(len(whole) - 24)
        cls.random = cls.write("random.bin", whole[:16] + middle + whole[-8:])

    @classmethod
    def write(cls, name, image):
        with open(cls.file(name), "wb") as file:
            file.write(image)
        return Image(cls.file(name), json.loads(output(PARAMTOOL, "dump", "--format=json", cls.file(name))))

    @classmethod
    def tearDownClass(cls):
        cls.home.cleanup()

    @classmethod
    def file(cls, name):
        return os.path.join(cls.directory, name)

    def program(self):
        """A program that prints all values, having read the image from an odd address; with an
        argument, one value of each kind as a person would."""
        lines = ['#include "param_image.h"', "#include <stdio.h>",
                 "static struct paramgen_image image;",
                 "static char bytes[PARAMGEN_IMAGE_SIZE + 2];",
                 "static void print_float(float value) {",
                 "    uint32_t bits;",
                 "    memcpy(&bits, &value, sizeof bits);",
                 '    printf("%08lx\\n", (unsigned long)bits);',
                 "}",
                 "static void print_text(const char *text, size_t size) {",
                 "    size_t i;",
                 "    for (i = 0; i < size && text[i] != 0; ++i) {",
                 '        printf("%02x", (unsigned)(unsigned char)text[i]);',
                 "    }",
                 '    printf("\\n");',
                 "}",
                 "int main(int count, char **arguments) {",
                 "    const size_t size = fread(bytes + 1, 1, PARAMGEN_IMAGE_SIZE + 1, stdin);",
                 "    (void)arguments;",
                 "    if (paramgen_image_read(&image, bytes + 1, size - 1) != -1) { return 2; }",
                 "    if (paramgen_image_read(&image, bytes, size) != -1) { return 3; }",
                 "    if (paramgen_image_read(&image, bytes + 1, size) != 0) { return 1; }",
                 "    if (count > 1) {",
                 *self.kinds(),
                 "        return 0;",
                 "    }"]
        for entry in self.image.entries:
            member = "image." + entry["member"]
            lines.append("    " + {
                "f32": f"print_float({member});",
                "text": f"print_text({member}, sizeof {member});",
                "u64": f'printf("%llu\\n", (unsigned long long){member});',
            }.get(entry["type"], f'printf("%lld\\n", (long long){member});'))
        return "\n".join([*lines, "    return 0;", "}", ""])

    def kinds(self):
        """Statements that print a value of each kind."""
        lines = []
        for kind, (key, text) in KINDS.items():
            entry = next(entry for entry in self.image.entries if entry.get("key") and key ==
                         f"{entry['module']}/{entry['section']}:{entry['key']}")
            self.assertEqual(entry["type"], kind, key)
            member = "image." + entry["member"]
            lines.append("        " + {
                "f32": f'printf("%.9g\\n", (double){member});',
                "text": f'printf("%.*s\\n", (int)sizeof {member}, {member});',
                "name": f'printf("%s\\n", {member} == PARAMGEN_{text} ? "{text}" : "another");',
            }.get(kind, f'printf("%lld\\n", (long long){member});'))
        return lines

    def write_program(self):
        with open(self.file("program.c"), "w", encoding="utf-8") as file:
            file.write(self.program())
        return self.file("program.c")

    def run_program(self, image, *command):
        with open(image.path, "rb") as file:
            done = subprocess.run(command, check=True, stdin=file, capture_output=True)
        return done.stdout.decode().splitlines()

    def check_program(self, *command):
        """What the program prints is what paramtool says."""
        for image in [self.image, self.random]:
            self.assertEqual(self.run_program(image, *command), image.expected())
        printed = self.run_program(self.image, *command, "kinds")
        for (kind, (key, text)), line in zip(KINDS.items(), printed):
            with self.subTest(kind):
                self.assertEqual(output(PARAMTOOL, "get", key, self.image.path), text + "\n")
                if kind == "f32":
                    line = repr(struct.unpack("f", struct.pack("f", float(line)))[0])
                    text = repr(struct.unpack("f", struct.pack("f", float(text)))[0])
                self.assertEqual(line, text)

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
        for compilers, standards, suffix in [
                (["clang", "arm-linux-gnueabihf-gcc"], ["c99", "c11"], "c"),
                (["clang++", "arm-linux-gnueabihf-g++"], ["c++11", "c++20"], "cpp")]:
            for compiler, standard in itertools.product(compilers, standards):
                with self.subTest(f"{compiler} {standard}, ARM"):
                    output(compiler, *arm_flags(compiler), "-std=" + standard, *WARNINGS, "-c",
                           self.file("empty." + suffix), "-o", "/dev/null")

    def test_it_reads_what_dump_reads(self):
        output("gcc", "-std=c99", "-O0", "-Wall", "-Werror", self.write_program(), "-o",
               self.file("program"))
        self.check_program(self.file("program"))

    def test_so_it_does_on_the_target(self):
        compiler = "arm-linux-gnueabihf-gcc"
        program = self.file("program.arm")
        output(compiler, *arm_flags(compiler), "-std=c99", "-O0", "-static", "-nostdlib",
               LIBRARIES + "/crt1.o", LIBRARIES + "/crti.o", self.write_program(),
               "-Wl,--start-group", LIBRARIES + "/libc.a",
               output(compiler, "-print-libgcc-file-name").strip(), "-Wl,--end-group",
               LIBRARIES + "/crtn.o", "-o", program)
        self.check_program("qemu-arm", program)


if __name__ == "__main__":
    unittest.main()
