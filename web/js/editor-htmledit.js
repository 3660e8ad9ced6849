// HTMLEdit, the page editor of the Help Editor: the page in a frame in design
// mode (Edit), its coloured source (HTML) or the page as a reader follows it
// (Browse). The page is served for editing on the studio's own origin with
// its scripts disabled; what is saved is the live document, which the
// program writes through its beautifier.

import { encodePath } from "./api.js";
import { element } from "./dom.js";
import { button, confirmBox, fileBox, listBox, messageBox, promptBox } from "./editor-dialogs.js";
import { CRichTextBox, DRAG_MARKER } from "./source-view.js";

// The marker of the caret across a switch of modes; it never reaches a file.
export const CURSOR_MARKER = "{CURRENTCURSORPOSITON}";
export const TEMP_PAGE = "~temp.htp";

// The commands of the editor: code, the document's command name.
export const COMMANDS = Object.freeze({
    5000: "Bold", 5002: "Copy", 5003: "Cut", 5004: "Delete",
    5009: "FontName", 5013: "FontName", 5044: "FontName",
    5010: "BackColor", 5042: "BackColor", 5011: "FormatBlock", 5043: "FormatBlock",
    5014: "FontSize", 5045: "FontSize", 5015: "ForeColor", 5046: "ForeColor",
    5016: "CreateLink", 5017: "InsertImage", 5018: "Indent", 5023: "Italic",
    5024: "JustifyCenter", 5025: "JustifyLeft", 5026: "JustifyRight", 5028: "AbsolutePosition",
    5030: "InsertOrderedList", 5031: "Outdent", 5032: "Paste", 5033: "Redo",
    5034: "RemoveFormat", 5035: "SelectAll", 5048: "Underline", 5049: "Undo",
    5050: "Unlink", 5051: "InsertUnOrderedList",
});

// Commands whose state a toolbar button shows as checked.
const STATE_COMMANDS = new Set(["Bold", "Italic", "Underline", "JustifyLeft", "JustifyCenter", "JustifyRight",
    "InsertOrderedList", "InsertUnOrderedList"]);

export function editUrl(path) {
    return `/edit${encodePath(path)}`;
}

// The file path of an address of the page editor ("" for any other address)
// and its "#" part.
export function pathOfEditUrl(url) {
    let parsed;
    try {
        parsed = new URL(url, location.href);
    } catch {
        return { path: "", hash: "" };
    }
    if (parsed.origin !== location.origin || !parsed.pathname.startsWith("/edit/"))
        return { path: "", hash: "" };
    return { path: decodeURIComponent(parsed.pathname.slice(5)), hash: decodeURIComponent(parsed.hash.slice(1)) };
}

export function folderOf(path) {
    return path.slice(0, path.lastIndexOf("/") + 1);
}

export function fileNameOf(path) {
    return path.slice(path.lastIndexOf("/") + 1);
}

// The relative link from a page's folder to a file: the page's own folder
// goes, and "~temp.htp" stands for the page.
export function relativeLink(pagePath, target) {
    const from = folderOf(pagePath).split("/").filter(Boolean);
    const to = target.split("/").filter(Boolean);
    let common = 0;
    while (common < from.length && common < to.length - 1 && from[common] === to[common])
        ++common;
    const ups = from.slice(common).map(() => "..");
    const link = [...ups, ...to.slice(common)].join("/");
    return link.split("/").map((part) => (part === ".." ? part : encodeURIComponent(part).replace(/%2F/g, "/"))).join("/");
}

export class HTMLEdit {
    // host: { sourceText(html), tempPage(text), navigated(path), changed(), save(), status(texts) }
    constructor(host) {
        this.host = host;
        this.mode = "edit";
        this.page = null; // { path, loadedDocUrl, readOnly, fromTemplate, bookmark }
        this.dirty = false; // changed since the program last had the text
        this.heldDirty = false; // the program holds changes not yet saved
        this.pendingLoad = null;
        this.loadCount = 0;
        this.shownDocument = null;
        this.shownBookmark = "";
        this.history = [];
        this.historyAt = -1;

        this.element = element("div", "html-edit");
        this.frame = element("iframe", "page-surface");
        this.frame.title = "Page";
        // The page's own scripts never run; this page edits it.
        this.frame.setAttribute("sandbox", "allow-same-origin");
        this.source = new CRichTextBox({
            onChange: () => this.#markDirty(),
            onStatus: (status) => this.#sourceStatus(status),
            linkOf: (path) => this.linkTo(path),
        });
        this.source.element.hidden = true;
        this.popup = element("div", "editor-popup page-popup");
        this.popup.setAttribute("role", "menu");
        this.popup.hidden = true;
        this.element.append(this.frame, this.source.element, this.popup);
        this.frame.addEventListener("load", () => this.#loaded());
        // Leaving the page for the tree, a menu or a dialog hands its text over.
        this.frame.addEventListener("blur", () => this.host.left?.());
        this.source.element.addEventListener("blur", () => this.host.left?.());
        document.addEventListener("click", (event) => {
            if (!this.popup.contains(event.target))
                this.popup.hidden = true;
        });
    }

    get document() {
        try {
            return this.frame.contentDocument;
        } catch {
            return null;
        }
    }

    // The path the page is saved to.
    get path() {
        return this.page?.path || "";
    }

    // --- opening ---
    // Shows a page of the editor's state; find: { url, text } to look for once it is shown.
    open(page, find) {
        this.page = { ...page };
        this.dirty = false;
        this.heldDirty = false;
        this.#load(page.loadedDocUrl, { bookmark: page.bookmark, find });
        if (page.readOnly) {
            if (this.mode !== "browse") {
                messageBox(`${page.loadedDocUrl} is read-only \u2013 HTML Editor will be switched in Browse mode.`,
                    { icon: "exclamation" });
                this.mode = "browse";
                this.host.modeChanged?.(this.mode);
            }
        }
        this.#status();
    }

    #load(path, pending) {
        this.pendingLoad = { path, ...pending };
        this.host.loading?.();
        this.frame.hidden = this.mode === "html";
        const doc = this.document;
        if (doc && doc.designMode === "on")
            doc.designMode = "off";
        this.frame.src = editUrl(path);
        this.#watchParsed(doc, path, ++this.loadCount);
    }

    // The page can be edited once it is parsed: its pictures may still be
    // coming. The frame's document is watched until the new one is there.
    #watchParsed(former, path, count) {
        const check = () => {
            if (count !== this.loadCount || this.pendingLoad?.path !== path)
                return;
            const doc = this.document;
            if (doc && doc !== former && doc.readyState !== "loading" && pathOfEditUrl(doc.URL).path === path) {
                this.#loaded();
                return;
            }
            setTimeout(check, 0);
        };
        setTimeout(check, 0);
    }

    // The page changed by something other than the person's typing (a find,
    // a bookmark): the held text is what it shows.
    setHeldDirty(dirty) {
        this.heldDirty = dirty;
        this.#status();
    }

    async #loaded() {
        const doc = this.document;
        if (!doc || !doc.documentElement)
            return;
        if (doc === this.shownDocument) {
            // Its pictures are in: a bookmark stands where it will stay.
            if (this.shownBookmark)
                this.GoToBookmark(this.shownBookmark);
            return;
        }
        this.shownDocument = doc;
        const pending = this.pendingLoad;
        this.pendingLoad = null;
        this.shownBookmark = pending?.bookmark || "";
        const { path, hash } = pathOfEditUrl(this.frame.contentWindow.location.href);
        this.#attach(doc);
        const expected = pending?.path || "";
        const isTemp = fileNameOf(path) === TEMP_PAGE;
        if (!pending && path && !isTemp && path !== this.page?.loadedDocUrl) {
            // A followed link: the tree follows, and the page becomes the editor's.
            this.#remember(path);
            this.host.navigated(hash ? `${path}#${hash}` : path);
        } else if (pending && !isTemp && expected === path) {
            this.#remember(path);
        }
        doc.designMode = this.mode === "edit" ? "on" : "off";
        if (pending?.marker)
            this.#takeOutMarkerInPage();
        if (pending?.bookmark)
            this.GoToBookmark(pending.bookmark);
        if (pending?.find)
            this.#findInPage(pending.find);
        if (this.mode === "html" && pending && !pending.fromSource)
            await this.#showSource(false);
        this.#status();
        this.host.loaded?.();
    }

    #remember(path) {
        if (this.history[this.historyAt] === path)
            return;
        this.history = this.history.slice(0, this.historyAt + 1);
        this.history.push(path);
        this.historyAt = this.history.length - 1;
    }

    #attach(doc) {
        doc.addEventListener("input", () => this.#markDirty());
        doc.addEventListener("keydown", (event) => this.#pageKey(event));
        doc.addEventListener("dragover", (event) => event.preventDefault());
        doc.addEventListener("drop", (event) => this.#drop(event));
        doc.addEventListener("contextmenu", (event) => this.#contextMenu(event));
        doc.addEventListener("click", (event) => this.#click(event));
        doc.addEventListener("selectionchange", () => this.host.selectionChanged?.());
        doc.addEventListener("mousedown", () => (this.popup.hidden = true));
    }

    #markDirty() {
        this.dirty = true;
        this.#status();
        this.host.changed();
    }

    get isDirty() {
        return this.dirty || this.heldDirty;
    }

    // --- the text ---
    // The live document as text (the source view's text in HTML mode).
    pageText() {
        if (this.mode === "html")
            return { text: this.source.Text, source: true };
        const doc = this.document;
        if (!doc?.documentElement)
            return { text: "", source: false };
        return { text: doctypeOf(doc) + doc.documentElement.outerHTML, source: false };
    }

    // The page has no body text.
    isEmpty() {
        if (this.mode === "html")
            return isEmptyPageText(this.source.Text);
        const body = this.document?.body;
        return !body || (body.innerText.trim() === "" && !body.querySelector("img, table, hr"));
    }

    // The page to send with a request when it changed since the program had it.
    pendingPage() {
        if (!this.dirty)
            return undefined;
        return this.pageText();
    }

    // The program has the text now.
    handedOver(saved) {
        this.dirty = false;
        if (saved)
            this.heldDirty = false;
        if (saved)
            this.source.Dirty = false;
        this.#status();
    }

    // --- modes ---
    async setMode(mode) {
        if (mode === this.mode || !this.page)
            return;
        if (this.page.readOnly && mode !== "browse") {
            await messageBox(`${this.page.loadedDocUrl} is read-only \u2013 HTML Editor will be switched in Browse mode.`,
                { icon: "exclamation" });
            return;
        }
        if (mode === "html") {
            if (this.page.fromTemplate && this.isDirty) {
                const answer = await messageBox("It is necessary to save HTML Document.\r\nContinue?", {
                    icon: "question",
                    buttons: [{ label: "OK", value: true }, { label: "Cancel", value: false }],
                });
                if (answer !== true)
                    return;
                await this.host.save();
            }
            this.mode = "html";
            await this.#showSource(true);
        } else if (this.mode === "html") {
            await this.#leaveSource(mode);
        } else {
            this.mode = mode;
            const doc = this.document;
            if (doc)
                doc.designMode = mode === "edit" ? "on" : "off";
        }
        this.host.modeChanged?.(this.mode);
        this.#status();
    }

    // Edit to HTML: the caret marked in the page, the beautifier's text of
    // the page in the source view, the caret at the marker.
    async #showSource(markCaret) {
        const doc = this.document;
        let marker = null;
        if (markCaret && doc)
            marker = this.#insertMarkerInPage(doc);
        const html = doc?.documentElement ? doctypeOf(doc) + doc.documentElement.outerHTML : "";
        marker?.remove();
        const text = await this.host.sourceText(html);
        const wasDirty = this.dirty;
        this.source.Text = text;
        this.frame.hidden = true;
        this.source.element.hidden = false;
        this.source.focus();
        if (!this.source.TakeOutMarker(CURSOR_MARKER))
            this.source.PlaceCursor(0);
        this.dirty = wasDirty;
    }

    #insertMarkerInPage(doc) {
        const selection = doc.getSelection();
        const marker = doc.createTextNode(` ${CURSOR_MARKER}`);
        if (selection && selection.rangeCount > 0 && doc.body?.contains(selection.anchorNode)) {
            const range = selection.getRangeAt(0).cloneRange();
            range.collapse(true);
            range.insertNode(marker);
        } else if (doc.body) {
            doc.body.prepend(marker);
        }
        return marker;
    }

    // HTML to Edit (or Browse): the source with the caret marked goes to the
    // temporary page beside the page, which the frame then shows.
    async #leaveSource(mode) {
        const text = this.source.Text;
        const at = caretOutsideTag(text, this.source.SelStart);
        const marked = `${text.slice(0, at)} ${CURSOR_MARKER}${text.slice(at)}`;
        const tempPath = await this.host.tempPage(marked);
        this.mode = mode;
        this.source.element.hidden = true;
        this.frame.hidden = false;
        if (!tempPath)
            return;
        await new Promise((resolve) => {
            this.#load(tempPath, { marker: true, fromSource: true });
            const done = () => {
                this.frame.removeEventListener("load", done);
                resolve();
            };
            this.frame.addEventListener("load", done);
        });
    }

    #takeOutMarkerInPage() {
        const doc = this.document;
        if (!doc?.body)
            return;
        const walker = doc.createTreeWalker(doc.body, NodeFilter.SHOW_TEXT);
        const found = [];
        for (let node = walker.nextNode(); node; node = walker.nextNode())
            if (node.data.includes(CURSOR_MARKER))
                found.push(node);
        let caret = null;
        for (const node of found) {
            const at = node.data.indexOf(CURSOR_MARKER);
            const start = at > 0 && node.data[at - 1] === " " ? at - 1 : at;
            node.deleteData(start, at + CURSOR_MARKER.length - start);
            caret ??= { node, offset: start };
        }
        // The marker may stand in the title or an attribute too.
        if (doc.title.includes(CURSOR_MARKER))
            doc.title = doc.title.replace(` ${CURSOR_MARKER}`, "").replace(CURSOR_MARKER, "");
        if (caret) {
            const range = doc.createRange();
            range.setStart(caret.node, caret.offset);
            range.collapse(true);
            const selection = doc.getSelection();
            selection.removeAllRanges();
            selection.addRange(range);
            caret.node.parentElement?.scrollIntoView?.({ block: "nearest" });
        }
        this.frame.focus();
        doc.body.focus();
    }

    // --- commands ---
    // Runs a command by its code or name on the selection.
    exec(codeOrName, value) {
        const name = typeof codeOrName === "number" ? COMMANDS[codeOrName] : codeOrName;
        if (!name || this.mode === "html") {
            if (this.mode === "html" && (name === "Undo" || name === "Redo"))
                return name === "Undo" ? this.source.Undo() : this.source.Redo();
            return false;
        }
        const doc = this.document;
        if (!doc || this.mode !== "edit")
            return false;
        this.frame.focus();
        const done = doc.execCommand(name, false, value);
        if (done && !["Copy", "SelectAll"].includes(name))
            this.#markDirty();
        return done;
    }

    // The checked state of the state commands at the selection.
    commandStates() {
        const doc = this.document;
        const states = {};
        if (!doc || this.mode !== "edit")
            return states;
        for (const name of STATE_COMMANDS) {
            try {
                states[name] = doc.queryCommandState(name);
            } catch {
                states[name] = false;
            }
        }
        return states;
    }

    // Puts an element at the caret (over the selection) as it is: the
    // browser's insertHTML would add the styles it sees around the caret.
    insertElement(node) {
        const doc = this.document;
        if (this.mode !== "edit" || !doc?.body)
            return false;
        this.frame.focus();
        const selection = doc.getSelection();
        let range = selection.rangeCount > 0 ? selection.getRangeAt(0) : null;
        if (!range || !doc.body.contains(range.startContainer)) {
            range = doc.createRange();
            range.selectNodeContents(doc.body);
            range.collapse(false);
        }
        range.deleteContents();
        range.insertNode(node);
        range.setStartAfter(node);
        range.collapse(true);
        selection.removeAllRanges();
        selection.addRange(range);
        this.#markDirty();
        return true;
    }

    InsertHR() {
        return this.exec("InsertHorizontalRule");
    }

    // --- links, bookmarks, pictures ---
    linkTo(path) {
        return relativeLink(this.path || this.page?.loadedDocUrl || "", path);
    }

    #selectedLink() {
        const doc = this.document;
        const node = doc?.getSelection()?.anchorNode;
        const elementNode = node?.nodeType === Node.TEXT_NODE ? node.parentElement : node;
        return elementNode?.closest?.("a") || null;
    }

    bookmarks() {
        const doc = this.document;
        if (!doc)
            return [];
        return [...doc.querySelectorAll("a[name], [id]")]
            .map((node) => node.getAttribute("name") || node.id)
            .filter((name, index, all) => name && all.indexOf(name) === index);
    }

    async PopUpHyperlink() {
        const link = this.#selectedLink();
        const url = await promptBox("Hyperlink", "URL:", link?.getAttribute("href") || "http://");
        if (url)
            this.exec("CreateLink", url);
    }

    async PopUpHyperlinkRelative() {
        const chosen = await fileBox("Select HTML file...", {
            pattern: "*.htm*", filterName: "HTM Files (*.htm)", startFolder: this.host.baseFolder?.() || folderOf(this.path),
        });
        if (!chosen)
            return;
        if (chosen === this.path || chosen === this.page?.loadedDocUrl)
            return this.PopUpLinkToBookmark();
        this.exec("CreateLink", this.linkTo(chosen));
    }

    async PopUpLinkToBookmark() {
        const names = this.bookmarks();
        if (names.length === 0) {
            await messageBox("The page has no bookmarks.");
            return;
        }
        const index = await listBox("Link to Bookmark", names);
        if (index !== null)
            this.exec("CreateLink", `#${names[index]}`);
    }

    async PopUpBookmark() {
        const name = await promptBox("Bookmark", "Bookmark name:", "");
        if (!name)
            return;
        const safe = name.trim().replace(/"/g, "");
        if (!safe)
            return;
        const anchor = this.document.createElement("a");
        anchor.setAttribute("name", safe);
        this.insertElement(anchor);
    }

    async PopUpPicture() {
        const chosen = await fileBox("Select picture...", {
            pattern: "", startFolder: this.host.imageFolder?.() || folderOf(this.path),
        });
        if (chosen)
            this.exec("InsertImage", this.linkTo(chosen));
    }

    async PopUpRemoveHyperlink() {
        const link = this.#selectedLink();
        if (!link)
            return;
        const isBookmark = !link.hasAttribute("href") && link.hasAttribute("name");
        const what = isBookmark ? `bookmark ${link.getAttribute("name")}` : `hyperlink to ${link.getAttribute("href")}`;
        if (!(await confirmBox(`Do you want to remove ${what}?`)))
            return;
        if (isBookmark) {
            link.replaceWith(...link.childNodes);
            this.#markDirty();
        } else {
            const range = this.document.createRange();
            range.selectNodeContents(link);
            const selection = this.document.getSelection();
            selection.removeAllRanges();
            selection.addRange(range);
            this.exec("Unlink");
        }
    }

    async #stopIfUnsaved() {
        if (!this.isDirty)
            return false;
        await messageBox("Current File has been not saved!\r\nFollow a hyperlink is stopped.", { icon: "exclamation" });
        return true;
    }

    async PopUpFollowHyperlink() {
        const link = this.#selectedLink();
        if (!link?.getAttribute("href") || (await this.#stopIfUnsaved()))
            return;
        const { path, hash } = pathOfEditUrl(link.href);
        if (path)
            this.host.navigated(hash ? `${path}#${hash}` : path);
    }

    async PopUpBack() {
        if (this.historyAt <= 0 || (await this.#stopIfUnsaved()))
            return;
        this.historyAt -= 1;
        this.host.navigated(this.history[this.historyAt]);
    }

    async PopUpForward() {
        if (this.historyAt >= this.history.length - 1 || (await this.#stopIfUnsaved()))
            return;
        this.historyAt += 1;
        this.host.navigated(this.history[this.historyAt]);
    }

    // A node of the contents tree dropped on the page: a link to its topic
    // at the drop point.
    #drop(event) {
        const data = event.dataTransfer?.getData("text/plain") || "";
        if (!data.startsWith(DRAG_MARKER)) {
            if (this.mode !== "edit")
                event.preventDefault();
            return;
        }
        event.preventDefault();
        if (this.mode !== "edit")
            return;
        const parts = data.slice(DRAG_MARKER.length).split("|");
        const caption = parts[0];
        const path = parts.slice(1).join("|");
        const doc = this.document;
        const range = doc.caretRangeFromPoint?.(event.clientX, event.clientY);
        if (range) {
            const selection = doc.getSelection();
            selection.removeAllRanges();
            selection.addRange(range);
        }
        const link = doc.createElement("a");
        link.setAttribute("href", this.linkTo(path));
        link.textContent = caption;
        this.insertElement(link);
    }

    #click(event) {
        const link = event.target.closest?.("a[href]");
        if (!link || this.mode !== "browse")
            return;
        if (this.isDirty) {
            event.preventDefault();
            this.#stopIfUnsaved();
            return;
        }
        // A page of the web opens beside the studio, not in the page editor.
        if (/^https?:/i.test(link.href) && !pathOfEditUrl(link.href).path) {
            event.preventDefault();
            window.open(link.href, "_blank", "noopener");
        }
    }

    #pageKey(event) {
        if ((event.ctrlKey || event.metaKey) && event.key.toLowerCase() === "s") {
            event.preventDefault();
            this.host.save();
        }
    }

    #contextMenu(event) {
        event.preventDefault();
        if (this.mode === "html")
            return;
        const link = event.target.closest?.("a");
        const items = [
            ["PopUpCut", "Cut", () => this.exec("Cut")],
            ["PopUpCopy", "Copy", () => this.exec("Copy")],
            ["PopUpPaste", "Paste", () => this.exec("Paste")],
            null,
            ["PopUpHyperlink", "Hyperlink...", () => this.PopUpHyperlink()],
            ["PopUpHyperlinkRelative", "Hyperlink to a Help Page...", () => this.PopUpHyperlinkRelative()],
            ["PopUpLinkToBookmark", "Link to Bookmark...", () => this.PopUpLinkToBookmark()],
            ["PopUpBookmark", "Bookmark...", () => this.PopUpBookmark()],
            ["PopUpPicture", "Picture...", () => this.PopUpPicture()],
            ["PopUpRemoveHyperlink", "Remove Hyperlink", () => this.PopUpRemoveHyperlink(), !link],
            null,
            ["PopUpFollowHyperlink", "Follow Hyperlink", () => this.PopUpFollowHyperlink(), !link?.getAttribute("href")],
            ["PopUpBack", "Back", () => this.PopUpBack(), this.historyAt <= 0],
            ["PopUpForward", "Forward", () => this.PopUpForward(), this.historyAt >= this.history.length - 1],
        ];
        this.popup.replaceChildren();
        for (const item of items) {
            if (!item) {
                this.popup.append(element("hr", "menu-separator"));
                continue;
            }
            const [name, caption, run, disabled] = item;
            const entry = button(caption, () => {
                this.popup.hidden = true;
                run();
            }, "menu-item");
            entry.dataset.name = name;
            entry.setAttribute("role", "menuitem");
            entry.disabled = Boolean(disabled) || (this.mode !== "edit" && !["PopUpCopy", "PopUpFollowHyperlink",
                "PopUpBack", "PopUpForward"].includes(name));
            this.popup.append(entry);
        }
        const frame = this.frame.getBoundingClientRect();
        const host = this.element.getBoundingClientRect();
        this.popup.style.left = `${frame.left - host.left + event.clientX}px`;
        this.popup.style.top = `${frame.top - host.top + event.clientY}px`;
        this.popup.hidden = false;
    }

    // --- where to look ---
    GoToStartOfDocument() {
        const doc = this.document;
        doc?.defaultView?.scrollTo(0, 0);
    }

    GoToBookmark(name) {
        const doc = this.document;
        if (!doc || !name)
            return false;
        const target = doc.getElementsByName(name)[0] || doc.getElementById(name);
        if (!target)
            return false;
        target.scrollIntoView({ block: "start" });
        return true;
    }

    // Looks in the page shown now for a link ({ url }) or a text ({ text }).
    findNow(find) {
        return this.#findInPage(find);
    }

    // Selects the first link or picture whose target is url, or the first
    // place where text stands.
    #findInPage(find) {
        if (find.url)
            return this.#selectLink(find.url);
        if (find.text)
            return this.FindFirstEntry(find.text);
        return false;
    }

    #selectLink(url) {
        const doc = this.document;
        if (!doc)
            return false;
        const wanted = normalizedTarget(url);
        for (const node of doc.querySelectorAll("a[href], img[src]")) {
            const target = pathOfEditUrl(node.href || node.src).path || node.getAttribute("href") || node.getAttribute("src");
            if (normalizedTarget(target) === wanted || normalizedTarget(node.getAttribute("href") || node.getAttribute("src")) === wanted) {
                const range = doc.createRange();
                range.selectNode(node);
                const selection = doc.getSelection();
                selection.removeAllRanges();
                selection.addRange(range);
                node.scrollIntoView({ block: "center" });
                node.dataset.found = "true";
                return true;
            }
        }
        return false;
    }

    FindFirstEntry(text) {
        if (this.mode === "html") {
            const at = this.source.Text.toLowerCase().indexOf(text.toLowerCase());
            if (at < 0)
                return false;
            this.source.model.select(at, text.length);
            this.source.focus();
            return true;
        }
        const doc = this.document;
        if (!doc?.body)
            return false;
        const walker = doc.createTreeWalker(doc.body, NodeFilter.SHOW_TEXT);
        const wanted = text.toLowerCase();
        for (let node = walker.nextNode(); node; node = walker.nextNode()) {
            const at = node.data.toLowerCase().indexOf(wanted);
            if (at < 0)
                continue;
            const range = doc.createRange();
            range.setStart(node, at);
            range.setEnd(node, at + text.length);
            const selection = doc.getSelection();
            selection.removeAllRanges();
            selection.addRange(range);
            node.parentElement?.scrollIntoView({ block: "center" });
            return true;
        }
        return false;
    }

    // --- status ---
    #status() {
        const texts = [];
        if (!this.page)
            texts.push({ key: "Mode", text: "" });
        else if (this.page.fromTemplate)
            texts.push({ key: "Mode", text: "New" });
        else
            texts.push({ key: "Mode", text: this.mode === "edit" ? "Edit" : this.mode === "html" ? "HTML" : "Browse" });
        if (this.page?.readOnly) {
            texts.push({ key: "R", text: "R" });
            texts.push({ key: "ReadOnly", text: "ReadOnly" });
        }
        // The source view marks its own changes with "*".
        const changed = this.mode === "html" ? "*" : "Dirty";
        texts.push({ key: "Dirty", text: this.isDirty ? changed : "" });
        if (this.mode === "html")
            texts.push({ key: "Position", text: this.positionText || "" });
        this.host.status(texts);
    }

    #sourceStatus(status) {
        this.positionText = `Line: ${status.line}, Col: ${status.column}`;
        this.#status();
    }
}

function doctypeOf(doc) {
    const type = doc.doctype;
    if (!type)
        return "";
    let text = `<!DOCTYPE ${type.name}`;
    if (type.publicId)
        text += ` PUBLIC "${type.publicId}"`;
    if (type.systemId)
        text += `${type.publicId ? "" : " SYSTEM"} "${type.systemId}"`;
    return `${text}>\n`;
}

function normalizedTarget(target) {
    if (!target)
        return "";
    let text = target.replace(/^file:\/\/\/?/i, "/");
    try {
        text = decodeURIComponent(text);
    } catch {
        // Left as it is.
    }
    const hash = text.indexOf("#");
    if (hash >= 0 && text.lastIndexOf(".") < hash)
        text = text.slice(0, hash);
    return text.replace(/\\/g, "/").toLowerCase();
}

// Whether a page's text has nothing in its body: no text, picture, table or rule.
export function isEmptyPageText(text) {
    const body = /<body[^>]*>([\s\S]*)<\/body>/i.exec(text);
    const inner = body ? body[1] : text.replace(/<head[\s\S]*<\/head>/i, "");
    const words = inner.replace(/<!--[\s\S]*?-->/g, "").replace(/<[^>]*>/g, "").replace(/&nbsp;/gi, " ");
    return words.trim() === "" && !/<(img|table|hr)\b/i.test(inner);
}

// A caret inside a tag goes behind the tag, so that the marker does not break it.
export function caretOutsideTag(text, position) {
    const open = text.lastIndexOf("<", position - 1);
    const close = text.lastIndexOf(">", position - 1);
    if (open > close) {
        const end = text.indexOf(">", position);
        if (end >= 0)
            return end + 1;
    }
    return position;
}

export { button };
