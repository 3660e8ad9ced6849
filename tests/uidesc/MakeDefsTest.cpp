#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DescriptionFixture.h"
#include "foundation/StringUtil.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

constexpr const char* kForm = R"(<Form Name="frmMain" Text="Main"><Menu>
    <MenuEntry Name="mnuFile" Caption="&amp;File"/></Menu><Controls>
    <Frame Name="Frame1" Text="Options"><Controls><TextBox Name="Text1"/></Controls></Frame>
    <Frame Name="Frame2" Text="More"><Controls><TextBox Name="Text1"/></Controls></Frame>
    <CommandButton Name="cmdOK" Text="OK"/></Controls></Form>)";

// A topic page as the page writer makes it: one heading per menu and control.
std::string TopicPage(const std::string& extraHeadings = {}, const std::string& okCaption = "OK")
{
    return "<HTML>\r\n<HEAD>\r\n<meta name=\"GENERATOR\" content=\"Scrivant 0.1.0\">\r\n"
           "<meta name=\"SCRIVANT-VERSION\" content=\"0.1.0\">\r\n"
           "<meta name=\"SCRIVANT-FORM-NAME\" content=\"frmMain\">\r\n"
           "<meta name=\"SCRIVANT-TOC-EXCLUDE-LIST\" content=\"\">\r\n</HEAD>\r\n<BODY>\r\n<H1>Main</H1>\r\n"
           "<H2><a name=\"frmMain_mnuFile\">File</a></H2>\r\n"
           "<H2><a name=\"frmMain_Frame1\">Options</a></H2>\r\n"
           "<H2><a name=\"frmMain_Text1\">First text</a></H2>\r\n"
           "<H2><a name=\"frmMain_Frame2\">More</a></H2>\r\n"
           "<H2><a name=\"frmMain_Text11\">Second text</a></H2>\r\n"
           "<H2><a name=\"frmMain_cmdOK\">"
        + okCaption + "</a></H2>\r\n" + extraHeadings + "</BODY>\r\n</HTML>\r\n";
}

class MakeDefsTest : public test::DescriptionFixture {
protected:
    void SetUp() override
    {
        DescriptionFixture::SetUp();
        LoadForm(m_form, kForm);
        m_page = m_data.Write("frmMain.htm", TopicPage());
    }

    std::vector<std::string> Keys(const CXmlForm::Definitions& list) const
    {
        std::vector<std::string> keys;
        for (const auto& entry : list)
            keys.push_back(entry.key);
        return keys;
    }

    CXmlForm m_form;
    std::string m_page;
};

TEST_F(MakeDefsTest, MenusAndControlsOfThePageAreTiedToTheForm)
{
    EXPECT_TRUE(m_form.MakeDefs(m_page));
    EXPECT_EQ(Keys(m_form.DocumentedMenus()), (std::vector<std::string> { "frmMain_mnuFile" }));
    EXPECT_TRUE(m_form.DocumentedMenus().At(0).value.IsMenu);
    EXPECT_EQ(Keys(m_form.DocumentedControls()),
        (std::vector<std::string> { "frmMain_Frame1", "frmMain_Text1", "frmMain_Frame2", "frmMain_Text11",
            "frmMain_cmdOK" }));
    const CFormHTMLControlDef& second = *m_form.DocumentedControls().Find("frmMain_Text11");
    EXPECT_EQ(second.ControlName, "Text1");
    EXPECT_EQ(second.BookmarkName, "Text11");
    EXPECT_EQ(second.TopicCaption, "Second text");
    EXPECT_EQ(second.FormName, "frmMain");
}

TEST_F(MakeDefsTest, TheSamePageAgainChangesNothing)
{
    ASSERT_TRUE(m_form.MakeDefs(m_page));
    EXPECT_FALSE(m_form.MakeDefs(m_page));
}

TEST_F(MakeDefsTest, StoredDefinitionsCompareEqualAfterReloading)
{
    ASSERT_TRUE(m_form.MakeDefs(m_page));
    CXmlForm reloaded;
    LoadForm(reloaded, m_form.XMLSTr());
    EXPECT_EQ(reloaded.DocumentedControls().Count(), 5u);
    EXPECT_FALSE(reloaded.MakeDefs(m_page));
}

TEST_F(MakeDefsTest, AnEditedHeadingIsAChange)
{
    ASSERT_TRUE(m_form.MakeDefs(m_page));
    m_data.Write("frmMain.htm", TopicPage({}, "Save &amp; close"));
    EXPECT_TRUE(m_form.MakeDefs(m_page));
    EXPECT_EQ(m_form.DocumentedControls().Find("frmMain_cmdOK")->TopicCaption, "Save & close");
}

TEST_F(MakeDefsTest, WithoutReplaceOnlyNewDefinitionsAreAdded)
{
    ASSERT_TRUE(m_form.MakeDefs(m_page));
    m_data.Write("frmMain.htm", TopicPage("<H2><a name=\"frmMain_Notes\">Notes</a></H2>\r\n", "Changed"));
    EXPECT_TRUE(m_form.MakeDefs(m_page, false));
    EXPECT_EQ(m_form.DocumentedControls().Count(), 6u);
    EXPECT_EQ(m_form.DocumentedControls().Find("frmMain_cmdOK")->TopicCaption, "OK");
    EXPECT_EQ(m_form.DocumentedControls().Find("frmMain_Notes")->ControlName, "Notes");
    EXPECT_FALSE(m_form.MakeDefs(m_page, false));
}

TEST_F(MakeDefsTest, AMissingPageChangesNothing)
{
    ASSERT_TRUE(m_form.MakeDefs(m_page));
    EXPECT_FALSE(m_form.MakeDefs(m_data / "missing.htm"));
    EXPECT_EQ(m_form.DocumentedControls().Count(), 5u);
}

TEST_F(MakeDefsTest, TheDefinitionsAreWrittenInTheDocumentedElement)
{
    ASSERT_TRUE(m_form.MakeDefs(m_page));
    std::string text = m_form.XMLSTr();
    EXPECT_NE(text.find("<Documented>\r\n<Menus>\r\n"
                        "<Item  Name=\"mnuFile\" Bmk=\"mnuFile\" Caption=\"File\" IsMenu = \"True\"  />\r\n"
                        "</Menus>\r\n<Controls>\r\n"
                        "<Item  Name=\"Frame1\" Bmk=\"Frame1\" Caption=\"Options\"  />\r\n"),
        std::string::npos);
    EXPECT_TRUE(EndsWithNoCase(text, "<Item  Name=\"cmdOK\" Bmk=\"cmdOK\" Caption=\"OK\"  />\r\n</Controls>\r\n"
                                     "</Documented>\r\n</Form>\r\n"));
}

}  // namespace
}  // namespace scriv
