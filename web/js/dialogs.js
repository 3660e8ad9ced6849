// The questions the program asks, shown as modal <dialog>s: message boxes
// (icon, buttons and default button of their flags), input boxes, lists, and
// file and folder choices. The answer goes back to the server, which waits
// for it; a question answered in another tab closes here as well.

import { ApiError, studioApi } from "./api.js";
import { element } from "./dom.js";
import { onStudioEvent } from "./events.js";
import { buildPathChooser } from "./path-chooser.js";

const openDialogs = new Map();

function button(label, onClick) {
    const node = element("button", "", label);
    node.type = "button";
    node.addEventListener("click", onClick);
    return node;
}

function closeDialog(id) {
    const dialog = openDialogs.get(id);
    if (!dialog)
        return;
    openDialogs.delete(id);
    dialog.close();
    dialog.remove();
}

async function answer(id, value) {
    const dialog = openDialogs.get(id);
    if (!dialog || dialog.dataset.answering)
        return;
    dialog.dataset.answering = "true";
    try {
        await studioApi.answer(id, value);
    } catch (error) {
        // Answered already (another tab, or the default after a while): nothing waits.
        if (!(error instanceof ApiError) || error.status !== 409) {
            delete dialog.dataset.answering;
            dialog.querySelector(".dialog-error")?.remove();
            dialog.append(element("p", "dialog-error", `The answer did not reach Scrivant: ${error.message}`));
            return;
        }
    }
    closeDialog(id);
}

function frame(event, className) {
    const dialog = element("dialog", `studio-dialog ${className}`);
    dialog.dataset.dialogId = String(event.id);
    dialog.dataset.kind = event.kind;
    const titleId = `dialog-title-${event.id}`;
    const title = element("h2", "dialog-title", event.title || "Scrivant Add-In");
    title.id = titleId;
    dialog.setAttribute("aria-labelledby", titleId);
    dialog.append(title);
    return dialog;
}

function messageBox(event) {
    const dialog = frame(event, "message-box");
    dialog.dataset.flags = String(event.flags);
    const body = element("div", "dialog-body");
    const icon = element("span", `icon icon-${event.icon || "none"}`);
    icon.setAttribute("aria-hidden", "true");
    body.append(icon, element("p", "message-text", event.text));
    const row = element("div", "dialog-buttons");
    for (const shown of event.buttons) {
        const node = button(shown.label, () => answer(event.id, { button: shown.code }));
        node.dataset.code = String(shown.code);
        if (shown.code === event.default)
            node.autofocus = true;
        row.append(node);
    }
    dialog.append(body, row);
    // Escape presses Cancel where there is one, and OK on a box that has only OK.
    const codes = event.buttons.map((shown) => shown.code);
    const escapeCode = codes.includes(2) ? 2 : codes.length === 1 ? codes[0] : null;
    dialog.addEventListener("cancel", (cancel) => {
        cancel.preventDefault();
        if (escapeCode !== null)
            answer(event.id, { button: escapeCode });
    });
    return dialog;
}

function okCancelRow(event, okValue) {
    const row = element("div", "dialog-buttons");
    const ok = button("OK", () => {
        const value = okValue();
        if (value !== null)
            answer(event.id, value);
    });
    ok.classList.add("default");
    row.append(ok, button("Cancel", () => answer(event.id, { cancel: true })));
    return row;
}

function cancelOnEscape(dialog, event) {
    dialog.addEventListener("cancel", (cancel) => {
        cancel.preventDefault();
        answer(event.id, { cancel: true });
    });
}

function inputBox(event) {
    const dialog = frame(event, "input-box");
    const label = element("label", "dialog-body");
    const input = element("input");
    input.type = "text";
    input.value = event.value || "";
    input.autofocus = true;
    label.append(element("span", "prompt", event.prompt), input);
    dialog.append(label, okCancelRow(event, () => ({ value: input.value })));
    input.addEventListener("keydown", (key) => {
        if (key.key === "Enter")
            answer(event.id, { value: input.value });
    });
    cancelOnEscape(dialog, event);
    return dialog;
}

function listBox(event) {
    const dialog = frame(event, "list-box");
    const list = element("select", "choices");
    list.size = Math.min(Math.max(event.items.length, 3), 12);
    list.setAttribute("aria-label", event.title);
    event.items.forEach((item, index) => {
        const option = element("option", "", item);
        option.value = String(index);
        option.selected = index === event.default;
        list.append(option);
    });
    list.autofocus = true;
    const chosen = () => (list.selectedIndex < 0 ? null : { index: list.selectedIndex });
    list.addEventListener("dblclick", () => {
        const value = chosen();
        if (value)
            answer(event.id, value);
    });
    dialog.append(element("div", "dialog-body"), okCancelRow(event, chosen));
    dialog.querySelector(".dialog-body").append(list);
    cancelOnEscape(dialog, event);
    return dialog;
}

function pathDialog(event) {
    const dialog = frame(event, event.kind === "folder" ? "folder-box" : "file-box");
    const chooser = buildPathChooser({
        kind: event.kind,
        pattern: event.pattern,
        filterName: event.filterName,
        startFolder: event.startFolder,
        onChoose: (path) => answer(event.id, { value: path }),
    });
    dialog.append(chooser.element, okCancelRow(event, () => {
        const path = chooser.value();
        return path ? { value: path } : null;
    }));
    cancelOnEscape(dialog, event);
    return dialog;
}

const builders = { message: messageBox, input: inputBox, list: listBox, file: pathDialog, folder: pathDialog };

function showDialog(event) {
    if (openDialogs.has(event.id) || !builders[event.kind])
        return;
    const dialog = builders[event.kind](event);
    openDialogs.set(event.id, dialog);
    document.body.append(dialog);
    dialog.showModal();
    dialog.querySelector("[autofocus]")?.focus();
}

export function installDialogs() {
    onStudioEvent("dialog", showDialog);
    onStudioEvent("dialog-closed", (event) => closeDialog(event.id));
}
