// The help viewer: a compiled help (.chm) with its contents beside the topic,
// both read out of the file by the server; and the browser help of a project
// folder. Both are served from the studio's content origin, so that the
// helps' own scripts run apart from this page.

import { encodePath, studioApi } from "./api.js";
import { element } from "./dom.js";

let frameCounter = 0;

function fileName(path) {
    return path.split("/").pop();
}

// A topic's address inside a compiled help: "topic.htm#part" keeps its part.
function topicUrl(base, chmPath, local) {
    const hash = local.indexOf("#");
    const file = hash < 0 ? local : local.slice(0, hash);
    const fragment = hash < 0 ? "" : local.slice(hash);
    const inner = file.replace(/^\/+/, "").split("/").map(encodeURIComponent).join("/");
    return `${base}${encodePath(chmPath)}/::/${inner}${fragment}`;
}

class CompiledHelpView {
    constructor(content, path) {
        this.content = content;
        this.path = path;
        this.frameName = `help-topic-${++frameCounter}`;
        this.element = element("div", "help-viewer compiled-help");
        this.element.dataset.path = path;
        this.contents = element("nav", "help-contents");
        this.contents.setAttribute("aria-label", "Contents");
        this.topic = element("iframe", "help-topic");
        this.topic.name = this.frameName;
        this.topic.title = "Topic";
        this.element.append(this.contents, this.topic);
        this.load();
    }

    async load() {
        this.contents.replaceChildren(element("p", "loading", "Reading the contents..."));
        let contents;
        try {
            contents = await studioApi.compiledHelp(this.path);
        } catch (error) {
            this.contents.replaceChildren(element("p", "dialog-error", error.message));
            return;
        }
        this.element.dataset.title = contents.title;
        const tree = element("ul", "tree");
        tree.setAttribute("role", "tree");
        for (const topic of contents.topics)
            tree.append(this.item(topic, 1));
        this.contents.replaceChildren(tree);
        const first = contents.defaultTopic || contents.topics[0]?.local;
        if (first)
            this.show(first);
    }

    item(topic, level) {
        const item = element("li", "topic-item");
        item.setAttribute("role", "treeitem");
        item.setAttribute("aria-level", String(level));
        const link = element("a", "topic-link", topic.name);
        if (topic.local) {
            link.href = topicUrl(this.content.chm, this.path, topic.local);
            link.target = this.frameName;
            link.dataset.local = topic.local;
            link.addEventListener("click", () => this.select(link));
        }
        if (topic.children.length > 0) {
            const toggle = element("button", "toggle");
            toggle.type = "button";
            toggle.setAttribute("aria-label", `Expand or collapse ${topic.name}`);
            const children = element("ul", "tree-group");
            children.setAttribute("role", "group");
            for (const child of topic.children)
                children.append(this.item(child, level + 1));
            const setOpen = (open) => {
                children.hidden = !open;
                item.setAttribute("aria-expanded", String(open));
                toggle.textContent = open ? "\u25be" : "\u25b8";
            };
            setOpen(level <= 2);
            toggle.addEventListener("click", () => setOpen(children.hidden));
            item.append(toggle, link, children);
        } else {
            item.append(element("span", "leaf"), link);
        }
        return item;
    }

    select(link) {
        for (const chosen of this.contents.querySelectorAll(".topic-link.selected"))
            chosen.classList.remove("selected");
        link.classList.add("selected");
    }

    show(local) {
        this.topic.src = topicUrl(this.content.chm, this.path, local);
        const link = [...this.contents.querySelectorAll(".topic-link")].find((candidate) => candidate.dataset.local === local);
        if (link)
            this.select(link);
    }
}

export function registerHelpViewer(mainArea, contentBases) {
    mainArea.registerKind("compiled-help", {
        keyOf: (options) => options.path,
        create(options) {
            const view = new CompiledHelpView(contentBases(), options.path);
            return { title: fileName(options.path), element: view.element, update: () => view.load() };
        },
    });
    mainArea.registerKind("browser-help", {
        keyOf: (options) => options.path,
        create(options) {
            const frame = element("iframe", "browser-help");
            frame.title = "Browser help";
            const load = () => {
                frame.src = `${contentBases().files}${encodePath(options.path)}`;
            };
            load();
            const holder = element("div", "help-viewer web-help");
            holder.dataset.path = options.path;
            holder.append(frame);
            return { title: `${fileName(options.path.replace(/\/[^/]*$/, "")) || "Help"} (browser)`, element: holder, update: load };
        },
    });
}
