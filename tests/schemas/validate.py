#!/usr/bin/env python3
"""Validates the output of `paramtool check` against its schemas.

usage: validate.py PARAMTOOL SOURCES

Checks a broken copy of the example product in the forms that programs read.
"""
import json
import pathlib
import shutil
import subprocess
import sys
import tempfile

import jsonschema

CHANGES = [
    ("media/media_common.ini", "luma  ", "luma_ "),
    ("media/media_common.ini", "[disp.0]", "[disp.0] ; \u4e2d\u6587 caf\u00e9"),
    ("workmode/record.ini", "venc_hdl1       = 1", "venc_hdl1 = 7"),
    ("workmode/photo.ini", "QX_PARAM_MEDIAMODE_PHOTO_2160P", "\x1b[2J](1) [x](0)"),
    ("devmng.ini", "[parking]", "[keytone]\nenable = on\nenable = off\n[parking]"),
]


def spoil(product):
    for name, before, after in CHANGES:
        path = product / name
        text = path.read_bytes()
        assert before.encode() in text, before
        path.write_bytes(text.replace(before.encode(), after.encode(), 1))
    latin = product / "filemng.ini"
    latin.write_bytes(latin.read_bytes() + b"\n[caf\xe9]\nkey = 1\n")


def main():
    program = pathlib.Path(sys.argv[1]).resolve()
    sources = pathlib.Path(sys.argv[2])
    with tempfile.TemporaryDirectory() as directory:
        product = pathlib.Path(directory) / "a product, with: odd #name"
        shutil.copytree(sources / "examples/dashcam", product)
        spoil(product)
        for form, schema in (("json", "docs/schemas/check.json"),
                             ("sarif", "tests/schemas/sarif-used.schema.json")):
            run = subprocess.run([program, "check", f"--format={form}", product.name],
                                 cwd=directory, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            assert run.returncode == 1, run.stderr
            result = json.loads(run.stdout.decode("utf-8", "strict"))
            jsonschema.validate(result, json.loads((sources / schema).read_text()))
            count = len(result["findings"] if form == "json" else result["runs"][0]["results"])
            assert count >= 5, count
            print(f"{form}: {count} findings are valid")


main()
