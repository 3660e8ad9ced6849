// The contents tree of the Help Editor: a mirror of the program's tree view.
// Every change goes to the program, which answers the editor's state; the
// tree itself is fetched again when its version moved. Keys, the popup menu,
// renaming in place and drag and drop are the program's; this shows them.

import { element } from "./dom.js";
import { DRAG_MARKER } from "./source-view.js";

// The key codes of the tree control and its shift bits.
export const KEY_CODES = Object.freeze({
    ArrowLeft: 37, ArrowUp: 38, ArrowRight: 39, ArrowDown: 40, Insert: 45, Delete: 46, F2: 113, " ": 32,
});
const SHIFT = 1;
const CTRL = 2;
const ALT = 4;
// The type a dragged node carries beside its link text.
const NODE_TYPE = "application/x-scrivant-node";

export class EditorTree {
    // actions: { select(key), expand(key, expanded), key(code, shift), menu(item),
    //            rename(text|null), drop(source, target) }
    constructor(actions) {
        this.actions = actions;
        this.items = new Map(); // key -> { item, parent }
        this.top = [];
        this.selectedKey = "";
        this.version = 0;
        this.menuItems = [];
        this.element = element("div", "editor-tree-pane");
        this.list = element("ul", "editor-tree");
        this.list.setAttribute("role", "tree");
        this.list.setAttribute("aria-label", "Contents");
        this.list.tabIndex = 0;
        this.info = element("textarea", "tree-info");
        this.info.id = "txtInfo";
        this.info.readOnly = true;
        this.info.hidden = true;
        this.info.setAttribute("aria-label", "Node information");
        this.popup = element("div", "editor-popup tree-popup");
        this.popup.setAttribute("role", "menu");
        this.popup.hidden = true;
        this.element.append(this.list, this.info, this.popup);
        this.list.addEventListener("keydown", (event) => this.#keyDown(event));
        this.list.addEventListener("contextmenu", (event) => this.#contextMenu(event));
        document.addEventListener("click", (event) => {
            if (!this.popup.contains(event.target))
                this.popup.hidden = true;
        });
    }

    // --- the items ---
    render(tree) {
        this.version = tree.version;
        this.items.clear();
        this.top = tree.items;
        const index = (item, parent) => {
            this.items.set(item.key.toLowerCase(), { item, parent });
            for (const child of item.children)
                index(child, item);
        };
        for (const item of tree.items)
            index(item, null);
        const scroll = this.list.scrollTop;
        this.list.replaceChildren(...tree.items.map((item) => this.#itemNode(item, 1)));
        this.list.scrollTop = scroll;
        this.#showSelection();
    }

    #itemNode(item, level) {
        const node = element("li", "tree-item");
        node.setAttribute("role", "treeitem");
        node.setAttribute("aria-level", String(level));
        node.dataset.key = item.key;
        node.dataset.image = item.image;
        const row = element("div", "tree-row");
        const toggle = element("span", "toggle");
        if (item.children.length > 0) {
            node.setAttribute("aria-expanded", String(item.expanded));
            toggle.textContent = item.expanded ? "\u2212" : "+";
            toggle.addEventListener("click", (event) => {
                event.stopPropagation();
                this.actions.expand(item.key, !item.expanded);
            });
        }
        const icon = element("span", `tree-icon icon-${item.image || "helptopic"}`);
        icon.setAttribute("aria-hidden", "true");
        const label = element("span", "tree-label", item.text);
        row.append(toggle, icon, label);
        row.draggable = true;
        row.addEventListener("click", () => this.#choose(item.key));
        row.addEventListener("dblclick", () => {
            if (item.children.length > 0)
                this.actions.expand(item.key, !item.expanded);
        });
        row.addEventListener("dragstart", (event) => {
            event.dataTransfer.setData("text/plain", `${DRAG_MARKER}${item.text}|${item.page}`);
            event.dataTransfer.setData(NODE_TYPE, item.key);
            event.dataTransfer.effectAllowed = "copyMove";
        });
        row.addEventListener("dragover", (event) => {
            if (event.dataTransfer.types.includes(NODE_TYPE)) {
                event.preventDefault();
                event.dataTransfer.dropEffect = "move";
                row.classList.add("drop-target");
            }
        });
        row.addEventListener("dragleave", () => row.classList.remove("drop-target"));
        row.addEventListener("drop", (event) => {
            row.classList.remove("drop-target");
            const source = event.dataTransfer.getData(NODE_TYPE);
            if (!source)
                return;
            event.preventDefault();
            if (source.toLowerCase() !== item.key.toLowerCase())
                this.actions.drop(source, item.key);
        });
        node.append(row);
        if (item.children.length > 0 && item.expanded) {
            const group = element("ul", "tree-group");
            group.setAttribute("role", "group");
            group.append(...item.children.map((child) => this.#itemNode(child, level + 1)));
            node.append(group);
        }
        return node;
    }

    itemNode(key) {
        return this.list.querySelector(`li[data-key="${CSS.escape(key)}"]`);
    }

    // --- the selection ---
    setSelected(key) {
        this.selectedKey = key;
        this.#showSelection();
    }

    #showSelection() {
        for (const selected of this.list.querySelectorAll("li[aria-selected='true']"))
            selected.setAttribute("aria-selected", "false");
        const node = this.selectedKey ? this.itemNode(this.selectedKey) : null;
        if (!node)
            return;
        node.setAttribute("aria-selected", "true");
        this.list.setAttribute("aria-activedescendant", "");
        node.querySelector(".tree-row").scrollIntoView({ block: "nearest" });
    }

    #choose(key) {
        this.popup.hidden = true;
        this.list.focus();
        this.actions.select(key);
    }

    // The items that are shown, in order.
    #visibleKeys() {
        const keys = [];
        const walk = (items) => {
            for (const item of items) {
                keys.push(item.key);
                if (item.expanded)
                    walk(item.children);
            }
        };
        walk(this.top);
        return keys;
    }

    #entry(key) {
        return this.items.get((key || "").toLowerCase()) || null;
    }

    // --- keys ---
    #keyDown(event) {
        if (event.target !== this.list)
            return;
        const ctrl = event.ctrlKey || event.metaKey;
        const shift = (event.shiftKey ? SHIFT : 0) | (ctrl ? CTRL : 0) | (event.altKey ? ALT : 0);
        const entry = this.#entry(this.selectedKey);
        if (!ctrl && !event.altKey && !event.shiftKey) {
            const visible = this.#visibleKeys();
            const at = visible.findIndex((key) => key.toLowerCase() === this.selectedKey.toLowerCase());
            let next = null;
            if (event.key === "ArrowDown")
                next = visible[Math.min(at + 1, visible.length - 1)];
            else if (event.key === "ArrowUp")
                next = visible[Math.max(at - 1, 0)];
            else if (event.key === "Home")
                next = visible[0];
            else if (event.key === "End")
                next = visible[visible.length - 1];
            else if (event.key === "ArrowRight" && entry) {
                if (entry.item.children.length > 0 && !entry.item.expanded)
                    this.actions.expand(entry.item.key, true);
                else if (entry.item.children.length > 0)
                    next = entry.item.children[0].key;
            } else if (event.key === "ArrowLeft" && entry) {
                if (entry.item.expanded && entry.item.children.length > 0)
                    this.actions.expand(entry.item.key, false);
                else if (entry.parent)
                    next = entry.parent.key;
            } else if (event.key === "ContextMenu") {
                event.preventDefault();
                this.#openPopup(this.itemNode(this.selectedKey));
                return;
            }
            if (event.key.startsWith("Arrow") || event.key === "Home" || event.key === "End") {
                event.preventDefault();
                if (next && next.toLowerCase() !== this.selectedKey.toLowerCase())
                    this.actions.select(next);
                return;
            }
        }
        if (event.shiftKey && event.key === "F10") {
            event.preventDefault();
            this.#openPopup(this.itemNode(this.selectedKey));
            return;
        }
        let code = KEY_CODES[event.key];
        if (code === undefined && ctrl && /^[a-z]$/i.test(event.key))
            code = event.key.toUpperCase().charCodeAt(0);
        if (code === undefined)
            return;
        if (!ctrl && !event.altKey && code !== KEY_CODES.Delete && code !== KEY_CODES.F2 && code !== KEY_CODES[" "])
            return;
        event.preventDefault();
        this.actions.key(code, shift);
    }

    // --- the popup menu ---
    setMenu(items) {
        this.menuItems = items;
    }

    #contextMenu(event) {
        const node = event.target.closest("li.tree-item");
        if (!node)
            return;
        event.preventDefault();
        this.list.focus();
        Promise.resolve(this.actions.select(node.dataset.key)).then(() => this.#openPopup(node, event));
    }

    #openPopup(node, event) {
        if (!node || this.menuItems.length === 0)
            return;
        this.popup.replaceChildren();
        for (const item of this.menuItems) {
            const entry = element("button", "menu-item", item.caption);
            entry.type = "button";
            entry.dataset.name = item.name;
            entry.setAttribute("role", "menuitem");
            entry.disabled = !item.enabled;
            entry.addEventListener("click", () => {
                this.popup.hidden = true;
                this.list.focus();
                this.actions.menu(item.name);
            });
            this.popup.append(entry);
        }
        const host = this.element.getBoundingClientRect();
        const row = node.querySelector(".tree-row").getBoundingClientRect();
        const x = event ? event.clientX : row.left + 20;
        const y = event ? event.clientY : row.bottom;
        this.popup.style.left = `${x - host.left}px`;
        this.popup.style.top = `${y - host.top + this.element.scrollTop}px`;
        this.popup.hidden = false;
        this.popup.querySelector("button:not(:disabled)")?.focus();
    }

    // --- renaming in place ---
    startRename(key) {
        const node = this.itemNode(key);
        if (!node || node.querySelector("input.rename"))
            return;
        const label = node.querySelector(".tree-label");
        const input = element("input", "rename");
        input.type = "text";
        input.value = label.textContent;
        input.setAttribute("aria-label", "Caption");
        label.replaceWith(input);
        input.focus();
        input.select();
        let ended = false;
        const end = (text) => {
            if (ended)
                return;
            ended = true;
            this.list.focus();
            this.actions.rename(text);
        };
        input.addEventListener("keydown", (event) => {
            event.stopPropagation();
            if (event.key === "Enter") {
                event.preventDefault();
                end(input.value);
            } else if (event.key === "Escape") {
                event.preventDefault();
                end(null);
            }
        });
        input.addEventListener("blur", () => end(input.value));
    }

    // --- what mnuHHC and mnuXML put up ---
    setInfo(text) {
        this.info.hidden = !text;
        this.info.value = text || "";
    }

    focus() {
        this.list.focus();
    }
}
