// Accessibility of the browser help in headless Chromium. axe-core checks
// every page of the help folder SCRIVANT_HELP_FOLDER against the rules of
// WCAG 2 (A and AA): the entry page with each of its panes, the panes on
// their own, and every topic both inside the entry page and on its own. Any
// serious or critical violation fails; the pages checked are printed. Then a
// reader without a mouse walks the help: the contents tree, the search and
// the index, from the keyboard alone.
import { after, before, describe, test } from "node:test";
import assert from "node:assert/strict";
import { mkdtemp, readFile, rm } from "node:fs/promises";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import http from "node:http";
import os from "node:os";
import path from "node:path";
import { pathToFileURL } from "node:url";
import vm from "node:vm";
import { chromium } from "playwright-core";

const folder = process.env.SCRIVANT_HELP_FOLDER;
if (!folder)
    throw new Error("SCRIVANT_HELP_FOLDER must name the help folder under test");
const TIMEOUT = 10000;
const AXE_SOURCE = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
const AXE_OPTIONS = {
    runOnly: { type: "tag", values: ["wcag2a", "wcag2aa"] },
    resultTypes: ["violations"],
    // Each frame is checked as a page of its own.
    iframes: false,
};
const FAILING_IMPACTS = new Set(["serious", "critical"]);
const CONTENT_TYPES = {
    ".htm": "text/html",
    ".html": "text/html",
    ".js": "text/javascript",
    ".css": "text/css",
    ".svg": "image/svg+xml",
    ".jpg": "image/jpeg",
    ".gif": "image/gif",
    ".png": "image/png",
    ".bmp": "image/bmp",
};

let userDataDir;
let context;
let page;
let server;
let baseUrl;
const checked = [];
const failures = [];
const notes = [];

// Serves the help folder read-only on 127.0.0.1, on a free port.
function serveFolder(root) {
    const base = path.resolve(root);
    const httpServer = http.createServer(async (request, response) => {
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
    return new Promise((resolve) => httpServer.listen(0, "127.0.0.1", () => resolve(httpServer)));
}

function loadSearchIndex() {
    const sandbox = {};
    vm.runInNewContext(readFileSync(path.join(folder, "ss_index.js"), "utf8"), sandbox);
    return sandbox.ssIndex;
}

function fileOf(href) {
    return decodeURIComponent(href.split("#")[0]);
}

// The topics of the help: the root page, and every page that the contents
// tree, the index and the search index lead to.
function topicFiles() {
    const files = new Set();
    const main = readFileSync(path.join(folder, "main.htm"), "utf8");
    const root = /id="right"[^>]*\ssrc="([^"]+)"/.exec(main);
    if (root)
        files.add(fileOf(root[1]));
    for (const frame of ["hh_toc_java.htm", "hh_index_java.htm"]) {
        const text = readFileSync(path.join(folder, frame), "utf8");
        for (const match of text.matchAll(/(?:href|value)="([^"#]+\.html?)(?:#[^"]*)?"/gi))
            files.add(fileOf(match[1]));
    }
    for (const entry of loadSearchIndex().pages)
        files.add(fileOf(entry.f));
    return [...files].sort();
}

function frame(name) {
    const found = page.frame({ name });
    assert.ok(found, `the frame "${name}" exists`);
    return found;
}

// Runs axe-core in a frame (or the page's main frame) once it has reached
// loadState, and records what it finds under label.
async function check(label, target, loadState = "load") {
    await target.waitForLoadState(loadState);
    if (!(await target.evaluate(() => typeof window.axe === "object")))
        await target.evaluate(AXE_SOURCE);
    const result = await target.evaluate((options) => window.axe.run(document, options), AXE_OPTIONS);
    checked.push(label);
    for (const violation of result.violations) {
        const where = violation.nodes.slice(0, 3).map((node) => node.target.join(" ")).join("; ");
        const line = `${label}: ${violation.impact} ${violation.id} (${violation.help}) at ${where}`;
        (FAILING_IMPACTS.has(violation.impact) ? failures : notes).push(line);
    }
}

function assertNoSeriousViolations(since) {
    const found = failures.slice(since);
    assert.deepEqual(found, [], `serious or critical violations:\n${found.join("\n")}`);
}

async function openEntryPage(urlOf, topic) {
    const argument = topic ? `?"${urlOf(topic)}"` : "";
    await page.goto(urlOf("main.htm") + argument);
    await frame("contents").locator("#tree [role=treeitem]").first().waitFor();
    if (topic) {
        const right = frame("right");
        await right.waitForURL((url) => decodeURIComponent(url.pathname).endsWith("/" + topic), { timeout: TIMEOUT });
        await right.waitForLoadState("load");
    }
}

async function showTab(id, frameName) {
    await page.locator(`#${id}`).click();
    const pane = frame(frameName);
    await pane.waitForURL((url) => url.protocol !== "about:", { timeout: TIMEOUT });
    await pane.waitForLoadState("load");
    return pane;
}

// A word of one topic only that no other word begins with, found in the
// topic's title or first lines.
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

before(async () => {
    userDataDir = await mkdtemp(path.join(os.tmpdir(), "scrivant-a11y-"));
    context = await chromium.launchPersistentContext(userDataDir, {
        executablePath: process.env.CHROMIUM_PATH || "/usr/bin/chromium",
        headless: true,
        args: [
            "--headless",
            "--no-sandbox",
            "--disable-gpu",
            "--disable-quic",
            "--no-first-run",
            "--disable-background-networking",
            "--disable-component-update",
            "--disable-sync",
        ],
    });
    page = context.pages()[0] || (await context.newPage());
    page.setDefaultTimeout(TIMEOUT);
    server = await serveFolder(folder);
    baseUrl = `http://127.0.0.1:${server.address().port}/`;
});

after(async () => {
    await context?.close();
    server?.closeAllConnections();
    server?.close();
    if (userDataDir)
        await rm(userDataDir, { recursive: true, force: true });
    if (checked.length)
        console.log(`axe-core checked ${checked.length} pages:\n  ${checked.join("\n  ")}`);
    if (notes.length)
        console.log(`moderate or minor findings (not failures):\n  ${notes.join("\n  ")}`);
});

const httpUrl = (name) => baseUrl + encodeURIComponent(name);

describe("axe-core finds no serious or critical violation", () => {
    test("in the entry page and each of its panes", async () => {
        const since = failures.length;
        await openEntryPage(httpUrl);
        await check("main.htm", page.mainFrame());
        const contents = frame("contents");
        await check("main.htm > contents (hh_toc_java.htm)", contents);

        // Every book open and a topic chosen: the states of the tree are checked too.
        const closed = contents.locator("#tree li.folder.collapsed > .toggle");
        for (let guard = 0; (await closed.count()) > 0 && guard < 500; guard++)
            await closed.first().click();
        await contents.locator("#tree [role=treeitem]").last().click();
        await check("main.htm > contents, every book open, a topic chosen", contents);

        const index = await showTab("tabIndex", "index");
        await check("main.htm > index (hh_index_java.htm)", index);

        const search = await showTab("tabSearch", "search");
        await check("main.htm > search (ss.html)", search);
        await search.locator("input[name=s]").fill(searchWord(loadSearchIndex()));
        await search.locator("input[name=s]").press("Enter");
        await search.locator("#ssResults a").first().waitFor();
        await search.locator("#ssStatus").filter({ hasText: /\S/ }).waitFor();
        await check("main.htm > search, with its results", search);
        assertNoSeriousViolations(since);
    });

    test("in the panes opened on their own", async () => {
        const since = failures.length;
        for (const name of ["hh_toc_java.htm", "hh_index_java.htm", "ss.html"]) {
            await page.goto(httpUrl(name));
            await check(name, page.mainFrame());
        }
        assertNoSeriousViolations(since);
    });

    test("in every topic shown in the entry page", async () => {
        const since = failures.length;
        const topics = topicFiles();
        assert.ok(topics.length > 1, "the help has topics");
        for (const topic of topics) {
            await openEntryPage(httpUrl, topic);
            await check(`main.htm > ${topic}`, frame("right"));
        }
        assertNoSeriousViolations(since);
    });

    test("in every topic opened on its own", async () => {
        const since = failures.length;
        // A topic opened alone sends the browser to the entry page; here that
        // navigation is turned away and the topic stays. (Playwright follows
        // the turned-away navigation, so the topic's own loading is watched
        // in the page.)
        await page.route((url) => url.pathname.endsWith("/main.htm"), (route) => route.abort("aborted"));
        try {
            for (const topic of topicFiles()) {
                await page.goto(httpUrl(topic), { waitUntil: "commit" });
                await page.waitForFunction(() => document.readyState === "complete");
                assert.equal(decodeURIComponent(new URL(page.url()).pathname), "/" + topic);
                await check(topic, page.mainFrame(), "commit");
            }
        } finally {
            await page.unrouteAll();
        }
        assertNoSeriousViolations(since);
    });
});

// --- the keyboard alone ---

// What has the keyboard in a frame: its role, name and text, whether the
// frame's document has the focus, and whether the focus shows.
async function focusIn(target) {
    return target.evaluate(() => {
        const active = document.activeElement;
        const style = active ? getComputedStyle(active) : null;
        return {
            hasFocus: document.hasFocus(),
            tag: active?.tagName,
            role: active?.getAttribute("role"),
            name: active?.getAttribute("name"),
            id: active?.id,
            text: active?.textContent.trim(),
            href: active?.getAttribute("href"),
            outline: style ? style.outlineStyle !== "none" && parseFloat(style.outlineWidth) > 0 : false,
        };
    });
}

// Presses Tab until test(focus in target) holds; fails after limit presses.
async function tabUntil(target, wanted, limit, what) {
    for (let presses = 1; presses <= limit; presses++) {
        await page.keyboard.press("Tab");
        const focus = await focusIn(target);
        if (focus.hasFocus && wanted(focus))
            return presses;
    }
    assert.fail(`${limit} presses of Tab do not reach ${what}`);
}

async function topicFrameShows(fileName) {
    const right = frame("right");
    await right.waitForURL((url) => decodeURIComponent(url.pathname).endsWith("/" + fileName), { timeout: TIMEOUT });
    await right.waitForLoadState("load");
}

async function emptyTopicFrame() {
    const right = frame("right");
    await right.waitForLoadState("load");
    await right.goto("about:blank");
}

// The topic of a form that the tree lists last: a page that names its form.
function formTopicOfTree() {
    const tree = readFileSync(path.join(folder, "hh_toc_java.htm"), "utf8");
    const hrefs = [...tree.matchAll(/href="([^"#]+)"/g)].map((match) => fileOf(match[1]));
    const forms = hrefs.filter((href) =>
        /<meta name="SCRIVANT-FORM-NAME" content="[^"]+"/i.test(readFileSync(path.join(folder, href), "utf8")));
    assert.ok(forms.length > 0, "the tree lists the topic of a form");
    return forms[forms.length - 1];
}

// The arrow keys that open and close, or go to the next and previous tab:
// mirrored in a right-to-left language.
async function arrowsOf(target, selector) {
    const rtl = await target.evaluate((s) => getComputedStyle(document.querySelector(s)).direction === "rtl", selector);
    return rtl ? { forward: "ArrowLeft", back: "ArrowRight" } : { forward: "ArrowRight", back: "ArrowLeft" };
}

async function treeState(contents) {
    return contents.evaluate(() => {
        const items = [...document.querySelectorAll("#tree [role=treeitem]")];
        return {
            tabStops: items.filter((item) => item.tabIndex === 0).length,
            selected: items.filter((item) => item.getAttribute("aria-selected") === "true").map((item) => item.getAttribute("href")),
        };
    });
}

function keyboardTests(origin) {
    let urlOf;

    before(() => {
        urlOf = origin === "file" ? (name) => pathToFileURL(path.join(folder, name)).href : httpUrl;
    });

    test("Tab reaches the contents tree, the arrows a form's topic, and Enter opens it", async () => {
        const target = formTopicOfTree();
        await openEntryPage(urlOf);
        const contents = frame("contents");
        await emptyTopicFrame();
        await tabUntil(contents, (focus) => focus.role === "treeitem", 5, "the contents tree");
        const arrows = await arrowsOf(contents, "#tree");
        assert.equal((await treeState(contents)).tabStops, 1, "the tree is one stop in the tab order");

        // Down along the tree; Right opens the book that holds the target and enters it.
        let focus = await focusIn(contents);
        for (let steps = 0; fileOf(focus.href) !== target; steps++) {
            assert.ok(steps < 200, `the arrows do not reach ${target}`);
            const book = await contents.evaluate((href) => {
                const item = document.activeElement;
                const group = item.getAttribute("aria-owns") && document.getElementById(item.getAttribute("aria-owns"));
                const holds = !!group && !!group.querySelector(`a[href="${href}"], a[href^="${href}#"]`);
                return { holds, open: item.getAttribute("aria-expanded") === "true" };
            }, target);
            if (book.holds && !book.open) {
                await page.keyboard.press(arrows.forward);
                assert.equal(await contents.evaluate(() => document.activeElement.getAttribute("aria-expanded")), "true");
            }
            await page.keyboard.press(book.holds ? arrows.forward : "ArrowDown");
            focus = await focusIn(contents);
            assert.equal(focus.role, "treeitem");
            assert.ok(focus.outline, `the focus shows on "${focus.text}"`);
            assert.equal((await treeState(contents)).tabStops, 1);
        }
        await page.keyboard.press("Enter");
        await topicFrameShows(target);
        assert.deepEqual((await treeState(contents)).selected.map(fileOf), [target]);

        // Left goes up to the book, and then closes it; End and Home reach the ends.
        await page.keyboard.press(arrows.back);
        const book = await focusIn(contents);
        assert.equal(await contents.evaluate(() => document.activeElement.getAttribute("aria-expanded")), "true");
        await page.keyboard.press(arrows.back);
        assert.equal(await contents.evaluate(() => document.activeElement.getAttribute("aria-expanded")), "false");
        assert.equal((await focusIn(contents)).text, book.text);
        await page.keyboard.press("End");
        const last = await contents.evaluate(() => {
            const visible = [...document.querySelectorAll("#tree [role=treeitem]")].filter((item) => item.getClientRects().length);
            return visible[visible.length - 1].textContent.trim();
        });
        assert.equal((await focusIn(contents)).text, last);
        await page.keyboard.press("Home");
        assert.equal((await focusIn(contents)).text,
            await contents.evaluate(() => document.querySelector("#tree [role=treeitem]").textContent.trim()));
    });

    test("the search field finds a word and Enter opens the hit", async () => {
        const index = loadSearchIndex();
        const word = searchWord(index);
        const expected = fileOf(index.pages[index.words[word][0]].f);
        await openEntryPage(urlOf);
        await tabUntil(page.mainFrame(), (focus) => focus.role === "tab", 3, "the tabs");
        await page.keyboard.press("End");
        assert.equal(await page.locator("#tabSearch").getAttribute("aria-selected"), "true");
        assert.ok((await focusIn(page.mainFrame())).outline, "the focus shows on the tab");
        await frame("search").waitForURL((url) => url.protocol !== "about:", { timeout: TIMEOUT });
        const search = frame("search");
        await search.waitForLoadState("load");
        await emptyTopicFrame();

        await tabUntil(search, (focus) => focus.name === "s", 3, "the search field");
        await page.keyboard.type(word);
        await page.keyboard.press("Enter");
        const status = search.locator("#ssStatus");
        assert.equal(await status.getAttribute("aria-live"), "polite");
        await status.filter({ hasText: /\S/ }).waitFor();
        assert.equal((await status.innerText()).trim(), await status.getAttribute("data-one"));
        assert.equal(await search.locator("#ssResults a").count(), 1);

        await page.keyboard.press("ArrowDown");
        const hit = await focusIn(search);
        assert.equal(fileOf(hit.href), expected);
        assert.ok(hit.outline, "the focus shows on the hit");
        await page.keyboard.press("Enter");
        await topicFrameShows(expected);
    });

    test("the index filters by what is typed and Enter opens the keyword", async () => {
        await openEntryPage(urlOf);
        await tabUntil(page.mainFrame(), (focus) => focus.role === "tab", 3, "the tabs");
        await page.keyboard.press((await arrowsOf(page.mainFrame(), "[role=tablist]")).forward);
        assert.equal(await page.locator("#tabIndex").getAttribute("aria-selected"), "true");
        const index = frame("index");
        await index.waitForURL((url) => url.protocol !== "about:", { timeout: TIMEOUT });
        await index.waitForLoadState("load");
        const keywords = index.locator("#indexList a");
        await keywords.first().waitFor();
        const last = keywords.last();
        const caption = (await last.innerText()).trim();
        const href = fileOf(await last.getAttribute("href"));
        await emptyTopicFrame();

        await tabUntil(index, (focus) => focus.id === "indexFilter", 3, "the keyword field");
        await page.keyboard.type(caption);
        await page.keyboard.press("ArrowDown");
        let focus = await focusIn(index);
        assert.equal(focus.tag, "A");
        assert.ok(focus.outline, "the focus shows on the keyword");
        while (focus.text !== caption) {
            const before = focus.text;
            await page.keyboard.press("ArrowDown");
            focus = await focusIn(index);
            assert.notEqual(focus.text, before, `the arrows do not reach "${caption}"`);
        }
        await page.keyboard.press("Enter");
        await topicFrameShows(href);
    });
}

describe("from the keyboard alone, from the folder", () => keyboardTests("file"));
describe("from the keyboard alone, from a web server", () => keyboardTests("http"));
