// The wizard of a new help project, as a panel of the main area: one page at
// a time with its controls, the sample beside it (a page or a picture served
// from the studio's content origin), Back, Next, Finish and Cancel. Every
// change goes to the server at once and the page comes back as the server
// has it then, its rules applied (a charset list refilled, a box cleared, the
// preview made again). Finish, Cancel and the page's own buttons run as
// commands: their dialogs, progress and messages arrive as events.

import { ApiError, encodePath, getJson, postJson, studioApi } from "./api.js";
import { element } from "./dom.js";
import { onStudioEvent } from "./events.js";

const KIND = "wizard";

// "&Name" shows as "Name".
function captionText(caption) {
    return (caption || "").replace(/&(.)/g, "$1");
}

const wizardApi = {
    page: () => getJson("/api/wizard"),
    act: (request) => postJson("/api/wizard", request),
};

class WizardView {
    #content;
    #page = null;
    // Changes reach the server one after the other, in the order they were made.
    #queue = Promise.resolve();
    #pending = 0;
    #previewCount = 0;
    #collapsed = new Set();
    #menu = null;

    constructor(contentBases) {
        this.#content = contentBases;
        this.element = element("div", "wizard");
        this.element.setAttribute("aria-label", "Scrivant Wizard");
        this.header = element("header", "wizard-header");
        this.title = element("h2", "wizard-title");
        this.title.id = "wizard-title";
        this.step = element("span", "wizard-step");
        this.description = element("p", "wizard-description");
        this.header.append(this.title, this.step, this.description);
        this.controls = element("form", "wizard-controls");
        this.controls.setAttribute("aria-labelledby", "wizard-title");
        this.controls.addEventListener("submit", (event) => event.preventDefault());
        this.problem = element("p", "wizard-problem");
        this.problem.setAttribute("role", "alert");
        this.tree = element("div", "wizard-contents");
        this.body = element("section", "wizard-page");
        this.body.append(this.header, this.controls, this.problem, this.tree);
        this.preview = element("aside", "wizard-preview");
        this.preview.setAttribute("aria-label", "Preview");
        const main = element("div", "wizard-body");
        main.append(this.body, this.preview);
        this.buttons = element("footer", "wizard-buttons");
        this.back = this.#button("< Back", "back", () => this.#act({ action: "back" }));
        this.next = this.#button("Next >", "next", () => this.#act({ action: "next" }));
        this.finish = this.#button("Finish", "finish", () => this.#command("WizardFinish"));
        this.cancel = this.#button("Cancel", "cancel", () => this.#command("WizardCancel"));
        this.buttons.append(this.back, this.next, this.finish, this.cancel);
        this.element.append(main, this.buttons);
        document.addEventListener("click", (event) => {
            if (this.#menu && !this.#menu.contains(event.target))
                this.#closeMenu();
        });
    }

    #button(label, name, onClick) {
        const node = element("button", `wizard-${name}`, label);
        node.type = "button";
        node.addEventListener("click", onClick);
        return node;
    }

    // Reads the page again (after a command, or when the panel is opened anew).
    async load() {
        try {
            this.show(await wizardApi.page());
        } catch (error) {
            this.#showProblem(error.message);
        }
    }

    #act(request) {
        this.#pending += 1;
        this.element.toggleAttribute("data-busy", true);
        this.#queue = this.#queue.then(async () => {
            try {
                this.show(await wizardApi.act(request));
            } catch (error) {
                // Refused (a command runs, the control is gone): the page as it is.
                this.#showProblem(error.message);
                if (error instanceof ApiError && error.status === 409)
                    await this.load();
            } finally {
                this.#pending -= 1;
                this.element.toggleAttribute("data-busy", this.#pending > 0);
            }
        });
        return this.#queue;
    }

    // A command (Finish after a value typed) starts after the changes made before it.
    async #command(command, args = {}) {
        await this.#queue;
        try {
            await studioApi.command(command, args);
        } catch (error) {
            this.#showProblem(error.message);
        }
    }

    #showProblem(text) {
        this.problem.textContent = text;
        this.problem.hidden = !text;
    }

    // Buttons wait while a command runs (the server would refuse them).
    setRunning(running) {
        this.element.toggleAttribute("data-running", running);
        for (const node of [this.back, this.next, this.finish, this.cancel])
            node.disabled = running || node.dataset.unavailable === "true";
        for (const node of this.controls.querySelectorAll("input, select, button"))
            node.disabled = running || node.dataset.unavailable === "true";
    }

    show(page) {
        this.#page = page;
        if (!page.open) {
            this.element.dataset.page = "";
            return;
        }
        this.element.dataset.page = page.page.name;
        this.element.dataset.step = String(page.step);
        this.title.textContent = page.page.title;
        this.step.textContent = `Step ${page.step} of ${page.count}`;
        this.description.textContent = page.page.description;
        this.back.dataset.unavailable = String(!page.back);
        this.next.dataset.unavailable = String(!page.next);
        this.back.disabled = !page.back;
        this.next.disabled = !page.next;
        this.#renderControls(page.controls);
        this.#showProblem(page.problem || "");
        this.#renderContents(page.contents);
        this.#renderPreview(page.preview);
        this.setRunning(document.body.dataset.running ? true : false);
    }

    // --- controls ---

    #renderControls(controls) {
        const focused = document.activeElement?.closest?.(".wizard-control")?.dataset.control;
        this.controls.replaceChildren();
        const groups = new Map();
        for (const control of controls) {
            const row = this.#control(control, groups);
            if (!row)
                continue;
            row.classList.add("wizard-control");
            row.dataset.control = control.name;
            row.hidden = !control.visible;
            this.controls.append(row);
        }
        if (focused)
            this.controls.querySelector(`[data-control="${focused}"] input, [data-control="${focused}"] select`)?.focus();
    }

    #control(control, groups) {
        const set = (value) => this.#act({ action: "set", control: control.name, value });
        const disable = (node) => {
            node.dataset.unavailable = String(!control.enabled);
            node.disabled = !control.enabled;
            return node;
        };
        switch (control.kind) {
        case "label":
            return element("p", "wizard-label", control.caption);
        case "text": {
            const row = element("label", "wizard-text");
            const input = disable(element("input"));
            input.type = "text";
            input.name = control.name;
            input.value = control.value;
            input.addEventListener("change", () => set(input.value));
            row.append(element("span", "caption", captionText(control.caption)), input);
            return row;
        }
        case "check": {
            const row = element("label", "wizard-check");
            const input = disable(element("input"));
            input.type = "checkbox";
            input.name = control.name;
            input.checked = control.value === "1";
            input.addEventListener("change", () => set(input.checked));
            row.append(input, element("span", "caption", captionText(control.caption)));
            return row;
        }
        case "option": {
            const row = element("label", "wizard-option");
            const input = disable(element("input"));
            input.type = "radio";
            input.name = control.group || control.name;
            input.value = control.name;
            input.checked = control.value === "1";
            input.addEventListener("change", () => {
                if (input.checked)
                    set("1");
            });
            row.append(input, element("span", "caption", captionText(control.caption)));
            // Option buttons of one option stand together in a group.
            let group = groups.get(input.name);
            if (!group) {
                group = element("fieldset", "wizard-options");
                group.setAttribute("role", "radiogroup");
                groups.set(input.name, group);
                this.controls.append(group);
            }
            group.append(row);
            row.classList.add("wizard-control");
            row.dataset.control = control.name;
            row.hidden = !control.visible;
            return null;
        }
        case "list": {
            const row = element("label", "wizard-list");
            const select = disable(element("select"));
            select.name = control.name;
            let chosen = false;
            for (const item of control.items) {
                const option = element("option", "", item.text);
                option.value = item.value;
                option.selected = item.value === control.value;
                chosen = chosen || option.selected;
                select.append(option);
            }
            if (!chosen && control.value) {
                const option = element("option", "", control.value);
                option.value = control.value;
                option.selected = true;
                select.prepend(option);
            }
            select.addEventListener("change", () => set(select.value));
            row.append(element("span", "caption", captionText(control.caption)), select);
            return row;
        }
        case "button": {
            const button = disable(element("button", "wizard-button", control.caption));
            button.type = "button";
            button.name = control.name;
            button.title = captionText(control.caption) === "..." ? "Browse" : "";
            button.setAttribute("aria-label", button.title || captionText(control.caption));
            button.addEventListener("click", () => this.#command("WizardClick", { control: control.name }));
            return button;
        }
        default:
            return null;
        }
    }

    // --- the contents tree ---

    #renderContents(contents) {
        this.#closeMenu();
        this.tree.hidden = !contents;
        if (!contents) {
            this.tree.replaceChildren();
            return;
        }
        const list = element("ul", "tree");
        list.setAttribute("role", "tree");
        list.setAttribute("aria-label", "Contents of the help");
        list.tabIndex = 0;
        for (const item of contents.items)
            list.append(this.#treeItem(item, 1, contents.selected));
        list.addEventListener("keydown", (event) => this.#treeKey(event));
        this.tree.replaceChildren(list);
        if (this.tree.dataset.focused === "true")
            list.focus();
    }

    #treeItem(item, level, selected) {
        const node = element("li", "tree-item");
        node.setAttribute("role", "treeitem");
        node.setAttribute("aria-level", String(level));
        node.dataset.key = item.key;
        node.dataset.image = item.image;
        const chosen = item.key === selected;
        node.setAttribute("aria-selected", String(chosen));
        const label = element("span", `tree-label image-${item.image || "list"}`, item.text);
        label.addEventListener("click", () => this.#act({ action: "select", key: item.key }));
        label.addEventListener("contextmenu", async (event) => {
            event.preventDefault();
            if (!chosen)
                await this.#act({ action: "select", key: item.key });
            this.#openMenu(event.clientX, event.clientY);
        });
        if (item.children.length > 0) {
            const toggle = element("button", "toggle");
            toggle.type = "button";
            toggle.tabIndex = -1;
            toggle.setAttribute("aria-label", `Expand or collapse ${item.text}`);
            const group = element("ul", "tree-group");
            group.setAttribute("role", "group");
            for (const child of item.children)
                group.append(this.#treeItem(child, level + 1, selected));
            const setOpen = (open) => {
                group.hidden = !open;
                node.setAttribute("aria-expanded", String(open));
                toggle.textContent = open ? "\u25be" : "\u25b8";
                if (open)
                    this.#collapsed.delete(item.key);
                else
                    this.#collapsed.add(item.key);
            };
            setOpen(!this.#collapsed.has(item.key));
            toggle.addEventListener("click", () => setOpen(group.hidden));
            node.append(toggle, label, group);
        } else {
            node.append(element("span", "leaf"), label);
        }
        return node;
    }

    // Insert leaves a topic out or takes it in; Ctrl with an arrow moves it;
    // the arrows alone walk the tree; the menu key opens the menu.
    #treeKey(event) {
        this.tree.dataset.focused = "true";
        const moves = { ArrowUp: "mnuUp", ArrowDown: "mnuDown", ArrowLeft: "mnuLeft", ArrowRight: "mnuRight" };
        let request = null;
        if (event.key === "Insert" || (event.key === " " && !event.ctrlKey))
            request = { action: "menu", item: "mnuToggleSkippedFlag" };
        else if (event.ctrlKey && moves[event.key])
            request = { action: "menu", item: moves[event.key] };
        else if (event.key === "ArrowUp" || event.key === "ArrowDown") {
            const shown = [...this.tree.querySelectorAll(".tree-item")].filter((item) => !item.closest(".tree-group[hidden]"));
            const at = shown.findIndex((item) => item.getAttribute("aria-selected") === "true");
            const next = shown[at + (event.key === "ArrowUp" ? -1 : 1)];
            if (next)
                request = { action: "select", key: next.dataset.key };
        } else if (event.key === "ContextMenu" || (event.shiftKey && event.key === "F10")) {
            const selected = this.tree.querySelector(".tree-item[aria-selected='true'] > .tree-label");
            const box = selected?.getBoundingClientRect();
            if (box)
                this.#openMenu(box.left + 10, box.bottom);
            event.preventDefault();
            return;
        }
        if (!request)
            return;
        event.preventDefault();
        this.#act(request);
    }

    #openMenu(x, y) {
        this.#closeMenu();
        const entries = this.#page?.contents?.menu || [];
        if (entries.length === 0)
            return;
        const menu = element("div", "menu-list wizard-menu");
        menu.setAttribute("role", "menu");
        menu.setAttribute("aria-label", "Topic");
        for (const entry of entries) {
            const item = element("button", "menu-item", entry.caption);
            item.type = "button";
            item.setAttribute("role", "menuitem");
            item.dataset.item = entry.name;
            item.disabled = !entry.enabled;
            item.addEventListener("click", () => {
                this.#closeMenu();
                this.#act({ action: "menu", item: entry.name });
            });
            menu.append(item);
        }
        menu.addEventListener("keydown", (event) => {
            if (event.key === "Escape") {
                this.#closeMenu();
                this.tree.querySelector(".tree")?.focus();
            }
        });
        menu.style.position = "fixed";
        menu.style.left = `${x}px`;
        menu.style.top = `${y}px`;
        document.body.append(menu);
        this.#menu = menu;
        menu.querySelector(".menu-item:not(:disabled)")?.focus();
    }

    #closeMenu() {
        this.#menu?.remove();
        this.#menu = null;
    }

    // --- the preview ---

    #renderPreview(preview) {
        const path = preview?.path || "";
        this.preview.dataset.kind = preview?.kind || "none";
        this.preview.dataset.path = path;
        if (!path) {
            this.preview.replaceChildren();
            return;
        }
        // The sample keeps its name while its text changes: a fresh address shows it anew.
        const url = `${this.#content().files}${encodePath(path)}?v=${++this.#previewCount}`;
        if (preview.kind === "picture") {
            const picture = element("img", "wizard-picture");
            picture.alt = "How the help will look";
            picture.src = url;
            this.preview.replaceChildren(picture);
            return;
        }
        let frame = this.preview.querySelector("iframe");
        if (!frame) {
            frame = element("iframe", "wizard-sample");
            frame.title = "Sample page";
            // The sample is shown, never run.
            frame.setAttribute("sandbox", "");
            this.preview.replaceChildren(frame);
        }
        frame.src = url;
    }

    // What the panel keeps when the tab is closed: Cancel, as the wizard's own.
    closing() {
        this.#command("WizardCancel");
        return false;
    }

    dispose() {
        this.#closeMenu();
    }
}

let view = null;

export function registerWizard(mainArea, contentBases) {
    // After a command (Finish refused, a button's dialog) the page is read again.
    onStudioEvent("run", (event) => {
        view?.setRunning(event.state === "started");
        if (event.state === "ended")
            view?.load();
    });
    mainArea.registerKind(KIND, {
        keyOf: () => "",
        create() {
            view = new WizardView(contentBases);
            view.load();
            return {
                title: "Scrivant Wizard",
                element: view.element,
                update: () => view.load(),
                closing: () => view.closing(),
                dispose: () => {
                    view.dispose();
                    view = null;
                },
            };
        },
    });
}

// Follows the studio's state: the panel opens with an open wizard and goes
// when the wizard has closed.
export function syncWizard(mainArea, open, running) {
    const panel = mainArea.find(KIND, "");
    if (open) {
        if (!panel)
            mainArea.open(KIND);
        view?.setRunning(running);
        return;
    }
    if (panel) {
        // The wizard closed in the server: the panel goes without asking.
        panel.parts.closing = undefined;
        mainArea.close(panel);
    }
}
