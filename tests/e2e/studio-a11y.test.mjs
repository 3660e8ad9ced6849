// Accessibility of the studio in headless Chromium: axe-core checks the
// studio's window against the rules of WCAG 2 (A and AA) in each state a
// person meets on the way from an opened application to its edited help: the
// window, an open menu, every page of the wizard, the progress and statistics
// of the generation, the Help Editor with its menus and dialogs, and the
// About box. Any serious or critical violation fails; the states checked are
// printed. The topic shown inside the editor is the help's own page and is
// checked by a11y.test.mjs.
// SCRIVANT_BUILD_DIR names the build (default: build/ of the source tree).
import { after, before, describe, test } from "node:test";
import assert from "node:assert/strict";
import { existsSync, readFileSync } from "node:fs";
import { cp, mkdir, mkdtemp, readFile, rm, writeFile } from "node:fs/promises";
import { createRequire } from "node:module";
import os from "node:os";
import path from "node:path";
import { fileURLToPath } from "node:url";
import { chromium } from "playwright-core";
import { CHROMIUM_ARGS, launchStudio } from "./studio-process.mjs";

const here = path.dirname(fileURLToPath(import.meta.url));
const build = path.resolve(process.env.SCRIVANT_BUILD_DIR || path.join(here, "../../build"));
const program = path.join(build, "bin/scrivant");
const example = path.join(here, "../../examples/OrderDesk");
const shippedSettings = path.join(here, "../../data/Settings/ScrivantSettings.xml");
const TIMEOUT = 30000;
const AXE_SOURCE = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
const AXE_OPTIONS = {
    runOnly: { type: "tag", values: ["wcag2a", "wcag2aa"] },
    resultTypes: ["violations"],
    // The help's own pages inside the studio are checked on their own.
    iframes: false,
};
const FAILING_IMPACTS = new Set(["serious", "critical"]);
const WIZARD_PAGES = [
    "Introduction", "HelpProject", "Application", "Author", "FolderForGeneratedFiles", "CSSFullPath", "Language",
    "NameOptions", "Screenshots", "FormsPage", "ReportsPage", "MenusPage", "HelpIndex", "HelpProjectContents",
    "Generate",
];

if (!existsSync(program))
    throw new Error(`${program} is missing: build the program first (or set SCRIVANT_BUILD_DIR)`);

let scratch;
let browser;
let studio;
let page;
const checked = [];
const failures = [];
const notes = [];

// Runs axe-core on the studio's window as it stands and records its findings under label.
async function check(label) {
    if (!(await page.evaluate(() => typeof window.axe === "object")))
        await page.evaluate(AXE_SOURCE);
    const result = await page.evaluate((options) => window.axe.run(document, options), AXE_OPTIONS);
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

async function chooseMenu(menu, entry) {
    await page.getByRole("button", { name: menu, exact: true }).click();
    await page.getByRole("menuitem", { name: entry, exact: true }).click();
}

function wizardAt(name) {
    return page.locator(`.wizard[data-page="${name}"]:not([data-busy]):not([data-running])`);
}

function messageBox(title) {
    return page.locator("dialog.message-box[open]").filter({ has: page.locator(".dialog-title", { hasText: title }) });
}

// A copy of the example, and user data whose settings open the Help Editor
// after a generation and leave the compiler out.
async function freshApplication() {
    await cp(example, path.join(scratch, "OrderDesk"), { recursive: true });
    const data = path.join(scratch, "userdata");
    await mkdir(path.join(data, "Settings"), { recursive: true });
    const settings = (await readFile(shippedSettings, "utf8"))
        .replace(/(Name = "OpenHTMLEditor" Value = )"false"/, '$1"true"')
        .replace(/(Name = "CompileHTMLHelp" Value = )"true"/, '$1"false"');
    await writeFile(path.join(data, "Settings", "ScrivantSettings.xml"), settings);
    return { source: path.join(scratch, "OrderDesk", "OrderDesk.vbp"), data };
}

before(async () => {
    scratch = await mkdtemp(path.join(os.tmpdir(), "scrivant-studio-a11y-"));
    browser = await chromium.launch({
        executablePath: process.env.CHROMIUM_PATH || "/usr/bin/chromium",
        headless: true,
        args: CHROMIUM_ARGS,
    });
    const application = await freshApplication();
    studio = await launchStudio(program, application.data, [application.source], TIMEOUT);
    // axe-core is brought into the page by the test; the studio's policy allows only its own scripts.
    const context = await browser.newContext({ bypassCSP: true });
    page = await context.newPage();
    page.setDefaultTimeout(TIMEOUT);
    await page.goto(studio.url);
    await page.getByRole("button", { name: "Scrivant", exact: true }).waitFor();
    await page.locator("scriv-source-panel .application").first().waitFor();
});

after(async () => {
    await browser?.close();
    await studio?.stop();
    if (scratch)
        await rm(scratch, { recursive: true, force: true });
    if (checked.length)
        console.log(`axe-core checked ${checked.length} states of the studio:\n  ${checked.join("\n  ")}`);
    if (notes.length)
        console.log(`moderate or minor findings (not failures):\n  ${notes.join("\n  ")}`);
});

describe("axe-core finds no serious or critical violation in the studio", () => {
    test("in its window and an open menu", async () => {
        const since = failures.length;
        await check("the studio's window");
        await page.getByRole("button", { name: "Scrivant", exact: true }).click();
        await page.getByRole("menuitem", { name: "New Help Project...", exact: true }).waitFor();
        await check("the Scrivant menu open");
        await page.keyboard.press("Escape");
        assertNoSeriousViolations(since);
    });

    test("on every page of the wizard", async () => {
        const since = failures.length;
        await chooseMenu("Scrivant", "New Help Project...");
        for (const [number, name] of WIZARD_PAGES.entries()) {
            if (number > 0)
                await page.locator(".wizard .wizard-next").click();
            await wizardAt(name).waitFor();
            await check(`the wizard's page ${name}`);
        }
        assertNoSeriousViolations(since);
    });

    test("in the statistics of the generation and the Help Editor that follows", async () => {
        const since = failures.length;
        await page.locator(".wizard .wizard-finish").click();
        const statistics = messageBox("Help Generation Completed");
        await statistics.waitFor();
        await check("the statistics message box");
        await statistics.getByRole("button", { name: "OK" }).click();
        await page.locator(".help-editor[data-page-state='ready']").waitFor();
        await check("the Help Editor on the root topic");
        await page.locator(".editor-menubar .menu-title[data-menu='Edit']").click();
        await page.locator(".editor-menubar").getByRole("menuitem", { name: "Find in All Pages..." }).click();
        await page.locator("dialog[open]").first().waitFor();
        await check("the Help Editor's Find in All Pages dialog");
        await page.keyboard.press("Escape");
        await page.locator(".editor-modes .mode[data-mode='html']").click();
        await page.locator(".source-view:not([hidden])").waitFor();
        await check("the Help Editor's source view");
        assertNoSeriousViolations(since);
    });

    test("a tab of the main area is one stop of the keyboard, and Delete closes it", async () => {
        const tab = page.locator(".main-area .tab", { hasText: "Help Editor" });
        assert.equal(await tab.getAttribute("aria-selected"), "true");
        assert.equal(await tab.getAttribute("tabindex"), "0");
        await tab.focus();
        // Reached from the keyboard, the focused tab shows a ring of its own.
        await page.keyboard.press("Shift");
        const outline = await tab.evaluate((element) => {
            const style = getComputedStyle(element);
            return { matches: element.matches(":focus-visible"), style: style.outlineStyle, width: style.outlineWidth };
        });
        assert.deepEqual(outline, { matches: true, style: "solid", width: "2px" });
        await page.keyboard.press("Delete");
        await tab.waitFor({ state: "detached" });
        await page.locator(".main-area .empty-area:not([hidden])").waitFor();
    });

    test("in the About box", async () => {
        const since = failures.length;
        await chooseMenu("Scrivant", "About...");
        const about = page.locator("dialog[open]").filter({ hasText: "Scrivant" });
        await about.first().waitFor();
        await check("the About box");
        await about.first().getByRole("button", { name: "OK" }).click();
        assertNoSeriousViolations(since);
    });
});
