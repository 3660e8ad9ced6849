// The studio's About box: the program's name, version and what it does, and
// the help project that is open. Nothing waits for it; OK or Escape closes it.

import { element } from "./dom.js";
import { onStudioEvent } from "./events.js";

function show(event) {
    document.querySelector("dialog.about-box")?.remove();
    const dialog = element("dialog", "studio-dialog about-box");
    dialog.setAttribute("aria-labelledby", "about-title");
    const title = element("h2", "dialog-title", event.title);
    title.id = "about-title";
    const body = element("div", "dialog-body");
    const text = element("div", "about-text");
    text.append(element("p", "about-program", `${event.program} ${event.version}`),
        element("p", "about-description", event.description));
    if (event.help) {
        const help = element("p", "about-help", `Help project: ${event.help.title} (${event.help.name})`);
        if (event.help.folder)
            help.title = event.help.folder;
        text.append(help);
    }
    body.append(element("span", "icon icon-information"), text);
    const row = element("div", "dialog-buttons");
    const ok = element("button", "default", "OK");
    ok.type = "button";
    ok.autofocus = true;
    ok.addEventListener("click", () => dialog.close());
    row.append(ok);
    dialog.append(title, body, row);
    dialog.addEventListener("close", () => dialog.remove());
    document.body.append(dialog);
    dialog.showModal();
    ok.focus();
}

export function installAboutBox() {
    onStudioEvent("about", show);
}
