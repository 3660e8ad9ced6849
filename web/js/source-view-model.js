// The source view's text with a colour per character, as a rich text box
// holds it, and CColorHTML: the colouring of a whole text in one pass and the
// small state machine that colours what the person types, character by
// character. No DOM here: source-view.js shows the box in the page.

// Colours as the box's colour values in decimal text (blue, green, red bytes).
export const Colors = Object.freeze({
    text: 0, // black: plain text
    tag: 10485760, // dark blue: "<", tag names, attribute names, ">"
    value: 8388736, // purple: attribute values with their quotation marks
    comment: 8421440, // teal: "<!--" to "-->"
    script: 128, // dark red: "<%" to "%>", "<cf" and "</cf" tags
});

// The CSS colour of a box colour value (its bytes are blue, green, red).
export function cssColor(value) {
    const red = value & 0xff;
    const green = (value >> 8) & 0xff;
    const blue = (value >> 16) & 0xff;
    return `rgb(${red}, ${green}, ${blue})`;
}

// The text and the colour of each of its characters, a selection, and the
// colour that typed text takes.
export class RichTextModel {
    constructor(text = "") {
        this.text = text;
        this.colors = new Array(text.length).fill(Colors.text);
        this.selStart = 0;
        this.selLength = 0;
        this.typingColor = Colors.text;
    }

    get length() {
        return this.text.length;
    }

    setText(text, color = Colors.text) {
        this.text = text;
        this.colors = new Array(text.length).fill(color);
        this.selStart = Math.min(this.selStart, text.length);
        this.selLength = 0;
    }

    select(start, length = 0) {
        this.selStart = Math.max(0, Math.min(start, this.text.length));
        this.selLength = Math.max(0, Math.min(length, this.text.length - this.selStart));
    }

    get selText() {
        return this.text.substr(this.selStart, this.selLength);
    }

    // Replaces the selection with text in the typing colour; the caret goes behind it.
    set selText(text) {
        const start = this.selStart;
        this.text = this.text.slice(0, start) + text + this.text.slice(start + this.selLength);
        this.colors.splice(start, this.selLength, ...new Array(text.length).fill(this.typingColor));
        this.selStart = start + text.length;
        this.selLength = 0;
    }

    // The box's SelColor: with a selection it colours the selection, and it is
    // the colour of what is typed next.
    set selColor(color) {
        this.typingColor = color;
        for (let i = this.selStart; i < this.selStart + this.selLength; ++i)
            this.colors[i] = color;
    }

    get selColor() {
        return this.typingColor;
    }

    colorRange(start, end, color) {
        for (let i = Math.max(0, start); i < Math.min(end, this.text.length); ++i)
            this.colors[i] = color;
    }

    // Runs of one colour: [{ text, color }].
    runs() {
        const runs = [];
        let start = 0;
        for (let i = 1; i <= this.text.length; ++i) {
            if (i === this.text.length || this.colors[i] !== this.colors[start]) {
                if (i > start)
                    runs.push({ text: this.text.slice(start, i), color: this.colors[start] });
                start = i;
            }
        }
        return runs;
    }

    snapshot() {
        return { text: this.text, colors: this.colors.slice(), selStart: this.selStart, selLength: this.selLength };
    }

    restore(snapshot) {
        this.text = snapshot.text;
        this.colors = snapshot.colors.slice();
        this.selStart = snapshot.selStart;
        this.selLength = snapshot.selLength;
    }
}

// InStr of the box's language: the 1-based position of what in text from the
// 1-based position start on, 0 when it is not there.
function inStr(start, text, what) {
    if (start < 1)
        start = 1;
    const at = text.indexOf(what, start - 1);
    return at < 0 ? 0 : at + 1;
}

export class CColorHTML {
    constructor(box) {
        this.init(box);
    }

    init(box) {
        this.box = box;
        // Off while the program itself writes into the box.
        this.Enabled = true;
        this.InTag = false;
        this.InComment = false;
        this.InScript = false;
        this.InCfTag = false;
        this.InValue = false;
        this.InQuotes = false;
        this.AfterChange = false;
        this.lastChar = "";
        this.charBeforeLast = "";
    }

    resetState() {
        this.InTag = this.InComment = this.InScript = this.InCfTag = this.InValue = this.InQuotes = false;
    }

    // Colours the whole text and puts the caret at the start.
    HtmlHighlight() {
        this.Enabled = false;
        this.HtmlColorCode(1, -1);
        this.box.select(0, 0);
        this.Enabled = true;
    }

    // Colours the tags, values and comments from start to end (1-based; an
    // end below 0 is the text's end).
    HtmlColorCode(start, end) {
        const box = this.box;
        const keptStart = box.selStart;
        const keptLength = box.selLength;
        const text = box.text;
        if (end < 0)
            end = text.length;
        if (start === 0)
            start = 1;
        let position = start;
        do {
            const open = inStr(position, text, "<");
            if (open === 0)
                break;
            const close = inStr(open, text, ">");
            if (close === 0) {
                position = 0;
                break;
            }
            const tag = text.slice(open - 1, close);
            if (tag.startsWith("<!-")) {
                const commentEnd = inStr(open, text, "->");
                const last = commentEnd === 0 ? text.length : commentEnd + 1;
                box.colorRange(open - 1, last, Colors.comment);
                position = last + 1;
            } else {
                this.ColorTag(tag, open, close);
                this.ColorCfTag(tag, open, close);
                position = close + 1;
            }
        } while (position < end && position !== 0);
        box.select(keptStart, keptLength);
    }

    // The tag colour over a tag, the value colour over its attribute values.
    ColorTag(tag, first, last) {
        const box = this.box;
        let rest = tag;
        let restAt = first; // 1-based position of rest's first character
        let noAttributeYet = true;
        const moveBehind = (count) => {
            rest = rest.slice(count);
            restAt += count;
        };
        for (;;) {
            if (rest.length === 0)
                return;
            const equals = rest.indexOf("=");
            if (equals < 0 && noAttributeYet) {
                box.colorRange(first - 1, last, Colors.tag);
                return;
            }
            if (equals >= 0 && rest.startsWith("<")) {
                box.colorRange(first - 1, last, Colors.tag);
                moveBehind(equals + 1);
            }
            // The value: up to the first blank, or a quoted one through its
            // closing mark; the tag's own ">" is no part of it.
            let length = rest.indexOf(" ");
            if (length < 0)
                length = rest.endsWith(">") ? rest.length - 1 : rest.length;
            const quote = rest[0];
            if (quote === '"' || quote === "'") {
                const closing = rest.indexOf(quote, 1);
                if (closing > 0)
                    length = closing + 1;
            }
            box.colorRange(restAt - 1, restAt - 1 + length, Colors.value);
            moveBehind(length);
            const next = rest.indexOf("=");
            if (next < 0) {
                box.colorRange(restAt - 1, last - 1, Colors.value);
                return;
            }
            moveBehind(next + 1);
            noAttributeYet = false;
        }
    }

    // "<cf" and "</cf" tags, in either case as typed, take the script colour.
    ColorCfTag(tag, first, last) {
        const three = tag.slice(0, 3);
        const four = tag.slice(0, 4);
        if (three === "<cf" || three === "<CF" || four === "</cf" || four === "</CF")
            this.box.colorRange(first - 1, last, Colors.script);
    }

    // Before a typed character c goes in at the caret: sets the typing colour
    // and the state; answers true when it wrote the text itself and the
    // character is swallowed.
    KeyPressEvent(c) {
        if (!this.Enabled)
            return false;
        const box = this.box;
        let swallowed = false;
        if (!this.InTag && !this.InComment && !this.InScript && !this.InCfTag && !this.InValue && !this.InQuotes)
            box.selColor = Colors.text;
        if (c === "<" && !this.InComment && !this.InScript && !this.InCfTag) {
            box.selColor = Colors.tag;
            this.InTag = true;
        }
        if (this.InTag && (this.InValue || this.InQuotes))
            box.selColor = Colors.value;
        if (c === "=" && this.InTag)
            this.InValue = true;
        if (c === '"') {
            if (this.InQuotes && this.InValue) {
                this.InQuotes = false;
                this.InValue = false;
            } else if (!this.InQuotes && this.InValue) {
                this.InQuotes = true;
            }
        }
        if (c === " " && !this.InQuotes && this.InTag) {
            box.selColor = Colors.tag;
            this.InValue = false;
        }
        const cursor = box.selStart;
        const before = box.text;
        if (cursor >= 1 && before[cursor - 1] === "<") {
            if (c === "!") {
                this.#replaceBehind(1, Colors.comment, "<!--");
                this.InComment = true;
                this.InTag = this.InValue = this.InScript = false;
                swallowed = true;
            } else if (c === "%") {
                this.#replaceBehind(1, Colors.script, "<%");
                this.InScript = true;
                this.InComment = this.InTag = this.InValue = false;
                swallowed = true;
            }
        }
        if (!swallowed && cursor >= 2 && (c === "f" || c === "F")) {
            const upper = c === "F";
            const letter = upper ? "C" : "c";
            if (before[cursor - 1] === letter && this.lastChar === letter) {
                if (cursor >= 3 && before[cursor - 3] === "<" && before[cursor - 2] === "/") {
                    this.#replaceBehind(3, Colors.script, upper ? "</CF" : "</cf");
                    this.InCfTag = true;
                    this.InComment = this.InTag = this.InValue = false;
                    swallowed = true;
                } else if (before[cursor - 2] === "<") {
                    this.#replaceBehind(2, Colors.script, upper ? "<CF" : "<cf");
                    this.InCfTag = true;
                    this.InComment = this.InTag = this.InValue = false;
                    swallowed = true;
                }
            }
        }
        if (c === ">") {
            const scriptLike = this.InScript !== this.InCfTag;
            if (!this.InComment && scriptLike)
                box.selColor = Colors.script;
            else if (this.InComment && !this.InScript && !this.InCfTag)
                box.selColor = Colors.comment;
            else if (!this.InComment && !this.InScript && !this.InCfTag)
                box.selColor = Colors.tag;
            this.InTag = this.InComment = this.InScript = this.InCfTag = this.InValue = false;
        }
        this.charBeforeLast = this.lastChar;
        this.lastChar = c;
        return swallowed;
    }

    // Selects count characters before the caret and writes text over them in color.
    #replaceBehind(count, color, text) {
        const box = this.box;
        box.select(box.selStart - count, count);
        box.selColor = color;
        box.selText = text;
    }

    // Whether the caret stands outside "<%" "%>", comments and tags; inside one
    // the state is set for it, outside every state flag goes off.
    IsOutsideTag() {
        const text = this.box.text;
        const cursor = this.box.selStart;
        const pairs = [
            ["<%", "%>", () => (this.InScript = true)],
            ["<!-", "->", () => (this.InComment = true)],
            ["<", ">", () => (this.InTag = true)],
        ];
        for (const [opener, closer, mark] of pairs) {
            const nextCloser = text.indexOf(closer, cursor);
            const nextOpener = text.indexOf(opener, cursor);
            const lastOpener = text.lastIndexOf(opener, cursor - 1);
            const lastCloser = text.lastIndexOf(closer, cursor - 1);
            const closerFirst = nextCloser >= 0 && (nextOpener < 0 || nextCloser < nextOpener);
            const openerLast = lastOpener >= 0 && lastOpener > lastCloser;
            if (cursor > 0 && closerFirst && openerLast) {
                this.AfterChange = true;
                mark();
                return false;
            }
        }
        this.resetState();
        this.AfterChange = false;
        return true;
    }

    // Writes text at the caret (over a selection) and colours it; with
    // keepCursorBehind the caret goes behind it, else it stays in front.
    InsertTag(text, keepCursorBehind) {
        const box = this.box;
        this.Enabled = false;
        const start = box.selStart;
        if (box.selLength > 0) {
            box.selColor = Colors.text;
            box.selText = "";
        }
        box.selColor = Colors.text;
        box.selText = text;
        box.select(start, 0);
        this.HtmlColorCode(start + 1, start + text.length);
        box.select(keepCursorBehind ? start + text.length : start, 0);
        this.Enabled = true;
    }

    // After a change of one character: the state follows the character that
    // now stands before the caret.
    AfterOneCharacterChanged() {
        this.IsOutsideTag();
        const c = this.box.text[this.box.selStart - 1];
        if (c === ">")
            this.resetState();
        else if (c === "=" && this.InTag)
            this.InValue = true;
        else if (c === "-")
            this.InComment = true;
        else if (c === "%")
            this.InScript = true;
        else if (c === "<")
            this.InTag = true;
    }
}

// The line and column (from 1) of a caret position.
export function lineAndColumn(text, position) {
    let line = 1;
    let lineStart = 0;
    for (let i = 0; i < position && i < text.length; ++i) {
        if (text[i] === "\n") {
            ++line;
            lineStart = i + 1;
        }
    }
    return { line, column: position - lineStart + 1 };
}
