// The page editor's rules that need no browser: the source view's one-pass
// colouring and the state machine that colours what is typed, and the links,
// addresses and caret of the page editor.
import { describe, test } from "node:test";
import assert from "node:assert/strict";
import { caretOutsideTag, isEmptyPageText, pathOfEditUrl, relativeLink } from "../../web/js/editor-htmledit.js";
import { CColorHTML, Colors, cssColor, lineAndColumn, RichTextModel } from "../../web/js/source-view-model.js";

const { text: BLACK, tag: BLUE, value: PURPLE, comment: TEAL, script: RED } = Colors;

// The colours of a stretch of the text, one per character.
function colorsOf(model, from, to = model.length) {
    return model.colors.slice(from, to);
}

function colored(text) {
    const model = new RichTextModel(text);
    const color = new CColorHTML(model);
    color.HtmlHighlight();
    return model;
}

// Types text at the caret as the box does: each character passes the state
// machine first, which may write it itself.
function type(model, color, text) {
    for (const c of text)
        if (!color.KeyPressEvent(c))
            model.selText = c;
}

function typing(before = "") {
    const model = new RichTextModel(before);
    model.select(before.length, 0);
    return { model, color: new CColorHTML(model) };
}

function every(colors, value) {
    return colors.every((color) => color === value);
}

describe("colouring a page's text in one pass", () => {
    test("tags are blue, attribute values purple with their quotes, text black", () => {
        const model = colored('<a href="x.htm" target=main>Go</a>');
        const text = model.text;
        assert.ok(every(colorsOf(model, 0, text.indexOf('"x')), BLUE), "tag name and attribute name");
        assert.ok(every(colorsOf(model, text.indexOf('"x'), text.indexOf(" target")), PURPLE), '"x.htm" with its quotes');
        assert.ok(every(colorsOf(model, text.indexOf("main"), text.indexOf("main") + 4), PURPLE));
        assert.equal(model.colors[text.indexOf(">Go")], BLUE, "the tag's closing mark is no part of a value");
        assert.ok(every(colorsOf(model, text.indexOf("Go"), text.indexOf("Go") + 2), BLACK));
        assert.ok(every(colorsOf(model, text.indexOf("</a>")), BLUE));
    });

    test("a comment is teal from \"<!--\" through \"-->\", tags inside it too", () => {
        const model = colored("x<!-- <b>old</b> -->y<p>");
        const start = model.text.indexOf("<!--");
        const end = model.text.indexOf("-->") + 3;
        assert.ok(every(colorsOf(model, start, end), TEAL));
        assert.equal(model.colors[end], BLACK);
        assert.ok(every(colorsOf(model, end + 1), BLUE));
    });

    test("a \"<\" without a \">\" leaves the rest uncoloured", () => {
        const model = colored("<p>a < b and more");
        assert.ok(every(colorsOf(model, 0, 3), BLUE));
        assert.ok(every(colorsOf(model, 3), BLACK));
    });

    test("\"<cf\" and \"<CF\" tags are dark red, \"<Cf\" is not", () => {
        assert.ok(every(colored("<cfoutput>").colors, RED));
        assert.ok(every(colored("</CFOUTPUT>").colors, RED));
        assert.ok(every(colored("<Cfoutput>").colors, BLUE));
    });

    test("the selection is kept and the caret goes to the start", () => {
        const model = new RichTextModel("<p>text</p>");
        model.select(4, 2);
        const color = new CColorHTML(model);
        color.HtmlColorCode(1, -1);
        assert.deepEqual([model.selStart, model.selLength], [4, 2]);
        color.HtmlHighlight();
        assert.deepEqual([model.selStart, model.selLength], [0, 0]);
    });
});

describe("colouring what is typed", () => {
    test("\"<!\" becomes a teal \"<!--\", and the comment stays teal through its end", () => {
        const { model, color } = typing("text ");
        type(model, color, "<!");
        assert.equal(model.text, "text <!--");
        assert.ok(every(colorsOf(model, 5), TEAL));
        assert.equal(model.selStart, model.length, "the caret stands behind the comment's opening");
        type(model, color, " a < b -->after");
        assert.ok(every(colorsOf(model, 5, model.text.indexOf("after")), TEAL), 'a "<" in a comment starts no tag');
        assert.ok(every(colorsOf(model, model.text.indexOf("after")), BLACK));
    });

    test("a tag is blue and its quoted value purple as it is typed", () => {
        const { model, color } = typing();
        type(model, color, '<img src="a.png" alt=x>ok');
        const text = model.text;
        assert.ok(every(colorsOf(model, 0, text.indexOf("=")), BLUE));
        assert.ok(every(colorsOf(model, text.indexOf('"a'), text.indexOf(" alt")), PURPLE));
        assert.equal(model.colors[text.indexOf(" alt")], BLUE, "a blank ends the value");
        assert.equal(model.colors[text.indexOf(">ok")], BLUE);
        assert.ok(every(colorsOf(model, text.indexOf("ok")), BLACK));
    });

    test("\"<%\" starts a dark red block up to its \">\"", () => {
        const { model, color } = typing();
        type(model, color, "<% x %>y");
        assert.equal(model.text, "<% x %>y");
        assert.ok(every(colorsOf(model, 0, 7), RED));
        assert.equal(model.colors[7], BLACK);
    });

    test("\"<cf\", \"</cf\", \"<CF\" are dark red as typed; \"<Cf\" is an ordinary tag", () => {
        for (const [typed, written] of [["<cf", "<cf"], ["</cf", "</cf"], ["<CF", "<CF"]]) {
            const { model, color } = typing();
            type(model, color, `${typed}x>`);
            assert.equal(model.text, `${written}x>`);
            assert.ok(every(model.colors, RED), typed);
        }
        const { model, color } = typing();
        type(model, color, "<Cfx>");
        assert.ok(every(model.colors, BLUE));
    });

    test("the program's own writing is not coloured by the state machine", () => {
        const { model, color } = typing();
        color.Enabled = false;
        assert.equal(color.KeyPressEvent("<"), false);
        assert.equal(color.InTag, false);
    });
});

describe("inserting tags and reading the caret", () => {
    test("InsertTag writes over the selection and colours what it wrote", () => {
        const model = new RichTextModel("one two");
        model.select(4, 3);
        const color = new CColorHTML(model);
        color.InsertTag("<BR>", true);
        assert.equal(model.text, "one <BR>");
        assert.ok(every(colorsOf(model, 4), BLUE));
        assert.equal(model.selStart, 8);
        model.select(0, 0);
        color.InsertTag("<P>", false);
        assert.equal(model.selStart, 0, "without keepCursorBehind the caret stays in front");
    });

    test("IsOutsideTag tells a caret in a tag, a comment or a block from one outside", () => {
        const model = new RichTextModel('<p class="x">text<!-- note --><% a %>');
        const color = new CColorHTML(model);
        model.select(5, 0);
        assert.equal(color.IsOutsideTag(), false);
        assert.equal(color.InTag, true);
        model.select(model.text.indexOf("text") + 2, 0);
        assert.equal(color.IsOutsideTag(), true);
        assert.equal(color.InTag, false);
        model.select(model.text.indexOf("note"), 0);
        assert.equal(color.IsOutsideTag(), false);
        assert.equal(color.InComment, true);
        model.select(model.text.indexOf(" a "), 0);
        assert.equal(color.IsOutsideTag(), false);
        assert.equal(color.InScript, true);
    });

    test("line and column of the caret count from 1", () => {
        assert.deepEqual(lineAndColumn("ab\ncd\nef", 0), { line: 1, column: 1 });
        assert.deepEqual(lineAndColumn("ab\ncd\nef", 4), { line: 2, column: 2 });
        assert.deepEqual(lineAndColumn("ab\ncd\nef", 8), { line: 3, column: 3 });
    });

    test("box colour values are blue, green, red bytes", () => {
        assert.equal(cssColor(TEAL), "rgb(64, 128, 128)");
        assert.equal(cssColor(BLUE), "rgb(0, 0, 160)");
        assert.equal(cssColor(RED), "rgb(128, 0, 0)");
        assert.equal(cssColor(PURPLE), "rgb(128, 0, 128)");
    });
});

describe("links and addresses of the page editor", () => {
    test("a link goes from the page's folder to the file, encoded", () => {
        assert.equal(relativeLink("/h/CHM/a.htm", "/h/CHM/b.htm"), "b.htm");
        assert.equal(relativeLink("/h/CHM/a.htm", "/h/CHM/images/x y.png"), "images/x%20y.png");
        assert.equal(relativeLink("/h/CHM/a.htm", "/h/other/c#d.htm"), "../other/c%23d.htm");
        assert.equal(relativeLink("/h/CHM/sub/a.htm", "/h/CHM/b.htm"), "../b.htm");
        assert.equal(relativeLink("/h/CHM/~temp.htp", "/h/CHM/b.htm"), "b.htm", "the temporary page stands for the page");
    });

    test("an address of the page editor names its file and bookmark; others name none", () => {
        globalThis.location = new URL("http://127.0.0.1:5000/");
        assert.deepEqual(pathOfEditUrl("http://127.0.0.1:5000/edit/h/CHM/a%20b.htm#Part_1"),
            { path: "/h/CHM/a b.htm", hash: "Part_1" });
        assert.deepEqual(pathOfEditUrl("/edit/h/x.htm"), { path: "/h/x.htm", hash: "" });
        assert.deepEqual(pathOfEditUrl("http://localhost:5000/edit/h/x.htm"), { path: "", hash: "" });
        assert.deepEqual(pathOfEditUrl("http://127.0.0.1:5000/files/h/x.htm"), { path: "", hash: "" });
        assert.deepEqual(pathOfEditUrl("not a url at all: ::"), { path: "", hash: "" });
    });

    test("the caret's marker never goes inside a tag", () => {
        const text = '<p class="x">text</p>';
        assert.equal(caretOutsideTag(text, 5), text.indexOf(">") + 1);
        assert.equal(caretOutsideTag(text, text.indexOf("ext")), text.indexOf("ext"));
        assert.equal(caretOutsideTag("<p", 2), 2, "an unclosed tag keeps the caret");
    });

    test("an empty page is one whose body holds no text, picture, table or rule", () => {
        assert.equal(isEmptyPageText("<html><head><title>T</title></head><body><p>&nbsp;</p><!-- x --></body></html>"), true);
        assert.equal(isEmptyPageText("<html><body><p>a</p></body></html>"), false);
        assert.equal(isEmptyPageText("<html><body><img src=a.png></body></html>"), false);
    });
});
