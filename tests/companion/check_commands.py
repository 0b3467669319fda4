#!/usr/bin/env python3
"""Runs commands of paramtool as a user does, and checks their output and their files.

Usage: check_commands.py PARAMTOOL PARAMGEN EXAMPLE.
"""
import json
import os
import shutil
import socket
import subprocess
import sys
import tempfile

PARAMTOOL, PARAMGEN, EXAMPLE = (os.path.abspath(path) for path in sys.argv[1:])


def run(*arguments, expect=0):
    """Runs paramtool, which must exit with `expect`. Returns its output."""
    done = subprocess.run([PARAMTOOL, *arguments], capture_output=True, text=True, check=False)
    if done.returncode != expect:
        sys.exit(f"{arguments}: exit status {done.returncode}, not {expect}\n{done.stdout}{done.stderr}")
    return done.stdout, done.stderr


def require(holds, what):
    if not holds:
        sys.exit(what)


def image_of(tree):
    subprocess.run([PARAMGEN], cwd=tree, stdout=subprocess.DEVNULL, check=True)
    with open(os.path.join(tree, "param.bin"), "rb") as file:
        return file.read()


def text_of(path):
    with open(path, encoding="utf-8", newline="") as file:
        return file.read()


def check_init():
    run("init", "fresh")
    out, err = run("check", "--strict", "fresh")
    require(out == "" and err == "", "a fresh product has no findings")
    image_of("fresh")
    _, err = run("init", "fresh", expect=2)
    require(err == "paramtool: fresh: is not empty\n", err)
    os.mkdir("here")
    subprocess.run(["sh", "-c", '"$0" init . && test -e devmng.ini', PARAMTOOL], cwd="here", check=True)


def check_set_without_output():
    """A result that cannot be written is a failure, of which the user must know that the change was made."""
    for options, told, value in ((["--dry-run"], "", "1"), ([], "; the tree is changed", "0")):
        with open("/dev/full", "w", encoding="utf-8") as full:
            done = subprocess.run([PARAMTOOL, "set", *options, "product", "gsensor:sensitivity=0"], stdout=full,
                                  stderr=subprocess.PIPE, text=True, check=False)
        require(done.returncode == 2, "a result that cannot be written is a failure")
        require(done.stderr == "paramtool: cannot write to standard output: No space left on device" + told + "\n",
                done.stderr)
        require(run("get", "gsensor:sensitivity", "product")[0] == value + "\n", "what was told is true")
    run("set", "product", "gsensor:sensitivity=1")


def check_set():
    before = text_of("product/devmng.ini")
    out, _ = run("set", "--dry-run", "product", "gsensor:sensitivity=1")
    require(out == "devmng/gsensor:sensitivity: 2 -> 1\n", out)
    require(text_of("product/devmng.ini") == before, "a dry run changes nothing")
    run("set", "product", "devmng/gsensor:sensitivity=1")
    after = text_of("product/devmng.ini")
    changed = [pair for pair in zip(before.splitlines(), after.splitlines()) if pair[0] != pair[1]]
    require(len(changed) == 1 and "sensitivity = 1" in changed[0][1], str(changed))
    require(run("get", "gsensor:sensitivity", "product")[0] == "1\n", "get reads what was set")
    for bad in ["gsensor:sensitivity=99999999999", "gsensor:sensitivty=1", "devinfo:model=a;b"]:
        run("set", "product", "keytone:enable=0", bad, expect=1)
    check_set_without_output()
    run("set", "product", "sensitivity=1", expect=2)
    run("set", "product", "gsensor:sensitivity", expect=2)
    require(text_of("product/devmng.ini") == after, "what is refused changes nothing")


def check_set_in_shared_file():
    """Two modules have one file, under two paths or two names: both changes are there afterwards."""
    for name, way in (("spelled", "path = ./\ncfg_filename = devmng.ini"), ("linked", "cfg_filename = link.ini")):
        shutil.copytree(EXAMPLE, name)
        entry = text_of(f"{name}/config_cfgaccess_entry.ini").replace("cfg_filename = filemng.ini", way)
        both = text_of(f"{name}/devmng.ini") + text_of(f"{name}/filemng.ini")
        os.symlink("devmng.ini", f"{name}/link.ini")
        for file, text in (("config_cfgaccess_entry.ini", entry), ("devmng.ini", both)):
            with open(f"{name}/{file}", "w", encoding="utf-8", newline="") as output:
                output.write(text)
        run("set", name, "gsensor:sensitivity=1", "common.repair:enable=no")
        for key, value in (("gsensor:sensitivity", "1"), ("filemng/common.repair:enable", "0")):
            require(run("get", key, name)[0] == value + "\n", f"{name}: {key} is set")


def check_set_beside_linked_entry():
    """The modules of an entry file that is a link lie beside what it leads to."""
    os.mkdir("beside")
    for name in ("camera", "media", "workmode"):
        shutil.copytree(f"{EXAMPLE}/{name}", f"beside/{name}")
    shutil.copytree(EXAMPLE, "behind")
    os.symlink("../behind/config_cfgaccess_entry.ini", "beside/config_cfgaccess_entry.ini")
    run("set", "beside", "gsensor:sensitivity=1")
    require("\nsensitivity = 1\n" in text_of("behind/devmng.ini"), "the file that was read is changed")
    require(not os.path.exists("beside/devmng.ini"), "no other file is written")
    out, _ = run("deps", "beside")
    require(" beside/../behind/devmng.ini " in out, out)


def check_set_to_two_values():
    """All is done that is asked for, or nothing: a line cannot have two values."""
    shutil.copytree(EXAMPLE, "two")
    entry = text_of("two/config_cfgaccess_entry.ini").replace("mode1_1440p_30_wdr.ini", "mode0_2160p_30.ini")
    with open("two/config_cfgaccess_entry.ini", "w", encoding="utf-8") as file:
        file.write(entry)
    before = text_of("two/camera/mediamode/mode0_2160p_30.ini")
    for first, second in (("cam0_mediamode0", "cam0_mediamode0"), ("cam0_mediamode0", "cam0_mediamode1")):
        _, err = run("set", "two", f"{first}/vpss.0:max_width=1000", f"{second}/vpss.0:max_width=1001", expect=1)
        require(err == f"paramtool: {second}/vpss.0:max_width cannot be '1001': its line is set to something else; "
                "nothing is changed\n", err)
    require(text_of("two/camera/mediamode/mode0_2160p_30.ini") == before, "what is refused changes nothing")
    run("set", "two", "cam0_mediamode0/vpss.0:max_width=1000", "cam0_mediamode1/vpss.0:max_width=1000")


def check_keys_of_several_places():
    """A calibration's key has places in each media mode, which two modules give."""
    shutil.copytree(EXAMPLE, "lens")
    image_of("lens")
    for number, value in (("0", "86"), ("1", "77")):
        key = f"cam0_ldccfg_{number}/LDCV1Attr:xratio"
        require(run("get", key, "lens")[0] == value + "\n", "the module's own value: " + key)
    _, err = run("get", "LDCV1Attr:xratio", "lens", expect=2)
    require("names 2 keys" in err and "cam0_ldccfg_1/LDCV1Attr:xratio" in err, err)
    _, err = run("get", "LDCV1Attr:xratio", "lens/param.bin", expect=2)
    require(err == "paramtool: LDCV1Attr:xratio has places that differ, and one is needed:\n"
            "  @13488: 86\n  @20944: 77\n", err)
    require(run("get", "@20944", "lens/param.bin")[0] == "77\n", "an offset names one place")
    name = "QX_PARAM_MEDIAMODE_PHOTO_2160P"
    require(run("get", "cam0_ldccfg_1/common:mediamode", "lens")[0] == name + "\n", "a key without a place")
    run("get", "cam0_ldccfg_1/common:mediamode", "lens/param.bin", expect=1)
    run("set", "lens", "cam0_ldccfg_1/LDCV1Attr:xratio=78")
    out, _ = run("diff", "lens/param.bin", "lens", expect=1)
    require(out == "cam0_ldccfg_*/LDCV1Attr:xratio: 77 -> 78 (lens/camera/ldc/ldc1_photo_2160p.ini:10) (5 places)\n", out)


def check_key_beyond_its_array():
    shutil.copytree(EXAMPLE, "beyond")
    run("get", "cam.0.burst.type1:value31", "beyond", expect=1)
    run("set", "beyond", "cam.0.burst.type1:num=32", "cam.0.burst.type1:value31=7")
    require(run("get", "cam.0.burst.type1:value31", "beyond")[0] == "7\n", "get reads what was set")
    image_of("beyond")
    require(run("get", "cam.0.burst.type1:value31", "beyond/param.bin")[0] == "7\n", "also from its image")


def check_decompile():
    image = image_of("product")
    run("decompile", "product/param.bin", "-o", "back")
    require(image_of("back") == image, "the image comes back")
    run("decompile", "product/param.bin", "--all", "-o", "all")
    require(image_of("all") == image, "the image comes back with all keys")
    run("decompile", "product/param.bin", "-o", "back", expect=2)
    with open("odd.bin", "wb") as file:
        file.write(image[:8] + b"\1" + image[9:])
    _, err = run("decompile", "odd.bin", "-o", "odd", expect=1)
    require("lost: @8 1 byte of header.reserved: nothing is stored there" in err, err)
    require(not os.path.exists("odd"), "nothing is written that does not make the image")
    run("decompile", "odd.bin", "--lossy", "-o", "odd", expect=1)
    require(image_of("odd") == image, "the rest comes back")


def check_deps():
    out, _ = run("deps", "product", "--target", "a b")
    require(out.startswith("a\\ b: \\\n  product/config_cfgaccess_entry.ini \\\n"), out)
    require("product/workmode/record.ini" in out, out)
    os.remove("product/devmng.ini")
    out, _ = run("deps", "product")
    require("\n  product \\\n" in out and "devmng.ini" not in out, out)
    for command in (["dump", "product"], ["decompile", EXAMPLE, "--like", "product", "-o", "like"]):
        _, err = run(*command, expect=2)
        require("error:" in err and "devmng" in err and "paramgen refuses this tree" in err, err)


def check_file_that_cannot_be_read():
    shutil.copytree(EXAMPLE, "locked")
    os.remove("locked/valueset.ini")
    with socket.socket(socket.AF_UNIX) as unreadable:
        unreadable.bind("locked/valueset.ini")
        out, _ = run("check", "locked", expect=1)
    require("the file of 'valueset', 'locked/valueset.ini', cannot be read [module-unreadable]" in out, out)


def check_explain():
    key = "workmode_record/photosource.0:venchdl"
    target = "cam0_comm_record/venc.2:venchdl"
    out, _ = run("explain", key)
    require("cam0_comm_record/venc.?:venchdl: " in out, "without a product references are rules")
    out, _ = run("explain", key, EXAMPLE)
    place = f"{EXAMPLE}/camera/cam0_comm_record.ini:270:13"
    require(f"refers to  {target} ({place}): a photo takes this path" in out, out)
    shutil.copytree(EXAMPLE, "explained")
    with open("explained.bin", "wb") as file:
        file.write(image_of("explained"))
    for argument in ("explained.bin", "explained"):
        out, _ = run("explain", "--format=json", key, argument)
        found = json.loads(out)["values"][0]["refersTo"]
        require([f"{each['module']}/{each['section']}:{each['key']}" for each in found] == [target], out)
        require(("line" in found[0]) == (argument == "explained"), out)
    out, _ = run("explain", target, EXAMPLE)
    require(f"referred to by  {key} (" in out, out)
    for lens in ("cam0_ldccfg_1/LDCV1Attr:xratio", "@20944"):
        out, _ = run("explain", lens, EXAMPLE)
        require(f"set      {EXAMPLE}/camera/ldc/ldc1_photo_2160p.ini:10:8 to '77'" in out, "the module's own: " + out)
        found = json.loads(run("explain", "--format=json", lens, EXAMPLE)[0])["values"][0]
        require((found["text"], found["value"]) == ("77", 77), "the value that the module gives: " + str(found))
    require("set      nowhere" in run("explain", "@15352", EXAMPLE)[0], "no module gives this mode's")


def check_empty_names():
    """As from a variable of a shell that is not set."""
    for command in (["init", ""], ["decompile", EXAMPLE, "-o", ""]):
        _, err = run(*command, expect=2)
        require(err == "paramtool: the name of a directory cannot be empty\n", err)
    run("decompile", EXAMPLE, "--like", "", "-o", "unlike", expect=2)
    require(not os.path.exists("unlike"), "there is no tree of no name to be like")


def check_diff_of_nothing():
    """A misspelled key must not make a comparison pass."""
    _, err = run("diff", EXAMPLE, "fresh", "--only", "gsensor:sensitivity", "--only", "gsensor:sensitivty", expect=1)
    require(err == "paramtool: no value matches gsensor:sensitivty\n", err)


def check_wrong_use():
    _, err = run("chekc", "product", expect=2)
    require("no command 'chekc'; did you mean 'check'?" in err, err)
    run("dump", "nothing", expect=2)
    run("dump", expect=2)
    with open("short.bin", "wb") as file:
        file.write(b"x" * 29927)
    run("dump", "short.bin", expect=2)
    run("get", "gsensor:sensitivty", EXAMPLE, expect=1)


with tempfile.TemporaryDirectory() as home:
    os.chdir(home)
    shutil.copytree(EXAMPLE, "product")
    check_init()
    check_set()
    check_set_in_shared_file()
    check_set_beside_linked_entry()
    check_set_to_two_values()
    check_keys_of_several_places()
    check_key_beyond_its_array()
    check_decompile()
    nearest = run("identify", "product/param.bin", "fresh", "product")[0].splitlines()[3]
    require(nearest.split() == ["equal", "product"], "the nearest tree comes first: " + nearest)
    out, err = run("identify", "product/param.bin", "no-tree", "product", expect=2)
    require("equal  product" in out and "no-tree: No such file" in err, "what cannot be compared is left out: " + out)
    require(run("diff", "product/param.bin", "product")[0] == "", "a tree makes its image")
    check_deps()
    check_file_that_cannot_be_read()
    check_explain()
    check_empty_names()
    check_diff_of_nothing()
    check_wrong_use()
