// The browser help in headless Chromium, opened as a reader would open it,
// straight from the folder (file://) and from a web server on the loopback
// address: the contents tree, the index, the site search and a topic opened
// on its own. SCRIVANT_HELP_FOLDER names the help folder under test;
// SCRIVANT_SEARCH_WORD may name the word to search for (else one that stands
// in a single topic is taken from the search index).
import { after, before, describe, test } from "node:test";
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { readFileSync } from "node:fs";
import http from "node:http";
import path from "node:path";
import { pathToFileURL } from "node:url";
import vm from "node:vm";
import { chromium } from "playwright-core";

const folder = process.env.SCRIVANT_HELP_FOLDER;
if (!folder)
    throw new Error("SCRIVANT_HELP_FOLDER must name the help folder under test");
const TIMEOUT = 10000;
const CONTENT_TYPES = {
    ".htm": "text/html",
    ".html": "text/html",
    ".js": "text/javascript",
    ".css": "text/css",
    ".svg": "image/svg+xml",
    ".jpg": "image/jpeg",
    ".gif": "image/gif",
    ".png": "image/png",
};

let browser;
let page;

// Serves the help folder read-only on 127.0.0.1, on a free port.
function serveFolder(root) {
    const base = path.resolve(root);
    const server = http.createServer(async (request, response) => {
        const pathname = decodeURIComponent(new URL(request.url, "http://localhost").pathname);
        const file = path.join(base, pathname);
        if (!file.startsWith(base + path.sep)) {
            response.writeHead(403).end();
            return;
        }
        try {
            const body = await readFile(file);
            const type = CONTENT_TYPES[path.extname(file).toLowerCase()] || "application/octet-stream";
            response.writeHead(200, { "Content-Type": type }).end(body);
        } catch {
            response.writeHead(404).end();
        }
    });
    return new Promise((resolve) => server.listen(0, "127.0.0.1", () => resolve(server)));
}

function loadSearchIndex() {
    const context = {};
    vm.runInNewContext(readFileSync(path.join(folder, "ss_index.js"), "utf8"), context);
    return context.ssIndex;
}

// A word of one topic only that no other word of the index begins with (the
// search also finds words by their beginning), and that the topic shows in
// its title or first lines.
function searchWord(index) {
    if (process.env.SCRIVANT_SEARCH_WORD)
        return process.env.SCRIVANT_SEARCH_WORD.toLowerCase();
    const words = Object.keys(index.words);
    const candidate = words.find((word) => {
        const pages = index.words[word];
        if (pages.length !== 1 || word.length < 5 || /\d/.test(word))
            return false;
        if (words.some((other) => other !== word && other.startsWith(word)))
            return false;
        const entry = index.pages[pages[0]];
        return `${entry.t} ${entry.s}`.toLowerCase().includes(word);
    });
    assert.ok(candidate, "the search index has no word that stands in one topic only");
    return candidate;
}

function frame(name) {
    const found = page.frame({ name });
    assert.ok(found, `the frame "${name}" exists`);
    return found;
}

// Empties the topic frame, so that only a navigation made afterwards can show a topic there.
async function clearTopic() {
    const topic = frame("right");
    await topic.waitForLoadState("load");
    await topic.goto("about:blank");
}

async function topicUrlEndsWith(fileName) {
    const topic = frame("right");
    await topic.waitForURL((url) => decodeURIComponent(url.pathname).endsWith("/" + fileName), { timeout: TIMEOUT });
    await topic.waitForLoadState("load");
    return topic;
}

before(async () => {
    browser = await chromium.launch({
        executablePath: process.env.CHROMIUM_PATH || "/usr/bin/chromium",
        args: ["--no-sandbox"],
    });
    page = await browser.newPage();
    page.setDefaultTimeout(TIMEOUT);
});

after(async () => {
    await browser?.close();
});

function browserHelpTests(origin) {
    let server;
    let urlOf;

    before(async () => {
        if (origin === "file") {
            urlOf = (name) => pathToFileURL(path.join(folder, name)).href;
            return;
        }
        server = await serveFolder(folder);
        const base = `http://127.0.0.1:${server.address().port}/`;
        urlOf = (name) => base + encodeURIComponent(name);
    });

    after(() => {
        server?.closeAllConnections();
        server?.close();
    });

    test("the entry page shows the contents tree and the root topic", async () => {
        await page.goto(urlOf("main.htm"));
        const contents = frame("contents");
        await contents.locator("#tree li").first().waitFor({ state: "visible" });
        assert.ok(await contents.locator("#tree > li").count() > 0);
        const rootPage = await page.locator("#right").getAttribute("src");
        await topicUrlEndsWith(rootPage);
    });

    test("a click on an entry of the tree opens its topic on the right", async () => {
        await page.goto(urlOf("main.htm"));
        const contents = frame("contents");
        const entries = contents.locator("#tree li > a:visible");
        await entries.first().waitFor();
        const last = entries.last();
        const href = (await last.getAttribute("href")).split("#")[0];
        await clearTopic();
        await last.click();
        const topic = await topicUrlEndsWith(href);
        assert.ok((await topic.locator("body").innerText()).trim().length > 0, "the topic shows text");
        assert.equal(page.url(), urlOf("main.htm"), "the entry page stays");
    });

    test("a book of the tree opens and closes", async () => {
        await page.goto(urlOf("main.htm"));
        const contents = frame("contents");
        const folderItem = contents.locator("#tree li.folder").first();
        assert.ok(await folderItem.count() > 0, "the tree has a book");
        const sublist = folderItem.locator(":scope > ul");
        const toggle = folderItem.locator(":scope > .toggle");
        const wasOpen = await sublist.isVisible();
        await toggle.click();
        assert.equal(await sublist.isVisible(), !wasOpen);
        await toggle.click();
        assert.equal(await sublist.isVisible(), wasOpen);
    });

    test("the search finds a word of one topic and opens that topic", async () => {
        const index = loadSearchIndex();
        const word = searchWord(index);
        const expected = index.pages[index.words[word][0]].f;

        await page.goto(urlOf("main.htm"));
        await page.locator("#tabSearch").click();
        const search = frame("search");
        const input = search.locator("input[name=s]");
        await input.fill(word);
        await input.press("Enter");
        const hits = search.locator("#ssResults a");
        await hits.first().waitFor();
        assert.equal(await hits.count(), 1, `one topic holds "${word}"`);
        assert.equal(await hits.first().getAttribute("href"), expected);

        await clearTopic();
        await hits.first().click();
        const topic = await topicUrlEndsWith(expected);
        const text = (await topic.locator("body").innerText()).toLowerCase();
        assert.ok(text.includes(word), `the topic shows "${word}"`);
    });

    test("the index lists the keywords and opens the chosen one", async () => {
        await page.goto(urlOf("main.htm"));
        await page.locator("#tabIndex").click();
        const index = frame("index");
        const links = index.locator("#indexList a");
        await links.first().waitFor();
        assert.equal(await links.count(), await index.locator("#indexOptions option").count());
        assert.equal(await index.locator("#indexOptions").isVisible(), false);

        const last = links.last();
        const caption = (await last.innerText()).trim();
        const href = (await last.getAttribute("href")).split("#")[0];
        await index.locator("#indexFilter").fill(caption);
        assert.ok(await index.locator("#indexList a:visible").count() >= 1);
        await clearTopic();
        await index.locator("#indexFilter").press("Enter");
        await topicUrlEndsWith(href);
    });

    test("a topic opened on its own is shown inside the entry page", async () => {
        const fileName = loadSearchIndex().pages[0].f;
        const topicUrl = urlOf(fileName);
        await page.goto(topicUrl);
        await page.waitForURL((url) => url.pathname.endsWith("/main.htm"), { timeout: TIMEOUT });
        assert.equal(decodeURIComponent(new URL(page.url()).search), `?"${topicUrl}"`);
        const topic = await topicUrlEndsWith(fileName);
        assert.equal(topic.url(), topicUrl);
    });
}

describe("from the folder", () => browserHelpTests("file"));
describe("from a web server", () => browserHelpTests("http"));
