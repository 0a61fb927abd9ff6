"""Headless Chromium on local files: what their links resolve to, and what they request."""

import json

from harness import private_network

try:
    from selenium import webdriver
    from selenium.webdriver.chrome.options import Options
    from selenium.webdriver.chrome.service import Service
except ImportError as fault:
    private_network.skip(str(fault))

DRIVER = "/usr/bin/chromedriver"

# For every link of the page: the attribute as written, and the address that a click or load would use.
COLLECT_LINKS = """
const found = [];
for (const [selector, name] of [['a[href], area[href], link[href]', 'href'],
                                ['img[src], script[src], frame[src], iframe[src]', 'src']])
    for (const element of document.querySelectorAll(selector))
        found.push([element.getAttribute(name), element[name]]);
return found;
"""

QUIET = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
         "--disable-background-networking", "--disable-component-update", "--disable-sync",
         "--disable-dev-shm-usage", "--no-default-browser-check"]


class Browser:
    def __init__(self, user_data):
        options = Options()
        for word in [*QUIET, f"--user-data-dir={user_data}"]:
            options.add_argument(word)
        options.set_capability("goog:loggingPrefs", {"performance": "ALL"})
        self.driver = webdriver.Chrome(service=Service(DRIVER), options=options)
        self.driver.set_page_load_timeout(30)
        self.driver.get("about:blank")
        self.driver.get_log("performance")  # of the browser's own first page
        self.requested = set()

    def links(self, file):
        """Opens a file and returns (attribute, address) for each of its links."""
        self.driver.get("file://" + file)
        links = self.driver.execute_script(COLLECT_LINKS)
        self.note_requests()
        return [(written, address) for written, address in links if isinstance(address, str)]

    def note_requests(self):
        for entry in self.driver.get_log("performance"):
            message = json.loads(entry["message"])["message"]
            if message["method"] in ("Network.requestWillBeSent", "Network.webSocketCreated"):
                parameters = message["params"]
                self.requested.add(parameters.get("request", parameters)["url"])

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.driver.quit()
