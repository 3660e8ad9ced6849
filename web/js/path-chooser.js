// The body of a file or folder dialog: a path that may be typed by hand, and
// a listing of the folders the studio may show (the open application's, the
// help projects' and the program's), with the files that match the pattern.

import { ApiError, studioApi } from "./api.js";
import { element } from "./dom.js";

function joinPath(folder, name) {
    return folder.endsWith("/") ? folder + name : `${folder}/${name}`;
}

export function buildPathChooser({ kind, pattern, filterName, startFolder, onChoose }) {
    const root = element("div", "path-chooser dialog-body");
    const pathRow = element("div", "path-row");
    const up = element("button", "up", "Up");
    up.type = "button";
    const input = element("input", "path");
    input.type = "text";
    input.setAttribute("aria-label", kind === "folder" ? "Folder" : "File");
    input.autofocus = true;
    pathRow.append(up, input);
    const listing = element("ul", "listing");
    listing.setAttribute("role", "listbox");
    listing.setAttribute("aria-label", "Folders and files");
    const filter = element("p", "filter", filterName ? `${filterName} (${pattern})` : pattern || "");
    const problem = element("p", "dialog-error");
    problem.hidden = true;
    root.append(pathRow, listing, filter, problem);

    let folder = "";
    let parent = null;

    async function show(path) {
        let answer;
        try {
            answer = await studioApi.browse(path, kind === "file" ? pattern : "");
        } catch (error) {
            problem.hidden = false;
            problem.textContent = error instanceof ApiError && error.status === 403
                ? `'${path}' is not among the folders Scrivant may show. The path can still be typed.`
                : error.message;
            return false;
        }
        problem.hidden = true;
        folder = answer.path;
        parent = answer.parent;
        up.disabled = folder === "";
        if (kind === "folder" || !input.value || input.value.endsWith("/"))
            input.value = folder;
        listing.replaceChildren();
        for (const name of answer.folders) {
            const item = element("li", "folder", name);
            item.setAttribute("role", "option");
            item.addEventListener("click", () => show(folder ? joinPath(folder, name) : name));
            listing.append(item);
        }
        for (const name of answer.files) {
            const item = element("li", "file", name);
            item.setAttribute("role", "option");
            item.addEventListener("click", () => {
                input.value = joinPath(folder, name);
            });
            item.addEventListener("dblclick", () => onChoose(joinPath(folder, name)));
            listing.append(item);
        }
        return true;
    }

    up.addEventListener("click", () => show(parent ?? ""));
    input.addEventListener("keydown", (key) => {
        if (key.key !== "Enter")
            return;
        key.preventDefault();
        const typed = input.value.trim();
        if (typed.endsWith("/"))
            show(typed);
        else if (typed)
            onChoose(typed);
    });
    show(startFolder || "").then((shown) => {
        if (!shown && startFolder)
            show("");
    });

    return {
        element: root,
        value: () => input.value.trim() || (kind === "folder" ? folder : ""),
    };
}
