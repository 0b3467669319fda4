"""Runs axe-core in pages: accessibility.py AXE PAGE... It may not find a violation."""

import sys

from browser import Browser

VIEWS = ["", "#modes", "#references", "#map"]


def violations(browser, axe):
    browser.command("Page.setBypassCSP", enabled=True)
    browser.run(axe)
    found = browser.driver.execute_async_script("""
        const done = arguments[arguments.length - 1];
        axe.run(document, {resultTypes: ["violations"]}).then((results) =>
          done(results.violations.map(({id, help, nodes}) =>
            `${id}: ${help}: ${nodes.length} times, first ${nodes[0].html.slice(0, 200)}`)));""")
    return found


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        axe = file.read()
    count = 0
    with Browser() as browser:
        browser.driver.set_script_timeout(300)
        for page in sys.argv[2:]:
            views = VIEWS if page.endswith("report.html") else [""]
            for scheme in ["light", "dark"]:
                browser.colours(scheme)
                for view in views:
                    browser.open(page, view)
                    for violation in violations(browser, axe):
                        print(f"{page}{view}, {scheme}: {violation}")
                        count += 1
    sys.exit(1 if count else 0)


main()
