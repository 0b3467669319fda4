"""Measures the time of the report's page from a key press to the next frame: page.py PAGE [ROUNDS].

Types words into the search of the real page in headless Chromium, letter by letter, and takes each
away again. For each key: the time from the event to the frame that follows it, as a user waits; and
the processor time that the page's thread spends on it. Other programs that run take from both: on a
busy machine, start it with `chrt -r 1`.
"""

import os
import statistics
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "web"))
from browser import Browser  # noqa: E402

WORDS = ["enable", "luma", "cam0", "mediamode", "gsensor:", "qp", "default 30", "cam0*fps", "@9228",
         "e", "a", "venc handle"]

# The frame in which an input event shows ends when a task that its callback asks for runs.
WATCH = """
    window.frames_ = [];
    document.getElementById("query").addEventListener("input", (event) => {
      requestAnimationFrame(() => {
        const channel = new MessageChannel();
        channel.port1.onmessage = () => frames_.push(performance.now() - event.timeStamp);
        channel.port2.postMessage(0);
      });
    }, true);"""
COUNT = "return frames_.length"
PARTS = ["ScriptDuration", "RecalcStyleDuration", "LayoutDuration", "TaskDuration"]


def metrics(browser):
    found = browser.command("Performance.getMetrics")["metrics"]
    return {entry["name"]: 1000 * entry["value"] for entry in found if entry["name"] in PARTS}


def press(browser, key):
    """One key, and what it cost. Returns when the frame is there."""
    before = browser.run(COUNT)
    start = metrics(browser)
    name = {"text": key} if len(key) == 1 else {"key": key, "windowsVirtualKeyCode": 8}
    browser.command("Input.dispatchKeyEvent", type="keyDown", **name)
    browser.command("Input.dispatchKeyEvent", type="keyUp", **name)
    time.sleep(0.1)
    while browser.run(COUNT) == before:
        time.sleep(0.02)
    end = metrics(browser)
    return {part: end[part] - start[part] for part in PARTS}


def measure(page):
    costs = []
    with Browser() as browser:
        browser.open(page)
        browser.command("Performance.enable", timeDomain="threadTicks")
        browser.run(WATCH)
        browser.run("document.getElementById('query').focus()")
        for word in WORDS:
            for key in [*word, *["Backspace"] * len(word)]:
                costs.append({"word": word, "key": key, **press(browser, key)})
        frames = browser.run("return frames_")
    for cost, frame in zip(costs, frames):
        cost["frame"] = frame
    return costs


def line(name, numbers):
    ordered = sorted(numbers)
    high = ordered[int(len(ordered) * 0.95)]
    print(f"{name:22} median {statistics.median(ordered):6.1f}   95% {high:6.1f}   "
          f"most {ordered[-1]:6.1f} ms")


def main():
    costs = []
    for _ in range(int(sys.argv[2]) if len(sys.argv) > 2 else 1):
        costs += measure(sys.argv[1])
    print(f"{len(costs)} keys")
    line("until the frame", [cost["frame"] for cost in costs])
    print("processor time of the page's thread:")
    line("  script", [cost["ScriptDuration"] for cost in costs])
    line("  style", [cost["RecalcStyleDuration"] for cost in costs])
    line("  layout", [cost["LayoutDuration"] for cost in costs])
    line("  the three", [sum(cost[part] for part in PARTS[:3]) for cost in costs])
    line("  all tasks", [cost["TaskDuration"] for cost in costs])
    worst = sorted(costs, key=lambda cost: -sum(cost[part] for part in PARTS[:3]))[:8]
    for cost in worst:
        print("  slowest: {frame:.0f} ms at {key!r} of {word!r}: script {ScriptDuration:.1f}, style "
              "{RecalcStyleDuration:.1f}, layout {LayoutDuration:.1f}".format(**cost))


main()
