/* The behaviour of the browser help's pages: the entry page with its tabs,
   the collapsible contents tree, the index and the keys of the search
   results. Everything can be reached and used from the keyboard. A classic script rather than a
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

    function isRightToLeft(element) {
        return window.getComputedStyle(element).direction === "rtl";
    }

    // In a right-to-left language the arrow that points along the text opens.
    function logicalKey(key, element) {
        if (isRightToLeft(element) && (key === "ArrowLeft" || key === "ArrowRight"))
            return key === "ArrowLeft" ? "ArrowRight" : "ArrowLeft";
        return key;
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
        if (selectedLink) {
            selectedLink.classList.remove("selected");
            if (selectedLink.hasAttribute("aria-selected"))
                selectedLink.setAttribute("aria-selected", "false");
        }
        selectedLink = link;
        link.classList.add("selected");
        if (link.hasAttribute("aria-selected"))
            link.setAttribute("aria-selected", "true");
    }

    // --- the contents tree ---

    // The tree text puts the list of a node's children right after the node's
    // item; each such list moves into that item (a second one joins the
    // first). A list that follows no item has its items stand in its place.
    function attachSublists(list) {
        var child = list.firstElementChild;
        while (child) {
            var next = child.nextElementSibling;
            var previous = child.previousElementSibling;
            if (isList(child) && previous && previous.tagName === "LI") {
                var existing = elementChildren(previous).filter(isList)[0];
                if (existing) {
                    while (child.firstChild)
                        existing.appendChild(child.firstChild);
                    list.removeChild(child);
                    attachSublists(existing);
                } else {
                    previous.appendChild(child);
                    attachSublists(child);
                }
            } else if (isList(child)) {
                next = child.firstElementChild || next;
                while (child.firstChild)
                    list.insertBefore(child.firstChild, child);
                list.removeChild(child);
            } else if (child.tagName === "LI") {
                elementChildren(child).filter(isList).forEach(attachSublists);
            }
            child = next;
        }
    }

    // The tree follows the navigation tree of assistive technology: the
    // list is the tree, each link a tree item, each sublist the group of its
    // item; one item at a time is in the tab order, and the arrow keys move.
    var groupCount = 0;

    function treeItemOf(item) {
        return firstChildLink(item);
    }

    function isFolder(item) {
        return item.classList.contains("folder");
    }

    function isExpanded(item) {
        return isFolder(item) && !item.classList.contains("collapsed");
    }

    function setExpanded(item, expanded) {
        item.classList.toggle("collapsed", !expanded);
        var link = treeItemOf(item);
        if (link)
            link.setAttribute("aria-expanded", expanded ? "true" : "false");
        var toggle = item.firstElementChild;
        toggle.firstElementChild.src = IMAGES + (expanded ? "book_open.svg" : "book_closed.svg");
        if (!expanded && link && item.contains(document.activeElement) && document.activeElement !== link)
            link.focus();
    }

    function sublistOf(item) {
        var children = elementChildren(item);
        for (var i = 0; i < children.length; i++)
            if (isList(children[i]) && children[i].getElementsByTagName("li").length > 0)
                return children[i];
        return null;
    }

    function itemsOf(list) {
        return elementChildren(list).filter(function (child) { return child.tagName === "LI"; });
    }

    function parentItemOf(item) {
        var list = item.parentElement;
        var parent = list ? list.parentElement : null;
        return parent && parent.tagName === "LI" ? parent : null;
    }

    function decorateItem(item, level, position, count) {
        var toggle = document.createElement("span");
        toggle.className = "toggle";
        toggle.setAttribute("aria-hidden", "true");
        var icon = document.createElement("img");
        icon.alt = "";
        toggle.appendChild(icon);
        item.insertBefore(toggle, item.firstChild);
        item.setAttribute("role", "none");
        var link = treeItemOf(item);
        var sublist = sublistOf(item);
        if (link) {
            link.setAttribute("role", "treeitem");
            link.setAttribute("aria-level", String(level));
            link.setAttribute("aria-posinset", String(position));
            link.setAttribute("aria-setsize", String(count));
            link.setAttribute("aria-selected", "false");
            link.tabIndex = -1;
            aimAtTopicFrame(link);
        }
        if (sublist) {
            item.classList.add("folder");
            sublist.setAttribute("role", "group");
            if (link) {
                if (!sublist.id)
                    sublist.id = "treeGroup" + (++groupCount);
                link.setAttribute("aria-owns", sublist.id);
            }
            setExpanded(item, false);
            toggle.addEventListener("click", function () {
                setExpanded(item, !isExpanded(item));
            });
        } else {
            item.classList.add("leaf");
            icon.src = IMAGES + "topic.svg";
        }
        if (link) {
            link.addEventListener("click", function () {
                markSelected(link);
                if (sublist)
                    setExpanded(item, true);
            });
        }
        if (sublist) {
            var children = itemsOf(sublist);
            children.forEach(function (child, index) {
                decorateItem(child, level + 1, index + 1, children.length);
            });
        }
    }

    // The items a reader can reach now: those whose every book is open.
    function visibleItems(root) {
        var found = [];
        (function walk(list) {
            itemsOf(list).forEach(function (item) {
                if (treeItemOf(item))
                    found.push(item);
                var sublist = sublistOf(item);
                if (sublist && isExpanded(item))
                    walk(sublist);
            });
        })(root);
        return found;
    }

    function makeTabStop(root, link) {
        var links = root.querySelectorAll("[role=treeitem]");
        for (var i = 0; i < links.length; i++)
            links[i].tabIndex = links[i] === link ? 0 : -1;
    }

    function focusItem(root, item) {
        if (!item)
            return;
        var link = treeItemOf(item);
        makeTabStop(root, link);
        link.focus();
    }

    function onTreeKey(root, event) {
        var link = event.target;
        if (!link || link.getAttribute("role") !== "treeitem" || event.altKey || event.ctrlKey || event.metaKey)
            return;
        var item = link.parentElement;
        var visible = visibleItems(root);
        var at = visible.indexOf(item);
        var handled = true;
        switch (logicalKey(event.key, root)) {
        case "ArrowDown":
            focusItem(root, visible[at + 1]);
            break;
        case "ArrowUp":
            focusItem(root, visible[at - 1]);
            break;
        case "Home":
            focusItem(root, visible[0]);
            break;
        case "End":
            focusItem(root, visible[visible.length - 1]);
            break;
        case "ArrowRight":
            if (isFolder(item) && !isExpanded(item))
                setExpanded(item, true);
            else if (isExpanded(item))
                focusItem(root, itemsOf(sublistOf(item)).filter(treeItemOf)[0]);
            break;
        case "ArrowLeft":
            if (isExpanded(item))
                setExpanded(item, false);
            else
                focusItem(root, parentItemOf(item));
            break;
        case " ":
            link.click();
            break;
        case "*":
            itemsOf(item.parentElement).forEach(function (sibling) {
                if (isFolder(sibling))
                    setExpanded(sibling, true);
            });
            break;
        default:
            handled = false;
            // A letter moves to the next item whose caption starts with it.
            if (event.key.length === 1 && event.key.trim() !== "") {
                var key = event.key.toLowerCase();
                for (var step = 1; step <= visible.length; step++) {
                    var next = visible[(at + step) % visible.length];
                    if (treeItemOf(next).textContent.trim().toLowerCase().indexOf(key) === 0) {
                        focusItem(root, next);
                        handled = true;
                        break;
                    }
                }
            }
        }
        if (handled)
            event.preventDefault();
    }

    function initTree(root) {
        if (!root)
            return;
        attachSublists(root);
        root.setAttribute("role", "tree");
        var top = itemsOf(root);
        top.forEach(function (item, index) {
            decorateItem(item, 1, index + 1, top.length);
        });
        if (top.length === 1 && isFolder(top[0]))
            setExpanded(top[0], true);
        var first = visibleItems(root)[0];
        if (first)
            makeTabStop(root, treeItemOf(first));
        root.addEventListener("keydown", function (event) {
            onTreeKey(root, event);
        });
        root.addEventListener("focusin", function (event) {
            if (event.target.getAttribute && event.target.getAttribute("role") === "treeitem")
                makeTabStop(root, event.target);
        });
    }

    // --- lists of links: the index and the search results ---

    function linksOf(container) {
        return Array.prototype.filter.call(container.querySelectorAll("a[href]"), function (link) {
            return !link.closest("[hidden]");
        });
    }

    // One link of the list at a time is in the tab order: the first one shown.
    function resetLinkStop(container) {
        var shown = linksOf(container);
        Array.prototype.forEach.call(container.querySelectorAll("a[href]"), function (link) {
            link.tabIndex = link === shown[0] ? 0 : -1;
        });
    }

    // The arrow keys walk the links of container; the down arrow enters the
    // list from field, the up arrow on the first link and Escape go back there.
    // Answers the function that puts the tab stop back on the first link.
    function initLinkList(container, field) {
        container.addEventListener("keydown", function (event) {
            var links = linksOf(container);
            var at = links.indexOf(event.target);
            if (at < 0 || event.altKey || event.ctrlKey || event.metaKey)
                return;
            var target;
            switch (event.key) {
            case "ArrowDown":
                target = links[at + 1];
                break;
            case "ArrowUp":
                target = at > 0 ? links[at - 1] : field;
                break;
            case "Home":
                target = links[0];
                break;
            case "End":
                target = links[links.length - 1];
                break;
            case "Escape":
                target = field;
                break;
            default:
                return;
            }
            event.preventDefault();
            if (target)
                target.focus();
        });
        container.addEventListener("focusin", function (event) {
            if (event.target.tagName !== "A")
                return;
            Array.prototype.forEach.call(container.querySelectorAll("a[href]"), function (link) {
                link.tabIndex = link === event.target ? 0 : -1;
            });
        });
        if (field) {
            field.addEventListener("keydown", function (event) {
                var links = linksOf(container);
                if (event.key !== "ArrowDown" || !links.length)
                    return;
                event.preventDefault();
                links[0].focus();
            });
        }
        resetLinkStop(container);
        return function () {
            resetLinkStop(container);
        };
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
        var refresh = initLinkList(list, filter);
        if (!filter)
            return;
        filter.addEventListener("input", function () {
            var text = filter.value.trim().toLowerCase();
            entries.forEach(function (entry) {
                entry.item.hidden = text !== "" && entry.key.indexOf(text) === -1;
            });
            refresh();
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

    // The tabs over the navigation pane: one tab in the tab order, the arrow
    // keys (and Home, End) choose another and show its pane at once.
    function initTabs() {
        var tabs = Array.prototype.slice.call(document.querySelectorAll("[role=tab]"));
        function show(selected) {
            tabs.forEach(function (tab) {
                var on = tab === selected;
                tab.setAttribute("aria-selected", on ? "true" : "false");
                tab.tabIndex = on ? 0 : -1;
                var pane = document.getElementById(tab.getAttribute("aria-controls"));
                if (!pane)
                    return;
                pane.hidden = !on;
                var frame = pane.tagName === "IFRAME" ? pane : pane.querySelector("iframe");
                if (on && frame && !frame.getAttribute("src") && frame.getAttribute("data-src"))
                    frame.setAttribute("src", frame.getAttribute("data-src"));
            });
        }
        tabs.forEach(function (tab, index) {
            tab.addEventListener("click", function () {
                show(tab);
            });
            tab.addEventListener("keydown", function (event) {
                var next = null;
                var key = logicalKey(event.key, tab);
                if (key === "ArrowRight" || key === "ArrowDown")
                    next = tabs[(index + 1) % tabs.length];
                else if (key === "ArrowLeft" || key === "ArrowUp")
                    next = tabs[(index - 1 + tabs.length) % tabs.length];
                else if (event.key === "Home")
                    next = tabs[0];
                else if (event.key === "End")
                    next = tabs[tabs.length - 1];
                if (!next)
                    return;
                event.preventDefault();
                next.focus();
                show(next);
            });
        });
        var selected = tabs.filter(function (tab) { return tab.getAttribute("aria-selected") === "true"; })[0];
        if (selected || tabs.length)
            show(selected || tabs[0]);
    }

    // The splitter between the panes is a separator that the arrow keys move;
    // its value is the navigation pane's share of the window, in per cent.
    function initSplitter() {
        var splitter = document.getElementById("splitter");
        var navigation = document.querySelector(".navigation");
        if (!splitter || !navigation)
            return;
        var MIN_WIDTH = 140;
        var MAX_SHARE = 0.7;
        function report() {
            var share = Math.round(navigation.getBoundingClientRect().width * 100 / Math.max(window.innerWidth, 1));
            splitter.setAttribute("aria-valuenow", String(share));
        }
        function setWidth(width) {
            navigation.style.width = Math.max(MIN_WIDTH, Math.min(width, window.innerWidth * MAX_SHARE)) + "px";
            report();
        }
        splitter.setAttribute("aria-valuemin", "0");
        splitter.setAttribute("aria-valuemax", String(Math.round(MAX_SHARE * 100)));
        report();
        window.addEventListener("resize", report);
        splitter.addEventListener("mousedown", function (event) {
            event.preventDefault();
            document.body.classList.add("dragging");
            function move(e) {
                var box = navigation.getBoundingClientRect();
                setWidth(isRightToLeft(navigation) ? box.right - e.clientX : e.clientX - box.left);
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
            // The arrow that points away from the pane widens it.
            var width = navigation.getBoundingClientRect().width;
            var wanted = { ArrowRight: width + 20, ArrowLeft: width - 20, Home: MIN_WIDTH, End: window.innerWidth }[
                logicalKey(event.key, navigation)];
            if (wanted === undefined)
                return;
            event.preventDefault();
            setWidth(wanted);
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
        initLinkList: initLinkList,
        initEntryPage: initEntryPage,
        topicFromArgument: topicFromArgument
    };
})();
