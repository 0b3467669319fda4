"""A headless browser that opens files from disk, and tells what a page said and asked for."""

import json
import os
import shutil
import tempfile

from selenium import webdriver
from selenium.webdriver.chrome.service import Service

FLAGS = [
    "--headless=new", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
    "--disable-background-networking", "--disable-component-update", "--disable-sync",
    "--disable-dev-shm-usage", "--window-size=1400,1000", "--hide-scrollbars",
]


class Browser:
    """Chromium with a new, empty profile. Use it in a `with` statement."""

    def __init__(self, *flags):
        self.profile = tempfile.mkdtemp(prefix="paramtool-browser-")
        options = webdriver.ChromeOptions()
        for flag in [*FLAGS, *flags, "--user-data-dir=" + self.profile]:
            options.add_argument(flag)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        self.driver = webdriver.Chrome(options=options, service=Service("/usr/bin/chromedriver"))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.driver.quit()
        shutil.rmtree(self.profile, ignore_errors=True)

    def open(self, path, fragment=""):
        """Opens a file anew, whatever was open before."""
        self.driver.get("about:blank")
        self.said()
        self.requests()
        self.driver.get("file://" + os.path.abspath(path) + fragment)

    def run(self, script, *arguments):
        """What a function body returns in the page."""
        return self.driver.execute_script(script, *arguments)

    def command(self, name, **parameters):
        """A command of the browser's debugging protocol."""
        return self.driver.execute_cdp_cmd(name, parameters)

    def colours(self, scheme):
        """Has the page believe that the system is set to "light" or "dark"."""
        self.command("Emulation.setEmulatedMedia",
                     features=[{"name": "prefers-color-scheme", "value": scheme}])

    def said(self):
        """The console's messages since the last call, but for the browser's remarks on how long
        something took."""
        return [entry["message"] for entry in self.driver.get_log("browser")
                if entry.get("source") != "violation"]

    def requests(self):
        """The addresses asked for since the last call."""
        entries = [json.loads(entry["message"])["message"]
                   for entry in self.driver.get_log("performance")]
        return [entry["params"]["request"]["url"] for entry in entries
                if entry["method"] == "Network.requestWillBeSent"]
