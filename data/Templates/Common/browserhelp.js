/* The behaviour of the browser help's pages: the entry page with its tabs,
   the collapsible contents tree and the index. A classic script rather than a
   module, so that it runs from file:// as well as from a web server. Links
   open topics through the frame name "right" only: from file:// the frames
   cannot reach into each other, but they may still target each other. */
var ScrivBrowserHelp = (function () {
    "use strict";

    var TOPIC_FRAME = "right";
    var IMAGES = "images/";
    var selectedLink = null;

    function isFramed() {
        try {
            return window.top !== window.self;
        } catch (e) {
            return true;
        }
    }

    function elementChildren(node) {
        var children = [];
        for (var child = node.firstElementChild; child; child = child.nextElementSibling)
            children.push(child);
        return children;
    }

    function isList(element) {
        return !!element && (element.tagName === "UL" || element.tagName === "OL");
    }

    function firstChildLink(item) {
        var children = elementChildren(item);
        for (var i = 0; i < children.length; i++)
            if (children[i].tagName === "A")
                return children[i];
        return null;
    }

    // Inside the frame set a link opens in the topic frame; a page opened on
    // its own opens it in place.
    function aimAtTopicFrame(link) {
        if (isFramed())
            link.setAttribute("target", TOPIC_FRAME);
        else
            link.removeAttribute("target");
    }

    function markSelected(link) {
        if (selectedLink)
            selectedLink.classList.remove("selected");
        selectedLink = link;
        link.classList.add("selected");
    }

    // --- the contents tree ---

    // A list that stands alone in the tree is only a wrapper.
    function unwrapLoneList(root) {
        var children = elementChildren(root);
        while (children.length === 1 && isList(children[0])) {
            var inner = children[0];
            while (inner.firstChild)
                root.insertBefore(inner.firstChild, inner);
            root.removeChild(inner);
            children = elementChildren(root);
        }
    }

    // The tree text puts the list of a node's children right after the node's
    // item; each such list moves into that item.
    function attachSublists(list) {
        elementChildren(list).forEach(function (child) {
            if (isList(child)) {
                var previous = child.previousElementSibling;
                if (previous && previous.tagName === "LI")
                    previous.appendChild(child);
                attachSublists(child);
            } else if (child.tagName === "LI") {
                elementChildren(child).forEach(function (inner) {
                    if (isList(inner))
                        attachSublists(inner);
                });
            }
        });
    }

    function setExpanded(item, expanded) {
        item.classList.toggle("collapsed", !expanded);
        var toggle = item.firstElementChild;
        toggle.setAttribute("aria-expanded", expanded ? "true" : "false");
        toggle.firstElementChild.src = IMAGES + (expanded ? "book_open.svg" : "book_closed.svg");
    }

    function sublistOf(item) {
        var children = elementChildren(item);
        for (var i = 0; i < children.length; i++)
            if (isList(children[i]) && children[i].getElementsByTagName("li").length > 0)
                return children[i];
        return null;
    }

    function decorateItem(item) {
        var toggle = document.createElement("span");
        toggle.className = "toggle";
        var icon = document.createElement("img");
        icon.alt = "";
        toggle.appendChild(icon);
        item.insertBefore(toggle, item.firstChild);
        var folder = sublistOf(item) !== null;
        if (folder) {
            item.classList.add("folder");
            toggle.setAttribute("role", "button");
            toggle.tabIndex = 0;
            setExpanded(item, false);
            toggle.addEventListener("click", function () {
                setExpanded(item, item.classList.contains("collapsed"));
            });
            toggle.addEventListener("keydown", function (event) {
                if (event.key === "Enter" || event.key === " ") {
                    event.preventDefault();
                    setExpanded(item, item.classList.contains("collapsed"));
                }
            });
        } else {
            item.classList.add("leaf");
            icon.src = IMAGES + "topic.svg";
        }
        var link = firstChildLink(item);
        if (link) {
            aimAtTopicFrame(link);
            link.addEventListener("click", function () {
                markSelected(link);
                if (folder)
                    setExpanded(item, true);
            });
        }
    }

    function initTree(root) {
        if (!root)
            return;
        unwrapLoneList(root);
        attachSublists(root);
        var items = root.getElementsByTagName("li");
        for (var i = 0; i < items.length; i++)
            decorateItem(items[i]);
        var top = elementChildren(root).filter(function (child) { return child.tagName === "LI"; });
        if (top.length === 1 && top[0].classList.contains("folder"))
            setExpanded(top[0], true);
    }

    // --- the index ---

    function initIndex(options, filter, list) {
        if (!options || !list)
            return;
        document.body.classList.add("scripted");
        var entries = [];
        Array.prototype.forEach.call(options.options, function (option) {
            var item = document.createElement("li");
            var link = document.createElement("a");
            link.setAttribute("href", option.value);
            link.textContent = option.text;
            aimAtTopicFrame(link);
            link.addEventListener("click", function () {
                markSelected(link);
            });
            item.appendChild(link);
            list.appendChild(item);
            entries.push({ item: item, link: link, key: option.text.toLowerCase() });
        });
        if (!filter)
            return;
        filter.addEventListener("input", function () {
            var text = filter.value.trim().toLowerCase();
            entries.forEach(function (entry) {
                entry.item.hidden = text !== "" && entry.key.indexOf(text) === -1;
            });
        });
        filter.addEventListener("keydown", function (event) {
            if (event.key !== "Enter")
                return;
            event.preventDefault();
            for (var i = 0; i < entries.length; i++) {
                if (!entries[i].item.hidden) {
                    entries[i].link.click();
                    return;
                }
            }
        });
    }

    // --- the entry page ---

    // The topic named by the argument "?" + quoted address that the marker
    // script of a topic opened alone sends, or null. Only a topic of this help
    // is taken: one beside the entry page, or below its folder.
    function topicFromArgument(search, base) {
        if (!search || search.length < 2)
            return null;
        var text;
        try {
            text = decodeURIComponent(search.substring(1)).trim();
        } catch (e) {
            return null;
        }
        if (text.length >= 2 && text.charAt(0) === "\"" && text.charAt(text.length - 1) === "\"")
            text = text.substring(1, text.length - 1);
        if (!text)
            return null;
        var url, here;
        try {
            url = new URL(text, base);
            here = new URL(base);
        } catch (e) {
            return null;
        }
        var folder = here.href.substring(0, here.href.length - here.search.length - here.hash.length);
        folder = folder.substring(0, folder.lastIndexOf("/") + 1);
        if (url.protocol !== here.protocol || url.href.indexOf(folder) !== 0)
            return null;
        return url.href;
    }

    function initTabs() {
        var tabs = Array.prototype.slice.call(document.querySelectorAll("[role=tab]"));
        function show(selected) {
            tabs.forEach(function (tab) {
                var on = tab === selected;
                tab.setAttribute("aria-selected", on ? "true" : "false");
                var pane = document.getElementById(tab.getAttribute("aria-controls"));
                if (!pane)
                    return;
                pane.hidden = !on;
                if (on && !pane.getAttribute("src") && pane.getAttribute("data-src"))
                    pane.setAttribute("src", pane.getAttribute("data-src"));
            });
        }
        tabs.forEach(function (tab, index) {
            tab.addEventListener("click", function () {
                show(tab);
            });
            tab.addEventListener("keydown", function (event) {
                var step = event.key === "ArrowRight" ? 1 : event.key === "ArrowLeft" ? -1 : 0;
                if (!step)
                    return;
                var next = tabs[(index + step + tabs.length) % tabs.length];
                next.focus();
                show(next);
            });
        });
    }

    function initSplitter() {
        var splitter = document.getElementById("splitter");
        var navigation = document.querySelector(".navigation");
        if (!splitter || !navigation)
            return;
        function setWidth(width) {
            navigation.style.width = Math.max(140, Math.min(width, window.innerWidth * 0.7)) + "px";
        }
        splitter.addEventListener("mousedown", function (event) {
            event.preventDefault();
            document.body.classList.add("dragging");
            function move(e) {
                setWidth(e.clientX - navigation.getBoundingClientRect().left);
            }
            function stop() {
                document.body.classList.remove("dragging");
                document.removeEventListener("mousemove", move);
                document.removeEventListener("mouseup", stop);
            }
            document.addEventListener("mousemove", move);
            document.addEventListener("mouseup", stop);
        });
        splitter.addEventListener("keydown", function (event) {
            var step = event.key === "ArrowRight" ? 20 : event.key === "ArrowLeft" ? -20 : 0;
            if (step)
                setWidth(navigation.getBoundingClientRect().width + step);
        });
    }

    function initEntryPage() {
        initTabs();
        initSplitter();
        var topic = topicFromArgument(window.location.search, window.location.href);
        var frame = document.getElementById(TOPIC_FRAME);
        if (topic && frame)
            frame.setAttribute("src", topic);
    }

    return {
        initTree: initTree,
        initIndex: initIndex,
        initEntryPage: initEntryPage,
        topicFromArgument: topicFromArgument
    };
})();
