// The Help Editor in the studio, in headless Chromium: a help project is made
// from a copy of examples/OrderDesk with the wizard's "Open the Help Editor"
// ticked, and the editor that opens is used as a person would: topics are
// selected, typed into, switched to their source and back, saved; nodes are
// moved, undone, dragged into a page, deleted and renamed; the project tools
// (broken links, find and replace, Word export) run from the editor's menus.
// SCRIVANT_BUILD_DIR names the build (default: build/ of the source tree).
import { after, before, describe, test } from "node:test";
import assert from "node:assert/strict";
import { existsSync } from "node:fs";
import { cp, mkdir, mkdtemp, readFile, rm, writeFile } from "node:fs/promises";
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
const MARKER = "{CURRENTCURSORPOSITON}";

if (!existsSync(program))
    throw new Error(`${program} is missing: build the program first (or set SCRIVANT_BUILD_DIR)`);

let scratch;
let browser;

const startStudio = (args, dataFolder) => launchStudio(program, dataFolder, args, TIMEOUT);

// A copy of the example, and user data whose settings open the Help Editor
// after a generation and leave the compiler out.
async function freshApplication(name) {
    const folder = path.join(scratch, name);
    await cp(example, path.join(folder, "OrderDesk"), { recursive: true });
    const data = path.join(folder, "userdata");
    await mkdir(path.join(data, "Settings"), { recursive: true });
    const settings = (await readFile(shippedSettings, "utf8"))
        .replace(/(Name = "OpenHTMLEditor" Value = )"false"/, '$1"true"')
        .replace(/(Name = "CompileHTMLHelp" Value = )"true"/, '$1"false"');
    await writeFile(path.join(data, "Settings", "ScrivantSettings.xml"), settings);
    return { source: path.join(folder, "OrderDesk", "OrderDesk.vbp"), data, help: path.join(folder, "OrderDesk", "CHM") };
}

async function chooseMenu(page, menu, entry) {
    await page.getByRole("button", { name: menu, exact: true }).click();
    await page.getByRole("menuitem", { name: entry, exact: true }).click();
}

// A menu of the Help Editor's own menu bar.
async function editorMenu(page, menu, entry) {
    const bar = page.locator(".editor-menubar");
    await bar.locator(`.menu-title[data-menu="${menu}"]`).click();
    await bar.getByRole("menuitem", { name: entry }).click();
}

function messageBox(page, text) {
    return page.locator("dialog.message-box[open]").filter({ has: page.locator(".message-text", { hasText: text }) });
}

function treeItem(page, caption) {
    return page.locator(".editor-tree li.tree-item").filter({
        has: page.locator(":scope > .tree-row .tree-label", { hasText: new RegExp(`^${caption}$`) }),
    });
}

async function selectNode(page, caption, pageFile) {
    await treeItem(page, caption).locator(":scope > .tree-row .tree-label").click();
    await page.locator(`.help-editor[data-page$="/${pageFile}"]`).waitFor();
    await pageReady(page);
}

// The page editor has shown its page and may be typed into.
async function pageReady(page) {
    await page.locator(".help-editor[data-page-state='ready']").waitFor();
}

async function switchMode(page, mode) {
    await page.locator(`.editor-modes .mode[data-mode='${mode}']`).click();
    if (mode === "html") {
        await page.locator(".source-view:not([hidden])").waitFor();
    } else {
        await page.locator(".page-surface:not([hidden])").waitFor();
        await pageReady(page);
    }
}

function surface(page) {
    return page.frameLocator(".page-surface");
}

// The captions of a node's children as the tree shows them.
async function childCaptions(page, caption) {
    return treeItem(page, caption).locator(":scope > ul > li > .tree-row .tree-label").allInnerTexts();
}

async function statusPanel(page, key) {
    return page.locator(`.editor-statusbar .status-panel[data-key="${key}"]`).innerText();
}

async function waitForStatus(page, key, text) {
    await page.locator(`.editor-statusbar .status-panel[data-key="${key}"]`).filter({ hasText: new RegExp(`^${text}$`) }).waitFor();
}

// Reads a file until test holds of its text (the program writes it as the
// request is answered); answers the text.
async function fileWhere(file, holds) {
    const deadline = Date.now() + TIMEOUT;
    for (;;) {
        const text = await readFile(file, "latin1").catch(() => "");
        if (holds(text) || Date.now() > deadline)
            return text;
        await new Promise((resolve) => setImmediate(resolve));
    }
}

before(async () => {
    scratch = await mkdtemp(path.join(os.tmpdir(), "scrivant-editor-e2e-"));
    browser = await chromium.launch({
        executablePath: process.env.CHROMIUM_PATH || "/usr/bin/chromium", headless: true, args: CHROMIUM_ARGS,
    });
});

after(async () => {
    await browser?.close();
    if (scratch)
        await rm(scratch, { recursive: true, force: true });
});

describe("the Help Editor on a new help project", () => {
    let application;
    let studio;
    let page;
    let problems = [];

    before(async () => {
        application = await freshApplication("edited");
        studio = await startStudio([application.source], application.data);
        page = await browser.newPage();
        page.setDefaultTimeout(TIMEOUT);
        page.on("pageerror", (error) => problems.push(error.message));
        await page.goto(studio.url);
        await page.getByRole("button", { name: "Scrivant", exact: true }).waitFor();
    });

    after(async () => {
        await page?.close();
        await studio?.stop();
    });

    test("a generation that asked for the editor opens it on the project's tree and root page", async () => {
        await chooseMenu(page, "Scrivant", "New Help Project...");
        // The wizard's pages keep the settings' answers; Finish generates.
        await page.locator(".wizard .wizard-finish").click();
        const statistics = page.locator("dialog.message-box[open]").filter({
            has: page.locator(".dialog-title", { hasText: "Help Generation Completed" }),
        });
        await statistics.waitFor();
        await statistics.getByRole("button", { name: "OK" }).click();
        await page.locator(".main-area .tab", { hasText: "Help Editor" }).waitFor();
        await treeItem(page, "OrderDesk").waitFor();
        await page.locator(".help-editor[data-page$='/Welcome.htm']").waitFor();
        assert.match(await surface(page).locator("h1").first().innerText(), /OrderDesk/);
        assert.equal(await statusPanel(page, "Mode"), "Edit");
        // The page is shown with its scripts disabled: the browser-help
        // script would have sent it to the frame page.
        assert.match(await page.locator(".page-surface").evaluate((frame) => frame.contentWindow.location.pathname),
            /\/edit\/.*\/Welcome\.htm$/);
    });

    test("a typed sentence survives a trip through the source view and is saved through the program", async () => {
        await treeItem(page, "Dialogs").locator(":scope > .tree-row .toggle").click();
        await treeItem(page, "Customer").waitFor();
        await selectNode(page, "Customer", "OrderDesk_Form_frmCustomer.htm");
        const paragraph = surface(page).locator("p").first();
        await paragraph.click();
        await page.keyboard.press("End");
        await page.keyboard.type(" The clerk fills this form.");
        await waitForStatus(page, "Dirty", "Dirty");

        await switchMode(page, "html");
        await waitForStatus(page, "Mode", "HTML");
        const source = await page.locator(".source-view").innerText();
        assert.ok(source.includes("The clerk fills this form."));
        assert.ok(!source.includes(MARKER), "the caret's marker is taken out of the source");
        // The caret stands where it was: what is typed now follows the sentence.
        await page.keyboard.type(" Twice");
        assert.ok((await page.locator(".source-view").innerText()).includes("The clerk fills this form. Twice"));

        await switchMode(page, "edit");
        await surface(page).locator("p", { hasText: "Twice" }).waitFor();
        await page.keyboard.type(" over");
        await surface(page).locator("p", { hasText: "form. Twice over" }).waitFor();
        assert.ok(!(await surface(page).locator("body").innerText()).includes(MARKER));

        await page.keyboard.press("Control+s");
        await waitForStatus(page, "Dirty", "");
        const file = path.join(application.help, "OrderDesk_Form_frmCustomer.htm");
        const text = await fileWhere(file, (saved) => saved.includes("Twice over"));
        assert.ok(text.includes("The clerk fills this form. Twice over"));
        assert.ok(!text.includes(MARKER));
        assert.ok(!text.includes("~temp.htp"));
        assert.equal(text.replace(/\r\n/g, "").includes("\n"), false, "every line ends in CR LF");
        const markup = text.slice(0, text.search(/<\/html>/i));
        assert.doesNotMatch(markup, /<script/i, "no script reaches the page's markup");
        assert.equal(text.match(/id="wbh"/g)?.length ?? 0, 1, "the browser-help script stays once, behind </html>");
        assert.ok(!existsSync(path.join(application.help, "~temp.htp")), "saving removes the temporary page");

        await selectNode(page, "Order", "OrderDesk_Form_frmOrder.htm");
        await selectNode(page, "Customer", "OrderDesk_Form_frmCustomer.htm");
        await surface(page).locator("p", { hasText: "The clerk fills this form. Twice over" }).waitFor();
    });

    test("typing \"<!\" in the source view gives a teal \"<!--\", and the source view undoes its typing", async () => {
        await switchMode(page, "html");
        const before = await page.locator(".source-view").innerText();
        await page.keyboard.type("<!");
        const comment = page.locator(".source-view span").filter({ hasText: /^<!--$/ });
        assert.equal(await comment.innerText(), "<!--");
        assert.equal(await comment.getAttribute("data-color"), "8421440");
        assert.equal(await comment.evaluate((span) => getComputedStyle(span).color), "rgb(64, 128, 128)");
        // What is typed in the comment stays in its colour, a "<" and the end too.
        await page.keyboard.type(" a < b -->");
        assert.equal(await page.locator(".source-view span").filter({ hasText: /^<!-- a < b -->$/ }).getAttribute("data-color"),
            "8421440");
        await waitForStatus(page, "Dirty", "\\*");
        assert.match(await statusPanel(page, "Position"), /^Line: \d+, Col: \d+$/);
        // One step per typed character; "<!" took two.
        for (let step = 0; step < 12; ++step)
            await page.locator(".source-view").press("Control+z");
        assert.equal(await page.locator(".source-view").innerText(), before);
        await page.locator(".source-view").press("Control+y");
        assert.ok((await page.locator(".source-view").innerText()).includes("<"));
        await page.locator(".source-view").press("Control+z");
        assert.equal(await page.locator(".source-view").innerText(), before);
        await switchMode(page, "edit");
    });

    test("Ctrl+Up moves a topic up and Ctrl+Z puts it back", async () => {
        const before = await childCaptions(page, "Dialogs");
        const at = before.indexOf("Customer");
        assert.ok(at > 0);
        await treeItem(page, "Customer").locator(":scope > .tree-row .tree-label").click();
        await page.locator(".editor-tree").press("Control+ArrowUp");
        const moved = [...before];
        moved.splice(at - 1, 2, before[at], before[at - 1]);
        await page.waitForFunction((expected) => {
            const item = [...document.querySelectorAll(".editor-tree li.tree-item")]
                .find((node) => node.querySelector(":scope > .tree-row .tree-label").textContent === "Dialogs");
            const captions = [...item.querySelectorAll(":scope > ul > li > .tree-row .tree-label")].map((node) => node.textContent);
            return JSON.stringify(captions) === JSON.stringify(expected);
        }, moved);
        assert.equal(await page.locator(".editor-tree li[aria-selected='true'] > .tree-row .tree-label").innerText(), "Customer");
        await page.locator(".editor-tree").press("Control+z");
        await page.waitForFunction((expected) => {
            const item = [...document.querySelectorAll(".editor-tree li.tree-item")]
                .find((node) => node.querySelector(":scope > .tree-row .tree-label").textContent === "Dialogs");
            const captions = [...item.querySelectorAll(":scope > ul > li > .tree-row .tree-label")].map((node) => node.textContent);
            return JSON.stringify(captions) === JSON.stringify(expected);
        }, before);
    });

    test("a node dragged into the page becomes a link to its topic", async () => {
        await selectNode(page, "Copyright", "Copyright.htm");
        const target = surface(page).locator("p").first();
        await treeItem(page, "Order").locator(":scope > .tree-row").dragTo(target);
        const link = surface(page).locator("a[href='OrderDesk_Form_frmOrder.htm']");
        await link.waitFor();
        assert.equal(await link.innerText(), "Order");
        await waitForStatus(page, "Dirty", "Dirty");
        await page.keyboard.press("Control+s");
        await waitForStatus(page, "Dirty", "");
        const saved = await fileWhere(path.join(application.help, "Copyright.htm"),
            (text) => text.includes("OrderDesk_Form_frmOrder.htm"));
        assert.match(saved, /<A href="OrderDesk_Form_frmOrder\.htm">Order<\/A>/i);
    });

    test("deleting a node and answering No keeps its page", async () => {
        await selectNode(page, "Sign In", "OrderDesk_Form_frmLogin.htm");
        await page.locator(".editor-tree").press("Delete");
        const question = messageBox(page, "Do you also want to delete the corresponding HTML page?");
        await question.waitFor();
        await question.getByRole("button", { name: "No" }).click();
        await treeItem(page, "Sign In").waitFor({ state: "detached" });
        assert.ok(existsSync(path.join(application.help, "OrderDesk_Form_frmLogin.htm")));
    });

    test("F2 renames a topic in place, and its page takes the title", async () => {
        await selectNode(page, "Find Orders", "OrderDesk_Form_frmSearch.htm");
        await page.locator(".editor-tree").press("F2");
        const input = page.locator(".editor-tree input.rename");
        await input.waitFor();
        await input.fill("Search for Orders");
        await input.press("Enter");
        await treeItem(page, "Search for Orders").waitFor();
        await surface(page).locator("h1", { hasText: "Search for Orders" }).waitFor();
        await waitForStatus(page, "Dirty", "Dirty");
    });

    test("Ctrl+I edits a topic's index entries in the Node Index Entries dialog", async () => {
        await selectNode(page, "Order", "OrderDesk_Form_frmOrder.htm");
        await page.locator(".editor-tree").press("Control+i");
        const dialog = page.locator("dialog#frmHHCEntryIndexKeywords[open]");
        await dialog.waitFor();
        assert.equal(await dialog.locator(".dialog-title").innerText(), "Node Index Entries");
        assert.deepEqual(await dialog.locator("#lstIndexEntries option").allInnerTexts(), ["Order"]);
        await dialog.locator("#txtIndexEntry").fill("Purchase orders");
        await dialog.locator("#cmdAddEntry").click();
        await dialog.locator("#lstIndexEntries option", { hasText: "Purchase orders" }).waitFor();
        assert.equal(await dialog.locator("#cmdMoveDown").isDisabled(), true, "the last entry cannot move down");
        await dialog.locator("#cmdMoveUp").click();
        await page.waitForFunction(() =>
            [...document.querySelectorAll("#lstIndexEntries option")].map((o) => o.textContent).join("|")
                === "Purchase orders|Order");
        await dialog.locator("#cmdOK").click();
        await page.locator("dialog#frmHHCEntryIndexKeywords").waitFor({ state: "detached" });
        const description = await fileWhere(path.join(application.help, "xml", "OrderDesk_Form_frmOrder.xml"),
            (text) => text.includes("Purchase orders"));
        assert.match(description, /Indexes = "Purchase orders\|Order"/);
    });

    test("a saved form page refreshes its control nodes", async () => {
        await selectNode(page, "Customer", "OrderDesk_Form_frmCustomer.htm");
        await treeItem(page, "Customer").locator(":scope > .tree-row .toggle").click();
        await treeItem(page, "Customer").locator(":scope > ul > li").first().waitFor();
        assert.ok((await childCaptions(page, "Customer")).includes("Cancel"), "the form's controls are nodes of its topic");
        // The section of the Cancel button goes from the page.
        await surface(page).locator("a[name='frmCustomer_cmdCancel']").evaluate((anchor) => {
            const heading = anchor.closest("h2");
            let next = heading.nextSibling;
            while (next && !(next.nodeType === 1 && /^H[12]$/.test(next.tagName))) {
                const gone = next;
                next = next.nextSibling;
                gone.remove();
            }
            heading.remove();
            anchor.ownerDocument.body.dispatchEvent(new Event("input", { bubbles: true }));
        });
        await waitForStatus(page, "Dirty", "Dirty");
        // (Ctrl+S on the tree is its Paste Special.)
        await editorMenu(page, "File", "Save");
        await waitForStatus(page, "Dirty", "");
        await page.waitForFunction(() => {
            const item = [...document.querySelectorAll(".editor-tree li.tree-item")]
                .find((node) => node.querySelector(":scope > .tree-row .tree-label").textContent === "Customer");
            const captions = [...item.querySelectorAll(":scope > ul > li > .tree-row .tree-label")].map((node) => node.textContent);
            return captions.length > 0 && !captions.includes("Cancel");
        });
        assert.ok((await childCaptions(page, "Customer")).includes("OK"));
        await treeItem(page, "Customer").locator(":scope > .tree-row .toggle").click();
        await treeItem(page, "Customer").locator(":scope > ul").waitFor({ state: "detached" });
    });

    test("the broken links report goes to the link in the editor", async () => {
        await selectNode(page, "Order", "OrderDesk_Form_frmOrder.htm");
        await surface(page).locator("p").first().click();
        await page.keyboard.press("End");
        await page.keyboard.type(" See ");
        await page.locator(".page-surface").evaluate((frame) => {
            frame.contentDocument.execCommand("insertHTML", false, '<a href="NoSuchPage.htm">the missing page</a>');
        });
        await page.keyboard.press("Control+s");
        await waitForStatus(page, "Dirty", "");
        await selectNode(page, "Order Desk", "OrderDesk_Form_frmMain.htm");

        await editorMenu(page, "Tools", "Check Links...");
        const report = page.locator("dialog#frmBrokenLinks[open]");
        await report.waitFor();
        assert.deepEqual(await report.locator("th").allInnerTexts(), ["Page", "Hyperlink", "Problem"]);
        const row = report.locator("tr", { hasText: "NoSuchPage.htm" });
        await row.waitFor();
        assert.deepEqual((await row.locator("td").allInnerTexts()).map((cell) => cell.trim()),
            ["OrderDesk_Form_frmOrder.htm", path.join(application.help, "NoSuchPage.htm"), "Broken hyperlink"]);
        await row.dblclick();
        await page.locator(".help-editor[data-page$='/OrderDesk_Form_frmOrder.htm']").waitFor();
        await surface(page).locator("a[data-found='true'][href='NoSuchPage.htm']").waitFor();
        assert.equal(await page.locator(".editor-tree li[aria-selected='true'] > .tree-row .tree-label").innerText(), "Order");
        await report.getByRole("button", { name: "Close" }).click();
        await page.locator("dialog#frmBrokenLinks").waitFor({ state: "detached" });
    });

    test("Find in All Pages reports the pages and Open goes to the first hit", async () => {
        await editorMenu(page, "Edit", "Find in All Pages...");
        const dialog = page.locator("dialog#frmFindReplaceDlg[open]");
        await dialog.waitFor();
        assert.equal(await dialog.locator(".dialog-title").innerText(), "Find All");
        assert.equal(await dialog.locator("#cbxReplaceWith").isVisible(), false, "find mode hides the replacement");
        await dialog.locator("#cbxFindWhat").fill("clerk fills");
        await dialog.getByRole("button", { name: "Find All" }).click();
        const report = page.locator("dialog#frmFindReplaceReport[open]");
        await report.waitFor();
        assert.equal(await report.locator(".dialog-title").innerText(), "Find and Replace All");
        assert.deepEqual(await report.locator("th").allInnerTexts(), ["HTML File"]);
        assert.deepEqual(await report.locator("td").allInnerTexts(), ["OrderDesk_Form_frmCustomer.htm"]);
        assert.match(await report.locator("#stbInfo").innerText(), /1 occurrence is found/);
        await report.getByRole("button", { name: "Open" }).click();
        await page.locator(".help-editor[data-page$='/OrderDesk_Form_frmCustomer.htm']").waitFor();
        await page.waitForFunction(() =>
            document.querySelector(".page-surface").contentDocument.getSelection().toString() === "clerk fills");
        await report.getByRole("button", { name: "Close" }).click();

        await editorMenu(page, "Edit", "Find in All Pages...");
        await dialog.waitFor();
        const earlier = await dialog.locator("#cbxFindWhat-list option").evaluateAll((options) => options.map((o) => o.value));
        assert.deepEqual(earlier, ["clerk fills"], "the earlier search is offered again");
        await dialog.getByRole("button", { name: "Cancel" }).click();
    });

    test("a replace in HTML mode is warned about first", async () => {
        await switchMode(page, "html");
        await editorMenu(page, "Edit", "Replace in All Pages...");
        const warning = messageBox(page, "Replacing strings in HTML mode is risky");
        await warning.waitFor();
        assert.match(await warning.locator(".message-text").innerText(),
            /It is more safe to do the project level Find & Replace in Edit mode\.\s+Continue with the project level Find & Replace in HTML mode\?$/);
        await warning.getByRole("button", { name: "No" }).click();
        assert.equal(await page.locator("dialog#frmFindReplaceDlg[open]").count(), 0);
        await switchMode(page, "edit");

        await editorMenu(page, "Edit", "Replace in All Pages...");
        const dialog = page.locator("dialog#frmFindReplaceDlg[open]");
        await dialog.waitFor();
        assert.equal(await dialog.locator(".dialog-title").innerText(), "Replace All");
        await dialog.locator("#cbxFindWhat").fill("clerk fills");
        await dialog.locator("#cbxReplaceWith").fill("cashier completes");
        await dialog.getByRole("button", { name: "Replace All" }).click();
        const report = page.locator("dialog#frmFindReplaceReport[open]");
        await report.waitFor();
        assert.match(await report.locator("#stbInfo").innerText(), /1 occurrence is replaced/);
        const text = await fileWhere(path.join(application.help, "OrderDesk_Form_frmCustomer.htm"),
            (saved) => saved.includes("cashier completes"));
        assert.ok(text.includes("The cashier completes this form."));
        await surface(page).locator("p", { hasText: "The cashier completes this form." }).waitFor();
        await report.getByRole("button", { name: "Close" }).click();
    });

    test("Export to MS Word writes the document and says so", async () => {
        await editorMenu(page, "File", "Export to MS Word...");
        const dialog = page.locator("dialog#frmMSWordExport[open]");
        await dialog.waitFor();
        const target = await dialog.locator("#txtDoc2SaveFullPath").inputValue();
        assert.equal(target, path.join(application.help, "OrderDesk documentation.docx"));
        await dialog.getByRole("button", { name: "OK" }).click();
        const done = messageBox(page, "Export to MS Word finished OK.");
        await done.waitFor();
        await done.getByRole("button", { name: "OK" }).click();
        assert.ok(existsSync(target));
    });

    test("Recompile runs from the editor's menu", async () => {
        await editorMenu(page, "File", "Recompile");
        await page.waitForFunction(() => document.body.dataset.running === "RecompileHelpProject");
        await page.waitForFunction(() => document.body.dataset.running === "");
        assert.ok(existsSync(path.join(application.help, "OrderDesk.hhc")));
    });

    test("closing saves the page without asking, and Open Help Project opens the editor again", async () => {
        await selectNode(page, "Copyright", "Copyright.htm");
        await surface(page).locator("p").first().click();
        await page.keyboard.press("End");
        await page.keyboard.type(" Kept on closing.");
        await waitForStatus(page, "Dirty", "Dirty");
        await page.locator(".main-area .tab", { hasText: "Help Editor" }).locator(".tab-close").click();
        await page.locator(".help-editor").waitFor({ state: "detached" });
        assert.equal(await page.locator("dialog[open]").count(), 0, "closing asks nothing");
        const text = await fileWhere(path.join(application.help, "Copyright.htm"), (saved) => saved.includes("Kept on closing."));
        assert.ok(text.includes("Kept on closing."));
        const project = await fileWhere(path.join(application.help, "OrderDesk.svp"), (saved) => saved.includes("Search for Orders"));
        assert.ok(project.includes("Search for Orders"), "the renamed topic is saved with the project");

        await chooseMenu(page, "Scrivant", "Open Help Project...");
        const list = page.locator("dialog.list-box[open]");
        await list.waitFor();
        await list.getByRole("button", { name: "OK" }).click();
        await page.locator(".help-editor[data-page$='/Welcome.htm']").waitFor();
        await treeItem(page, "OrderDesk").waitFor();
        assert.deepEqual(problems, []);
    });
});
