// The studio's page: the host window with its menus, the open application,
// the main area with the help viewer, and the dialogs and progress of the
// program.

import { installAboutBox } from "./about.js";
import { studioApi } from "./api.js";
import { installDialogs } from "./dialogs.js";
import { registerEditor } from "./editor.js";
import { connectEvents, onStudioEvent } from "./events.js";
import { registerHelpViewer } from "./help-viewer.js";
import "./main-area.js";
import { MenuBar } from "./menubar.js";
import { installProgressWindow } from "./progress.js";
import "./source-panel.js";
import { registerWizard, syncWizard } from "./wizard.js";

const statusText = document.getElementById("status-text");
const connection = document.getElementById("connection");
const sourcePanel = document.querySelector("scriv-source-panel");
const mainArea = document.querySelector("scriv-main-area");

let state = null;

// The commands on the current help project (they need one).
const helpProjectMenu = {
    id: "help-project",
    caption: "&Help Project",
    entries: [
        { command: "OpenHelpOfActiveProject", caption: "Open &Compiled Help", needsHelp: true },
        { command: "OpenWebHelpOfActiveProject", caption: "Open &Browser Help", needsHelp: true },
        { command: "RecompileHelpProject", caption: "&Recompile", beginGroup: true, needsHelp: true },
        { command: "RegenerateHelpProject", caption: "Re&generate", needsHelp: true },
        { command: "OpenHelpProject", caption: "Open &Project File", beginGroup: true, needsHelp: true, needsEditor: true },
        { command: "OpenHelpProjectIndex", caption: "Open &Index File", needsHelp: true },
        { command: "OpenHelpFolder", caption: "Open &Folder", needsHelp: true },
    ],
};

const fileMenu = { id: "file", caption: "&File", entries: [{ command: "Exit", caption: "E&xit" }] };

const runningCaptions = new Map([
    ["WizardFinish", "Finishing the wizard"],
    ["WizardCancel", "Closing the wizard"],
    ["WizardClick", "Wizard"],
]);

function captionText(caption) {
    return caption.replace("&", "");
}

function setStatus(text) {
    statusText.textContent = text;
}

async function runCommand(entry) {
    if (entry.command === "Exit") {
        await studioApi.exit();
        setStatus("Scrivant Studio has ended; this page may be closed.");
        document.body.classList.add("ended");
        return;
    }
    try {
        await studioApi.command(entry.command, entry.arguments || {});
    } catch (error) {
        setStatus(error.message);
    }
}

const menuBar = new MenuBar(document.querySelector(".menubar"), runCommand);

function renderMenus() {
    const scrivant = { id: "scrivant", caption: state.menu.caption, entries: state.menu.entries };
    for (const menu of [fileMenu, scrivant, helpProjectMenu])
        for (const entry of menu.entries)
            runningCaptions.set(entry.command, captionText(entry.caption).replace(/\.\.\.$/, ""));
    menuBar.render([fileMenu, scrivant, helpProjectMenu]);
}

function applyState(next) {
    const first = state === null;
    state = next;
    document.title = `${state.program.title} Studio`;
    if (first)
        renderMenus();
    menuBar.setAvailable((entry) =>
        (!entry.needsHelp || state.help !== null) && (!entry.needsEditor || state.editorOpen === true));
    menuBar.setBusy(state.running !== null);
    sourcePanel.show(state);
    syncWizard(mainArea, state.wizard === true, state.running !== null);
    if (state.running)
        setStatus(`${runningCaptions.get(state.running) || state.running}...`);
    else if (statusText.textContent === "Starting...")
        setStatus("Ready");
}

async function refresh() {
    try {
        applyState(await studioApi.state());
    } catch (error) {
        setStatus(`The state could not be read: ${error.message}`);
    }
}

function contentBases() {
    return state.content;
}

registerHelpViewer(mainArea, contentBases);
registerWizard(mainArea, contentBases);
registerEditor(mainArea);
installDialogs();
installProgressWindow();
installAboutBox();

onStudioEvent("connection", ({ connected }) => {
    connection.textContent = connected ? "" : "Not connected to Scrivant";
    connection.classList.toggle("lost", !connected);
    if (connected)
        refresh();
});
onStudioEvent("state-changed", refresh);
onStudioEvent("run", (event) => {
    menuBar.setBusy(event.state === "started");
    const caption = runningCaptions.get(event.command) || event.command;
    setStatus(event.state === "started" ? `${caption}...` : "Ready");
    document.body.dataset.running = event.state === "started" ? event.command : "";
});
onStudioEvent("show-help", (event) => {
    if (!state)
        return;
    mainArea.open(event.kind === "chm" ? "compiled-help" : "browser-help", { path: event.path });
});
onStudioEvent("open-url", (event) => {
    window.open(event.url, "_blank", "noopener");
});

await refresh();
connectEvents();
