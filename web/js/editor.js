// The Help Editor ("Help Editor") as a panel of the studio's main area: the
// contents tree on the left, a split bar, and the page editor on the right,
// with the editor's menus, its formatting tool bar and its status bar. The
// program keeps the editor's state; each action goes to it and its answer is
// shown.

import { ApiError } from "./api.js";
import { element } from "./dom.js";
import { editorApi } from "./editor-api.js";
import { button, confirmBox, messageBox } from "./editor-dialogs.js";
import { HTMLEdit } from "./editor-htmledit.js";
import { IndexEntriesDialog, ProjectTools } from "./editor-tools.js";
import { EditorTree } from "./editor-tree.js";
import { onStudioEvent } from "./events.js";

const KIND = "editor";
const KEY = "help-editor";

const STYLES = [
    ["", "Style"], ["<P>", "Normal"], ["<H1>", "Heading 1"], ["<H2>", "Heading 2"], ["<H3>", "Heading 3"],
    ["<H4>", "Heading 4"], ["<H5>", "Heading 5"], ["<H6>", "Heading 6"], ["<PRE>", "Formatted"], ["<ADDRESS>", "Address"],
];
const MIN_TREE_WIDTH = 120;
const MAX_TREE_WIDTH = 800;
const DEFAULT_TREE_WIDTH = 280;
const FONTS = ["Font", "Arial", "Courier New", "Tahoma", "Times New Roman", "Verdana"];
const SIZES = ["Size", "1", "2", "3", "4", "5", "6", "7"];

// A small menu bar of the editor's own: buttons with drop-down lists.
class EditorMenus {
    constructor(menus) {
        this.element = element("div", "editor-menubar");
        // Menu buttons with their menus, as the studio's own menu bar has them.
        this.element.setAttribute("role", "group");
        this.element.setAttribute("aria-label", "Help Editor menu");
        this.entries = [];
        for (const menu of menus) {
            const holder = element("div", "menu");
            const title = button(menu.caption, () => (list.hidden ? this.#open(list, title) : this.closeAll()), "menu-title");
            title.setAttribute("aria-haspopup", "menu");
            title.setAttribute("aria-expanded", "false");
            title.dataset.menu = menu.caption;
            const list = element("div", "menu-list");
            list.setAttribute("role", "menu");
            list.setAttribute("aria-label", menu.caption);
            list.hidden = true;
            for (const entry of menu.entries) {
                if (!entry) {
                    list.append(element("hr", "menu-separator"));
                    continue;
                }
                const item = button(entry.caption, () => {
                    this.closeAll();
                    entry.run();
                }, "menu-item");
                item.setAttribute("role", "menuitem");
                item.dataset.command = entry.name;
                if (entry.shortcut)
                    item.append(element("span", "shortcut", entry.shortcut));
                list.append(item);
                this.entries.push({ entry, item });
            }
            holder.append(title, list);
            this.element.append(holder);
        }
        document.addEventListener("click", (event) => {
            if (!this.element.contains(event.target))
                this.closeAll();
        });
        this.element.addEventListener("keydown", (event) => {
            if (event.key === "Escape")
                this.closeAll();
        });
    }

    #open(list, title) {
        this.closeAll();
        list.hidden = false;
        title.setAttribute("aria-expanded", "true");
        list.querySelector("button:not(:disabled)")?.focus();
    }

    closeAll() {
        for (const list of this.element.querySelectorAll(".menu-list"))
            list.hidden = true;
        for (const title of this.element.querySelectorAll(".menu-title"))
            title.setAttribute("aria-expanded", "false");
    }

    // Enables each entry by its test.
    update() {
        for (const { entry, item } of this.entries) {
            item.disabled = entry.enabled ? !entry.enabled() : false;
            if (entry.checked)
                item.setAttribute("aria-checked", String(entry.checked()));
        }
    }
}

class HelpEditorPanel {
    constructor(mainArea) {
        this.mainArea = mainArea;
        this.state = null;
        this.shownPageVersion = -1;
        this.appliedFind = 0;
        this.queue = Promise.resolve();
        this.closedByProgram = false;
        this.tools = new ProjectTools(editorApi, (state) => this.apply(state));
        this.indexEntries = new IndexEntriesDialog(editorApi);

        this.tree = new EditorTree({
            select: (key) => this.act((page) => editorApi.select(key, page)),
            expand: (key, expanded) => this.act((page) => editorApi.expand(key, expanded, page)),
            key: (code, shift) => this.act((page) => editorApi.key(code, shift, page)),
            menu: (item) => this.act((page) => editorApi.menu(item, page)),
            rename: (text) => this.act((page) => editorApi.rename(text, page)),
            drop: (source, target) => this.act((page) => editorApi.drop(source, target, page)),
        });
        this.page = new HTMLEdit({
            sourceText: async (html) => (await editorApi.sourceText(html)).text,
            tempPage: async (text) => (await editorApi.tempPage(text)).path,
            navigated: (path) => this.act((page) => editorApi.navigated(path, page)),
            changed: () => this.#showStatus(),
            save: () => this.save(),
            left: () => {
                if (this.page.dirty)
                    this.act((page) => (page ? editorApi.hold(page) : editorApi.state()));
            },
            status: (texts) => this.#setStatus(texts),
            modeChanged: () => this.#updateCommands(),
            selectionChanged: () => this.#updateToolbar(),
            // Tests and tools can tell when the page is ready to be edited.
            loading: () => (this.element.dataset.pageState = "loading"),
            loaded: () => (this.element.dataset.pageState = "ready"),
            baseFolder: () => this.state?.project?.folder || "",
            imageFolder: () => this.state?.project?.imageFolder || "",
        });

        this.element = element("div", "help-editor");
        this.element.setAttribute("aria-label", "Help Editor");
        this.menus = new EditorMenus(this.#menuDefinitions());
        this.toolbar = this.#buildToolbar();
        const body = element("div", "editor-body");
        this.splitter = element("div", "editor-splitter");
        this.splitter.setAttribute("role", "separator");
        this.splitter.setAttribute("aria-orientation", "vertical");
        this.splitter.tabIndex = 0;
        this.#makeSplitter();
        const pagePane = element("div", "editor-page-pane");
        this.modeBar = this.#buildModeBar();
        pagePane.append(this.page.element, this.modeBar);
        body.append(this.tree.element, this.splitter, pagePane);
        this.statusBar = element("div", "editor-statusbar");
        this.statusBar.setAttribute("role", "status");
        this.element.append(this.menus.element, this.toolbar, body, this.statusBar);
        this.element.addEventListener("keydown", (event) => {
            if ((event.ctrlKey || event.metaKey) && event.key.toLowerCase() === "s" && !this.tree.list.contains(event.target)) {
                event.preventDefault();
                this.save();
            }
        });
    }

    // --- talking to the program ---
    // Runs one request at a time, with the page when it changed, and shows the answer.
    act(request) {
        const run = async () => {
            const page = this.page.pendingPage();
            try {
                const state = await request(page);
                if (page)
                    this.page.handedOver(false);
                await this.apply(state);
                return state;
            } catch (error) {
                if (error instanceof ApiError && error.status === 409)
                    this.#setMessage(error.message);
                else
                    this.#setMessage(`The Help Editor did not answer: ${error.message}`);
                return null;
            }
        };
        this.queue = this.queue.then(run, run);
        return this.queue;
    }

    async refresh() {
        try {
            await this.apply(await editorApi.state());
        } catch (error) {
            this.#setMessage(`The Help Editor's state could not be read: ${error.message}`);
        }
    }

    async apply(state) {
        if (!state)
            return;
        if (!state.open) {
            this.closeFromProgram();
            return;
        }
        this.state = state;
        this.element.dataset.project = state.project.name;
        if (state.treeVersion !== this.tree.version)
            this.tree.render(await editorApi.tree());
        this.tree.setSelected(state.selectedKey);
        this.tree.setMenu(state.treeMenu);
        this.tree.setInfo(state.infoText);
        if (state.renaming && state.renameKey)
            this.tree.startRename(state.renameKey);
        const findChanged = state.find.serial !== this.appliedFind;
        const find = findChanged && (state.find.url || state.find.text) ? { url: state.find.url, text: state.find.text } : null;
        this.appliedFind = state.find.serial;
        if (state.pageVersion !== this.shownPageVersion) {
            this.shownPageVersion = state.pageVersion;
            this.element.dataset.page = state.page.path;
            this.page.open(state.page, find);
        } else if (find) {
            this.page.findNow(find);
        }
        this.page.setHeldDirty(state.dirty);
        this.#updateCommands();
    }

    async save() {
        if (this.page.isEmpty()) {
            const go = await confirmBox(`Save empty document as ${this.page.path}?`, { defaultIndex: 1 });
            if (!go)
                return false;
        }
        const state = await this.act((page) => editorApi.save(page || this.page.pageText()));
        if (state?.saved)
            this.page.handedOver(true);
        return state?.saved === true;
    }

    async command(name) {
        const page = this.page.pendingPage();
        try {
            await editorApi.command(name, page);
            if (page)
                this.page.handedOver(false);
        } catch (error) {
            this.#setMessage(error.message);
        }
    }

    async findReplace(mode) {
        if (!this.state)
            return;
        if (mode === 1 && this.page.mode === "html") {
            const go = await confirmBox("Replacing strings in HTML mode is risky, it can make the source HTML invalid.\r\n"
                + "It is more safe to do the project level Find & Replace in Edit mode.\r\n"
                + "Continue with the project level Find & Replace in HTML mode?", { icon: "exclamation" });
            if (!go)
                return;
        }
        const selected = this.page.document?.getSelection()?.toString() || "";
        const answer = await this.tools.askFindReplace(mode, this.state.findDialog, selected.length < 80 ? selected : "");
        if (!answer)
            return;
        const page = this.page.pendingPage();
        await editorApi.findReplace({ mode, htmlMode: this.page.mode === "html", ...answer }, page);
        if (page)
            this.page.handedOver(false);
    }

    async wordExport(target) {
        const answer = await this.tools.askWordExport(target);
        if (answer)
            await editorApi.wordExport(answer.target, answer.savePictures);
    }

    closeFromProgram() {
        const panel = this.mainArea.find(KIND, KEY);
        this.tools.closeBrokenLinks();
        this.tools.closeFindReport();
        if (!panel)
            return;
        this.closedByProgram = true;
        this.mainArea.close(panel);
    }

    // The tab's close button: the editor closes as its Close command does,
    // saving the page without asking.
    closing() {
        if (this.closedByProgram)
            return true;
        this.command("Close");
        return false;
    }

    // --- menus and tool bar ---
    #menuDefinitions() {
        const page = this.page;
        const editing = () => page.mode === "edit";
        const cmd = (name, caption, code, shortcut) => ({ name, caption, shortcut, run: () => page.exec(code), enabled: editing });
        const program = (name, caption) => ({
            name, caption, run: () => this.command(name), enabled: () => this.state?.editorCommands?.includes(name) ?? false,
        });
        return [
            { caption: "File", entries: [
                { name: "Save", caption: "Save", shortcut: "Ctrl+S", run: () => this.save() },
                null,
                program("Recompile", "Recompile"),
                program("GetNewObjects", "Get New Objects"),
                program("ExportToWord", "Export to MS Word..."),
                null,
                program("Close", "Close"),
            ] },
            { caption: "Edit", entries: [
                { name: "Undo", caption: "Undo", run: () => page.exec("Undo") },
                { name: "Redo", caption: "Redo", run: () => page.exec("Redo") },
                null,
                cmd("Cut", "Cut", 5003),
                cmd("Copy", "Copy", 5002),
                cmd("Paste", "Paste", 5032),
                cmd("SelectAll", "Select All", 5035),
                null,
                { name: "FindAll", caption: "Find in All Pages...", run: () => this.findReplace(0) },
                { name: "ReplaceAll", caption: "Replace in All Pages...", run: () => this.findReplace(1) },
            ] },
            { caption: "View", entries: [
                { name: "EditMode", caption: "Edit", run: () => page.setMode("edit"), checked: () => page.mode === "edit" },
                { name: "HtmlMode", caption: "HTML", run: () => page.setMode("html"), checked: () => page.mode === "html" },
                { name: "BrowseMode", caption: "Browse", run: () => page.setMode("browse"), checked: () => page.mode === "browse" },
            ] },
            { caption: "Insert", entries: [
                { name: "PopUpHyperlink", caption: "Hyperlink...", run: () => page.PopUpHyperlink(), enabled: editing },
                { name: "PopUpHyperlinkRelative", caption: "Hyperlink to a Help Page...", run: () => page.PopUpHyperlinkRelative(), enabled: editing },
                { name: "PopUpLinkToBookmark", caption: "Link to Bookmark...", run: () => page.PopUpLinkToBookmark(), enabled: editing },
                { name: "PopUpBookmark", caption: "Bookmark...", run: () => page.PopUpBookmark(), enabled: editing },
                { name: "PopUpPicture", caption: "Picture...", run: () => page.PopUpPicture(), enabled: editing },
                { name: "InsertHR", caption: "Horizontal Line", run: () => page.InsertHR(), enabled: editing },
            ] },
            { caption: "Format", entries: [
                cmd("Bold", "Bold", 5000, "Ctrl+B"),
                cmd("Italic", "Italic", 5023, "Ctrl+I"),
                cmd("Underline", "Underline", 5048, "Ctrl+U"),
                cmd("RemoveFormat", "Remove Formatting", 5034),
                null,
                cmd("InsertOrderedList", "Numbered List", 5030),
                cmd("InsertUnOrderedList", "Bulleted List", 5051),
                cmd("Indent", "Increase Indent", 5018),
                cmd("Outdent", "Decrease Indent", 5031),
                null,
                cmd("JustifyLeft", "Align Left", 5025),
                cmd("JustifyCenter", "Center", 5024),
                cmd("JustifyRight", "Align Right", 5026),
                cmd("AbsolutePosition", "Absolute Position", 5028),
            ] },
            { caption: "Tools", entries: [
                { name: "SearchForBrokenLinks", caption: "Check Links...", run: () => this.command("SearchForBrokenLinks") },
                null,
                program("OpenHelp", "Open Compiled Help"),
                program("OpenWebHelp", "Open Browser Help"),
                program("OpenHelpFolder", "Open Help Folder"),
            ] },
            { caption: "Help", entries: [program("Contents", "Contents"), program("About", "About...")] },
        ];
    }

    #buildToolbar() {
        const bar = element("div", "editor-toolbar");
        bar.id = "tbFormatting";
        bar.setAttribute("role", "toolbar");
        bar.setAttribute("aria-label", "Formatting");
        this.toolButtons = [];
        const tool = (label, title, code) => {
            const node = button(label, () => this.page.exec(code), "tool");
            node.title = title;
            node.setAttribute("aria-label", title);
            node.dataset.command = title;
            node.dataset.code = String(code);
            this.toolButtons.push(node);
            bar.append(node);
            return node;
        };
        const combo = (name, choices, code) => {
            const select = element("select", "tool-combo");
            select.id = name;
            select.setAttribute("aria-label", choices[0]);
            for (const choice of choices) {
                const [value, label] = Array.isArray(choice) ? choice : [choice, choice];
                select.append(Object.assign(element("option", "", label), { value: value === choices[0] ? "" : value }));
            }
            select.addEventListener("change", () => {
                if (select.value)
                    this.page.exec(code, select.value);
                select.selectedIndex = 0;
            });
            this.toolButtons.push(select);
            bar.append(select);
        };
        combo("cboStyle", STYLES, 5011);
        combo("FontCombo", FONTS, 5009);
        combo("FontSizeCombo", SIZES, 5014);
        tool("B", "Bold", 5000).classList.add("bold");
        tool("I", "Italic", 5023).classList.add("italic");
        tool("U", "Underline", 5048).classList.add("underline");
        tool("1.", "Numbered List", 5030);
        tool("\u2022", "Bulleted List", 5051);
        tool("\u21e4", "Decrease Indent", 5031);
        tool("\u21e5", "Increase Indent", 5018);
        tool("\u2261L", "Align Left", 5025);
        tool("\u2261C", "Center", 5024);
        tool("\u2261R", "Align Right", 5026);
        const link = button("Link", () => this.page.PopUpHyperlinkRelative(), "tool");
        link.title = "Hyperlink to a Help Page";
        const picture = button("Picture", () => this.page.PopUpPicture(), "tool");
        picture.title = "Picture";
        this.toolButtons.push(link, picture);
        bar.append(link, picture);
        return bar;
    }

    #buildModeBar() {
        const bar = element("div", "editor-modes");
        bar.setAttribute("role", "tablist");
        bar.setAttribute("aria-label", "Editing mode");
        this.modeButtons = {};
        for (const [mode, caption] of [["edit", "Edit"], ["html", "HTML"], ["browse", "Browse"]]) {
            const node = button(caption, () => this.page.setMode(mode), "mode");
            node.setAttribute("role", "tab");
            node.dataset.mode = mode;
            this.modeButtons[mode] = node;
            bar.append(node);
        }
        return bar;
    }

    #updateCommands() {
        this.menus.update();
        for (const [mode, node] of Object.entries(this.modeButtons))
            node.setAttribute("aria-selected", String(this.page.mode === mode));
        this.element.dataset.mode = this.page.mode;
        this.#updateToolbar();
    }

    // The formatting tools are off outside Edit mode; the state commands
    // show whether they hold at the selection.
    #updateToolbar() {
        const editing = this.page.mode === "edit";
        const states = this.page.commandStates();
        for (const node of this.toolButtons) {
            node.disabled = !editing;
            const name = node.title;
            if (name && states[commandName(name)] !== undefined)
                node.setAttribute("aria-pressed", String(states[commandName(name)]));
        }
    }

    #makeSplitter() {
        const tree = this.tree.element;
        // The bar says the tree's width in pixels, between its narrowest and widest.
        this.splitter.setAttribute("aria-label", "Width of the contents tree");
        this.splitter.setAttribute("aria-valuemin", String(MIN_TREE_WIDTH));
        this.splitter.setAttribute("aria-valuemax", String(MAX_TREE_WIDTH));
        const setWidth = (width) => {
            const bounded = Math.round(Math.max(MIN_TREE_WIDTH, Math.min(width, MAX_TREE_WIDTH)));
            tree.style.width = `${bounded}px`;
            this.splitter.setAttribute("aria-valuenow", String(bounded));
        };
        setWidth(DEFAULT_TREE_WIDTH);
        this.splitter.addEventListener("pointerdown", (event) => {
            this.splitter.setPointerCapture(event.pointerId);
            const startX = event.clientX;
            const startWidth = tree.getBoundingClientRect().width;
            this.element.classList.add("resizing");
            const move = (moved) => setWidth(startWidth + moved.clientX - startX);
            const up = () => {
                this.element.classList.remove("resizing");
                this.splitter.removeEventListener("pointermove", move);
                this.splitter.removeEventListener("pointerup", up);
            };
            this.splitter.addEventListener("pointermove", move);
            this.splitter.addEventListener("pointerup", up);
        });
        this.splitter.addEventListener("keydown", (event) => {
            const width = tree.getBoundingClientRect().width;
            if (event.key === "ArrowLeft")
                setWidth(width - 16);
            else if (event.key === "ArrowRight")
                setWidth(width + 16);
        });
    }

    // --- status bar ---
    #setStatus(texts) {
        this.statusTexts = texts;
        this.#showStatus();
    }

    #showStatus() {
        const panels = (this.statusTexts || []).filter((panel) => panel.text !== "" || panel.key === "Dirty");
        this.statusBar.replaceChildren(...panels.map((panel) => {
            const node = element("span", "status-panel", panel.text);
            node.dataset.key = panel.key;
            return node;
        }));
        if (this.message)
            this.statusBar.append(element("span", "status-message", this.message));
    }

    #setMessage(text) {
        this.message = text;
        this.#showStatus();
    }
}

function commandName(title) {
    return {
        Bold: "Bold", Italic: "Italic", Underline: "Underline", "Numbered List": "InsertOrderedList",
        "Bulleted List": "InsertUnOrderedList", "Align Left": "JustifyLeft", Center: "JustifyCenter",
        "Align Right": "JustifyRight",
    }[title];
}

let editorPanel = null;

// Registers the editor's panel kind and follows the program's editor.
export function registerEditor(mainArea) {
    const style = document.createElement("link");
    style.rel = "stylesheet";
    style.href = "editor.css";
    document.head.append(style);
    mainArea.registerKind(KIND, {
        keyOf: () => KEY,
        create() {
            editorPanel = new HelpEditorPanel(mainArea);
            const panel = editorPanel;
            return {
                title: "Help Editor",
                element: panel.element,
                update: () => panel.refresh(),
                closing: () => panel.closing(),
                dispose: () => {
                    if (editorPanel === panel)
                        editorPanel = null;
                },
            };
        },
    });
    // Opens the panel, or reads the open one's state again; it comes to the
    // front when it is new or asked to (another panel, a help the editor
    // opened, stays in front otherwise).
    const show = (toFront) => {
        const existing = mainArea.find(KIND, KEY);
        if (!existing) {
            mainArea.open(KIND, {});
            editorPanel?.refresh();
        } else if (toFront) {
            mainArea.open(KIND, {});
        } else {
            editorPanel?.refresh();
        }
        return editorPanel;
    };
    onStudioEvent("editor", (event) => {
        if (event.open)
            show(event.focus === true);
        else
            editorPanel?.closeFromProgram();
    });
    onStudioEvent("editor-report", (event) => {
        const panel = editorPanel;
        if (!panel)
            return;
        if (event.report === "broken-links")
            event.closed ? panel.tools.closeBrokenLinks() : panel.tools.showBrokenLinks(event.rows);
        else if (event.report === "find-replace")
            event.closed ? panel.tools.closeFindReport() : panel.tools.showFindReport(event);
    });
    onStudioEvent("editor-dialog", (event) => {
        if (event.dialog === "word-export")
            editorPanel?.wordExport(event.target);
        else if (event.dialog === "index-entries")
            event.closed ? editorPanel?.indexEntries.close() : editorPanel?.indexEntries.show(event);
    });
    onStudioEvent("run", (event) => {
        if (event.state === "ended")
            editorPanel?.refresh();
    });
    onStudioEvent("connection", async ({ connected }) => {
        if (!connected)
            return;
        try {
            const state = await editorApi.state();
            if (state.open)
                show(false);
            else
                editorPanel?.closeFromProgram();
        } catch {
            // The studio's own state shows the connection.
        }
    });
}

export { messageBox };
