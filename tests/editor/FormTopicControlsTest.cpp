#include <gtest/gtest.h>

#include <filesystem>

#include "editor/CHelpPrjTreeMenu.h"
#include "editor/CXmlFormDescriptions.h"
#include "editor/EditorFixture.h"
#include "editor/frmHHCEntryIndexKeywords.h"
#include "foundation/ScrivError.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

using test::EditorFixture;

const char* kProject = R"(<Project Key="P" Caption="Help" GeneratedHtmlFile="Welcome.htm">
    <Dialogs Key="D" Caption="Dialogs" ProcessCode="1" GeneratedHtmlFile="Dialogs.htm">
      <Form Key="D.frmMain" Name="frmMain" Caption="Main" type="2" ProcessCode="999" GeneratedHtmlFile="frmMain.htm"/>
      <Topic Key="D.notes" Caption="Notes" GeneratedHtmlFile="Notes.htm"/>
    </Dialogs>
  </Project>)";

// The saved description: a menu and a button documented, a text box not yet.
std::string FormDescription(const std::string& prefix = {})
{
    return R"(<Form Name="frmMain" Text="Main" HtmlFileName="frmMain.htm" Indexes="orders" NamePrefix=")" + prefix + R"(">
  <Menu><MenuEntry Name="mnuFile" Caption="&amp;File"/></Menu>
  <Controls><CommandButton Name="cmdOK" Text="OK" Indexes="confirm|accept"/><TextBox Name="Text1"/></Controls>
  <Documented>
    <Menus><Item  Name="mnuFile" Bmk="mnuFile" Caption="File"  IsMenu = "True"  /></Menus>
    <Controls><Item  Name="cmdOK" Bmk="cmdOK" Caption="OK"  /></Controls>
  </Documented>
</Form>)";
}

// The topic page as the page writer makes it, with the headings given.
std::string TopicPage(const std::string& headings)
{
    return "<HTML>\r\n<HEAD>\r\n<meta name=\"SCRIVANT-VERSION\" content=\"0.1.0\">\r\n"
           "<meta name=\"SCRIVANT-FORM-NAME\" content=\"frmMain\">\r\n"
           "<meta name=\"SCRIVANT-TOC-EXCLUDE-LIST\" content=\"\">\r\n</HEAD>\r\n<BODY>\r\n<H1>Main</H1>\r\n"
        + headings + "</BODY>\r\n</HTML>\r\n";
}

const std::string kMenuAndButton = "<H2><a name=\"frmMain_mnuFile\">File</a></H2>\r\n"
                                   "<H2><a name=\"frmMain_cmdOK\">OK</a></H2>\r\n";
const std::string kTextBox = "<H2><a name=\"frmMain_Text1\">Name of the order</a></H2>\r\n";

class NullEvents : public ITreeMenuEvents {
public:
    void HtmlFileSelected(const std::string&, const std::string&) override { }
    void HtmlFileIsAbsentForCurrentNode(const std::string&) override { }
    void HtmlFindUrlWithinCurrentPage(const std::string&) override { }
    void FindFirst(const std::string&) override { }
    void NodeCaptionChanged(const std::string&, const std::string&) override { }
};

class FormTopicControlsTest : public EditorFixture {
protected:
    void SetUp() override
    {
        EditorFixture::SetUp();
        m_formPath = m_pages.Write("xml/frmMain.xml", FormDescription());
        m_page = m_pages.Write("frmMain.htm", TopicPage(kMenuAndButton));
        m_context.formDescriptions = &m_descriptions;
        Open(kProject);
        m_form = Node("D.frmMain");
    }

    std::vector<std::string> Itemised(const DocumentedControls& controls) const
    {
        std::vector<std::string> lines;
        for (const DocumentedControl& control : controls.items)
            lines.push_back(control.name + " " + control.bookmarkName + " " + control.anchor + " " + control.caption
                + (control.isMenu ? " menu" : ""));
        return lines;
    }

    CXmlFormDescriptions m_descriptions { m_pages.Path() + "xml/" };
    std::string m_formPath;
    std::string m_page;
    CHelpPrjTreeNode* m_form { nullptr };
};

// --- the saved descriptions ---

TEST_F(FormTopicControlsTest, TheDescriptionListsMenusThenControlsWithTheirAnchors)
{
    std::optional<DocumentedControls> controls = m_descriptions.DocumentedControlsOf(*m_form, false);
    ASSERT_TRUE(controls.has_value());
    EXPECT_EQ(Itemised(*controls),
        (std::vector<std::string> { "mnuFile mnuFile frmMain_mnuFile File menu", "cmdOK cmdOK frmMain_cmdOK OK" }));
    EXPECT_EQ(controls->pageFile, "frmMain.htm");
    EXPECT_FALSE(controls->changed);

    m_pages.Write("xml/frmMain.xml", FormDescription("Ord"));
    EXPECT_EQ(m_descriptions.DocumentedControlsOf(*m_form, false)->items[1].anchor, "Ord_frmMain_cmdOK");
    EXPECT_FALSE(m_descriptions.DocumentedControlsOf(*Node("D.notes"), false).has_value());
}

TEST_F(FormTopicControlsTest, RefreshingFromAnEditedPageSavesTheNewDefinitions)
{
    m_pages.Write("frmMain.htm", TopicPage(kMenuAndButton + kTextBox));
    std::optional<DocumentedControls> controls = m_descriptions.DocumentedControlsOf(*m_form, true);
    ASSERT_TRUE(controls.has_value());
    EXPECT_TRUE(controls->changed);
    ASSERT_EQ(controls->items.size(), 3u);
    EXPECT_EQ(controls->items[2].caption, "Name of the order");
    EXPECT_NE(m_pages.Read("xml/frmMain.xml").find("Caption=\"Name of the order\""), std::string::npos);

    EXPECT_FALSE(m_descriptions.DocumentedControlsOf(*m_form, true)->changed);
}

TEST_F(FormTopicControlsTest, WithoutAFormsFolderTheDescriptionLiesBesideThePage)
{
    EXPECT_EQ(CXmlFormDescriptions("").FormPath(*m_form), m_pages.Path() + "xml/frmMain.xml");
    EXPECT_EQ(CXmlFormDescriptions("/srv/forms").FormPath(*m_form), "/srv/forms/frmMain.xml");
    EXPECT_EQ(m_descriptions.FormPath(*Node("P")), m_pages.Path() + "xml/Welcome.xml");
    EXPECT_TRUE(CXmlFormDescriptions("").DocumentedControlsOf(*m_form, false).has_value());
}

TEST_F(FormTopicControlsTest, OnlyFormsAndReportsHaveADescriptionToSave)
{
    std::unique_ptr<CXmlForm> form = m_descriptions.LoadXmlForm(*m_form);
    ASSERT_NE(form, nullptr);
    form->Text = "Orders";
    m_descriptions.SaveXmlForm(*m_form, *form);
    EXPECT_EQ(m_descriptions.LoadXmlForm(*m_form)->Text, "Orders");

    try {
        m_descriptions.SaveXmlForm(*Node("D.notes"), *form);
        FAIL() << "a plain topic saved a form description";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Code(), status::kGeneralFailure);
        EXPECT_EQ(error.Source(), "CHelpPrjTreeNode.SaveXmlForm");
        EXPECT_EQ(error.Description(), "Xml form is not defined for this object type");
    }
}

// --- control nodes in the editor ---

TEST_F(FormTopicControlsTest, ASavedFormPageRebuildsTheControlNodesOfTheSelectedTopic)
{
    ASSERT_TRUE(m_tree.AddControlsIfAbsent(*m_form, m_descriptions, false));
    EXPECT_EQ(m_view.ChildrenKeys("D.frmMain"), (std::vector<std::string> { "D.frmMain.mnuFile", "D.frmMain.cmdOK" }));

    NullEvents events;
    CHelpPrjTreeMenu menu;
    menu.init(&m_view, &m_tree, m_context, &events);
    m_view.Select("D.frmMain");
    // Saved as it was: nothing to rebuild.
    EXPECT_FALSE(menu.DocumentSaved(m_page));

    m_pages.Write("frmMain.htm", TopicPage(kMenuAndButton + kTextBox));
    EXPECT_FALSE(menu.DocumentSaved(m_pages.Path() + "Notes.htm"));
    EXPECT_TRUE(menu.DocumentSaved(m_page));
    EXPECT_EQ(m_view.ChildrenKeys("D.frmMain"),
        (std::vector<std::string> { "D.frmMain.mnuFile", "D.frmMain.cmdOK", "D.frmMain.Text1" }));
    EXPECT_EQ(m_view.Text("D.frmMain.Text1"), "Name of the order");
    EXPECT_EQ(Node("D.frmMain.Text1")->Bookmark(), "frmMain_Text1");
    EXPECT_TRUE(Node("D.frmMain.Text1")->IsControl);

    // Another topic selected: the save concerns no control nodes.
    m_view.Select("D.notes");
    m_pages.Write("frmMain.htm", TopicPage(kMenuAndButton));
    EXPECT_FALSE(menu.DocumentSaved(m_page));
    EXPECT_EQ(m_form->ChildCount(), 3u);
}

TEST_F(FormTopicControlsTest, MovingOrRestoringAFormTopicKeepsItsControlNodes)
{
    m_tree.AddControlsIfAbsent(*m_form, m_descriptions, false);
    Select("D.frmMain");
    m_manipulator.Down();
    EXPECT_EQ(TreeShape(), "P(D(D.notes,D.frmMain(D.frmMain.mnuFile,D.frmMain.cmdOK)))");
    EXPECT_TRUE(Node("D.frmMain.mnuFile")->IsMenu);

    Select("D.frmMain");
    m_ui->QueueAnswer(vbNo);
    m_manipulator.Delete();
    EXPECT_EQ(TreeShape(), "P(D(D.notes))");
    EXPECT_EQ(Node("D.frmMain.cmdOK"), nullptr);
    m_manipulator.Undo();
    EXPECT_EQ(TreeShape(), "P(D(D.notes,D.frmMain(D.frmMain.mnuFile,D.frmMain.cmdOK)))");
}

TEST_F(FormTopicControlsTest, IndexEntriesOfFormsAndControlsLiveInTheirDescription)
{
    m_tree.AddControlsIfAbsent(*m_form, m_descriptions, false);
    std::vector<std::string> shown;
    m_manipulator.Context().showIndexEntries = [&](frmHHCEntryIndexKeywords& dialog) {
        shown = dialog.IndexesCollection();
        dialog.SetTxtIndexEntry("ordering");
        dialog.cmdAddEntry_Click();
        dialog.cmdOK_Click();
    };
    Select("D.frmMain.cmdOK");
    m_manipulator.EditIndex();
    EXPECT_EQ(shown, (std::vector<std::string> { "confirm", "accept" }));
    Select("D.frmMain");
    m_manipulator.EditIndex();
    EXPECT_EQ(shown, (std::vector<std::string> { "orders" }));
    EXPECT_TRUE(m_tree.WasChanged());

    std::unique_ptr<CXmlForm> form = m_descriptions.LoadXmlForm(*m_form);
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->Indexes, "orders|ordering");
    ASSERT_NE(form->GetControl("cmdOK"), nullptr);
    EXPECT_EQ(form->GetControl("cmdOK")->Indexes, "confirm|accept|ordering");
    EXPECT_TRUE(m_form->IndexesCollection().empty()) << "the topic's own keywords stay as they were";

    // Without a description there is nothing to edit.
    std::filesystem::remove(m_formPath);
    shown.clear();
    m_manipulator.EditIndex();
    EXPECT_TRUE(shown.empty());
}

TEST_F(FormTopicControlsTest, LoadingWithControlsReadsThemFromTheDescriptions)
{
    CHelpPrjTree tree;
    tree.HTMLHelpProjectRootDir = m_pages.Path();
    tree.SetFormDescriptions(&m_descriptions, true);
    ASSERT_EQ(tree.Load("", false, kProject, true), 0u);
    CHelpPrjTreeNode* button = tree.MapItem("D.frmMain.cmdOK");
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->Caption(), "cmdOK") << "control names were asked for";
    EXPECT_EQ(button->Level(), 4);
}

}  // namespace
}  // namespace scriv
