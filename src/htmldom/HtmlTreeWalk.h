#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "htmldom/HtmlNode.h"

namespace scriv {

// Walks root and its descendants in document order without recursion, so that
// deeply nested pages cannot exhaust the stack. enter(node) answers whether to
// go into the node's children; leave(node) follows the children (or at once,
// when they were skipped). The tree must not change during the walk. Node is
// HtmlNode or const HtmlNode.
template<typename Node, typename Enter, typename Leave>
void WalkHtmlTree(Node& root, Enter&& enter, Leave&& leave)
{
    struct Frame {
        Node* node;
        std::size_t next;
    };
    if (!enter(root)) {
        leave(root);
        return;
    }
    std::vector<Frame> stack { { &root, 0 } };
    while (!stack.empty()) {
        Node* node = stack.back().node;
        std::size_t next = stack.back().next;
        if (next < node->childNodes().size()) {
            ++stack.back().next;
            Node& child = *node->childNodes()[next];
            if (enter(child))
                stack.push_back({ &child, 0 });
            else
                leave(child);
        } else {
            leave(*node);
            stack.pop_back();
        }
    }
}

// The same walk with nothing to do on the way out.
template<typename Node, typename Enter>
void WalkHtmlTree(Node& root, Enter&& enter)
{
    WalkHtmlTree(root, std::forward<Enter>(enter), [](const HtmlNode&) {});
}

}  // namespace scriv
