// The side panel of the host window: the open application (project or group,
// type, forms) and the current help project.

import { element } from "./dom.js";

function fileName(path) {
    return path.split("/").pop();
}

export class SourcePanel extends HTMLElement {
    show(state) {
        this.replaceChildren(this.#application(state.source), this.#helpProject(state.help));
    }

    #application(source) {
        const section = element("section", "application");
        section.setAttribute("aria-label", "Application");
        section.append(element("h2", "", "Application"));
        if (!source || source.projects.length === 0) {
            section.append(element("p", "none", "No application is open."));
            return section;
        }
        const heading = source.kind === "group" ? "Project group" : "Project";
        section.append(element("p", "source-file", `${heading}: ${fileName(source.file)}`));
        section.lastChild.title = source.file;
        for (const project of source.projects) {
            const block = element("details", "source-project");
            block.open = true;
            block.dataset.project = project.name;
            const summary = element("summary", "", `${project.name} (${project.type})`);
            summary.title = project.path;
            block.append(summary);
            const forms = element("ul", "forms");
            forms.setAttribute("aria-label", `Forms of ${project.name}`);
            for (const form of project.forms || []) {
                const item = element("li", "form", form.name);
                if (form.caption)
                    item.append(element("span", "caption", ` \u2013 ${form.caption}`));
                if (form.kind !== "Form")
                    item.append(element("span", "kind", ` (${form.kind})`));
                forms.append(item);
            }
            block.append(forms);
            section.append(block);
        }
        return section;
    }

    #helpProject(help) {
        const section = element("section", "help-project");
        section.setAttribute("aria-label", "Help project");
        section.append(element("h2", "", "Help project"));
        if (!help) {
            section.append(element("p", "none", "No help project is open."));
            return section;
        }
        const list = element("dl");
        const row = (term, value, title) => {
            list.append(element("dt", "", term));
            const detail = element("dd", "", value);
            if (title)
                detail.title = title;
            list.append(detail);
        };
        row("Name", help.name);
        row("Title", help.title);
        row("Folder", help.folder, help.folder);
        row("Project file", help.projectFileExists ? fileName(help.projectFile) : "not saved yet", help.projectFile);
        row("Compiled help", help.compiledHelpExists ? fileName(help.compiledHelp) : "not compiled", help.compiledHelp);
        section.append(list);
        section.dataset.name = help.name;
        return section;
    }
}

customElements.define("scriv-source-panel", SourcePanel);
