// Small helpers of the studio's pages for building elements.

// A new element of tag with its class name and text, each when given.
export function element(tag, className, text) {
    const node = document.createElement(tag);
    if (className)
        node.className = className;
    if (text !== undefined)
        node.textContent = text;
    return node;
}
