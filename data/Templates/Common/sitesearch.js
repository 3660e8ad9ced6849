/* The site search of the browser help. The index script (ss_index.js) sets
   the global ssIndex before this script runs: a script file loads from
   file://, where a page may not read other local files. */
var ScrivSiteSearch = (function () {
    "use strict";

    var MIN_TERM = 2;
    var index = window.ssIndex || { pages: [], words: {} };
    var words = Object.keys(index.words);

    // Terms as the index keeps its words: runs of letters and digits, lower case.
    function terms(query) {
        var found = String(query).toLowerCase().match(/[\p{L}\p{Nd}]+/gu) || [];
        return found.filter(function (term) {
            return Array.from(term).length >= MIN_TERM;
        });
    }

    // Page number -> weight for one term: 2 for a whole word, 1 for a word it begins.
    function hitsOf(term) {
        var hits = {};
        words.forEach(function (word) {
            if (word.lastIndexOf(term, 0) !== 0)
                return;
            var weight = word === term ? 2 : 1;
            index.words[word].forEach(function (page) {
                hits[page] = Math.max(hits[page] || 0, weight);
            });
        });
        return hits;
    }

    // The pages that hold every term, best first; null when the query has no term.
    function search(query) {
        var list = terms(query);
        if (!list.length)
            return null;
        var scores = null;
        list.forEach(function (term) {
            var hits = hitsOf(term);
            if (scores === null) {
                scores = hits;
                return;
            }
            var both = {};
            Object.keys(scores).forEach(function (page) {
                if (hits[page])
                    both[page] = scores[page] + hits[page];
            });
            scores = both;
        });
        return Object.keys(scores).map(function (page) {
            var entry = index.pages[Number(page)];
            var title = entry.t.toLowerCase();
            var inTitle = list.every(function (term) { return title.indexOf(term) !== -1; });
            return { page: entry, score: scores[page] + (inTitle ? list.length : 0) };
        }).sort(function (a, b) {
            return b.score - a.score || a.page.t.localeCompare(b.page.t);
        }).map(function (result) {
            return result.page;
        });
    }

    function isFramed() {
        try {
            return window.top !== window.self;
        } catch (e) {
            return true;
        }
    }

    // The line that says what the search found; a live region, so that a
    // screen reader reads it out after each search.
    function announce(status, pages) {
        if (!status)
            return;
        var text;
        if (pages === null)
            text = status.getAttribute("data-short");
        else if (!pages.length)
            text = status.getAttribute("data-none");
        else if (pages.length === 1)
            text = status.getAttribute("data-one");
        else
            text = (status.getAttribute("data-many") || "").replace("%1", String(pages.length));
        // Emptied first, so that the same words after another search are
        // news again for a screen reader.
        status.textContent = "";
        window.setTimeout(function () {
            status.textContent = text || "";
        }, 100);
    }

    function render(target, pages) {
        while (target.firstChild)
            target.removeChild(target.firstChild);
        if (!pages || !pages.length)
            return;
        var list = document.createElement("ol");
        pages.forEach(function (page) {
            var item = document.createElement("li");
            var link = document.createElement("a");
            link.setAttribute("href", page.f);
            if (isFramed())
                link.setAttribute("target", "right");
            link.textContent = page.t;
            item.appendChild(link);
            if (page.s) {
                var summary = document.createElement("div");
                summary.className = "summary";
                summary.textContent = page.s;
                item.appendChild(summary);
            }
            list.appendChild(item);
        });
        target.appendChild(list);
    }

    // The arrow keys walk the hits; the down arrow enters them from the field.
    var resetKeys = null;

    function run() {
        var form = document.forms.ss;
        var results = document.getElementById("ssResults");
        if (!form || !results)
            return false;
        if (!resetKeys && window.ScrivBrowserHelp)
            resetKeys = window.ScrivBrowserHelp.initLinkList(results, form.s);
        var pages = search(form.s.value);
        render(results, pages);
        announce(document.getElementById("ssStatus"), pages);
        if (resetKeys)
            resetKeys();
        return false;
    }

    return { terms: terms, search: search, run: run };
})();

// The handler name of the search form.
function NS() {
    return ScrivSiteSearch.run();
}
