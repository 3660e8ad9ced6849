// The wizard of a new help project in the studio, page by page, in headless
// Chromium: the studio serves a copy of examples/OrderDesk, the page walks
// through every page of the wizard, changes the name, the language and the
// picture format, leaves a topic out of the contents, finishes, and opens the
// compiled help; a run cancelled during the generation, and a target folder
// that holds a help project already.
// SCRIVANT_BUILD_DIR names the build (default: build/ of the source tree).
import { after, before, describe, test } from "node:test";
import assert from "node:assert/strict";
import { existsSync } from "node:fs";
import { cp, mkdtemp, readFile, readdir, rm } from "node:fs/promises";
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
const PAGES = [
    "Introduction", "HelpProject", "Application", "Author", "FolderForGeneratedFiles", "CSSFullPath", "Language",
    "NameOptions", "Screenshots", "FormsPage", "ReportsPage", "MenusPage", "HelpIndex", "HelpProjectContents",
    "Generate",
];

if (!existsSync(program))
    throw new Error(`${program} is missing: build the program first (or set SCRIVANT_BUILD_DIR)`);

let scratch;
let context;

// Starts the studio on source; answers its address (with the token) and a way to end it.
const startStudio = (source, dataFolder) => launchStudio(program, dataFolder, [source], TIMEOUT);

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
    await page.getByRole("button", { name: "Scrivant", exact: true }).waitFor();
    page.problems = problems;
    return page;
}

async function chooseMenu(page, menu, entry) {
    await page.getByRole("button", { name: menu, exact: true }).click();
    await page.getByRole("menuitem", { name: entry, exact: true }).click();
}

function messageBox(page, title) {
    return page.locator("dialog.message-box[open]").filter({
        has: page.locator(".dialog-title", { hasText: title }),
    });
}

async function registryText(data) {
    return readFile(path.join(data, "ScrivantProjects.xml"), "utf8").catch(() => "");
}

// The wizard panel showing a page, with no change on its way to the server.
function wizardAt(page, name) {
    return page.locator(`.wizard[data-page="${name}"]:not([data-busy]):not([data-running])`);
}

async function openWizard(page) {
    await chooseMenu(page, "Scrivant", "New Help Project...");
    await wizardAt(page, "Introduction").waitFor();
    return page.locator(".wizard");
}

// Presses Next and waits for the page that follows.
async function next(page, name) {
    await page.locator(".wizard .wizard-next").click();
    await wizardAt(page, name).waitFor();
}

// Waits until the preview shows a sample made after the change that came before.
async function previewPath(page) {
    const preview = page.locator(".wizard-preview");
    return preview.getAttribute("data-path");
}

function control(page, name) {
    return page.locator(`.wizard-control[data-control="${name}"]`);
}

// Changes a text box as a person does: types and leaves it.
async function typeInto(page, name, text) {
    const input = control(page, name).locator("input");
    await input.fill(text);
    await input.press("Tab");
    await page.locator(".wizard:not([data-busy])").waitFor();
}

before(async () => {
    scratch = await mkdtemp(path.join(os.tmpdir(), "scrivant-wizard-e2e-"));
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

describe("a new help project made page by page", () => {
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
        await studio?.stop();
    });

    test("every page of the wizard, with its rules and its preview", async () => {
        const wizard = await openWizard(page);
        const seen = [await wizard.getAttribute("data-page")];
        assert.equal(await wizard.locator(".wizard-step").innerText(), "Step 1 of 15");
        assert.ok(await wizard.locator(".wizard-back").isDisabled());
        // The sample form stands beside the first page, its picture and style sheet with it.
        const sample = page.frameLocator(".wizard-sample");
        await sample.locator("h1", { hasText: "Customer" }).waitFor();
        assert.ok(await sample.locator("img").evaluate((image) =>
            image.complete ? image.naturalWidth > 0 : new Promise((resolve) => (image.onload = () => resolve(true)))));

        await next(page, "HelpProject");
        seen.push("HelpProject");
        assert.equal(await control(page, "txtName").locator("input").inputValue(), "OrderDesk");
        await typeInto(page, "txtName", "DeskHelp");
        await typeInto(page, "txtTitle", "Order Desk Help");
        await sample.locator("p", { hasText: "Order Desk Help" }).waitFor();
        await page.locator("scriv-source-panel .help-project[data-name='DeskHelp']").waitFor();

        for (const name of ["Application", "Author", "FolderForGeneratedFiles", "CSSFullPath"]) {
            await next(page, name);
            seen.push(name);
        }
        const css = control(page, "cboCSS").locator("select");
        assert.deepEqual(await css.locator("option").allInnerTexts(), ["Office10.css", "browserhelp.css"]);

        await next(page, "Language");
        seen.push("Language");
        const charset = control(page, "cboCharset").locator("select");
        await charset.selectOption("windows-1252");
        await wizardAt(page, "Language").waitFor();
        await control(page, "cboLanguage").locator("select").selectOption({ label: "Russian" });
        await page.waitForFunction(() =>
            document.querySelector('.wizard-control[data-control="cboCharset"] select')?.value === "windows-1251");
        assert.deepEqual(await charset.locator("option").allInnerTexts(), ["windows-1251", "koi8-r", "utf-8"]);
        // Back to the charset of every page; the language stays.
        await charset.selectOption("utf-8");
        await wizardAt(page, "Language").waitFor();

        for (const name of ["NameOptions", "Screenshots"]) {
            await next(page, name);
            seen.push(name);
        }
        assert.deepEqual(await page.locator(".wizard-options input[type=radio]").evaluateAll((inputs) =>
            inputs.map((input) => input.value)), ["optpicBmp", "optpicJpeg", "optpicPng"]);
        assert.ok(await control(page, "chkMakeNormalViewScreenshots").isHidden());
        await control(page, "optpicPng").locator("input").check();
        await page.waitForFunction(() =>
            document.querySelector('.wizard-control[data-control="optpicPng"] input')?.checked
            && !document.querySelector(".wizard[data-busy]"));

        for (const name of ["FormsPage", "ReportsPage", "MenusPage", "HelpIndex"]) {
            await next(page, name);
            seen.push(name);
        }
        assert.match(await previewPath(page), /index111\.bmp$/);
        await control(page, "chkSearch").locator("input").uncheck();
        await page.waitForFunction(() => /index101\.bmp$/.test(document.querySelector(".wizard-preview")?.dataset.path));
        const picture = page.locator(".wizard-preview img");
        assert.ok(await picture.evaluate((image) =>
            image.complete ? image.naturalWidth > 0 : new Promise((resolve) => (image.onload = () => resolve(image.naturalWidth > 0)))));
        await control(page, "chkSearch").locator("input").check();
        await page.waitForFunction(() => /index111\.bmp$/.test(document.querySelector(".wizard-preview")?.dataset.path));

        await next(page, "HelpProjectContents");
        seen.push("HelpProjectContents");
        const tree = page.locator(".wizard-contents");
        const about = tree.locator(".tree-label", { hasText: "About Order Desk" });
        await about.click();
        await page.locator('.wizard-contents .tree-item[aria-selected="true"] > .tree-label', { hasText: "About Order Desk" }).waitFor();
        await about.click({ button: "right" });
        const menu = page.getByRole("menu", { name: "Topic" });
        assert.deepEqual(await menu.getByRole("menuitem").allInnerTexts(), ["Exclude", "Up", "Down", "Left", "Right"]);
        await menu.getByRole("menuitem", { name: "Exclude" }).click();
        await tree.locator(".tree-item[data-image='no'] > .tree-label", { hasText: "About Order Desk" }).waitFor();
        // The topic of a node that has no page yet is a stand-in.
        await page.frameLocator(".wizard-sample").locator("h1", { hasText: "About Order Desk" }).waitFor();
        // Ctrl+Up moves the selected topic up among its siblings.
        const order = () => tree.locator(".tree-item[data-key='Dialogs'] > .tree-group > .tree-item > .tree-label").allInnerTexts();
        const before = await order();
        await about.click();
        await tree.locator(".tree").press("Control+ArrowUp");
        await page.waitForFunction((was) => {
            const now = [...document.querySelectorAll(".wizard-contents .tree-item[data-key='Dialogs'] > .tree-group > .tree-item > .tree-label")]
                .map((label) => label.textContent);
            return now.join("|") !== was.join("|");
        }, before);
        const after = await order();
        const at = before.indexOf("About Order Desk");
        assert.equal(after[at - 1], "About Order Desk");

        await next(page, "Generate");
        seen.push("Generate");
        assert.deepEqual(seen, PAGES);
        assert.ok(await page.locator(".wizard .wizard-next").isDisabled());
        const editor = control(page, "chkOpenHtmlEditor").locator("input");
        const compiled = control(page, "chkOpenHTML").locator("input");
        await editor.check();
        await page.waitForFunction(() => !document.querySelector(".wizard[data-busy]"));
        await compiled.check();
        await page.waitForFunction(() =>
            !document.querySelector('.wizard-control[data-control="chkOpenHtmlEditor"] input')?.checked);
        await compiled.uncheck();
        await page.waitForFunction(() => !document.querySelector(".wizard[data-busy]"));
        assert.equal(await editor.isChecked(), false);
        assert.match(await previewPath(page), /GeneratedHelp\.bmp$/);

        // Back and forth keeps what was chosen.
        await page.locator(".wizard .wizard-back").click();
        await wizardAt(page, "HelpProjectContents").waitFor();
        await tree.locator(".tree-item[data-image='no'] > .tree-label", { hasText: "About Order Desk" }).waitFor();
        await next(page, "Generate");
        assert.deepEqual(page.problems, []);
    });

    test("Finish generates the help the pages chose, with progress and its statistics", async () => {
        await page.locator(".wizard .wizard-finish").click();
        await page.locator("#progress-window").waitFor({ state: "visible" });
        const statistics = messageBox(page, "Help Generation Completed");
        await statistics.waitFor();
        const text = (await statistics.locator(".message-text").innerText()).replace(/\r\n/g, "\n");
        assert.match(text, /^The Scrivant added:\n- \d+ new help pages with \d+ sections,\n- \d+ screenshots,/);
        await statistics.getByRole("button", { name: "OK" }).click();
        await page.locator(".wizard").waitFor({ state: "detached" });
        await page.locator("scriv-source-panel .help-project[data-name='DeskHelp']").waitFor();
        assert.match(await registryText(application.data), /<Project Name = "DeskHelp"/);
        assert.ok(existsSync(path.join(application.help, "DeskHelp.chm")));
        // The choices of the pages: pictures as PNG, the language, the topic left out.
        const pictures = await readdir(path.join(application.help, "images"));
        assert.ok(pictures.some((name) => name.endsWith(".png")));
        assert.ok(!pictures.some((name) => name.endsWith(".jpg")));
        assert.match(await readFile(path.join(application.help, "DeskHelp.hhp"), "latin1"), /Language=0x419/);
        assert.ok(existsSync(path.join(application.help, "OrderDesk_Form_frmCustomer.htm")));
        assert.ok(!existsSync(path.join(application.help, "OrderDesk_Form_frmAbout.htm")));
    });

    test("the compiled help opens in the viewer with a form's topic in its contents", async () => {
        await chooseMenu(page, "Help Project", "Open Compiled Help");
        const question = page.locator("dialog.message-box[open]");
        const link = page.locator(".help-viewer.compiled-help").getByRole("link", { name: "Customer", exact: true });
        await Promise.race([question.waitFor(), link.waitFor()]);
        if (await question.count())
            await question.getByRole("button", { name: "No" }).click();
        await link.waitFor();
        const navigated = page.waitForEvent("framenavigated", {
            predicate: (frame) => frame.url().endsWith("/OrderDesk_Form_frmCustomer.htm"),
        });
        await link.click();
        const topic = await navigated;
        await topic.waitForLoadState("load");
        assert.equal((await topic.locator("h1").first().innerText()).trim(), "Customer");
        assert.equal(await page.locator(".help-viewer.compiled-help").getByRole("link", { name: "About Order Desk", exact: true }).count(), 0);
        assert.deepEqual(page.problems, []);
    });

    test("a target folder that holds a help project already shows its message and the wizard again", async () => {
        await openWizard(page);
        await page.locator(".wizard .wizard-finish").click();
        const refused = page.locator("dialog.message-box[open]");
        await refused.waitFor();
        assert.match(await refused.locator(".message-text").innerText(),
            /^Target folder '.*\/CHM\/'\s+already has Scrivant project 'DeskHelp\.svp'\s+Please select another target folder\.$/);
        await refused.getByRole("button", { name: "OK" }).click();
        // The wizard is there again, on the page it was left on, for another answer.
        await wizardAt(page, "Introduction").waitFor();
        await next(page, "HelpProject");
        for (const name of ["Application", "Author", "FolderForGeneratedFiles"])
            await next(page, name);
        // Typed, and Finish pressed at once: the new folder reaches the wizard first.
        await control(page, "txtDirToSaveHtml").locator("input").fill(path.join(path.dirname(application.help), "Help2"));
        await page.locator(".wizard .wizard-finish").click();
        const statistics = messageBox(page, "Help Generation Completed");
        await statistics.waitFor();
        await statistics.getByRole("button", { name: "OK" }).click();
        await page.locator(".wizard").waitFor({ state: "detached" });
        assert.ok(existsSync(path.join(path.dirname(application.help), "Help2", "OrderDesk.svp")));
    });
});

describe("the wizard cancelled", () => {
    test("Cancel closes it and leaves the settings as they were", async () => {
        const application = await freshApplication("closed");
        const studio = await startStudio(application.source, application.data);
        const page = await openStudioPage(studio);
        try {
            await openWizard(page);
            await next(page, "HelpProject");
            await typeInto(page, "txtName", "Forgotten");
            await page.locator(".wizard .wizard-cancel").click();
            await page.locator(".wizard").waitFor({ state: "detached" });
            assert.doesNotMatch(await registryText(application.data), /Forgotten/);
            // Opened again, it starts from the settings, not from the cancelled answers.
            await openWizard(page);
            await next(page, "HelpProject");
            assert.equal(await control(page, "txtName").locator("input").inputValue(), "OrderDesk");
            // Its tab's close button is Cancel too.
            await page.locator(".main-area .tab", { hasText: "Scrivant Wizard" }).locator(".tab-close").click();
            await page.locator(".wizard").waitFor({ state: "detached" });
        } finally {
            await page.close();
            await studio.stop();
        }
    });

    test("during the generation: the end-user's cancel is said and nothing is registered", async () => {
        const application = await freshApplication("cancelled");
        const studio = await startStudio(application.source, application.data);
        const page = await openStudioPage(studio);
        try {
            await openWizard(page);
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
            await page.locator(".wizard .wizard-finish").click();
            const box = page.locator("dialog.message-box[open]");
            await box.waitFor();
            assert.equal(await box.locator(".message-text").innerText(), "Help generation was cancelled by end-user.");
            assert.ok(await page.evaluate(() => window.cancelledAt), "Cancel was pressed in the progress window");
            await box.getByRole("button", { name: "OK" }).click();
            await page.locator("#progress-window").waitFor({ state: "hidden" });
            await page.locator(".wizard").waitFor({ state: "detached" });
            assert.doesNotMatch(await registryText(application.data), /<Project /);
            assert.deepEqual(page.problems, []);
        } finally {
            await page.close();
            await studio.stop();
        }
    });
});

describe("the About box", () => {
    test("names the program, its version and what it does, and closes with OK", async () => {
        const application = await freshApplication("about");
        const studio = await startStudio(application.source, application.data);
        const page = await openStudioPage(studio);
        try {
            await chooseMenu(page, "Scrivant", "About...");
            const about = page.locator("dialog.about-box[open]");
            await about.waitFor();
            assert.equal(await about.locator(".dialog-title").innerText(), "About Scrivant");
            assert.match(await about.locator(".about-program").innerText(), /^Scrivant \d+\.\d+\.\d+$/);
            assert.match(await about.locator(".about-description").innerText(), /help of an application/);
            await about.getByRole("button", { name: "OK" }).click();
            await about.waitFor({ state: "detached" });
            assert.deepEqual(page.problems, []);
        } finally {
            await page.close();
            await studio.stop();
        }
    });
});
