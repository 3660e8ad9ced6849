#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "DescriptionFixture.h"
#include "uidesc/CXmlControl.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

using ControlWriteTest = test::DescriptionFixture;
using ControlReadTest = test::DescriptionFixture;
using ControlTreeTest = test::DescriptionFixture;
using HotSpotTest = test::DescriptionFixture;

std::vector<std::string> Names(const std::vector<CXmlControl*>& controls)
{
    std::vector<std::string> names;
    for (const CXmlControl* control : controls)
        names.push_back(control->Name);
    return names;
}

std::vector<std::string> Names(const CXmlControl::Collection& controls)
{
    std::vector<std::string> names;
    for (const auto& entry : controls)
        names.push_back(entry.value->Name);
    return names;
}

// --- writing ---

TEST_F(ControlWriteTest, ALeafOnAFormWritesItsAttributesInOrder)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA" ClientAreaOffset="4, 30"><Controls>
        <TextBox Name="txtName" Text="Name" ClassName="TextBox" Location="100, 12" Size="280, 21" TabIndex="1"/>
        </Controls></Form>)");
    EXPECT_EQ(form.GetControl("txtName")->XMLSTr(),
        "<TextBox Name = \"txtName\" Text = \"Name\" ClassName = \"TextBox\" Location = \"100, 12\" "
        "Size = \"280, 21\" TabIndex = \"1\" HotSpot = \"104,42,384,63\" Indexes = \"Name\" />");
}

TEST_F(ControlWriteTest, EveryOptionalAttributeComesInItsPlace)
{
    CXmlControl control;
    ASSERT_TRUE(control.Parse(R"(<Page Name="0_tabMain" Text="General" Description="First page" ClassName="Page"
        OriginalClassName="SSTab" Location="10, 20" Size="300, 200" TabIndex="2" Index="3" HelpContextId="40"
        PicFileName="frmA0_tabMain.jpg" Visible="False" TabPageTab="12,22,60,18" SectionName="Detail"
        ParentControlName="lblGeneral" Level="1" TabPageIndex="0" BookmarkName="General page" Indexes="General"/>)"))
        << control.XmlParseError().Describe();
    EXPECT_EQ(control.XMLSTr(),
        "  <Page Name = \"0_tabMain\" Text = \"General\" Description = \"First page\" ClassName = \"Page\" "
        "OriginalClassName = \"SSTab\" Location = \"10, 20\" Size = \"300, 200\" TabIndex = \"2\" Index = \"3\" "
        "HelpContextId = \"40\" PicFileName = \"frmA0_tabMain.jpg\" Visible = \"False\" HotSpot = \"10,20,310,220\" "
        "TabPageTab = \"12,22,60,18\" SectionName = \"Detail\" ParentControlName = \"lblGeneral\" Level = \"1\" "
        "TabPageIndex = \"0\" BookmarkName = \"General_page\" Indexes = \"General\" />");
}

TEST_F(ControlWriteTest, ChildrenGoInAControlsElementAtTheParentsIndent)
{
    CXmlControl frame;
    ASSERT_TRUE(frame.Parse(R"(<Frame Name="fraA" Location="0, 0" Size="10, 10" Level="1">
        <Controls><Label Name="lbl" Location="1, 1" Size="2, 2" Level="2"/></Controls></Frame>)"));
    EXPECT_EQ(frame.XMLSTr(),
        "  <Frame Name = \"fraA\" ClassName = \"Frame\" Location = \"0, 0\" Size = \"10, 10\" HotSpot = \"0,0,10,10\" "
        "Level = \"1\" >\r\n"
        "  <Controls>\r\n"
        "    <Label Name = \"lbl\" ClassName = \"Label\" Location = \"1, 1\" Size = \"2, 2\" HotSpot = \"1,1,3,3\" "
        "Level = \"2\" />\r\n"
        "  </Controls>\r\n"
        "  </Frame>");
}

TEST_F(ControlWriteTest, LevelZeroIsNotWrittenAndLevelTwoIndentsByFourBlanks)
{
    CXmlControl top;
    ASSERT_TRUE(top.Parse(R"(<TextBox Name="a" Level="0"/>)"));
    EXPECT_EQ(top.XMLSTr().rfind("<TextBox ", 0), 0u);
    EXPECT_EQ(top.XMLSTr().find("Level"), std::string::npos);
    CXmlControl deep;
    ASSERT_TRUE(deep.Parse(R"(<TextBox Name="b" Level="2"/>)"));
    EXPECT_EQ(deep.XMLSTr().rfind("    <TextBox ", 0), 0u);
    EXPECT_NE(deep.XMLSTr().find("Level = \"2\" "), std::string::npos);
}

TEST_F(ControlWriteTest, IndexZeroIsNotWritten)
{
    CXmlControl control;
    ASSERT_TRUE(control.Parse(R"(<OptionButton Name="opt" Index="0"/>)"));
    EXPECT_EQ(control.XMLSTr().find("Index ="), std::string::npos);
    control.Index = 2;
    EXPECT_NE(control.XMLSTr().find("Index = \"2\" "), std::string::npos);
}

TEST_F(ControlWriteTest, ALeftBelowZeroHasNoHotSpot)
{
    CXmlControl control;
    ASSERT_TRUE(control.Parse(R"(<TextBox Name="txt" Location="-1, 5" Size="10, 10"/>)"));
    EXPECT_EQ(control.HotSpot(), "");
    EXPECT_EQ(control.XMLSTr().find("HotSpot"), std::string::npos);
}

TEST_F(ControlWriteTest, EscapedTextsAreEscapedAgainAsNumericReferences)
{
    CXmlControl control;
    control.Text = "&amp;";
    EXPECT_EQ(control.Text4Xml(), "&#38;");
    control.Text = "A & B";
    EXPECT_EQ(control.Text4Xml(), "A &#38; B");
    control.Description = "x/y";
    EXPECT_EQ(control.Description4Xml(), "x&#47;y");
}

// --- reading ---

TEST_F(ControlReadTest, ACaptionLosesOneClosingColonUnlessItIsAlone)
{
    CXmlControl control;
    control.Text = "Name:";
    EXPECT_EQ(control.Caption(), "Name");
    control.Text = ":";
    EXPECT_EQ(control.Caption(), ":");
    control.Text = "  City::  ";
    EXPECT_EQ(control.Caption(), "City:");
}

TEST_F(ControlReadTest, CaptionStandsInForAMissingText)
{
    CXmlControl control;
    ASSERT_TRUE(control.Parse(R"(<CommandButton Name="cmd" Caption="&amp;OK"/>)"));
    EXPECT_EQ(control.Text, "&OK");
    EXPECT_TRUE(control.HasCaption);
}

TEST_F(ControlReadTest, AbsentValuesTakeTheirDefaults)
{
    CXmlControl control;
    ASSERT_TRUE(control.Parse(R"(<TextBox Name="txt"/>)"));
    EXPECT_EQ(control.ClassName, "TextBox");
    EXPECT_EQ(control.TabIndex, -1);
    EXPECT_EQ(control.TabPageIndex, -1);
    EXPECT_EQ(control.TabLeft, -1);
    EXPECT_EQ(control.TabPageTab(), "");
    EXPECT_TRUE(control.Visible);
    EXPECT_FALSE(control.HasCaption);
    EXPECT_EQ(control.HtmlBookMarkName(), "txt");
}

TEST_F(ControlReadTest, ADocumentsClassNameWinsOverTheElementsName)
{
    CXmlControl control;
    ASSERT_TRUE(control.Parse(R"(<SSTab Name="tab" ClassName="TabControl"/>)"));
    EXPECT_EQ(control.ControlType(), "SSTab");
    EXPECT_TRUE(control.IsTabControl());
    EXPECT_FALSE(control.IsTabPage());
}

TEST_F(ControlReadTest, AControlWithoutANameIsNamedBySecondsAndTabIndex)
{
    CXmlControl control;
    ASSERT_TRUE(control.Parse(R"(<Line TabIndex="4"/>)"));
    EXPECT_TRUE(std::regex_match(control.Name, std::regex("[0-9]+_4"))) << control.Name;
}

TEST_F(ControlReadTest, IndexesDropAmpersandsAndAreCut)
{
    IdentifyBy(0);
    CXmlControl control;
    ASSERT_TRUE(control.Parse(R"(<CommandButton Name="cmd" Text="&amp;Save the customer and close the window"/>)"));
    EXPECT_EQ(control.Indexes, "Save the customer and close the ...");
    IdentifyBy(1);
    CXmlControl byName;
    ASSERT_TRUE(byName.Parse(R"(<CommandButton Name="cmd&amp;1" Text="&amp;Save"/>)"));
    EXPECT_EQ(byName.Indexes, "cmd1");
}

TEST_F(ControlReadTest, ALabelIgnoresTheIndexesOfTheDocument)
{
    CXmlControl label;
    ASSERT_TRUE(label.Parse(R"(<Label Name="lblName" Text="Name:" Indexes="Given"/>)"));
    EXPECT_EQ(label.Indexes, "Name");
    CXmlControl text;
    ASSERT_TRUE(text.Parse(R"(<TextBox Name="txtName" Indexes="Given"/>)"));
    EXPECT_EQ(text.Indexes, "Given");
}

TEST_F(ControlReadTest, BlanksOfABookmarkBecomeUnderscores)
{
    CXmlControl control;
    ASSERT_TRUE(control.Parse(R"(<TextBox Name="txt" BookmarkName="first name box"/>)"));
    EXPECT_EQ(control.HtmlBookMarkName(), "first_name_box");
    EXPECT_EQ(control.UniqueNameWithinXmlForm(), "first_name_box");
}

TEST_F(ControlReadTest, AMissingLevelIsTheDepthOfTheElement)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f"><Controls><Frame Name="fra"><Controls>
        <TextBox Name="txt"/></Controls></Frame></Controls></Form>)");
    EXPECT_EQ(form.GetControl("fra")->Level, 0);
    EXPECT_EQ(form.GetControl("txt")->Level, 1);
}

TEST_F(ControlReadTest, TextThatDoesNotParseSetsTheError)
{
    CXmlControl control;
    EXPECT_FALSE(control.Parse(std::string_view("<TextBox Name=\"a\"")));
    EXPECT_TRUE(control.XmlParseError().Failed());
}

TEST_F(ControlReadTest, PropertiesGiveNumbersAndFlagsAsText)
{
    CXmlControl control;
    ASSERT_TRUE(control.Parse(R"(<Page Name="p" Location="1, 2" Size="3, 4" Visible="False" TabPageTab="8,9,10,11"/>)"));
    EXPECT_EQ(control.Properties("Top"), "2");
    EXPECT_EQ(control.Properties("Visible"), "False");
    EXPECT_EQ(control.Properties("HotSpot"), "1,2,4,6");
    EXPECT_EQ(control.Properties("TabPageTab"), "8,9,10,11");
    EXPECT_EQ(control.Properties("Description"), "");
}

// --- the tree ---

TEST_F(ControlTreeTest, TwoEqualNamesInDifferentFramesGetDifferentBookmarks)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f"><Controls>
        <Frame Name="Frame1"><Controls><TextBox Name="Text1"/></Controls></Frame>
        <Frame Name="Frame2"><Controls><TextBox Name="Text1"/><TextBox Name="TEXT1"/></Controls></Frame>
        </Controls></Form>)");
    std::vector<CXmlControl*> all = form.AllControls();
    ASSERT_EQ(all.size(), 5u);
    EXPECT_EQ(all[1]->HtmlBookMarkName(), "Text1");
    EXPECT_EQ(all[3]->HtmlBookMarkName(), "Text11");
    EXPECT_EQ(all[4]->HtmlBookMarkName(), "TEXT12");
    EXPECT_NE(all[3]->XMLSTr().find("BookmarkName = \"Text11\" "), std::string::npos);
}

TEST_F(ControlTreeTest, AChildOfATakenNameIsKeptWithoutAKey)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f"><Controls><TextBox Name="Text1"/><TextBox Name="Text1"/></Controls></Form>)");
    ASSERT_EQ(form.Controls().Count(), 2u);
    EXPECT_EQ(form.Controls().At(0).key, "Text1");
    EXPECT_EQ(form.Controls().At(1).key, "");
}

TEST_F(ControlTreeTest, SortingByTabIndexKeepsTheOrderOfEqualIndexesAtEveryLevel)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f"><Controls>
        <TextBox Name="c3" TabIndex="3"/>
        <TextBox Name="c1a" TabIndex="1"/>
        <Frame Name="fra" TabIndex="2"><Controls>
            <TextBox Name="in2" TabIndex="2"/><TextBox Name="in0" TabIndex="0"/></Controls></Frame>
        <TextBox Name="c1b" TabIndex="1"/>
        <Label Name="none"/>
        </Controls></Form>)");
    form.SortControlsUsingTabIndex();
    EXPECT_EQ(Names(form.Controls()), (std::vector<std::string> { "none", "c1a", "c1b", "fra", "c3" }));
    EXPECT_EQ(Names(form.GetControl("fra")->Controls()), (std::vector<std::string> { "in0", "in2" }));
    EXPECT_NE(form.Controls().Find("c1b"), nullptr);
}

TEST_F(ControlTreeTest, AllControlsListsParentsBeforeChildren)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f"><Controls>
        <Frame Name="a"><Controls><Frame Name="a1"><Controls><TextBox Name="a11"/></Controls></Frame>
            <TextBox Name="a2"/></Controls></Frame>
        <TextBox Name="b"/></Controls></Form>)");
    EXPECT_EQ(Names(form.AllControls()), (std::vector<std::string> { "a", "a1", "a11", "a2", "b" }));
}

TEST_F(ControlTreeTest, GetControlSearchesDepthFirstByNormalizedName)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f"><Controls>
        <Frame Name="a"><Controls><TextBox Name="x" Text="inner"/></Controls></Frame>
        <TextBox Name="x" Text="outer"/><TextBox Name="Größe"/></Controls></Form>)");
    ASSERT_NE(form.GetControl("x"), nullptr);
    EXPECT_EQ(form.GetControl("x")->Text, "inner");
    EXPECT_EQ(form.GetControl("X"), nullptr);
    CXmlControl* umlaut = form.AllControls().back();
    EXPECT_EQ(form.GetControl(umlaut->NameNormalized()), umlaut);
    EXPECT_NE(umlaut->NameNormalized(), "Größe");
}

TEST_F(ControlTreeTest, ChildrenReachTheFormThroughTheirParents)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f"><Controls><Frame Name="a"><Controls><TextBox Name="x"/></Controls></Frame>
        </Controls></Form>)");
    CXmlControl* inner = form.GetControl("x");
    EXPECT_FALSE(inner->ParentObjectIsForm());
    EXPECT_EQ(inner->ParentControl(), form.GetControl("a"));
    EXPECT_TRUE(form.GetControl("a")->ParentObjectIsForm());
    EXPECT_EQ(inner->Form(), &form);
    form.Terminate();
    EXPECT_EQ(inner->Form(), nullptr);
    EXPECT_EQ(inner->ParentControl(), nullptr);
}

// --- hot spots ---

TEST_F(HotSpotTest, OffsetsOfTheFormAreAddedAtAnyDepth)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f" ClientAreaOffset="4, 30"><Controls><Frame Name="a"><Controls>
        <TextBox Name="x" Location="10, 20" Size="100, 21"/></Controls></Frame></Controls></Form>)");
    const CXmlControl& x = *form.GetControl("x");
    EXPECT_EQ(x.HotSpotLeft(), 14);
    EXPECT_EQ(x.HotSpotTop(), 50);
    EXPECT_EQ(x.HotSpotRight(), 114);
    EXPECT_EQ(x.HotSpotBottom(), 71);
    EXPECT_EQ(x.HotSpotLeft(true), 10);
    EXPECT_EQ(x.HotSpotBottom(true), 41);
    EXPECT_EQ(x.HotSpot(), "14,50,114,71");
}

TEST_F(HotSpotTest, ATabUsesItsOwnRectangleWithOffsets)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f" ClientAreaOffset="4, 30"><Controls><TabControl Name="tab"><Controls>
        <Page Name="0_tab" TabPageTab="12, 22, 60, 18" TabPageIndex="0"/></Controls></TabControl></Controls></Form>)");
    const CXmlControl& page = *form.GetControl("0_tab");
    EXPECT_TRUE(page.IsTabPage());
    EXPECT_EQ(page.TabHotSpotLeft(), 16);
    EXPECT_EQ(page.TabHotSpotTop(), 52);
    EXPECT_EQ(page.TabHotSpotRight(), 76);
    EXPECT_EQ(page.TabHotSpotBottom(), 70);
    EXPECT_EQ(page.TabPageTab(), "12,22,60,18");
}

TEST_F(HotSpotTest, TheCorrectionTableAnswersBySourceType)
{
    EXPECT_EQ(HotSpotCorrection("MS ACCESS"), std::make_pair(-26, -11));
    for (const char* type : { "VB6", "VS.NET", "VB.NET", "C#", "J#", "C++" })
        EXPECT_EQ(HotSpotCorrection(type), std::make_pair(-11, -11)) << type;
    EXPECT_EQ(HotSpotCorrection("MS EXCEL"), std::make_pair(0, 0));
    EXPECT_EQ(HotSpotCorrection(""), std::make_pair(0, 0));
}

TEST_F(HotSpotTest, TheCorrectionIsOffByDefault)
{
    EXPECT_FALSE(ApplyVistaHotSpotCorrection());
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f" SourceProjectType="MS ACCESS"><Controls>
        <TextBox Name="x" Location="100, 100" Size="10, 10"/></Controls></Form>)");
    EXPECT_EQ(form.GetControl("x")->HotSpot(), "100,100,110,110");
}

TEST_F(HotSpotTest, SwitchedOnTheCorrectionFollowsTheSourceTypeButSparesTabs)
{
    SetApplyVistaHotSpotCorrection(true);
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f" SourceProjectType="MS ACCESS"><Controls>
        <TextBox Name="x" Location="100, 100" Size="10, 10" TabPageTab="5,5,10,10"/></Controls></Form>)");
    const CXmlControl& x = *form.GetControl("x");
    EXPECT_EQ(x.HotSpot(), "74,89,84,99");
    EXPECT_EQ(x.TabHotSpotLeft(), 5);
}

TEST_F(HotSpotTest, AConnectedServerTellsTheSourceType)
{
    Connect(R"(<Host><Project Name="Orders" FullPath="/apps/Orders.vbp" Type="VB6" Active="true"/></Host>)");
    SetApplyVistaHotSpotCorrection(true);
    CXmlForm form;
    LoadForm(form, R"(<Form Name="f" SourceProjectType="MS ACCESS"><Controls>
        <TextBox Name="x" Location="100, 100" Size="10, 10"/></Controls></Form>)");
    EXPECT_EQ(form.GetControl("x")->HotSpotLeft(), 89);
}

TEST_F(HotSpotTest, SectionOffsetsComeFromTheFormsSectionOfThatName)
{
    CXmlForm form;
    LoadForm(form, R"(<Report Name="r"><Sections>
        <Section Name="Detail" Height="200" ClientAreaOffset="5, 60" DesignTimeHeaderHeight="20"/></Sections>
        <Controls><TextBox Name="x" SectionName="Detail"/><TextBox Name="y" SectionName="Footer"/></Controls></Report>)");
    EXPECT_EQ(form.GetControl("x")->ControlSectionOffsetX(), 5);
    EXPECT_EQ(form.GetControl("x")->ControlSectionOffsetY(), 60);
    EXPECT_EQ(form.ControlSectionHeaderHeight("detail"), 20);
    EXPECT_EQ(form.GetControl("y")->ControlSectionOffsetY(), 0);
}

}  // namespace
}  // namespace scriv
