// The source view of the page editor (its HTML mode): CRichTextBox, the
// coloured text box with its own undo and redo, keys and status, over the
// model and state machine of source-view-model.js.

import { CColorHTML, Colors, cssColor, lineAndColumn, RichTextModel } from "./source-view-model.js";

// What a dragged tree node carries: "SCRIV|CreateLink|caption|path".
export const DRAG_MARKER = "SCRIV|CreateLink|";

// The undo list keeps this many steps.
const UNDO_LIMIT = 300;

export class CRichTextBox {
    // onChange(): the text changed by the person; onStatus({ dirty, line, column }).
    // linkOf(path): the href of a link to a page path, for a dropped node.
    constructor({ onChange, onStatus, linkOf } = {}) {
        this.onChange = onChange || (() => {});
        this.onStatus = onStatus || (() => {});
        this.linkOf = linkOf || ((path) => path);
        this.model = new RichTextModel();
        this.color = new CColorHTML(this.model);
        this.Dirty = false;
        this.TrapUndo = false;
        this.undoList = [];
        this.redoList = [];
        this.element = document.createElement("div");
        this.element.className = "source-view";
        this.element.contentEditable = "true";
        this.element.spellcheck = false;
        this.element.setAttribute("role", "textbox");
        this.element.setAttribute("aria-multiline", "true");
        this.element.setAttribute("aria-label", "HTML source");
        this.element.addEventListener("beforeinput", (event) => this.#beforeInput(event));
        this.element.addEventListener("keydown", (event) => this.#keyDown(event));
        this.element.addEventListener("paste", (event) => this.#paste(event));
        this.element.addEventListener("drop", (event) => this.#drop(event));
        this.element.addEventListener("dragover", (event) => event.preventDefault());
        document.addEventListener("selectionchange", () => {
            if (this.element.contains(document.getSelection()?.anchorNode))
                this.#readSelection();
        });
    }

    // --- the text ---
    get Text() {
        return this.model.text;
    }

    // Puts a page's text in the box, coloured, with a fresh undo list.
    set Text(text) {
        this.model.setText(text.replace(/\r\n?/g, "\n"));
        this.color.init(this.model);
        this.color.HtmlHighlight();
        this.ResetUndo();
        this.Dirty = false;
        this.#render();
        this.#status();
    }

    get SelStart() {
        return this.model.selStart;
    }

    get SelLength() {
        return this.model.selLength;
    }

    // Puts the caret at a position and shows it.
    PlaceCursor(position) {
        this.model.select(position, 0);
        this.#placeSelection();
        this.#status();
    }

    // Takes a text out of the box at the caret's spot (the cursor marker):
    // the text and a blank in front of it go, and the caret stays there.
    TakeOutMarker(marker) {
        const at = this.model.text.indexOf(marker);
        if (at < 0)
            return false;
        const start = at > 0 && this.model.text[at - 1] === " " ? at - 1 : at;
        this.color.Enabled = false;
        this.model.select(start, at + marker.length - start);
        this.model.selText = "";
        this.color.Enabled = true;
        this.ResetUndo();
        this.#render();
        this.PlaceCursor(start);
        return true;
    }

    focus() {
        this.element.focus();
        this.#placeSelection();
    }

    // --- undo ---
    ResetUndo() {
        this.undoList = [this.model.snapshot()];
        this.redoList = [];
    }

    Undo() {
        if (this.undoList.length < 2)
            return false;
        this.redoList.push(this.undoList.pop());
        this.#restore(this.undoList[this.undoList.length - 1]);
        return true;
    }

    Redo() {
        const element = this.redoList.pop();
        if (!element)
            return false;
        this.undoList.push(element);
        this.#restore(element);
        return true;
    }

    get canUndo() {
        return this.undoList.length > 1;
    }

    get canRedo() {
        return this.redoList.length > 0;
    }

    #restore(element) {
        this.TrapUndo = true;
        this.model.restore(element);
        this.#render();
        this.#placeSelection();
        this.TrapUndo = false;
        this.#changed(false);
    }

    // Every change: the redo list empties, the undo list grows, the state
    // machine follows a one-character change that typing did not make (a
    // typed character has set the state as it came in), and the box is dirty.
    Change(typed = false) {
        if (this.TrapUndo)
            return;
        this.redoList = [];
        const former = this.undoList[this.undoList.length - 1];
        this.undoList.push(this.model.snapshot());
        if (this.undoList.length > UNDO_LIMIT)
            this.undoList.splice(1, 1);
        if (!typed && former && Math.abs(former.text.length - this.model.text.length) === 1)
            this.color.AfterOneCharacterChanged();
        this.#changed(true);
    }

    #changed(byPerson) {
        this.Dirty = true;
        this.#status();
        if (byPerson || this.undoList.length > 0)
            this.onChange();
    }

    // --- typing ---
    #beforeInput(event) {
        this.#readSelection();
        const type = event.inputType;
        if (type === "insertText" && event.data) {
            event.preventDefault();
            for (const c of event.data)
                this.#type(c);
            this.#afterEdit(true);
            return;
        }
        event.preventDefault();
        if (type === "insertParagraph" || type === "insertLineBreak") {
            this.#write("\n");
        } else if (type === "deleteContentBackward" || type === "deleteContentForward"
            || type === "deleteWordBackward" || type === "deleteWordForward" || type === "deleteByCut") {
            this.#delete(type);
        } else {
            return;
        }
        this.#afterEdit();
    }

    #type(c) {
        if (c.charCodeAt(0) < 32)
            return;
        if (this.color.KeyPressEvent(c))
            return;
        this.model.selText = c;
    }

    #write(text, color = Colors.text) {
        this.model.selColor = color;
        this.model.selText = text;
    }

    #delete(type) {
        const model = this.model;
        if (model.selLength === 0) {
            if (type.endsWith("Backward")) {
                if (model.selStart === 0)
                    return;
                model.select(model.selStart - 1, 1);
            } else {
                if (model.selStart >= model.length)
                    return;
                model.select(model.selStart, 1);
            }
        }
        const kept = model.typingColor;
        model.selText = "";
        model.typingColor = kept;
    }

    // typed: the change is a typed character, whose state KeyPressEvent has set.
    #afterEdit(typed = false) {
        this.#render();
        this.#placeSelection();
        this.Change(typed);
    }

    #keyDown(event) {
        const ctrl = event.ctrlKey || event.metaKey;
        let handled = true;
        this.#readSelection();
        if (ctrl && /^[1-6]$/.test(event.key)) {
            const start = this.model.selStart;
            this.color.InsertTag(`<H${event.key}></H${event.key}>`, false);
            this.model.select(start + 4, 0);
        } else if (ctrl && event.key === "Enter") {
            this.color.InsertTag("<P>", true);
        } else if (ctrl && event.key === " ") {
            this.model.selColor = Colors.text;
            this.model.selText = "&nbsp;";
        } else if (ctrl && event.key.toLowerCase() === "z" && !event.shiftKey) {
            event.preventDefault();
            this.Undo();
            return;
        } else if (ctrl && event.key.toLowerCase() === "y") {
            event.preventDefault();
            this.Redo();
            return;
        } else if (event.shiftKey && event.key === "Enter") {
            this.color.InsertTag("<BR>", true);
        } else {
            handled = false;
        }
        if (!handled) {
            this.#status();
            return;
        }
        event.preventDefault();
        this.#afterEdit();
    }

    // Ctrl+V: the clipboard as plain text, coloured as markup.
    #paste(event) {
        event.preventDefault();
        this.#readSelection();
        const text = (event.clipboardData?.getData("text/plain") || "").replace(/\r\n?/g, "\n");
        if (!text)
            return;
        this.#insertColored(text);
    }

    #insertColored(text) {
        const start = this.model.selStart;
        this.color.Enabled = false;
        this.#write(text);
        this.color.HtmlColorCode(start + 1, start + text.length);
        this.model.select(start + text.length, 0);
        this.color.Enabled = true;
        this.#afterEdit();
    }

    // A node of the contents tree dropped on the box: a link to its page.
    #drop(event) {
        const data = event.dataTransfer?.getData("text/plain") || "";
        if (!data.startsWith("SCRIV") || (data.split("|")[1] || "").toLowerCase() !== "createlink")
            return;
        event.preventDefault();
        const parts = data.split("|");
        const caption = parts[2] || "";
        const path = parts.slice(3).join("|");
        const range = document.caretRangeFromPoint?.(event.clientX, event.clientY);
        if (range && this.element.contains(range.startContainer))
            this.model.select(this.#offsetOf(range.startContainer, range.startOffset), 0);
        this.#insertColored(`<A href="${this.linkOf(path)}">${caption}</A>`);
    }

    // --- the box in the page ---
    #render() {
        const nodes = [];
        for (const run of this.model.runs()) {
            const span = document.createElement("span");
            span.dataset.color = String(run.color);
            span.style.color = cssColor(run.color);
            span.textContent = run.text;
            nodes.push(span);
        }
        // A last line break shows only with something behind it.
        nodes.push(document.createElement("br"));
        this.element.replaceChildren(...nodes);
    }

    #offsetOf(container, offset) {
        let total = 0;
        const walker = document.createTreeWalker(this.element, NodeFilter.SHOW_TEXT);
        for (let node = walker.nextNode(); node; node = walker.nextNode()) {
            if (node === container)
                return total + offset;
            total += node.data.length;
        }
        if (container === this.element) {
            let count = 0;
            for (let i = 0; i < offset && i < this.element.childNodes.length; ++i)
                count += this.element.childNodes[i].textContent.length;
            return count;
        }
        if (container.nodeType === Node.ELEMENT_NODE && this.element.contains(container)) {
            let count = 0;
            const before = document.createRange();
            before.setStart(this.element, 0);
            before.setEnd(container, offset);
            count = before.toString().length;
            return count;
        }
        return total;
    }

    #pointAt(offset) {
        const walker = document.createTreeWalker(this.element, NodeFilter.SHOW_TEXT);
        let last = null;
        for (let node = walker.nextNode(); node; node = walker.nextNode()) {
            if (offset <= node.data.length)
                return { node, offset };
            offset -= node.data.length;
            last = node;
        }
        return last ? { node: last, offset: last.data.length } : { node: this.element, offset: 0 };
    }

    #readSelection() {
        const selection = document.getSelection();
        if (!selection || selection.rangeCount === 0 || !this.element.contains(selection.anchorNode))
            return;
        const range = selection.getRangeAt(0);
        const start = this.#offsetOf(range.startContainer, range.startOffset);
        const end = this.#offsetOf(range.endContainer, range.endOffset);
        this.model.select(Math.min(start, end), Math.abs(end - start));
        this.#status();
    }

    #placeSelection() {
        if (!this.element.isConnected)
            return;
        const selection = document.getSelection();
        const start = this.#pointAt(this.model.selStart);
        const end = this.#pointAt(this.model.selStart + this.model.selLength);
        const range = document.createRange();
        range.setStart(start.node, start.offset);
        range.setEnd(end.node, end.offset);
        selection.removeAllRanges();
        selection.addRange(range);
        const anchor = start.node.nodeType === Node.TEXT_NODE ? start.node.parentElement : start.node;
        anchor?.scrollIntoView?.({ block: "nearest" });
    }

    #status() {
        const { line, column } = lineAndColumn(this.model.text, this.model.selStart);
        this.onStatus({ dirty: this.Dirty, line, column, canUndo: this.canUndo, canRedo: this.canRedo });
    }
}
