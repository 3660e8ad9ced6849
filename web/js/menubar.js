// The menu bar of the host window: the host's File menu, the "&Scrivant"
// menu as the server describes it, and the commands on the current help
// project. A caption's "&" marks its access key: Alt with that key opens a
// menu, the key alone chooses an entry of an open menu.

function captionNodes(caption) {
    const nodes = [];
    const at = caption.indexOf("&");
    if (at < 0 || at === caption.length - 1)
        return { nodes: [document.createTextNode(caption)], key: null, text: caption };
    const key = caption[at + 1];
    const underlined = document.createElement("u");
    underlined.textContent = key;
    nodes.push(document.createTextNode(caption.slice(0, at)), underlined,
        document.createTextNode(caption.slice(at + 2)));
    return { nodes, key: key.toLowerCase(), text: caption.slice(0, at) + caption.slice(at + 1) };
}

export class MenuBar {
    #bar;
    #menus = [];
    #onCommand;
    #busy = false;

    constructor(bar, onCommand) {
        this.#bar = bar;
        this.#onCommand = onCommand;
        document.addEventListener("keydown", (event) => this.#key(event));
        document.addEventListener("click", (event) => {
            if (!this.#bar.contains(event.target))
                this.closeAll();
        });
    }

    // menus: [{ id, caption, entries: [{ command, caption, beginGroup, arguments, needsHelp }] }]
    render(menus) {
        this.#bar.replaceChildren();
        this.#menus = menus.map((menu) => this.#buildMenu(menu));
        this.setBusy(this.#busy);
    }

    // While a command runs, entries wait; the server refuses a second one.
    setBusy(busy) {
        this.#busy = busy;
        for (const menu of this.#menus)
            for (const entry of menu.entries)
                entry.button.disabled = busy || entry.unavailable;
    }

    setAvailable(test) {
        for (const menu of this.#menus) {
            for (const entry of menu.entries) {
                entry.unavailable = !test(entry.definition);
                entry.button.disabled = this.#busy || entry.unavailable;
            }
        }
    }

    closeAll() {
        for (const menu of this.#menus) {
            menu.list.hidden = true;
            menu.button.setAttribute("aria-expanded", "false");
        }
    }

    #open(menu) {
        this.closeAll();
        menu.list.hidden = false;
        menu.button.setAttribute("aria-expanded", "true");
        menu.entries.find((entry) => !entry.button.disabled)?.button.focus();
    }

    #buildMenu(definition) {
        const holder = document.createElement("div");
        holder.className = "menu";
        const button = document.createElement("button");
        button.type = "button";
        button.className = "menu-title";
        button.id = `menu-${definition.id}`;
        button.setAttribute("aria-haspopup", "menu");
        button.setAttribute("aria-expanded", "false");
        const caption = captionNodes(definition.caption);
        button.append(...caption.nodes);
        button.setAttribute("aria-label", caption.text);
        const list = document.createElement("div");
        list.className = "menu-list";
        list.setAttribute("role", "menu");
        list.setAttribute("aria-label", caption.text);
        list.hidden = true;
        const menu = { definition, button, list, key: caption.key, entries: [] };
        for (const entry of definition.entries) {
            if (entry.beginGroup)
                list.append(Object.assign(document.createElement("hr"), { className: "menu-separator" }));
            const item = document.createElement("button");
            item.type = "button";
            item.className = "menu-item";
            item.setAttribute("role", "menuitem");
            item.dataset.command = entry.command;
            const entryCaption = captionNodes(entry.caption);
            item.append(...entryCaption.nodes);
            item.setAttribute("aria-label", entryCaption.text);
            item.addEventListener("click", () => {
                this.closeAll();
                this.#onCommand(entry);
            });
            list.append(item);
            menu.entries.push({ definition: entry, button: item, key: entryCaption.key, unavailable: false });
        }
        button.addEventListener("click", () => (list.hidden ? this.#open(menu) : this.closeAll()));
        holder.append(button, list);
        this.#bar.append(holder);
        return menu;
    }

    #key(event) {
        if (document.querySelector("dialog[open]"))
            return;
        const key = event.key.toLowerCase();
        if (event.altKey) {
            const menu = this.#menus.find((candidate) => candidate.key === key);
            if (menu) {
                event.preventDefault();
                this.#open(menu);
            }
            return;
        }
        const open = this.#menus.find((menu) => !menu.list.hidden);
        if (!open)
            return;
        if (event.key === "Escape") {
            this.closeAll();
            open.button.focus();
            return;
        }
        const entry = open.entries.find((candidate) => candidate.key === key && !candidate.button.disabled);
        if (entry) {
            event.preventDefault();
            entry.button.click();
        }
    }
}
