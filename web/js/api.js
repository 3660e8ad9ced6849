// The studio's JSON API. The access token travels in the cookie that the
// first address set; the browser adds this page's Origin to every POST.

export class ApiError extends Error {
    constructor(status, message) {
        super(message);
        this.status = status;
    }
}

async function answerOf(response) {
    const text = await response.text();
    let body = null;
    try {
        body = text ? JSON.parse(text) : null;
    } catch {
        body = null;
    }
    if (!response.ok)
        throw new ApiError(response.status, body?.error || `${response.status} ${response.statusText}`);
    return body;
}

export async function getJson(path, params = {}) {
    const query = new URLSearchParams(params).toString();
    const response = await fetch(query ? `${path}?${query}` : path, { credentials: "same-origin", cache: "no-store" });
    return answerOf(response);
}

export async function postJson(path, body = {}) {
    const response = await fetch(path, {
        method: "POST",
        credentials: "same-origin",
        headers: { "Content-Type": "application/json" },
        body: JSON.stringify(body),
    });
    return answerOf(response);
}

export const studioApi = {
    state: () => getJson("/api/state"),
    command: (command, args = {}) => postJson("/api/command", { command, arguments: args }),
    answer: (id, answer) => postJson("/api/dialog", { id, answer }),
    cancel: () => postJson("/api/cancel"),
    exit: () => postJson("/api/exit"),
    browse: (path, pattern) => getJson("/api/browse", { path: path || "", pattern: pattern || "" }),
    compiledHelp: (path) => getJson("/api/chm", { path }),
};

// An absolute file path as the path part of a URL: each segment encoded.
export function encodePath(path) {
    return path.split("/").map(encodeURIComponent).join("/");
}
