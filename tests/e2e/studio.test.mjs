// The studio in headless Chromium, driven as a person would: the program
// serves the bundled example (a copy of examples/OrderDesk) with
// "scrivant studio --no-browser", and the page makes a new help project,
// shows its progress and closing statistics, cancels a run, opens the
// compiled help in the viewer, and reopens a registered project.
// SCRIVANT_BUILD_DIR names the build (default: build/ of the source tree).
import { after, before, describe, test } from "node:test";
import assert from "node:assert/strict";
import { existsSync } from "node:fs";
import { cp, mkdtemp, readFile, rm } from "node:fs/promises";
import os from "node:os";
import path from "node:path";
import { fileURLToPath } from "node:url";
import { chromium } from "playwright-core";
import { CHROMIUM_ARGS, launchStudio } from "./studio-process.mjs";

const here = path.dirname(fileURLToPath(import.meta.url));
const build = path.resolve(process.env.SCRIVANT_BUILD_DIR || path.join(here, "../../build"));
const program = path.join(build, "bin/scrivant");
const example = path.join(here, "../../examples/OrderDesk");
const TIMEOUT = 30000;

if (!existsSync(program))
    throw new Error(`${program} is missing: build the program first (or set SCRIVANT_BUILD_DIR)`);

let scratch;
let context;

// Starts the studio on source; answers its address (with the token) and a way to end it.
const startStudio = (source, dataFolder) => launchStudio(program, dataFolder, [source], TIMEOUT);

// A fresh copy of the example and a fresh user data folder.
async function freshApplication(name) {
    const folder = path.join(scratch, name);
    await cp(example, path.join(folder, "OrderDesk"), { recursive: true });
    return {
        source: path.join(folder, "OrderDesk", "OrderDesk.vbp"),
        data: path.join(folder, "userdata"),
        help: path.join(folder, "OrderDesk", "CHM"),
    };
}

async function openStudioPage(studio) {
    const page = await context.newPage();
    page.setDefaultTimeout(TIMEOUT);
    const problems = [];
    page.on("pageerror", (error) => problems.push(error.message));
    await page.goto(studio.url);
    // The token went into a cookie, and out of the address.
    assert.equal(new URL(page.url()).search, "");
    await page.getByRole("button", { name: "Scrivant", exact: true }).waitFor();
    page.problems = problems;
    return page;
}

async function chooseMenu(page, menu, entry) {
    await page.getByRole("button", { name: menu, exact: true }).click();
    await page.getByRole("menuitem", { name: entry, exact: true }).click();
}

// New Help Project opens the wizard; its Finish starts the generation.
async function newHelpProject(page) {
    await chooseMenu(page, "Scrivant", "New Help Project...");
    await page.locator(".wizard[data-page]:not([data-busy])").waitFor();
    await page.locator(".wizard .wizard-finish").click();
}

function messageBox(page, title) {
    return page.locator("dialog.message-box[open]").filter({
        has: page.locator(".dialog-title", { hasText: title }),
    });
}

// Collects every text the progress window shows, as it changes.
async function recordProgressTexts(page) {
    await page.evaluate(() => {
        window.progressTexts = [];
        new MutationObserver(() => {
            const text = document.querySelector("#progress-window .progress-text")?.textContent;
            if (text && window.progressTexts.at(-1) !== text)
                window.progressTexts.push(text);
        }).observe(document.body, { subtree: true, childList: true, characterData: true });
    });
}

async function registryText(data) {
    return readFile(path.join(data, "ScrivantProjects.xml"), "utf8").catch(() => "");
}

// Opens a help command of the current project; a question whether to bring
// the help up to date first is answered No.
async function openHelp(page, entry, viewer) {
    await chooseMenu(page, "Help Project", entry);
    const question = page.locator("dialog.message-box[open]");
    const shown = page.locator(viewer).first();
    await Promise.race([question.waitFor(), shown.waitFor()]);
    if (await question.count())
        await question.getByRole("button", { name: "No" }).click();
    await shown.waitFor();
}

before(async () => {
    scratch = await mkdtemp(path.join(os.tmpdir(), "scrivant-studio-e2e-"));
    context = await chromium.launchPersistentContext(path.join(scratch, "profile"), {
        executablePath: process.env.CHROMIUM_PATH || "/usr/bin/chromium",
        headless: true,
        args: CHROMIUM_ARGS,
    });
});

after(async () => {
    await context?.close();
    if (scratch)
        await rm(scratch, { recursive: true, force: true });
});

describe("a new help project made in the studio", () => {
    let application;
    let studio;
    let page;

    before(async () => {
        application = await freshApplication("made");
        studio = await startStudio(application.source, application.data);
        page = await openStudioPage(studio);
    });

    after(async () => {
        await page?.close();
        const ended = await studio?.stop();
        assert.equal(ended?.code, 0, "the studio ends cleanly on SIGTERM");
    });

    test("the studio shows the open application and its forms", async () => {
        const application = page.locator("scriv-source-panel .application");
        await application.getByText("Project: OrderDesk.vbp").waitFor();
        await application.locator(".form", { hasText: "frmCustomer" }).waitFor();
        assert.ok(await application.locator(".form").count() >= 7);
        await page.locator("scriv-source-panel .help-project").getByText("No help project is open.").waitFor();
    });

    test("New Help Project generates with progress and ends with the statistics", async () => {
        await recordProgressTexts(page);
        await newHelpProject(page);
        await page.locator("#progress-window").waitFor({ state: "visible" });
        const statistics = messageBox(page, "Help Generation Completed");
        await statistics.waitFor();
        const text = (await statistics.locator(".message-text").innerText()).replace(/\r\n/g, "\n");
        assert.match(text, /^The Scrivant added:\n- 10 new help pages with \d+ sections,\n- \d+ screenshots,/);
        assert.match(text, /- \d+ index entries in generated help\.$/);
        assert.equal(await statistics.locator(".icon-information").count(), 1);
        const texts = await page.evaluate(() => window.progressTexts);
        assert.ok(texts.includes("Starting help Generation..."), texts.join(" | "));
        assert.ok(texts.some((line) => line.startsWith("Processing TOC node")), texts.join(" | "));
        await statistics.getByRole("button", { name: "OK" }).click();
        await page.locator("#progress-window").waitFor({ state: "hidden" });
        await page.locator("scriv-source-panel .help-project[data-name='OrderDesk']").waitFor();
        assert.match(await registryText(application.data), /<Project Name = "OrderDesk"/);
        assert.ok(existsSync(path.join(application.help, "OrderDesk.chm")));
    });

    test("the compiled help opens in the viewer with a form's topic in its contents", async () => {
        await openHelp(page, "Open Compiled Help", ".help-viewer.compiled-help .topic-link");
        const viewer = page.locator(".help-viewer.compiled-help");
        const link = viewer.getByRole("link", { name: "Customer", exact: true });
        await link.waitFor();
        const navigated = page.waitForEvent("framenavigated", {
            predicate: (frame) => frame.url().endsWith("/OrderDesk_Form_frmCustomer.htm"),
        });
        await link.click();
        const topic = await navigated;
        await topic.waitForLoadState("load");
        // Read out of the compiled file, on the helps' own origin.
        assert.match(topic.url(), /^http:\/\/localhost:\d+\/chm\/[0-9a-f]+\/.*\/OrderDesk\.chm\/::\/OrderDesk_Form_frmCustomer\.htm$/);
        assert.equal((await topic.locator("h1").first().innerText()).trim(), "Customer");
        const pictureWidth = await topic.locator("img").first().evaluate((image) =>
            image.complete ? image.naturalWidth : new Promise((resolve) => (image.onload = () => resolve(image.naturalWidth))));
        assert.ok(pictureWidth > 0, "the form's picture comes out of the compiled help");
        assert.deepEqual(page.problems, []);
    });

    test("the browser help opens from the project folder", async () => {
        await openHelp(page, "Open Browser Help", ".help-viewer.web-help iframe");
        const help = page.frameLocator(".help-viewer.web-help iframe");
        await help.frameLocator("#paneContents iframe").locator("#tree li").first().waitFor();
        assert.ok(await help.frameLocator("#paneContents iframe").locator("#tree li").count() > 5);
    });
});

describe("a registered help project opened again", () => {
    let application;
    let studio;
    let page;

    after(async () => {
        await page?.close();
        await studio?.stop();
    });

    test("Open Help Project lists the application's projects and reopens the chosen one", async () => {
        application = await freshApplication("reopened");
        const first = await startStudio(application.source, application.data);
        const making = await openStudioPage(first);
        await newHelpProject(making);
        const statistics = messageBox(making, "Help Generation Completed");
        await statistics.waitFor();
        await statistics.getByRole("button", { name: "OK" }).click();
        await making.close();
        await first.stop();

        studio = await startStudio(application.source, application.data);
        page = await openStudioPage(studio);
        await page.locator("scriv-source-panel .help-project").getByText("No help project is open.").waitFor();
        await chooseMenu(page, "Scrivant", "Open Help Project...");
        const list = page.locator("dialog.list-box[open]");
        await list.waitFor();
        assert.equal(await list.locator(".dialog-title").innerText(), "Open Help Project");
        const projectFile = path.join(application.help, "OrderDesk.svp");
        assert.deepEqual(await list.locator("option").allInnerTexts(), [projectFile, "More Files..."]);
        await list.locator("select").selectOption({ label: projectFile });
        await list.getByRole("button", { name: "OK" }).click();
        await page.locator("scriv-source-panel .help-project[data-name='OrderDesk']").waitFor();
        // The project opens in the Help Editor.
        await page.locator(".help-editor[data-page$='/Welcome.htm']").waitFor();
        await openHelp(page, "Open Compiled Help", ".help-viewer.compiled-help .topic-link");
        await page.locator(".help-viewer.compiled-help").getByRole("link", { name: "Order Desk", exact: true }).waitFor();
    });

    test("More Files... takes a project file typed by hand", async () => {
        await page.reload();
        await page.getByRole("button", { name: "Scrivant", exact: true }).waitFor();
        // Another project opens only with the Help Editor closed.
        await page.locator(".main-area .tab", { hasText: "Help Editor" }).locator(".tab-close").click();
        await page.locator(".help-editor").waitFor({ state: "detached" });
        await chooseMenu(page, "Scrivant", "Open Help Project...");
        const list = page.locator("dialog.list-box[open]");
        await list.locator("select").selectOption({ label: "More Files..." });
        await list.getByRole("button", { name: "OK" }).click();
        const files = page.locator("dialog.file-box[open]");
        await files.waitFor();
        // The listing offers the allowed folders; the path may be typed.
        await files.locator(".listing li").first().waitFor();
        await files.locator("input.path").fill(path.join(application.help, "OrderDesk.svp"));
        await files.getByRole("button", { name: "OK" }).click();
        await files.waitFor({ state: "detached" });
        await page.locator("scriv-source-panel .help-project[data-name='OrderDesk']").waitFor();
        assert.equal(await page.locator("dialog[open]").count(), 0);
    });
});

describe("the end of the studio", () => {
    test("File, Exit ends the program", async () => {
        const application = await freshApplication("ended");
        const studio = await startStudio(application.source, application.data);
        const page = await openStudioPage(studio);
        await chooseMenu(page, "File", "Exit");
        const ended = await studio.ended();
        assert.deepEqual(ended, { code: 0, signal: null });
        await page.locator("#connection.lost").waitFor();
        await page.close();
    });
});

describe("a generation cancelled in the progress window", () => {
    test("shows that the end-user cancelled it and registers nothing", async () => {
        const application = await freshApplication("cancelled");
        const studio = await startStudio(application.source, application.data);
        const page = await openStudioPage(studio);
        try {
            // The person presses Cancel as soon as the progress window shows:
            // the run stops at its next step (the whole example takes about a
            // second, so a later moment would race the run's end).
            await page.evaluate(() => {
                window.cancelledAt = null;
                const observer = new MutationObserver(() => {
                    const cancel = document.querySelector("#progress-window[open] .cancel:not(:disabled)");
                    if (cancel) {
                        observer.disconnect();
                        window.cancelledAt = document.querySelector("#progress-window .progress-text").textContent;
                        cancel.click();
                    }
                });
                observer.observe(document.body, { subtree: true, childList: true, characterData: true, attributes: true });
            });
            await newHelpProject(page);
            const box = page.locator("dialog.message-box[open]");
            await box.waitFor();
            assert.equal(await box.locator(".message-text").innerText(), "Help generation was cancelled by end-user.");
            assert.ok(await page.evaluate(() => window.cancelledAt), "Cancel was pressed in the progress window");
            assert.equal(await box.locator(".icon-critical").count(), 1);
            await box.getByRole("button", { name: "OK" }).click();
            await page.locator("#progress-window").waitFor({ state: "hidden" });
            assert.doesNotMatch(await registryText(application.data), /<Project /);
            assert.equal(await page.locator("dialog.message-box[open]").count(), 0);
        } finally {
            await page.close();
            await studio.stop();
        }
    });
});
