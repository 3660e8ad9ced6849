#include "htmldom/HtmlNode.h"

#include <algorithm>

#include "foundation/ScrivError.h"
#include "htmldom/HtmlElement.h"
#include "htmldom/HtmlSerializer.h"
#include "htmldom/HtmlTreeWalk.h"

namespace scriv {

HtmlNode::~HtmlNode()
{
    // Tear down without recursion: a deeply nested page would otherwise
    // recurse once per level through the unique_ptr destructors.
    ChildList pending = std::move(m_children);
    while (!pending.empty()) {
        std::unique_ptr<HtmlNode> node = std::move(pending.back());
        pending.pop_back();
        for (auto& child : node->m_children)
            pending.push_back(std::move(child));
        node->m_children.clear();
    }
}

HtmlElement* HtmlNode::parentElement() const
{
    return m_parent ? m_parent->asElement() : nullptr;
}

HtmlNode* HtmlNode::firstChild() const
{
    return m_children.empty() ? nullptr : m_children.front().get();
}

HtmlNode* HtmlNode::lastChild() const
{
    return m_children.empty() ? nullptr : m_children.back().get();
}

std::size_t HtmlNode::indexInParent() const
{
    if (!m_parent)
        return 0;
    const ChildList& siblings = m_parent->m_children;
    auto it = std::find_if(siblings.begin(), siblings.end(), [this](const auto& node) { return node.get() == this; });
    return static_cast<std::size_t>(it - siblings.begin());
}

HtmlNode* HtmlNode::previousSibling() const
{
    if (!m_parent)
        return nullptr;
    std::size_t index = indexInParent();
    return index == 0 ? nullptr : m_parent->m_children[index - 1].get();
}

HtmlNode* HtmlNode::nextSibling() const
{
    if (!m_parent)
        return nullptr;
    std::size_t index = indexInParent() + 1;
    return index < m_parent->m_children.size() ? m_parent->m_children[index].get() : nullptr;
}

bool HtmlNode::contains(const HtmlNode& other) const
{
    for (const HtmlNode* node = &other; node; node = node->m_parent)
        if (node == this)
            return true;
    return false;
}

HtmlElement* HtmlNode::asElement()
{
    return isElement() ? static_cast<HtmlElement*>(this) : nullptr;
}

const HtmlElement* HtmlNode::asElement() const
{
    return isElement() ? static_cast<const HtmlElement*>(this) : nullptr;
}

void HtmlNode::checkInsertion(const HtmlNode& child, const char* procedure) const
{
    std::string source = std::string("HtmlNode.") + procedure;
    if (!acceptsChildren())
        Raise(status::kGeneralFailure, source, "A " + nodeName() + " node cannot have children.");
    if (child.nodeType() == HtmlNodeType::Document)
        Raise(status::kGeneralFailure, source, "A document cannot be inserted into another node.");
    // Only a node with children can hold this one; the test walks up from here.
    if (&child == this || (child.hasChildNodes() && child.contains(*this)))
        Raise(status::kGeneralFailure, source, "A node cannot be inserted into itself or its own descendant.");
}

HtmlNode::ChildList::iterator HtmlNode::findChild(const HtmlNode& child, const char* procedure)
{
    auto it = std::find_if(m_children.begin(), m_children.end(), [&child](const auto& node) { return node.get() == &child; });
    if (it == m_children.end())
        Raise(status::kGeneralFailure, std::string("HtmlNode.") + procedure, "The node is not a child of this " + nodeName() + ".");
    return it;
}

HtmlNode& HtmlNode::appendChild(std::unique_ptr<HtmlNode> child)
{
    return insertBefore(std::move(child), nullptr);
}

HtmlNode& HtmlNode::insertBefore(std::unique_ptr<HtmlNode> child, const HtmlNode* reference)
{
    if (!child)
        Raise(status::kGeneralFailure, "HtmlNode.insertBefore", "No node to insert.");
    checkInsertion(*child, "insertBefore");
    auto position = reference ? findChild(*reference, "insertBefore") : m_children.end();
    child->m_parent = this;
    return **m_children.insert(position, std::move(child));
}

std::unique_ptr<HtmlNode> HtmlNode::removeChild(const HtmlNode& child)
{
    auto it = findChild(child, "removeChild");
    std::unique_ptr<HtmlNode> removed = std::move(*it);
    m_children.erase(it);
    removed->m_parent = nullptr;
    return removed;
}

std::unique_ptr<HtmlNode> HtmlNode::replaceChild(std::unique_ptr<HtmlNode> newChild, const HtmlNode& oldChild)
{
    if (!newChild)
        Raise(status::kGeneralFailure, "HtmlNode.replaceChild", "No node to insert.");
    findChild(oldChild, "replaceChild");
    checkInsertion(*newChild, "replaceChild");
    insertBefore(std::move(newChild), &oldChild);
    return removeChild(oldChild);
}

std::unique_ptr<HtmlNode> HtmlNode::remove()
{
    return m_parent ? m_parent->removeChild(*this) : nullptr;
}

void HtmlNode::removeAllChildren()
{
    ChildList doomed = std::move(m_children);
    m_children.clear();
    for (auto& child : doomed)
        child->m_parent = nullptr;
}

std::unique_ptr<HtmlNode> HtmlNode::cloneNode(bool deep) const
{
    std::unique_ptr<HtmlNode> copy = cloneSelf();
    if (!deep)
        return copy;
    // Copies level by level through a work list, again without recursion.
    std::vector<std::pair<const HtmlNode*, HtmlNode*>> work { { this, copy.get() } };
    while (!work.empty()) {
        auto [source, target] = work.back();
        work.pop_back();
        for (const auto& child : source->m_children) {
            HtmlNode& added = target->appendChild(child->cloneSelf());
            work.emplace_back(child.get(), &added);
        }
    }
    return copy;
}

std::string HtmlNode::textContent() const
{
    std::string text;
    WalkHtmlTree(*this, [&text](const HtmlNode& node) {
        if (node.isText())
            text += static_cast<const HtmlText&>(node).data();
        return true;
    });
    return text;
}

std::string HtmlNode::outerHTML() const
{
    return SerializeHtml(*this);
}

std::string HtmlNode::innerHTML() const
{
    return SerializeHtmlChildren(*this);
}

}  // namespace scriv
