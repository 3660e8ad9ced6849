// The host window's main area: panels with a tab each. A part of the studio
// registers a kind of panel once, then opens panels of that kind; opening
// one whose key is open already brings that one forward. The help viewer is
// one kind; the Help Editor moves in as another:
//
//   mainArea.registerKind("editor", {
//       keyOf(options) { return options.project; },
//       create(options) { return { title, element, update(options), closing(), dispose() }; },
//   });
//   mainArea.open("editor", { project: "/path/App.svp" });
//
// keyOf() (optional) names the panel that options open: panels of one kind
// and key are one panel, and opening it again calls its update(options).
// create() answers the panel's parts: its element, a tab title, and
// optionally update(options), closing() (answering false keeps the panel
// open) and dispose() (run when it has closed).

export class MainArea extends HTMLElement {
    #kinds = new Map();
    #panels = [];
    #active = null;
    #tabs;
    #body;
    #empty;

    connectedCallback() {
        if (this.#tabs)
            return;
        this.#tabs = document.createElement("div");
        this.#tabs.className = "tabs";
        this.#tabs.setAttribute("role", "tablist");
        this.#body = document.createElement("div");
        this.#body.className = "panels";
        this.#empty = document.createElement("div");
        this.#empty.className = "empty-area";
        this.#empty.textContent = "Choose a command of the Scrivant menu.";
        this.#body.append(this.#empty);
        this.append(this.#tabs, this.#body);
    }

    registerKind(kind, definition) {
        if (this.#kinds.has(kind))
            throw new Error(`The panel kind "${kind}" is registered already.`);
        this.#kinds.set(kind, definition);
    }

    get panels() {
        return [...this.#panels];
    }

    get active() {
        return this.#active;
    }

    find(kind, key) {
        return this.#panels.find((panel) => panel.kind === kind && panel.key === key) || null;
    }

    open(kind, options = {}) {
        const definition = this.#kinds.get(kind);
        if (!definition)
            throw new Error(`There is no panel kind "${kind}".`);
        const key = definition.keyOf?.(options) ?? "";
        const existing = this.find(kind, key);
        if (existing) {
            existing.parts.update?.(options);
            this.activate(existing);
            return existing;
        }
        const parts = definition.create(options);
        const panel = { kind, key, parts, tab: this.#makeTab(parts.title), element: parts.element };
        panel.element.classList.add("panel");
        panel.element.dataset.kind = kind;
        panel.element.setAttribute("role", "tabpanel");
        panel.tab.addEventListener("click", (event) => {
            if (event.target.closest(".tab-close"))
                this.close(panel);
            else
                this.activate(panel);
        });
        panel.tab.addEventListener("keydown", (event) => this.#tabKey(panel, event));
        this.#panels.push(panel);
        this.#tabs.append(panel.tab);
        this.#body.append(panel.element);
        this.activate(panel);
        return panel;
    }

    setTitle(panel, title) {
        panel.tab.querySelector(".tab-title").textContent = title;
    }

    activate(panel) {
        for (const other of this.#panels) {
            const chosen = other === panel;
            other.element.hidden = !chosen;
            other.tab.setAttribute("aria-selected", String(chosen));
            other.tab.tabIndex = chosen ? 0 : -1;
        }
        this.#active = panel;
        this.#empty.hidden = true;
        this.dispatchEvent(new CustomEvent("panel-activated", { detail: panel }));
    }

    close(panel) {
        if (panel.parts.closing?.() === false)
            return false;
        this.#panels = this.#panels.filter((other) => other !== panel);
        panel.tab.remove();
        panel.element.remove();
        panel.parts.dispose?.();
        if (this.#active === panel) {
            this.#active = null;
            const last = this.#panels.at(-1);
            if (last)
                this.activate(last);
            else
                this.#empty.hidden = false;
        }
        this.dispatchEvent(new CustomEvent("panel-closed", { detail: panel }));
        return true;
    }

    #makeTab(title) {
        const tab = document.createElement("div");
        tab.className = "tab";
        tab.setAttribute("role", "tab");
        tab.tabIndex = -1;
        // A tab holds no control of its own: Delete closes it from the keyboard.
        tab.setAttribute("aria-keyshortcuts", "Delete");
        const label = document.createElement("span");
        label.className = "tab-title";
        label.textContent = title;
        const close = document.createElement("span");
        close.className = "tab-close";
        close.title = "Close";
        close.setAttribute("aria-hidden", "true");
        close.textContent = "\u00d7";
        tab.append(label, close);
        return tab;
    }

    // Arrows move between the tabs, Delete closes the focused one.
    #tabKey(panel, event) {
        const index = this.#panels.indexOf(panel);
        let next = null;
        if (event.key === "ArrowRight")
            next = this.#panels[(index + 1) % this.#panels.length];
        else if (event.key === "ArrowLeft")
            next = this.#panels[(index - 1 + this.#panels.length) % this.#panels.length];
        else if (event.key === "Delete")
            this.close(panel);
        else
            return;
        event.preventDefault();
        if (next) {
            this.activate(next);
            next.tab.focus();
        }
    }
}

customElements.define("scriv-main-area", MainArea);

// The page's main area, for the parts that open panels in it.
export function theMainArea() {
    return document.querySelector("scriv-main-area");
}
