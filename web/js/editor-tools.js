// The dialogs of the project tools of the Help Editor: the broken links
// report (frmBrokenLinks), find and replace over all pages
// (frmFindReplaceDlg) with its report (frmFindReplaceReport), and the
// export to Word (frmMSWordExport). The work is the program's; these ask and
// show.

import { element } from "./dom.js";
import { button, modal } from "./editor-dialogs.js";
import { buildPathChooser } from "./path-chooser.js";

// A report: a non-modal window with a list view in report view and the
// buttons "&Open", "&Close" and "Help".
class ReportWindow {
    constructor({ id, caption, columns, onOpen, onClose, onHelp }) {
        this.onOpen = onOpen;
        this.dialog = element("dialog", "studio-dialog editor-report");
        this.dialog.id = id;
        const title = element("h2", "dialog-title", caption);
        title.id = `${id}-title`;
        this.dialog.setAttribute("aria-labelledby", title.id);
        this.table = element("table", "list-view");
        this.table.setAttribute("role", "grid");
        const head = element("thead");
        const headRow = element("tr");
        for (const column of columns)
            headRow.append(element("th", "", column));
        head.append(headRow);
        this.body = element("tbody");
        this.table.append(head, this.body);
        this.status = element("div", "report-status");
        this.status.hidden = true;
        const row = element("div", "dialog-buttons");
        this.openButton = button("Open", () => this.#open());
        this.openButton.innerHTML = "<u>O</u>pen";
        this.openButton.setAttribute("aria-label", "Open");
        const close = button("Close", () => onClose());
        close.innerHTML = "<u>C</u>lose";
        close.setAttribute("aria-label", "Close");
        row.append(this.openButton, close, button("Help", () => onHelp()));
        const scroller = element("div", "list-scroller");
        scroller.append(this.table);
        this.dialog.append(title, scroller, this.status, row);
        this.dialog.addEventListener("cancel", (event) => {
            event.preventDefault();
            onClose();
        });
        this.dialog.addEventListener("keydown", (event) => {
            if (event.altKey && event.key.toLowerCase() === "o") {
                event.preventDefault();
                this.#open();
            } else if (event.altKey && event.key.toLowerCase() === "c") {
                event.preventDefault();
                onClose();
            }
        });
        document.body.append(this.dialog);
    }

    // rows: [[{ text, title }]]
    fill(rows) {
        this.body.replaceChildren();
        rows.forEach((cells, index) => {
            const row = element("tr");
            row.tabIndex = 0;
            row.dataset.row = String(index);
            for (const cell of cells) {
                const node = element("td", "", cell.text);
                if (cell.title)
                    node.title = cell.title;
                row.append(node);
            }
            row.addEventListener("click", () => this.#select(row));
            row.addEventListener("dblclick", () => {
                this.#select(row);
                this.#open();
            });
            row.addEventListener("keydown", (event) => {
                if (event.key === "Enter")
                    this.#open();
            });
            this.body.append(row);
        });
        const first = this.body.querySelector("tr");
        if (first)
            this.#select(first);
    }

    #select(row) {
        for (const other of this.body.querySelectorAll("tr[aria-selected='true']"))
            other.setAttribute("aria-selected", "false");
        row.setAttribute("aria-selected", "true");
        this.selected = Number(row.dataset.row);
    }

    #open() {
        if (this.selected !== undefined)
            this.onOpen(this.selected);
    }

    show() {
        if (!this.dialog.open)
            this.dialog.show();
        this.dialog.querySelector("tr[aria-selected='true']")?.focus();
    }

    close() {
        if (this.dialog.open)
            this.dialog.close();
        this.dialog.remove();
    }
}

export class ProjectTools {
    // api: the editor API; report(report, action, row) answers the editor state.
    constructor(api, afterReportAction) {
        this.api = api;
        this.afterReportAction = afterReportAction;
        this.brokenLinks = null;
        this.findReport = null;
    }

    // --- frmBrokenLinks ---
    showBrokenLinks(rows) {
        if (!this.brokenLinks) {
            this.brokenLinks = new ReportWindow({
                id: "frmBrokenLinks",
                caption: "Broken Links",
                columns: ["Page", "Hyperlink", "Problem"],
                onOpen: (row) => this.#report("broken-links", "open", row),
                onClose: () => this.#report("broken-links", "close"),
                onHelp: () => this.#report("broken-links", "help"),
            });
        }
        this.brokenLinks.fill(rows.map((row) => [
            { text: row.page, title: row.pageTip },
            { text: row.url, title: row.urlTip },
            { text: row.problem, title: row.problemTip },
        ]));
        this.brokenLinks.show();
    }

    closeBrokenLinks() {
        this.brokenLinks?.close();
        this.brokenLinks = null;
    }

    // --- frmFindReplaceReport ---
    showFindReport(report) {
        if (!this.findReport) {
            this.findReport = new ReportWindow({
                id: "frmFindReplaceReport",
                caption: "Find and Replace All",
                columns: ["HTML File"],
                onOpen: (row) => this.#report("find-replace", "open", row),
                onClose: () => this.#report("find-replace", "close"),
                onHelp: () => this.#report("find-replace", "help"),
            });
        }
        this.findReport.fill(report.rows.map((row) => [{ text: row.page, title: row.path }]));
        const status = this.findReport.status;
        status.hidden = false;
        status.id = "stbInfo";
        status.replaceChildren(element("span", "panel", report.status),
            element("span", "panel", `Occurrences: ${report.occurrences}`));
        this.findReport.show();
    }

    closeFindReport() {
        this.findReport?.close();
        this.findReport = null;
    }

    async #report(report, action, row = -1) {
        if (action === "close") {
            if (report === "broken-links")
                this.closeBrokenLinks();
            else
                this.closeFindReport();
        }
        const state = await this.api.report(report, action, row);
        this.afterReportAction(state);
    }

    // --- frmFindReplaceDlg ---
    // mode 0 find, 1 replace; history: { findTexts, replaceTexts, wholeWord, matchCase }.
    // Answers { findWhat, replaceWith, wholeWord, matchCase } or null.
    askFindReplace(mode, history, selectedText = "") {
        const replace = mode === 1;
        const caption = replace ? "Replace All" : "Find All";
        return modal(caption, "find-replace", (dialog, close) => {
            dialog.id = "frmFindReplaceDlg";
            const body = element("div", "dialog-body find-fields");
            const field = (id, label, texts, value) => {
                const holder = element("label", "combo");
                const input = element("input");
                input.id = id;
                input.type = "text";
                input.value = value;
                input.setAttribute("list", `${id}-list`);
                const list = element("datalist");
                list.id = `${id}-list`;
                for (const text of texts)
                    list.append(Object.assign(element("option"), { value: text }));
                const caption = element("span", "", label);
                if (id === "cbxReplaceWith")
                    caption.id = "lblReplaceWith";
                holder.append(caption, input, list);
                return { holder, input };
            };
            const findWhat = field("cbxFindWhat", "Find What:", history.findTexts || [],
                selectedText || history.findTexts?.[0] || "");
            findWhat.input.autofocus = true;
            const replaceWith = field("cbxReplaceWith", "Replace With:", history.replaceTexts || [],
                history.replaceTexts?.[0] || "");
            // In find mode the replace line is hidden and the check boxes move up.
            replaceWith.holder.hidden = !replace;
            const check = (id, label, checked) => {
                const holder = element("label", "check");
                const box = element("input");
                box.type = "checkbox";
                box.id = id;
                box.checked = Boolean(checked);
                holder.append(box, element("span", "", label));
                return { holder, box };
            };
            const wholeWord = check("chkWholeWordOnly", "Find Whole Word Only", history.wholeWord);
            const matchCase = check("chkMatchCase", "Match Case", history.matchCase);
            body.append(findWhat.holder, replaceWith.holder, wholeWord.holder, matchCase.holder);
            const ok = button(caption, () => {
                if (!findWhat.input.value)
                    return findWhat.input.focus();
                close({
                    findWhat: findWhat.input.value,
                    replaceWith: replaceWith.input.value,
                    wholeWord: wholeWord.box.checked,
                    matchCase: matchCase.box.checked,
                });
            }, "default");
            ok.id = "cmdOK";
            const cancel = button("Cancel", () => close(null));
            cancel.id = "cmdCancel";
            for (const input of [findWhat.input, replaceWith.input])
                input.addEventListener("keydown", (key) => key.key === "Enter" && ok.click());
            const row = element("div", "dialog-buttons");
            row.append(ok, cancel);
            dialog.append(body, row);
        });
    }

    // --- frmMSWordExport ---
    // Answers { target, savePictures } or null.
    askWordExport(defaultTarget) {
        return modal("Export to MS Word", "word-export", (dialog, close) => {
            dialog.id = "frmMSWordExport";
            const body = element("div", "dialog-body");
            const pathRow = element("label", "path-field");
            const target = element("input");
            target.id = "txtDoc2SaveFullPath";
            target.type = "text";
            target.value = defaultTarget;
            target.autofocus = true;
            const browse = button("...", async () => {
                const chosen = await chooseSavePath(target.value);
                if (chosen)
                    target.value = /\.docx?$/i.test(chosen) ? chosen : `${chosen}.docx`;
            });
            browse.setAttribute("aria-label", "Browse");
            pathRow.append(element("span", "", "Document:"), target, browse);
            const pictures = element("label", "check");
            const box = element("input");
            box.type = "checkbox";
            box.id = "chkSaveScreenshotsWithDoc";
            box.checked = true;
            pictures.append(box, element("span", "", "Save screenshots with the document"));
            body.append(pathRow, pictures);
            const row = element("div", "dialog-buttons");
            const ok = button("OK", () => {
                if (target.value.trim())
                    close({ target: target.value.trim(), savePictures: box.checked });
            }, "default");
            ok.id = "cmdOK";
            row.append(ok, button("Cancel", () => close(null)));
            dialog.append(body, row);
        });
    }
}

// The save dialog of the export: a folder and a name.
function chooseSavePath(current) {
    const folder = current.slice(0, current.lastIndexOf("/") + 1);
    return modal("Select fullpath to save exported document", "file-box", (dialog, close) => {
        const chooser = buildPathChooser({
            kind: "file", pattern: "*.doc*", filterName: "Word Document(*.docx)", startFolder: folder, onChoose: close,
        });
        const row = element("div", "dialog-buttons");
        row.append(button("OK", () => close(chooser.value() || null), "default"), button("Cancel", () => close(null)));
        dialog.append(chooser.element, row);
    });
}

// frmHHCEntryIndexKeywords, "Node Index Entries": the index entries of a
// node, edited by the program's dialog logic; each button goes to it and its
// answer is shown. The program closes the dialog when OK or Cancel is done.
export class IndexEntriesDialog {
    constructor(api) {
        this.api = api;
        this.dialog = null;
    }

    show(state) {
        if (!this.dialog)
            this.#build(state.title);
        this.#fill(state);
        if (!this.dialog.open)
            this.dialog.showModal();
        this.text.focus();
    }

    close() {
        if (!this.dialog)
            return;
        if (this.dialog.open)
            this.dialog.close();
        this.dialog.remove();
        this.dialog = null;
    }

    #build(title) {
        const dialog = element("dialog", "studio-dialog editor-dialog index-entries");
        dialog.id = "frmHHCEntryIndexKeywords";
        const heading = element("h2", "dialog-title", title);
        heading.id = "frmHHCEntryIndexKeywords-title";
        dialog.setAttribute("aria-labelledby", heading.id);
        const body = element("div", "dialog-body");
        this.list = element("select", "entries");
        this.list.id = "lstIndexEntries";
        this.list.size = 8;
        this.list.setAttribute("aria-label", "Index entries");
        this.text = element("input");
        this.text.id = "txtIndexEntry";
        this.text.type = "text";
        this.text.setAttribute("aria-label", "Index entry");
        const side = element("div", "entry-buttons");
        const make = (id, label, action) => {
            const node = button(label, () => this.#send(action));
            node.id = id;
            side.append(node);
            return node;
        };
        this.buttons = {
            add: make("cmdAddEntry", "Add", "add"),
            delete: make("cmdDeleteEntry", "Delete", "delete"),
            up: make("cmdMoveUp", "Up", "up"),
            down: make("cmdMoveDown", "Down", "down"),
        };
        const fields = element("div", "entry-fields");
        fields.append(this.text, this.list);
        body.append(fields, side);
        const row = element("div", "dialog-buttons");
        const ok = button("OK", () => this.#send("ok"), "default");
        ok.id = "cmdOK";
        const cancel = button("Cancel", () => this.#send("cancel"));
        cancel.id = "cmdCancel";
        const help = button("Help", () => {});
        help.id = "cmdHelp";
        help.disabled = true;
        row.append(ok, cancel, help);
        dialog.append(heading, body, row);
        this.list.addEventListener("change", () => this.#send("select"));
        this.text.addEventListener("keydown", (event) => {
            if (event.key === "Enter") {
                event.preventDefault();
                this.#send("add");
            }
        });
        dialog.addEventListener("cancel", (event) => {
            event.preventDefault();
            this.#send("cancel");
        });
        document.body.append(dialog);
        this.dialog = dialog;
    }

    #fill(state) {
        this.list.replaceChildren(...state.entries.map((entry, index) => {
            const option = element("option", "", entry);
            option.value = String(index);
            option.selected = state.selected === index;
            return option;
        }));
        this.text.value = state.text;
        for (const [name, node] of Object.entries(this.buttons))
            node.disabled = !state.buttons[name];
        // Something typed can always be added.
        this.buttons.add.disabled = false;
    }

    async #send(action) {
        if (!this.dialog)
            return;
        const selected = this.list.selectedIndex < 0 ? null : this.list.selectedIndex;
        let state;
        try {
            state = await this.api.indexEntries({ action, text: this.text.value, selected });
        } catch {
            return;
        }
        if (!state.open) {
            this.close();
            return;
        }
        this.#fill(state);
        if (state.textFocus || action === "add")
            this.text.focus();
    }
}

