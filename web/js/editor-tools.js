// The dialogs of the project tools of the Help Editor: the broken links
// report (frmBrokenLinks), find and replace over all pages
// (frmFindReplaceDlg) with its report (frmFindReplaceReport), and the
// export to Word (frmMSWordExport). The work is the program's; these ask and
// show.

import { button, element, modal } from "./editor-dialogs.js";
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
