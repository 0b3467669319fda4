#!/usr/bin/env bash
# Checks of the project's own checks: each must refuse what it is there to refuse.
#
# checks_test.sh SOURCES PROPERTIES REPLAY: the project's directory, the test program of the
# properties, and one that replays a fuzz target's inputs
set -uo pipefail
sources=$1 properties=$2 replay=$3
scratch=$(mktemp -d)
trap 'chmod -R u+w "$scratch"; rm -rf "$scratch"' EXIT
failures=0

# refused WHAT TEXT COMMAND...: the command must fail and say TEXT.
refused() {
  local what=$1 text=$2 output status=0
  shift 2
  output=$("$@" 2>&1) || status=$?
  if [ "$status" -eq 0 ] || ! grep -qF -- "$text" <<<"$output"; then
    printf 'NOT REFUSED: %s (exit status %s)\n%s\n' "$what" "$status" "$output"
    failures=$((failures + 1))
  fi
}

# accepted WHAT COMMAND...: the command must succeed.
accepted() {
  local what=$1 output
  shift
  output=$("$@" 2>&1) || {
    printf 'NOT ACCEPTED: %s\n%s\n' "$what" "$output"
    failures=$((failures + 1))
  }
}

copy_sources() {
  mkdir "$1"
  (cd "$sources" && git ls-files -z -co --exclude-standard | tar -c --null -T -) | tar -x -C "$1"
}

hardening() {
  mkdir -p "$scratch/hardening/CMakeFiles"
  cd "$scratch/hardening" || return
  cat >main.c <<'EOF'
#include <stdio.h>
#include <string.h>
int main(int argc, char **argv) {
  char text[64];
  strcpy(text, argv[0]);
  return printf("%s %d\n", text, argc) < 0;
}
EOF
  local guarded=-fstack-protector-strong fortified='-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2'
  build() { # NAME FLAG...
    local name=$1
    shift
    cc -O2 "$@" -c main.c -o "CMakeFiles/$name.o" &&
      cc -static -Wl,-z,relro,-z,now,-z,noexecstack,-z,separate-code "-Wl,-Map=$name.map,--cref" \
        "CMakeFiles/$name.o" -o "$name"
  }
  # shellcheck disable=SC2086
  build good $guarded $fortified && build bare -fno-stack-protector $fortified &&
    build plain $guarded -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=0
  accepted "a hardened program" "$sources/scripts/check-hardening" --static good
  refused "a program without stack protector" "no guarded stacks" \
    "$sources/scripts/check-hardening" --static bare
  refused "a program without checking calls" "checking calls" \
    "$sources/scripts/check-hardening" --static plain
}

includes() {
  mkdir -p "$scratch/includes/low" "$scratch/includes/high"
  cd "$scratch/includes" || return
  touch high/load.h
  cat >CMakeLists.txt <<EOF
cmake_minimum_required(VERSION 3.25)
project(includes NONE)
include("$sources/cmake/Rooms.cmake")
paramgen_check_includes("low" "\${PROJECT_SOURCE_DIR}/low/file.cpp")
EOF
  local line
  for line in '#include "high/load.h"' '#include <high/load.h>' '# include "high/load.h"' \
    '  #  include<high/load.h>'; do
    printf '%s\n' "$line" >low/file.cpp
    refused "$line" "this room (sees: low)" cmake -S . -B build
  done
  printf '#include <vector>\n#include "low/other.h"\n' >low/file.cpp
  accepted "what a room may include" cmake -S . -B build
}

check_properties() {
  local value
  for value in 0 abc ""; do
    refused "PARAMGEN_TREES=$value" PARAMGEN_TREES env "PARAMGEN_TREES=$value" "$properties"
  done
  refused "a program that does not exist" "cannot be run" \
    env PARAMGEN_TREES=2 PARAMGEN_PROGRAM=/no/such/program "$properties"
  refused "a reference that does not exist" "cannot be run" \
    env PARAMGEN_TREES=2 PARAMGEN_REFERENCE_PROGRAM=/no/such/program "$properties"
}

check_replay() {
  refused "a missing directory of inputs" "cannot be read" "$replay" "$scratch/missing"
  mkdir -p "$scratch/empty"
  refused "no inputs" "0 inputs" "$replay" "$scratch/empty"
}

build_files() {
  copy_sources "$scratch/copy"
  rm -r "$scratch/copy/tests/unit/log"
  refused "a room without unit tests" "log has no unit tests" \
    cmake -S "$scratch/copy" -B "$scratch/build" -DPARAMGEN_TESTS=ON
  if command -v g++ clang++ >/dev/null; then
    accepted "compilers of two makes" env CC=gcc CXX=clang++ \
      cmake -S "$scratch/copy" -B "$scratch/mixed" -G Ninja
    refused "whole-program optimisation by compilers of two makes" "" \
      grep -q -- -flto "$scratch/mixed/build.ninja"
  fi
}

scripts() {
  mkdir -p "$scratch/format/scripts" "$scratch/bin"
  cp "$sources/scripts/check-format" "$scratch/format/scripts"
  git -C "$scratch/format" init -q
  refused "an empty list of files" "no source files found" "$scratch/format/scripts/check-format"

  # Neither root nor sudo.
  printf '#!/bin/sh\necho 1000\n' >"$scratch/bin/id"
  printf '#!/bin/sh\nexit 1\n' >"$scratch/bin/dpkg-query"
  chmod +x "$scratch/bin/id" "$scratch/bin/dpkg-query"
  for tool in bash grep; do ln -s "$(command -v $tool)" "$scratch/bin/$tool"; done
  refused "installing without rights" "missing packages: some-package" \
    env "PATH=$scratch/bin" bash -c ". $sources/scripts/packages.sh; need_packages some-package"

  copy_sources "$scratch/readonly"
  chmod -R a-w "$scratch/readonly"
  local as_nobody=()
  [ "$(id -u)" -ne 0 ] || as_nobody=(setpriv --reuid 65534 --clear-groups)
  chmod a+rx "$scratch"
  refused "a tree that cannot be written to" "cannot write to" "${as_nobody[@]}" "$scratch/readonly/run"
}

python_scripts() {
  refused "tests that fail on unchanged code" "test_x fails on unchanged code" python3 - "$sources" <<'EOF'
import importlib.machinery, importlib.util, pathlib, sys, tempfile
sys.dont_write_bytecode = True
loader = importlib.machinery.SourceFileLoader("mutate", sys.argv[1] + "/scripts/mutate")
mutate = importlib.util.module_from_spec(importlib.util.spec_from_loader("mutate", loader))
loader.exec_module(mutate)
with tempfile.TemporaryDirectory() as build:
    test = pathlib.Path(build, "tests", "test_x")
    test.parent.mkdir()
    test.write_text("#!/bin/sh\nexit 1\n")
    test.chmod(0o755)
    scratch = object.__new__(mutate.Scratch)
    scratch.build, scratch.programs = pathlib.Path(build), ["test_x"]
    scratch.check_unchanged()
EOF
  refused "a shipped file that no test links" "log/save_file.cpp: no test links this" python3 - "$sources" <<'EOF'
import importlib.machinery, importlib.util, sys
sys.dont_write_bytecode = True
loader = importlib.machinery.SourceFileLoader("coverage_gate", sys.argv[1] + "/scripts/coverage")
gate = importlib.util.module_from_spec(importlib.util.spec_from_loader("coverage_gate", loader))
loader.exec_module(gate)
linked = [path for path in gate.ROOT.glob("*/**/*.cpp") if path.name != "save_file.cpp"]
gate.report = lambda build: "".join(f"SF:{path}\nDA:1,1\nBRDA:1,0,0,1\n" for path in linked)
gate.MOST_SHOWN = 1000
sys.exit(gate.main())
EOF
}

for check in hardening includes check_properties check_replay build_files scripts python_scripts; do
  $check
  cd "$sources" || exit 1
done
[ "$failures" -eq 0 ] && echo "all refused"
exit "$((failures > 0))"
