// The page editor's own small dialogs, shown by the page without a round trip
// to the program: its messages, a prompt, a choice from a list, a file
// choice. They look like the program's dialogs (dialogs.js).

import { element } from "./dom.js";
import { buildPathChooser } from "./path-chooser.js";

export function button(label, onClick, className) {
    const node = element("button", className || "", label);
    node.type = "button";
    node.addEventListener("click", onClick);
    return node;
}

// A modal <dialog> with a title; close(value) ends it and settles the promise.
export function modal(title, className, build) {
    return new Promise((resolve) => {
        const dialog = element("dialog", `studio-dialog editor-dialog ${className || ""}`);
        const heading = element("h2", "dialog-title", title);
        heading.id = `editor-dialog-${Math.random().toString(36).slice(2)}`;
        dialog.setAttribute("aria-labelledby", heading.id);
        dialog.append(heading);
        let settled = false;
        const close = (value) => {
            if (settled)
                return;
            settled = true;
            dialog.close();
            dialog.remove();
            resolve(value);
        };
        build(dialog, close);
        dialog.addEventListener("cancel", (event) => {
            event.preventDefault();
            close(null);
        });
        document.body.append(dialog);
        dialog.showModal();
        dialog.querySelector("[autofocus]")?.focus();
    });
}

// A message with buttons [{ label, value }]; answers the value of the button
// pressed (null on Escape).
// defaultIndex: the button that has the focus.
export function messageBox(text, { title = "Scrivant Add-In", icon = "information", buttons, defaultIndex = 0 } = {}) {
    const shown = buttons || [{ label: "OK", value: "ok" }];
    return modal(title, "message-box", (dialog, close) => {
        const body = element("div", "dialog-body");
        const mark = element("span", `icon icon-${icon}`);
        mark.setAttribute("aria-hidden", "true");
        body.append(mark, element("p", "message-text", text));
        const row = element("div", "dialog-buttons");
        shown.forEach((entry, index) => {
            const node = button(entry.label, () => close(entry.value));
            if (index === defaultIndex)
                node.autofocus = true;
            row.append(node);
        });
        dialog.append(body, row);
    });
}

export async function confirmBox(text, options = {}) {
    const answer = await messageBox(text, {
        icon: "question",
        buttons: [{ label: "Yes", value: true }, { label: "No", value: false }],
        ...options,
    });
    return answer === true;
}

// Answers the typed text, or null on Cancel.
export function promptBox(title, prompt, value = "") {
    return modal(title, "input-box", (dialog, close) => {
        const label = element("label", "dialog-body");
        const input = element("input");
        input.type = "text";
        input.value = value;
        input.autofocus = true;
        label.append(element("span", "prompt", prompt), input);
        input.addEventListener("keydown", (key) => {
            if (key.key === "Enter")
                close(input.value);
        });
        const row = element("div", "dialog-buttons");
        row.append(button("OK", () => close(input.value), "default"), button("Cancel", () => close(null)));
        dialog.append(label, row);
    });
}

// Answers the index of the chosen item, or null.
export function listBox(title, items) {
    return modal(title, "list-box", (dialog, close) => {
        const list = element("select", "choices");
        list.size = Math.min(Math.max(items.length, 3), 12);
        list.setAttribute("aria-label", title);
        items.forEach((item, index) => {
            const option = element("option", "", item);
            option.value = String(index);
            option.selected = index === 0;
            list.append(option);
        });
        list.autofocus = true;
        const chosen = () => (list.selectedIndex < 0 ? null : list.selectedIndex);
        list.addEventListener("dblclick", () => close(chosen()));
        const body = element("div", "dialog-body");
        body.append(list);
        const row = element("div", "dialog-buttons");
        row.append(button("OK", () => close(chosen()), "default"), button("Cancel", () => close(null)));
        dialog.append(body, row);
    });
}

// A file among the folders the studio may show; answers its path or null.
export function fileBox(title, { pattern = "", filterName = "", startFolder = "" } = {}) {
    return modal(title, "file-box", (dialog, close) => {
        const chooser = buildPathChooser({ kind: "file", pattern, filterName, startFolder, onChoose: close });
        const row = element("div", "dialog-buttons");
        row.append(button("OK", () => close(chooser.value() || null), "default"), button("Cancel", () => close(null)));
        dialog.append(chooser.element, row);
    });
}
