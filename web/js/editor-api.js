// The Help Editor's part of the studio's API (see src/studio/EditorRoutes.h).

import { getJson, postJson } from "./api.js";

// Each call may carry the page being edited ({ text, source }), which the
// program then holds as changed before it acts.
function withPage(body, page) {
    return page ? { ...body, page } : body;
}

export const editorApi = {
    state: () => getJson("/api/editor/state"),
    tree: () => getJson("/api/editor/tree"),
    select: (key, page) => postJson("/api/editor/select", withPage({ key }, page)),
    expand: (key, expanded, page) => postJson("/api/editor/expand", withPage({ key, expanded }, page)),
    key: (keyCode, shift, page) => postJson("/api/editor/key", withPage({ keyCode, shift }, page)),
    menu: (item, page) => postJson("/api/editor/menu", withPage({ item }, page)),
    rename: (text, page) => postJson("/api/editor/rename", withPage(text === null ? { cancel: true } : { text }, page)),
    drop: (source, target, page) => postJson("/api/editor/drop", withPage({ source, target }, page)),
    hold: (page) => postJson("/api/editor/hold", withPage({}, page)),
    save: (page) => postJson("/api/editor/save", withPage({}, page)),
    navigated: (path, page) => postJson("/api/editor/navigated", withPage({ path }, page)),
    sourceText: (html) => postJson("/api/editor/source", { html }),
    tempPage: (text) => postJson("/api/editor/temp", { text }),
    report: (report, action, row) => postJson("/api/editor/report", { report, action, row }),
    command: (name, page) => postJson("/api/editor/command", withPage({ name }, page)),
    findReplace: (request, page) => postJson("/api/editor/find-replace", withPage(request, page)),
    wordExport: (target, savePictures) => postJson("/api/editor/word-export", { target, savePictures }),
    // The index entries dialog: { action, text, selected } answers its state.
    indexEntries: (request) => postJson("/api/editor/index-entries", request),
};
