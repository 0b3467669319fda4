"""Runs axe-core in the pages of a directory: accessibility.py AXE DIRECTORY. It may not find a
violation, in any view, in light and dark, in a wide and a narrow window."""

import os
import sys

from browser import Browser

VIEWS = ["", "#@9228", "#?q=nothing+has+this", "#modes", "#references", "#map"]

# Of rows that are made alike three are enough: axe-core takes minutes for thousands.
THIN = """
    const kinds = new Map();
    for (const row of document.querySelectorAll("tbody tr")) {
      const cells = [...row.cells].map((cell) => cell.innerHTML.replace(/[^<>]+/g, "")).join();
      const kind = `${row.closest("[id]:not(tr)")?.id} ${row.className} ${cells}`;
      kinds.set(kind, (kinds.get(kind) ?? 0) + 1);
      if (kinds.get(kind) > 3 && !row.matches(".heading")) {
        row.remove();
      }
    }
    for (const body of document.querySelectorAll("tbody")) {
      if (!body.querySelector("tr:not(.heading)")) {
        body.remove();
      }
    }
    for (const table of document.querySelectorAll("table")) {
      if (!table.querySelector("tbody")) {
        (table.closest(".block") ?? table).remove();
      }
    }"""

REPEATED_IDS = """
    const ids = [...document.querySelectorAll("[id]")].map(({id}) => id);
    return ids.filter((id, index) => ids.indexOf(id) !== index).slice(0, 3);"""

RUN = """
    const done = arguments[arguments.length - 1];
    axe.run(document, {resultTypes: ["violations"]}).then(({violations, passes}) => done({
      passes: passes.length,
      violations: violations.map(({id, help, nodes}) => `${id}: ${help}: ${nodes.length} times, first ` +
        `${nodes[0].html.slice(0, 200)} (${nodes[0].failureSummary.replaceAll("\\n", " ")})`),
    }));"""


def check(browser, axe, page, view):
    """What is wrong, each as a text."""
    browser.open(page, view)
    wrong = [f"the id {name} is there twice" for name in browser.run(REPEATED_IDS)]
    browser.run(THIN)
    browser.settle()
    browser.run(axe)
    found = browser.driver.execute_async_script(RUN)
    if found["passes"] < 10:
        wrong.append(f"only {found['passes']} rules applied")
    return wrong + found["violations"]


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        axe = file.read()
    pages = sorted(os.path.join(sys.argv[2], name) for name in os.listdir(sys.argv[2])
                   if name.endswith(".html"))
    count = checked = 0
    with Browser() as browser:
        browser.command("Page.setBypassCSP", enabled=True)
        for width in [1400, 400]:
            browser.width(width)
            for scheme in ["light", "dark"]:
                browser.colours(scheme)
                for page in pages:
                    for view in [""] if page.endswith("reference.html") else VIEWS:
                        checked += 1
                        for wrong in check(browser, axe, page, view):
                            print(f"{os.path.basename(page)}{view}, {scheme}, {width}: {wrong}", flush=True)
                            count += 1
    print(f"axe-core: {checked} views, {count} violations")
    sys.exit(1 if count or not checked else 0)


main()
