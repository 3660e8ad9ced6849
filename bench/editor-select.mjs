// Times the Help Editor of the studio in headless Chromium: from a click on a
// topic of the contents tree to its page shown, ready to be edited. The
// studio runs on a help project given by its .svp; the topics are those
// below the first group of the tree (the forms list). Prints the fastest,
// median and slowest times in milliseconds.
// Usage: node bench/editor-select.mjs PROGRAM DATA_FOLDER PROJECT.svp [ROUNDS]
import { spawn } from "node:child_process";
import path from "node:path";
import { fileURLToPath } from "node:url";

const here = path.dirname(fileURLToPath(import.meta.url));
const { chromium } = await import(path.join(here, "../tests/e2e/node_modules/playwright-core/index.mjs"));
const [program, data, project, roundsText] = process.argv.slice(2);
const rounds = Number(roundsText || 60);

const child = spawn(program, ["--data", data, "studio", "--no-browser", project], { stdio: ["ignore", "pipe", "pipe"] });
let output = "";
const url = await new Promise((resolve, reject) => {
    const read = (chunk) => {
        output += chunk;
        const found = /http:\/\/127\.0\.0\.1:\d+\/\?token=[0-9a-f]+/.exec(output);
        if (found)
            resolve(found[0]);
    };
    child.stdout.on("data", read);
    child.stderr.on("data", (chunk) => (output += chunk));
    child.on("exit", (code) => reject(new Error(`the studio ended with ${code}:\n${output}`)));
});

const browser = await chromium.launch({ executablePath: process.env.CHROMIUM_PATH || "/usr/bin/chromium",
    args: ["--headless", "--no-sandbox", "--disable-gpu"] });
const started = Date.now();
try {
    const page = await browser.newPage();
    page.setDefaultTimeout(120000);
    await page.goto(url);
    await page.locator(".help-editor[data-page-state='ready']").waitFor();
    const opened = Date.now() - started;
    // The first group of the tree opened: its topics are the ones clicked.
    const group = page.locator(".editor-tree > li > ul > li").first();
    await group.locator(":scope > .tree-row .toggle").click();
    await group.locator(":scope > ul > li").first().waitFor();
    const topics = await group.locator(":scope > ul > li").count();

    const times = await page.evaluate(async ({ rounds }) => {
        const editor = document.querySelector(".help-editor");
        const items = [...document.querySelectorAll(".editor-tree > li > ul > li:first-child > ul > li")];
        const shown = (file) => new Promise((resolve) => {
            const done = () => editor.dataset.pageState === "ready" && editor.dataset.page.endsWith(file);
            if (done())
                return resolve();
            const observer = new MutationObserver(() => {
                if (done()) {
                    observer.disconnect();
                    resolve();
                }
            });
            observer.observe(editor, { attributes: true });
        });
        const result = [];
        for (let round = 0; round < rounds; ++round) {
            // Every other topic of the list, so that each click shows another page.
            const item = items[(round * 2 + 1) % items.length];
            const row = item.querySelector(":scope > .tree-row");
            const key = item.dataset.key;
            const start = performance.now();
            row.click();
            // The page the node asks for, as the program answers it.
            await new Promise((resolve) => {
                const observer = new MutationObserver(() => {
                    if (document.querySelector(`.editor-tree li[data-key="${CSS.escape(key)}"][aria-selected="true"]`)) {
                        observer.disconnect();
                        resolve();
                    }
                });
                observer.observe(document.querySelector(".editor-tree"), { attributes: true, subtree: true });
            });
            await shown(editor.dataset.page.split("/").pop());
            result.push(performance.now() - start);
        }
        return result;
    }, { rounds });
    times.sort((a, b) => a - b);
    const pick = (at) => times[Math.min(times.length - 1, Math.floor(at))].toFixed(1);
    console.log(`editor opened with its first page: ${opened} ms; ${topics} topics in the first group`);
    console.log(`${"node selected to page shown (" + rounds + " rounds), ms".padEnd(46)} fastest   median  slowest`);
    console.log(`${"".padEnd(46)} ${pick(0).padStart(7)} ${pick(times.length / 2).padStart(8)} ${pick(times.length - 1).padStart(8)}`);
} finally {
    await browser.close();
    child.kill("SIGTERM");
}
