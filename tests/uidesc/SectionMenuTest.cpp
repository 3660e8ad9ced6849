#include <gtest/gtest.h>

#include <string>

#include "DescriptionFixture.h"
#include "uidesc/CXmlForm.h"
#include "uidesc/CXmlMenu.h"
#include "uidesc/CXmlSection.h"

namespace scriv {
namespace {

using SectionTest = test::DescriptionFixture;
using MenuTest = test::DescriptionFixture;

pugi::xml_node Element(pugi::xml_document& document, const char* xml)
{
    EXPECT_TRUE(document.load_string(xml));
    return document.document_element();
}

// --- sections ---

TEST_F(SectionTest, ASectionWritesItsFixedLayout)
{
    pugi::xml_document document;
    CXmlSection section;
    ASSERT_TRUE(section.Parse(Element(document, R"(<Section Name="Detail" Height="200" FormRecordSelectorWidth="12"
        ClientAreaOffset="5, 60" DesignTimeHeaderHeight="20"/>)")));
    EXPECT_EQ(section.AccessFormRecordSelectorWidth, 12);
    EXPECT_EQ(section.XMLSTr(),
        "<Section Name = \"Detail\" Height = \"200\" FormRecordSelectorWidth = \"12\" ClientAreaOffset = \"5, 60\" "
        "DesignTimeHeaderHeight = \"20\" />");
}

TEST_F(SectionTest, ARecordSelectorWidthOfZeroIsLeftOut)
{
    pugi::xml_document document;
    CXmlSection section;
    ASSERT_TRUE(section.Parse(Element(document, R"(<Section Name="Page Header"/>)")));
    EXPECT_EQ(section.XMLSTr(),
        "<Section Name = \"Page Header\" Height = \"0\" ClientAreaOffset = \"0, 0\" DesignTimeHeaderHeight = \"0\" />");
}

TEST_F(SectionTest, AMissingElementIsAnError)
{
    CXmlSection section;
    EXPECT_FALSE(section.Parse(pugi::xml_node()));
    EXPECT_EQ(section.XmlParseError().Source(), "CXmlSection.Parse");
}

TEST_F(SectionTest, TheFormKeepsItsSectionsByName)
{
    CXmlForm form;
    LoadForm(form, R"(<Report Name="r"><Sections><Section Name="Header" Height="40"/>
        <Section Name="Detail" Height="200" ClientAreaOffset="5, 100"/></Sections></Report>)");
    ASSERT_EQ(form.Sections().Count(), 2u);
    EXPECT_EQ(form.ControlSectionOffsetY("Detail"), 100);
    EXPECT_EQ(form.ControlSectionOffsetX("Missing"), 0);
    EXPECT_EQ((*form.Sections().Find("Header"))->Parent(), &form);
    EXPECT_NE(form.XMLSTr().find("<Sections>\r\n<Section Name = \"Header\" Height = \"40\" ClientAreaOffset = \"0, 0\" "
                                 "DesignTimeHeaderHeight = \"0\" />\r\n<Section Name = \"Detail\" "),
        std::string::npos);
}

// --- menus ---

TEST_F(MenuTest, AMenuEntryWritesNameCaptionAndIndexes)
{
    pugi::xml_document document;
    CXmlMenu menu;
    ASSERT_TRUE(menu.Parse(Element(document, R"(<MenuEntry Name="mnuFile" Caption="&amp;File"/>)")));
    EXPECT_EQ(menu.Text, "&File");
    EXPECT_EQ(menu.XMLSTr(), "<MenuEntry Name = \"mnuFile\" Caption = \"&#38;File\" Indexes = \"File\" />");
}

TEST_F(MenuTest, IndexesTakeTheNameWhenIdentifyControlsIsSet)
{
    IdentifyBy(1);
    pugi::xml_document document;
    CXmlMenu menu;
    ASSERT_TRUE(menu.Parse(Element(document, R"(<MenuEntry Name="mnu&amp;File" Text="&amp;File"/>)")));
    EXPECT_EQ(menu.Indexes, "mnuFile");
}

TEST_F(MenuTest, GivenIndexesAreKept)
{
    pugi::xml_document document;
    CXmlMenu menu;
    ASSERT_TRUE(menu.Parse(Element(document, R"(<MenuEntry Name="mnuFile" Text="File" Indexes="Files; opening"/>)")));
    EXPECT_EQ(menu.Indexes, "Files; opening");
    EXPECT_NE(menu.XMLSTr().find("Indexes = \"Files; opening\" "), std::string::npos);
}

TEST_F(MenuTest, AnEntryWithoutTextsWritesNoIndexes)
{
    CXmlMenu menu;
    menu.Name = "mnuSep";
    EXPECT_EQ(menu.XMLSTr(), "<MenuEntry Name = \"mnuSep\" Caption = \"\" />");
}

TEST_F(MenuTest, TheFormFindsItsMenusByNormalizedName)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f"><Menu><MenuEntry Name="mnuFile" Caption="File"/>
        <MenuEntry Name="mnuHelp" Caption="Help"/></Menu></Form>)");
    EXPECT_TRUE(form.HasMenu());
    ASSERT_NE(form.GetMenu("mnuHelp"), nullptr);
    EXPECT_EQ(form.GetMenu("mnuHelp")->Text, "Help");
    EXPECT_EQ(form.GetMenu("mnuhelp"), nullptr);
    EXPECT_EQ(form.GetMenu("mnuHelp")->Parent(), &form);
    EXPECT_NE(form.XMLSTr().find("<Menu>\r\n<MenuEntry Name = \"mnuFile\" Caption = \"File\" Indexes = \"File\" />\r\n"
                                 "<MenuEntry Name = \"mnuHelp\" "),
        std::string::npos);
}

}  // namespace
}  // namespace scriv
