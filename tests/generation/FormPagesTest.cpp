#include <gtest/gtest.h>

#include <sqlite3.h>

#include "foundation/AppFolders.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "generation/CFormHtmlTemplates.h"
#include "support/CoreFixture.h"
#include "uidesc/CXmlControl.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

const char* kForm = R"(<Form Name = "frmA" Text = "Alpha &amp; Co" WindowSize = "300, 220" ClientAreaOffset = "4, 22" HasMap = "True" >
<Menu>
<MenuEntry Name = "mnuFile" Caption = "&amp;File" />
<MenuEntry Name = "mnuHelp" Caption = "&amp;Help" />
</Menu>
<Controls>
<Label Name = "lblX" Text = "Name:" ClassName = "Label" Location = "8, 8" Size = "40, 17" TabIndex = "0" />
<TextBox Name = "txtX" Text = "Name" Description = "Type the name" ClassName = "TextBox" Location = "50, 8" Size = "100, 19" TabIndex = "1" />
<Frame Name = "fraY" Text = "Mode" ClassName = "Frame" Location = "8, 40" Size = "200, 80" TabIndex = "2" PicFileName = "frmA_fraY.jpg" >
<Controls>
  <OptionButton Name = "optA" Text = "Quick" ClassName = "OptionButton" Location = "16, 56" Size = "80, 17" TabIndex = "3" Level = "1" />
</Controls>
</Frame>
<TabControl Name = "tab" Text = "Tab" ClassName = "TabControl" Location = "8, 130" Size = "280, 60" TabIndex = "4" >
<Controls>
  <Page Name = "0_tab" Text = "One" ClassName = "Page" Location = "8, 130" Size = "280, 60" TabPageTab = "8,130,93,20" Level = "1" TabPageIndex = "0" >
  <Controls>
    <CheckBox Name = "chk" Text = "Check" ClassName = "CheckBox" Location = "16, 160" Size = "60, 17" TabIndex = "5" Level = "2" />
  </Controls>
  </Page>
  <Page Name = "1_tab" Text = "Two" ClassName = "Page" Location = "8, 130" Size = "280, 60" TabPageTab = "101,130,93,20" Level = "1" TabPageIndex = "1" />
</Controls>
</TabControl>
</Controls>
</Form>)";

class FormPagesTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        Parameters().SetBulletMenusControls(true);
        ASSERT_TRUE(m_form.LoadXml(kForm)) << m_form.XmlParseError().Reason();
    }

    PageSections AllSections()
    {
        return { true, true, true, true, true, true };
    }

    CXmlForm m_form;
    CFormHtmlTemplates m_templates;
};

TEST_F(FormPagesTest, TheMapHasAnAreaForEveryControlButLabelsAndTheFirstPagesControls)
{
    std::string map = m_templates.ControlsMap(m_form);
    EXPECT_EQ(map.find("<!-- + CONTROLS MAP + -->\r\n<MAP NAME=\"frmA\"> \r\n"), 0u) << map;
    // The client area starts 4 pixels right and 22 down in the picture.
    EXPECT_NE(map.find("<AREA SHAPE=\"RECT\" COORDS=\"54,30,154,49\" HREF=\"#frmA_txtX\" FRAME=\"\" alt=\"Name\" />\r\n"),
        std::string::npos)
        << map;
    EXPECT_NE(map.find("COORDS=\"12,152,105,172\" HREF=\"#frmA_0_tab\""), std::string::npos) << map;
    EXPECT_NE(map.find("COORDS=\"105,152,198,172\" HREF=\"#frmA_1_tab\""), std::string::npos) << map;
    EXPECT_NE(map.find("HREF=\"#frmA_chk\""), std::string::npos) << map;
    EXPECT_EQ(map.find("lblX"), std::string::npos);
    // A frame's own controls are mapped on the frame's picture, not here.
    EXPECT_EQ(map.find("optA"), std::string::npos);
    EXPECT_NE(map.find("</MAP>\r\n<!-- - CONTROLS MAP - -->\r\n"), std::string::npos);
}

TEST_F(FormPagesTest, AFramesMapLiesOnItsOwnPicture)
{
    const CXmlControl* frame = m_form.GetControl("fraY");
    ASSERT_NE(frame, nullptr);
    std::string map = m_templates.ControlsMapOfControl(m_form, *frame);
    EXPECT_NE(map.find("<MAP NAME=\"frmA_fraY\"> "), std::string::npos) << map;
    EXPECT_NE(map.find("COORDS=\"8,16,88,33\" HREF=\"#frmA_optA\""), std::string::npos) << map;
}

TEST_F(FormPagesTest, WithoutHasMapThereIsNoMapAndAFormOfLabelsHasAnEmptyOne)
{
    m_form.HasMap = false;
    EXPECT_EQ(m_templates.ControlsMap(m_form), "");
    CXmlForm labels;
    ASSERT_TRUE(labels.LoadXml(R"(<Form Name="frmL" HasMap="True"><Controls>
        <Label Name="lbl1" Text="One" ClassName="Label" Location="1, 1" Size="10, 10"/></Controls></Form>)"));
    std::string map = m_templates.ControlsMap(labels);
    EXPECT_NE(map.find("<MAP NAME=\"frmL\">"), std::string::npos);
    EXPECT_EQ(map.find("<AREA"), std::string::npos);
}

TEST_F(FormPagesTest, ListsAreBulletsOrParagraphsAndTitlesCaptionsOrNames)
{
    EXPECT_EQ(m_templates.MenusList(m_form),
        "<UL>\r\n<LI><a href=\"#frmA_mnuFile\">File</a></LI>\r\n<LI><a href=\"#frmA_mnuHelp\">Help</a></LI>\r\n</UL>\r\n");
    Parameters().SetBulletMenusControls(false);
    EXPECT_EQ(m_templates.MenusList(m_form),
        "<P>\r\n<a href=\"#frmA_mnuFile\">File</a><BR/>\r\n<a href=\"#frmA_mnuHelp\">Help</a><BR/>\r\n</P>\r\n");
    EXPECT_EQ(m_templates.FormTitle(m_form),
        "<!-- + FORM TITLE + -->\r\n<H1>Alpha &#38; Co</H1>\r\n<!-- - FORM TITLE - -->\r\n");
    Parameters().SetIdentifyControls(1);
    EXPECT_NE(m_templates.FormTitle(m_form).find("<H1>frmA</H1>"), std::string::npos);
    EXPECT_NE(m_templates.ControlsList(m_form).find(">txtX</a>"), std::string::npos);
}

TEST_F(FormPagesTest, SectionsCarryAnchorsPagesTheirTabsAndDescriptions)
{
    std::string sections = m_templates.Controls(m_form, false, false);
    EXPECT_NE(sections.find("<H2><a name=\"frmA_txtX\">Name</a></H2>\r\n<p>Type the name</p>\r\n"), std::string::npos)
        << sections;
    EXPECT_NE(sections.find("<LI><a HREF=\"#frmA_0_tab\">TAB:One</a></LI>"), std::string::npos) << sections;
    EXPECT_NE(sections.find("<H2><a name=\"frmA_1_tab\">TAB:Two</a></H2>"), std::string::npos) << sections;
    EXPECT_NE(sections.find("<H2><a name=\"frmA_chk\">Check</a></H2>"), std::string::npos);
    EXPECT_EQ(sections.find("lblX"), std::string::npos);
}

TEST_F(FormPagesTest, ADescriptionOfTheDatabaseWinsOverTheFormsOwn)
{
    std::string folder = Folders().UserDataFolder() + "descriptions/";
    MakeFolders(folder);
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open((folder + "Descriptions.db").c_str(), &database), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(database,
                  "CREATE TABLE tblDescription (Key TEXT, Description TEXT);"
                  "INSERT INTO tblDescription VALUES ('frmA_txtX', 'The name as the customer spells it.');",
                  nullptr, nullptr, nullptr),
        SQLITE_OK);
    sqlite3_close(database);

    EXPECT_EQ(CFormHtmlTemplates::GetDescription(folder, "frmA_txtX"), "The name as the customer spells it.");
    EXPECT_EQ(CFormHtmlTemplates::GetDescription(folder, "frmA_other"), "");
    EXPECT_EQ(CFormHtmlTemplates::GetDescription(m_data / "nowhere/", "frmA_txtX"), "");
    Parameters().InsertExternalDescriptions = true;
    std::string sections = m_templates.Controls(m_form, false, false);
    EXPECT_NE(sections.find("<p>The name as the customer spells it.</p>"), std::string::npos) << sections;
    EXPECT_EQ(sections.find("Type the name"), std::string::npos);
}

TEST_F(FormPagesTest, ATemplateIsFilledAndSwitchedOffSectionsAreCut)
{
    std::string templatePath = m_data.Write("form.htm",
        "<html><head><title>{{HtmlPageTitle}}</title>{{StyleSheetLinkHtml}}</head><body><h1>{{HtmlTopicCaption}}</h1>\r\n"
        "{{MAP}}{{IMAGE}}\r\n<!-- + MENUS LIST + -->{{MenusList}}<!-- - MENUS LIST - -->\r\n"
        "<!-- + CONTROLS LIST + -->{{ControlsList}}<!-- - CONTROLS LIST - -->\r\n"
        "<!-- + MENUS + -->{{Menus}}<!-- - MENUS - -->\r\n<!-- + CONTROLS + -->{{Controls}}<!-- - CONTROLS - -->\r\n"
        "<meta name=\"x\" content=\"{{FormName}}|{{HtmlScrivantExcludeList}}\"></body></html>");
    PageSections sections = AllSections();
    sections.addMenuList = false;
    sections.addControlsSections = false;
    std::string page = m_templates.FileTemplate(m_form, sections, templatePath, "<link href=\"a.css\">");
    EXPECT_NE(page.find("<title>Alpha &#38; Co</title><link href=\"a.css\">\r\n{{StyleSheetLinkHtml}}"),
        std::string::npos)
        << page;
    EXPECT_NE(page.find("<h1>Alpha &#38; Co</h1>"), std::string::npos);
    EXPECT_NE(page.find("<MAP NAME=\"frmA\">"), std::string::npos);
    EXPECT_EQ(page.find("MENUS LIST"), std::string::npos) << page;
    EXPECT_EQ(page.find("<!-- + CONTROLS + -->"), std::string::npos);
    EXPECT_EQ(page.find("<H2><a name=\"frmA_txtX\">"), std::string::npos);
    EXPECT_NE(page.find("<H2><a name=\"frmA_mnuFile\">File</a></H2>"), std::string::npos);
    // The group markers go; the list markers of what stays, stay.
    EXPECT_EQ(page.find("<!-- + MENUS + -->"), std::string::npos);
    EXPECT_NE(page.find("<!-- + CONTROLS LIST + -->"), std::string::npos);
    EXPECT_NE(page.find("content=\"frmA|\""), std::string::npos);
}

TEST_F(FormPagesTest, WithoutMarkersTheTagOfAnEmptyListStays)
{
    CXmlForm plain;
    ASSERT_TRUE(plain.LoadXml(R"(<Form Name="frmP" Text="Plain"><Controls/></Form>)"));
    std::string templatePath = m_data.Write("bare.htm", "<body>{{MenusList}}</body>");
    std::string page = m_templates.FileTemplate(plain, AllSections(), templatePath, "");
    EXPECT_EQ(page, "<body>{{MenusList}}</body>");
}

TEST_F(FormPagesTest, WithoutATemplateAPlainPageIsWritten)
{
    std::string page = m_templates.FileTemplate(m_form, AllSections(), m_data / "missing.htm", "");
    EXPECT_EQ(page.find("<HTML lang=\"en\">\r\n<HEAD>\r\n<meta name=\"GENERATOR\" content=\"{{HtmlScrivantTitleAndVersion}}\">\r\n"
                        "<meta name=\"SCRIVANT-VERSION\" content=\"{{HtmlScrivantVersion}}\">\r\n"
                        "<meta name=\"SCRIVANT-FORM-NAME\" content=\"frmA\">\r\n"),
        0u)
        << page;
    EXPECT_NE(page.find("<TITLE>Alpha &#38; Co</TITLE>"), std::string::npos);
    EXPECT_NE(page.find("<H1>Alpha &#38; Co</H1>"), std::string::npos);
    EXPECT_NE(page.find("</BODY>\r\n</HTML>\r\n"), std::string::npos);
}

TEST(CutBetweenMarkers, BothMarkersInOrderAndPastTheStartAreNeeded)
{
    std::string text = "a<!--b-->x<!--e-->z";
    EXPECT_TRUE(CutBetweenMarkers(text, "<!--b-->", "<!--e-->"));
    EXPECT_EQ(text, "az");
    text = "<!--b-->x<!--e-->";
    EXPECT_FALSE(CutBetweenMarkers(text, "<!--b-->", "<!--e-->"));
    text = "a<!--e-->x<!--b-->";
    EXPECT_FALSE(CutBetweenMarkers(text, "<!--b-->", "<!--e-->"));
    EXPECT_EQ(text, "a<!--e-->x<!--b-->");
}

}  // namespace
}  // namespace scriv
