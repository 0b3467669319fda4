"""Products that the pages in tests show."""

import os
import shutil

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

# A text that would run as a script if a page did not escape it, wherever it is.
ATTACK = "\"'><img src=x onerror=attacked=1></script><script>attacked=1</script><!--"


def example(directory):
    """A copy of the example product."""
    shutil.copytree(os.path.join(ROOT, "examples", "dashcam"), directory)
    return directory


def edit(directory, name, *changes):
    """Replaces texts in a product's file. Each of them is there."""
    path = os.path.join(directory, name)
    with open(path, "rb") as file:
        text = file.read().decode()
    for old, new in changes:
        assert old in text, old
        text = text.replace(old, new, 1)
    with open(path, "wb") as file:
        file.write(text.encode())


def append(directory, name, text):
    with open(os.path.join(directory, name), "a", encoding="utf-8") as file:
        file.write(text)


def changed(directory):
    """The example with two values changed, and with an unknown key."""
    example(directory)
    edit(directory, "media/media_common.ini", ("max_qp  = 48", "max_qp  = 47"))
    edit(directory, "devmng.ini",
         ("[gsensor]\nsensitivity = 2", "[gsensor]\nsensitivity = 3\nsensitivty_ = 4"))
    return directory


def loose(directory):
    """The example with handles that nothing has, or that is switched off."""
    example(directory)
    edit(directory, "workmode/record.ini",
         ("pipechnhdl    = 1", "pipechnhdl    = -1"), ("venchdl       = 2", "venchdl       = 9"))
    edit(directory, "camera/cam0_comm_record.ini",
         ("[venc.3]    ; photo thumbnail\nenable    = yes", "[venc.3]\nenable    = no"))
    return directory


def hostile(directory):
    """A product whose texts are attacks."""
    example(directory)
    os.rename(os.path.join(directory, "filemng.ini"),
              os.path.join(directory, "<img src=x onerror=attacked=1>.ini"))
    edit(directory, "config_cfgaccess_entry.ini",
         ("cfg_filename = filemng.ini", "cfg_filename = <img src=x onerror=attacked=1>.ini"))
    append(directory, "devmng.ini",
           "\n[devinfo]\nmodel = <script>attacked=1</script>\nsoftware_version = \"'><b>&amp;\n"
           + "[storagemng]\nmount_path = </td><img src=x onerror=attacked=1>\n"
           + f"[{ATTACK.replace(']', '')}]\n{ATTACK.replace('=', '')} = {ATTACK}\n")
    append(directory, "<img src=x onerror=attacked=1>.ini",
           "[dtcf.dir.name]\ndir_name0 = <script>attacked=1</script>\n"
           "dir_name1 = \u202e\x1b[2J{{constructor}}\ndir_name2 = a|b`c`*d*_e_ [f](g)\n")
    return directory
