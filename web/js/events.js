// The studio's events (dialogs, progress, runs, help to show) as DOM events
// of one EventTarget: studioEvents.addEventListener("dialog", e => e.detail).
// The browser reconnects by itself; the server sends what is still open
// (a waiting question, the progress window) again on every connection.

export const studioEvents = new EventTarget();

let source = null;

export function connectEvents() {
    if (source)
        return source;
    source = new EventSource("/api/events");
    source.addEventListener("open", () => {
        studioEvents.dispatchEvent(new CustomEvent("connection", { detail: { connected: true } }));
    });
    source.addEventListener("error", () => {
        studioEvents.dispatchEvent(new CustomEvent("connection", { detail: { connected: false } }));
    });
    source.addEventListener("message", (message) => {
        let event;
        try {
            event = JSON.parse(message.data);
        } catch {
            return;
        }
        if (event && typeof event.type === "string")
            studioEvents.dispatchEvent(new CustomEvent(event.type, { detail: event }));
    });
    return source;
}

export function onStudioEvent(type, handler) {
    studioEvents.addEventListener(type, (event) => handler(event.detail));
}
