// The progress window of a long run: its text, a bar, and Cancel, which asks
// the run to stop at its next step.

import { studioApi } from "./api.js";
import { onStudioEvent } from "./events.js";

let dialog = null;

function build() {
    const node = document.createElement("dialog");
    node.id = "progress-window";
    node.className = "studio-dialog progress-window";
    node.setAttribute("aria-labelledby", "progress-title");
    node.innerHTML = `
        <h2 class="dialog-title" id="progress-title">Scrivant</h2>
        <div class="dialog-body">
            <p class="progress-text" role="status"></p>
            <progress class="progress-bar" max="1" value="0"></progress>
        </div>
        <div class="dialog-buttons"><button type="button" class="cancel">Cancel</button></div>`;
    const cancel = node.querySelector(".cancel");
    cancel.addEventListener("click", async () => {
        cancel.disabled = true;
        cancel.textContent = "Cancelling...";
        try {
            await studioApi.cancel();
        } catch {
            cancel.disabled = false;
            cancel.textContent = "Cancel";
        }
    });
    // Escape is the Cancel button, never a way to hide the window.
    node.addEventListener("cancel", (event) => {
        event.preventDefault();
        if (!cancel.disabled)
            cancel.click();
    });
    document.body.append(node);
    return node;
}

function show(event) {
    if (!dialog)
        dialog = build();
    dialog.querySelector(".progress-text").textContent = event.text;
    const bar = dialog.querySelector(".progress-bar");
    bar.max = Math.max(event.max, 1);
    bar.value = Math.min(Math.max(event.value, 0), bar.max);
    if (!dialog.open) {
        const cancel = dialog.querySelector(".cancel");
        cancel.disabled = false;
        cancel.textContent = "Cancel";
        dialog.showModal();
    }
}

function hide() {
    if (dialog?.open)
        dialog.close();
}

export function installProgressWindow() {
    onStudioEvent("progress", (event) => (event.state === "shown" ? show(event) : hide()));
    // A run that has ended leaves no window behind.
    onStudioEvent("run", (event) => {
        if (event.state === "ended")
            hide();
    });
}
