#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editor/TreeOperationContext.h"
#include "editor/clsTreeViewManipulator.h"
#include "model/CHeadlessTreeView.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "support/CoreFixture.h"

namespace scriv::test {

// A help project's contents tree shown in a headless view, its pages in a
// temporary folder, and a manipulator over both. No server runs: pages resolve
// against the tree's project folder.
class EditorFixture : public CoreFixture {
protected:
    // Loads the tree from project XML (the Project element and below) and shows it.
    void Open(const std::string& projectXml)
    {
        m_tree.HTMLHelpProjectRootDir = m_pages.Path();
        ASSERT_EQ(m_tree.Load("", false, projectXml), 0u);
        m_tree.DisplayInTreeview(&m_view);
        m_context.projectFolder = m_pages.Path();
        m_context.xmlFormsFolder = m_pages.Path() + "xml/";
        m_context.newTopicTemplate = m_pages.Path() + "Default.htm";
        m_context.beep = [this] { ++m_beeps; };
        m_context.writeNewTopicPage = [this](const NewTopicPage& page) {
            m_writtenPages.push_back(page);
            m_pages.Write(page.targetPath.substr(m_pages.Path().size()), "<html><title>" + page.title + "</title></html>");
            return true;
        };
        m_manipulator.init(&m_view, &m_tree, m_context);
    }

    void Select(const std::string& key) { m_view.Select(key); }
    CHelpPrjTreeNode* Node(const std::string& key) const { return m_tree.MapItem(key); }

    // The tree as keys with their children in brackets: "P(A,B(B1),C)".
    static std::string Shape(const CHelpPrjTreeNode& node)
    {
        std::string text = node.Key();
        if (node.ChildCount() == 0)
            return text;
        text += "(";
        for (std::size_t i = 0; i < node.ChildCount(); ++i)
            text += (i ? "," : "") + Shape(*node.Child(i));
        return text + ")";
    }
    std::string ViewShape(const std::string& key) const
    {
        std::string text = key;
        std::vector<std::string> children = m_view.ChildrenKeys(key);
        if (children.empty())
            return text;
        text += "(";
        for (std::size_t i = 0; i < children.size(); ++i)
            text += (i ? "," : "") + ViewShape(children[i]);
        return text + ")";
    }
    // The tree, which the view must mirror item for item.
    std::string TreeShape() const
    {
        std::string shape = Shape(*m_tree.Root());
        EXPECT_EQ(ViewShape(m_tree.Root()->Key()), shape) << "the view does not mirror the tree";
        return shape;
    }
    std::vector<std::string> StackNames() const
    {
        std::vector<std::string> names;
        for (const CHelpPrjTreeOperation* operation : m_manipulator.UndoStack())
            names.push_back(operation->OperationName);
        return names;
    }
    std::vector<std::string> BoxTexts() const
    {
        std::vector<std::string> texts;
        for (const MessageBoxRequest& box : m_ui->MessageBoxes())
            texts.push_back(box.text);
        return texts;
    }

    TempFolder m_pages;
    CHelpPrjTree m_tree;
    CHeadlessTreeView m_view;
    TreeOperationContext m_context;
    clsTreeViewManipulator m_manipulator;
    std::vector<NewTopicPage> m_writtenPages;
    int m_beeps { 0 };
};

// A small project: a root, three topics, one with two children, and a form
// topic with a control and a menu node of its own.
inline const char* kSmallProject = R"(<Project Key="P" Caption="Help" GeneratedHtmlFile="Welcome.htm">
    <Topic Key="A" Caption="Alpha" GeneratedHtmlFile="Alpha.htm"/>
    <Topic Key="B" Caption="Beta" GeneratedHtmlFile="Beta.htm">
      <Topic Key="B1" Caption="Beta one" GeneratedHtmlFile="Beta1.htm"/>
      <Topic Key="B2" Caption="Beta two" GeneratedHtmlFile="Beta2.htm"/>
    </Topic>
    <Topic Key="C" Caption="Gamma" GeneratedHtmlFile="Gamma.htm"/>
  </Project>)";

}  // namespace scriv::test
