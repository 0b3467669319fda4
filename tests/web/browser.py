"""A headless browser that opens files from disk, with its console messages and network requests."""

import json
import os
import shutil
import signal
import tempfile
import time

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.remote.remote_connection import RemoteConnection

FLAGS = [
    "--headless=new", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
    "--disable-background-networking", "--disable-component-update", "--disable-sync",
    "--disable-dev-shm-usage", "--window-size=1400,1000", "--hide-scrollbars",
]

# Seconds. A busy machine may take long, but a browser that hangs has to end the test.
ANSWER_WITHIN = 120
HAPPENS_WITHIN = 60


def limit(seconds, what):
    """Raises an error in this thread when `what` takes longer; 0 takes the limit away."""
    def stop(*_):
        raise TimeoutError(f"{what} took longer than {seconds} seconds")
    signal.signal(signal.SIGALRM, stop)
    signal.alarm(seconds)


def await_that(condition, what="what was waited for"):
    """Waits for things that follow an event, as those of a changed link do."""
    end = time.monotonic() + HAPPENS_WITHIN
    while not condition():
        if time.monotonic() > end:
            raise TimeoutError(f"{what} did not happen within {HAPPENS_WITHIN} seconds")
        time.sleep(0.02)


class Browser:
    """Chromium with a new, empty profile. Use it in a `with` statement."""

    def __init__(self, *flags):
        self.profile = tempfile.mkdtemp(prefix="paramtool-browser-")
        options = webdriver.ChromeOptions()
        for flag in [*FLAGS, *flags, "--user-data-dir=" + self.profile]:
            options.add_argument(flag)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        RemoteConnection.set_timeout(ANSWER_WITHIN + 30)
        self.driver = webdriver.Chrome(options=options, service=Service("/usr/bin/chromedriver"))
        self.driver.set_page_load_timeout(ANSWER_WITHIN)
        self.driver.set_script_timeout(ANSWER_WITHIN)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.driver.quit()
        shutil.rmtree(self.profile, ignore_errors=True)

    def open(self, path, fragment=""):
        """Opens a file, even one that is open already."""
        self.driver.get("about:blank")
        self.said()
        self.requests()
        self.driver.get("file://" + os.path.abspath(path) + fragment)

    def run(self, script, *arguments):
        """What a function body returns in the page."""
        return self.driver.execute_script(script, *arguments)

    def settle(self):
        """Waits until the page has shown what came of the last event."""
        self.driver.execute_async_script("""
            const done = arguments[arguments.length - 1];
            requestAnimationFrame(() => setTimeout(done));""")

    def command(self, name, **parameters):
        """A command of the browser's debugging protocol."""
        return self.driver.execute_cdp_cmd(name, parameters)

    def colours(self, scheme):
        """Sets the preferred colour scheme: "light" or "dark"."""
        self.command("Emulation.setEmulatedMedia",
                     features=[{"name": "prefers-color-scheme", "value": scheme}])

    def width(self, pixels):
        """Has the page believe that the window is as wide."""
        self.command("Emulation.setDeviceMetricsOverride", width=pixels, height=900,
                     deviceScaleFactor=1, mobile=False)

    def said(self):
        """The console's messages since the last call, without the browser's remarks on slow operations."""
        return [entry["message"] for entry in self.driver.get_log("browser")
                if entry.get("source") != "violation"]

    def requests(self):
        """The addresses requested since the last call."""
        entries = [json.loads(entry["message"])["message"]
                   for entry in self.driver.get_log("performance")]
        return [entry["params"]["request"]["url"] for entry in entries
                if entry["method"] == "Network.requestWillBeSent"]
