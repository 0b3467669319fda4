"""The report's page in a browser. PARAMTOOL names the program."""

import os
import shutil
import subprocess
import tempfile
import time
import unittest

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import Select

import products
from browser import Browser, await_that, limit

PARAMTOOL = os.environ.get("PARAMTOOL", "build/plain/paramtool")
TEST_WITHIN = 300  # seconds
SENSITIVITY = "devmng/gsensor:sensitivity"


class PageTest(unittest.TestCase):
    """One browser and one set of pages for all tests."""

    @classmethod
    def setUpClass(cls):
        cls.directory = tempfile.mkdtemp(prefix="paramtool-web-")
        cls.page = cls.report("page.html", products.changed(cls.file("changed")),
                              "--against", products.example(cls.file("example")))
        cls.references_page = cls.report("references.html", products.loose(cls.file("loose")))
        cls.attacks = cls.report("attacks.html", products.hostile(cls.file("hostile")))
        cls.browser = Browser().__enter__()
        cls.driver = cls.browser.driver

    @classmethod
    def tearDownClass(cls):
        cls.browser.__exit__()
        shutil.rmtree(cls.directory)

    @classmethod
    def file(cls, name):
        return os.path.join(cls.directory, name)

    @classmethod
    def report(cls, name, *arguments):
        subprocess.run([PARAMTOOL, "report", *arguments, "-o", cls.file(name)], check=True,
                       stderr=subprocess.DEVNULL)
        return cls.file(name)

    def setUp(self):
        limit(TEST_WITHIN, self.id())

    def tearDown(self):
        """After every test: the page has written nothing to the console and requested nothing."""
        self.assertEqual(self.browser.said(), [])
        for address in self.browser.requests():
            self.assertRegex(address, "^(file:.*[.]html|about:blank|data:,)")
        limit(0, "")

    def open(self, fragment=""):
        self.browser.open(self.page, fragment)

    def find(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def row(self, anchor):
        return self.driver.find_element(By.ID, anchor)

    def shown(self):
        """The anchors of the rows that are not filtered out, in their order."""
        return self.browser.run("""
            return [...document.querySelectorAll("#rows tr[id]")]
              .filter((row) => !row.closest("[hidden]")).map((row) => row.id);""")

    def search(self, text):
        query = self.find("#query")
        query.clear()
        query.send_keys(text)
        self.browser.settle()

    def await_that(self, condition):
        await_that(condition)

    def await_hash(self, text):
        self.await_that(lambda: self.browser.run("return location.hash") == text)

    def press(self, *keys):
        ActionChains(self.driver).send_keys(*keys).perform()

    # The first view

    def test_the_product_comes_first(self):
        self.open()
        self.assertEqual(self.find("h1").text, "RoadView X4")
        self.assertRegex(self.find(".identity").text, r"SHA-256\n?[\s\S]*\b[0-9a-f]{64}\b")
        self.assertIn("1\nwarning", self.find(".figures").text)

    def test_findings_have_their_source_lines(self):
        self.open()
        finding = self.find(".finding")
        self.assertIn("sensitivty_", finding.text)
        self.assertIn("unknown-key", finding.text)
        lines = finding.find_element(By.TAG_NAME, "pre").text.split("\n")
        self.assertRegex(lines[0], r"\d+ \| sensitivty_ = 4$")
        self.assertRegex(lines[1], r"\| \^~{10}$")

    def test_changes_have_old_and_new_values(self):
        self.open()
        text = self.find("#changes").text
        self.assertIn("Changes 2", text)
        row = self.find("#changes tbody tr:last-child")
        self.assertIn(SENSITIVITY, row.text)
        self.assertEqual([cell.text for cell in row.find_elements(By.TAG_NAME, "td")][:3],
                         ["2", "3", "0"])

    def test_every_byte_has_a_row(self):
        self.open()
        self.assertEqual(self.browser.run("""
            let next = 0;
            for (const value of values) {
              if (value.offset !== next || !value.row) { return value.offset; }
              next += value.size;
            }
            return next;"""), 29928)

    def test_it_is_readable_without_its_script(self):
        self.browser.command("Emulation.setScriptExecutionDisabled", value=True)
        try:
            self.open()
            self.assertFalse(self.find("#tools").is_displayed())
            row = self.row(SENSITIVITY)
            self.assertTrue(row.is_displayed())
            self.assertIn("3 2 0 ", row.text.replace("\n", " "))
            self.assertTrue(self.find("#rows thead th").is_displayed())
        finally:
            self.browser.command("Emulation.setScriptExecutionDisabled", value=False)

    # Search, filters, order

    def test_search_takes_every_word(self):
        self.open()
        every = len(self.shown())
        self.assertGreater(every, 4300)
        self.search("gsensor:")
        self.assertEqual(self.shown(), [SENSITIVITY])
        self.assertEqual(self.find("#status").text, f"1 of {every} values")
        self.search("GSENSOR: parking")
        self.assertEqual(self.shown(), [])
        self.assertTrue(self.find("#nothing").is_displayed())
        self.find("#nothing .clear").click()
        self.assertEqual(len(self.shown()), every)

    def test_search_knows_bytes_and_wildcards(self):
        self.open()
        self.search("@24318")
        self.assertEqual(self.shown(), [SENSITIVITY])
        self.search("devmng/*:sens?tivity")
        self.assertEqual(self.shown(), [SENSITIVITY, "devmng/parking:sensitivity"])

    def test_filters(self):
        self.open()
        self.find("#show [value=changed]").find_element(By.XPATH, "..").click()
        self.assertEqual(self.shown(),
                         ["media_common/venc.video.main.h264.cbr:max_qp", SENSITIVITY])
        Select(self.find("#module")).select_by_value("devmng")
        self.await_that(lambda: self.shown() == [SENSITIVITY])
        self.find("#filter .clear").click()
        self.await_that(lambda: len(self.shown()) > 4300)

    def test_headings_go_with_their_rows(self):
        self.open()
        self.search("gsensor:")
        headings = [heading.text for heading in
                    self.driver.find_elements(By.CSS_SELECTOR, "#rows .heading")
                    if heading.is_displayed()]
        self.assertEqual(headings, ["devmng [gsensor]"])

    def test_the_order_is_chosen(self):
        self.open()
        self.find("#show [value=changed]").find_element(By.XPATH, "..").click()
        value = self.find("#order [data-column=Value]")
        value.click()
        self.assertEqual(self.shown(),
                         [SENSITIVITY, "media_common/venc.video.main.h264.cbr:max_qp"])
        value.click()
        self.assertEqual(self.shown(),
                         ["media_common/venc.video.main.h264.cbr:max_qp", SENSITIVITY])
        self.assertIn("falling", value.get_attribute("aria-label"))
        self.assertIn(SENSITIVITY, self.row(SENSITIVITY).text)
        self.find("#order [data-column=Offset]").click()
        self.assertNotIn(SENSITIVITY, self.row(SENSITIVITY).text)

    # Unfolding, links, keys

    def facts(self):
        return self.find("tr.detail").text

    def test_a_value_unfolds_and_folds(self):
        self.open()
        self.search("gsensor:")
        link = self.row(SENSITIVITY).find_element(By.TAG_NAME, "a")
        link.click()
        self.assertEqual(link.get_attribute("aria-expanded"), "true")
        for fact in ["devMng.gsensor.sensitivity", "24316 (0x5efc), 4 bytes", "03000000",
                     "devmng.ini:"]:
            self.assertIn(fact, self.facts())
        link.click()
        self.assertEqual(self.driver.find_elements(By.CSS_SELECTOR, "tr.detail"), [])

    def test_links_lead_to_values(self):
        for fragment in ["#" + SENSITIVITY, "#DEVMNG/Gsensor:Sensitivity", "#gsensor:sensitivity",
                         "#@24318", "#@0x5efc"]:
            with self.subTest(fragment):
                self.open(fragment)
                self.await_that(lambda: self.driver.find_elements(By.CSS_SELECTOR, "tr.detail"))
                self.assertIn("current", self.row(SENSITIVITY).get_attribute("class"))
                self.assertTrue(self.browser.run("""
                    const box = document.querySelector("tr.current").getBoundingClientRect();
                    return box.top > 0 && box.bottom < innerHeight;"""))

    def test_a_link_to_a_hidden_value_shows_it(self):
        self.open()
        self.search("luma")
        self.browser.run("location.hash = arguments[0]", SENSITIVITY)
        self.await_that(lambda: SENSITIVITY in self.shown())
        self.assertEqual(self.find("#query").get_attribute("value"), "")
        time.sleep(0.6)  # a filter becomes part of the link after 0.4 seconds
        self.assertEqual(self.browser.run("return location.hash"), "#" + SENSITIVITY)

    def test_a_filter_is_a_link(self):
        self.open("#?q=sensitivity&module=devmng&show=changed")
        self.assertEqual(self.shown(), [SENSITIVITY])
        self.search("max_qp")
        self.await_hash("#?q=max_qp&module=devmng&show=changed")

    def test_the_back_button_returns(self):
        self.open()
        self.find("#changes a[href='#@24316']").click()
        self.await_that(lambda: self.driver.find_elements(By.CSS_SELECTOR, "tr.detail"))
        self.find("tr.detail a[href='#map@24316']").click()
        self.await_that(lambda: self.find("#map").is_displayed())
        self.driver.back()
        self.await_that(lambda: self.find("#report").is_displayed())
        self.await_hash("#@24316")

    def test_a_finding_leads_to_its_value_and_back(self):
        self.open("#finding-0")
        self.await_that(lambda: self.find(".finding:target").is_displayed())

    def test_the_keyboard_does_it_all(self):
        self.open()
        self.press("/", "sensitivity devmng")
        self.press(Keys.ARROW_DOWN)
        self.press(Keys.ARROW_DOWN)
        self.press(Keys.ARROW_UP)
        self.press(Keys.ENTER)
        self.assertIn("devMng.gsensor.sensitivity", self.facts())
        self.press("m")
        self.await_that(lambda: self.find("#map").is_displayed())
        self.assertIn(SENSITIVITY, self.find("#under").text)
        self.press(Keys.ARROW_RIGHT)
        self.assertIn("devmng/parking:sensitivity", self.find("#under").text)
        self.press(Keys.ENTER)
        self.await_hash("#devmng/parking:sensitivity")
        self.press(Keys.ESCAPE)
        self.press(Keys.ESCAPE)
        self.assertEqual(self.find("#query").get_attribute("value"), "")

    def test_keys_reach_rows_that_a_search_has_just_brought_back(self):
        self.open()
        self.search("gsensor:")
        self.press(Keys.ESCAPE)
        self.browser.settle()
        self.browser.run("clearTimeout(releasing)")  # as if the keys came at once
        self.press(Keys.ARROW_DOWN, *[Keys.PAGE_DOWN] * 5)
        self.assertEqual(self.browser.run("""
            const row = document.activeElement.closest("tr");
            const box = row.getBoundingClientRect();
            return [values.findIndex((value) => value.row === row), box.top > 0 && box.bottom < innerHeight];
            """), [75, True])
        self.assertEqual(self.driver.find_elements(By.CSS_SELECTOR, ".later"), [])

    # Views

    def test_the_map_names_what_lies_under_the_pointer(self):
        self.open("#map")
        canvas = self.find("#map-canvas")
        place = self.browser.run("""
            const [x, y] = runsOf(valueAt(24316))[0];
            const box = document.getElementById("map-canvas");
            box.scrollIntoView({block: "end"});
            frame.scrollTop = y;
            return [x - box.width / 2 + 3, y - box.height / 2 + 2];""")
        chain = ActionChains(self.driver).move_to_element_with_offset(canvas, *map(int, place))
        chain.perform()
        self.assertIn("devmng/gsensor:sensitivity = 3", self.find("#under").text)
        self.assertIn("changed", self.find("#under").text)
        chain.click().perform()
        self.await_hash("#" + SENSITIVITY)
        self.assertTrue(self.row(SENSITIVITY).is_displayed())

    def test_the_map_is_coloured_and_zooms(self):
        self.open("#map")
        pixel = """
            const [x, y] = runsOf(valueAt(arguments[0]))[0];
            return [...document.getElementById("map-canvas").getContext("2d")
              .getImageData(x + 2, y + 2, 1, 1).data].join();"""
        by_state = [self.browser.run(pixel, offset) for offset in (24316, 24320, 8)]
        self.assertEqual(len(set(by_state)), 3)
        self.find("#colouring [value=part]").find_element(By.XPATH, "..").click()
        by_part = [self.browser.run(pixel, offset) for offset in (24316, 24320, 22480)]
        self.assertEqual(by_part[0], by_part[1])
        self.assertNotEqual(by_part[0], by_part[2])
        width = self.browser.run("return document.getElementById('map-canvas').width")
        self.find("#zoom-in").click()
        self.assertEqual(self.browser.run("return document.getElementById('map-canvas').width"),
                         2 * width)
        self.assertEqual(self.find("#zoom").text, "2×")
        self.browser.said()  # the browser's advice on reading pixels, which only this test does

    def test_media_modes_stand_side_by_side(self):
        self.open("#modes")
        titles = [cell.text for cell in
                  self.driver.find_elements(By.CSS_SELECTOR, "#modes-table thead th")]
        self.assertEqual(titles, ["Member", "0: 2160P_30", "1: 1440P_30_WDR", "2: 1080P_60",
                                  "3: 1080P_30", "4: PHOTO_2160P"])
        differing = len(self.driver.find_elements(By.CSS_SELECTOR, "#modes-table tbody tr"))
        self.find("#only-differences").click()
        every = len(self.driver.find_elements(By.CSS_SELECTOR, "#modes-table tbody tr"))
        self.assertLess(differing, every)
        self.find("#modes-query").send_keys("mediamode")
        self.assertIn("\n30", self.find("#modes-table tbody tr").text)

    # References

    PORT = "cam0_comm_record/vpss.0.vport.1:vporthdl"
    ENCODER = "cam0_comm_record/venc.1:chnhdl_0"

    def references(self):
        """What names what: the links of each row."""
        return [tuple(link.get_attribute("hash")[1:] for link in row.find_elements(By.TAG_NAME, "a"))
                for row in self.driver.find_elements(
                    By.CSS_SELECTOR, "#references-table tr:not(.heading):has(a)")]

    def test_references_stand_below_their_reasons(self):
        self.open("#references")
        every = self.find("#references-status").text.split()
        self.assertEqual(every[0], every[2])
        self.find("#references-query").send_keys("processing record/venc.1:")
        self.browser.settle()
        self.assertEqual(self.references(), [
            ("cam0_comm_record/venc.1:modhdl_0", "cam0_comm_record/vpss.0:vpsshdl"),
            (self.ENCODER, self.PORT)])
        self.assertEqual(self.find("#references-table .heading").text,
                         "An encoder takes its pictures from a port of a processing group 2")
        self.find("#references-query").send_keys(" nothing at all")
        self.browser.settle()
        self.assertIn("No reference matches", self.find("#references-table").text)

    def test_references_lead_there_and_back(self):
        self.open("#references")
        self.driver.find_element(By.LINK_TEXT, self.ENCODER).click()
        self.await_hash("#" + self.ENCODER)
        self.assertIn("Refers to", self.facts())
        self.find(f"tr.detail a[href='#{self.PORT}']").click()
        self.await_hash("#" + self.PORT)
        self.await_that(lambda: len(self.driver.find_elements(By.CSS_SELECTOR, "tr.detail")) == 2)
        detail = self.driver.find_element(By.CSS_SELECTOR, "tr.current + tr.detail")
        self.assertIn("Referred to by", detail.text)
        detail.find_element(By.CSS_SELECTOR, f"a[href='#{self.ENCODER}']").click()
        self.await_hash("#" + self.ENCODER)

    def test_handles_that_nothing_has_and_switched_off_ones_name_nothing(self):
        self.browser.open(self.references_page, "#references")
        self.find("#references-query").send_keys("workmode_record/photosource.0:")
        self.browser.settle()
        named = dict(self.references())
        self.assertEqual(named["workmode_record/photosource.0:vpsshdl"],
                         "cam0_comm_record/vpss.0:vpsshdl")
        self.assertNotIn("workmode_record/photosource.0:venchdl", named)        # no encoder has it
        self.assertNotIn("workmode_record/photosource.0:thumbnail_hdl", named)  # it is off
        self.assertNotIn("workmode_record/photosource.0:pipechnhdl", named)     # -1

    # Attacks

    def test_texts_of_the_input_stay_texts(self):
        self.browser.open(self.attacks)
        for view in ["report", "modes", "references", "map"]:
            self.browser.run("location.hash = arguments[0]", view)
            self.await_that(lambda: self.find("#" + view).is_displayed())
        self.browser.run("location.hash = ''")
        self.await_that(lambda: self.find("#report").is_displayed())
        self.assertEqual(self.find("h1").text, "<script>attacked=1</script>")
        self.browser.run("values.filter(({module}) => /devmng|filemng/.test(module)).forEach(unfold);")
        self.assertIsNone(self.browser.run("return window.attacked"))
        self.assertEqual(self.browser.run("return document.querySelectorAll('img, b:not(.figures b, "
                                          "#show b, #legend b)').length"), 0)
        self.assertEqual(self.browser.run("return document.scripts.length"), 2)
        text = self.browser.run("return document.getElementById('report').textContent")
        self.assertIn("</td><img src=x onerror=attacked=1>", text)
        self.assertIn("<U+202E><U+001B>[2J{{constructor}}", text)

    def test_the_policy_stops_what_is_not_its_own(self):
        self.open()
        self.browser.run("""
            const script = document.createElement("script");
            script.textContent = "window.attacked = 1";
            document.body.append(script);""")
        self.assertIsNone(self.browser.run("return window.attacked"))
        self.assertIn("Content Security Policy", " ".join(self.browser.said()))

    # Looks

    def test_it_follows_the_system_into_the_dark(self):
        colours = []
        for scheme in ["light", "dark"]:
            self.browser.colours(scheme)
            self.open()
            colours.append(self.browser.run("return getComputedStyle(document.body).backgroundColor"))
        self.assertEqual(colours, ["rgb(255, 255, 255)", "rgb(20, 24, 30)"])
        self.browser.colours("light")

    def test_print_has_neither_tools_nor_views(self):
        self.open("#?q=gsensor")
        self.browser.command("Emulation.setEmulatedMedia", media="print")
        try:
            self.assertFalse(self.find("#tools").is_displayed())
            self.assertFalse(self.find("#views").is_displayed())
            self.assertTrue(self.row(SENSITIVITY).is_displayed())
        finally:
            self.browser.command("Emulation.setEmulatedMedia", media="")

    def test_it_is_read_on_a_narrow_screen(self):
        self.browser.command("Emulation.setDeviceMetricsOverride", width=400, height=800,
                             deviceScaleFactor=1, mobile=False)
        try:
            self.open("#" + SENSITIVITY)
            self.assertLessEqual(self.browser.run("return document.documentElement.scrollWidth"),
                                 400)
        finally:
            self.browser.command("Emulation.clearDeviceMetricsOverride")

    def test_the_same_input_gives_the_same_file(self):
        again = self.report("again.html", self.file("changed"), "--against", self.file("example"))
        with open(self.page, "rb") as first, open(again, "rb") as second:
            self.assertEqual(first.read(), second.read())


if __name__ == "__main__":
    unittest.main()
