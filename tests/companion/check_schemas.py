#!/usr/bin/env python3
"""Validates JSON results of paramtool against their schemas.

Usage: check_schemas.py PARAMTOOL SCHEMAS EXAMPLE. Exits with 77 without python3-jsonschema.
"""
import json
import os
import subprocess
import sys
import tempfile

try:
    import jsonschema
except ImportError:
    sys.exit(77)


def main():
    paramtool, schemas, example = sys.argv[1:]
    with tempfile.TemporaryDirectory() as home:
        noise = os.path.join(home, "noise.bin")
        with open(noise, "wb") as file:
            file.write(bytes((i * i * 31 + i // 7) % 256 for i in range(29928)))
        for name, arguments, expected in [
            ("explain", ["explain", "*", example], 0),
            ("explain", ["explain", "venc.0:*"], 0),
            ("explain", ["explain", "@9228", noise], 0),
            ("dump", ["dump", example], 0),
            ("dump", ["dump", noise], 0),
            ("diff", ["diff", example, example], 0),
            ("diff", ["diff", noise, example], 1),
            ("identify", ["identify", noise, example], 1),
            ("layout", ["layout"], 0),
            ("layout-compare", ["layout", "compare", os.path.join(schemas, "../layout.json")], 0),
            ("reference", ["reference"], 0),
        ]:
            with open(os.path.join(schemas, name + ".json"), encoding="utf-8") as file:
                schema = json.load(file)
            jsonschema.Draft7Validator.check_schema(schema)
            run = subprocess.run([paramtool, *arguments, "--format=json"], capture_output=True,
                                 check=False)
            if run.returncode != expected:
                sys.exit(f"{arguments}: exit status {run.returncode}: {run.stderr.decode()}")
            jsonschema.validate(json.loads(run.stdout), schema)
            print(name, "of", arguments[1:], "is as its schema says")


main()
