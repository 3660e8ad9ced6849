#include <gtest/gtest.h>

#include <string>

#include "DescriptionFixture.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

// A form with every kind of part: sections, menus, nested frames, a tab control
// with pages, a toolbar, texts that need escaping and documented definitions.
constexpr const char* kRichForm = R"xml(<?xml version="1.0" encoding="utf-8" ?>
<Form Name="frmOrders" Text="Orders &amp; Invoices" WindowSize="640, 480" ClientAreaOffset="4, 49" BorderStyle="2"
      HasMap="True" Charset="utf-8" Description="All orders / open" Language="EN" Stylesheet="Office10.css"
      NamePrefix="F" PicFileName="frmOrders.jpg" HtmlFileName="frmOrders.htm" HelpContextId="-1"
      NewHelpContextIdsCount="2" SourceProjectType="VB6" SourceProjectName="Orders" OriginalClassName="VBForm"
      GUIObjectSubType="Dialog" HWND="4711">
  <Sections>
    <Section Name="Header" Height="40" ClientAreaOffset="4, 49" DesignTimeHeaderHeight="10"/>
    <Section Name="Detail" Height="300" FormRecordSelectorWidth="14" ClientAreaOffset="4, 89" DesignTimeHeaderHeight="0"/>
  </Sections>
  <Menu>
    <MenuEntry Name="mnuFile" Caption="&amp;File"/>
    <MenuEntry Name="mnuHelp" Caption="&amp;Help" Indexes="Help; about"/>
  </Menu>
  <Controls>
    <Label Name="lblCustomer" Text="Customer:" Location="8, 8" Size="80, 17" TabIndex="0"/>
    <TextBox Name="txtCustomer" Text="&lt;name&gt;" Description="Who ordered, &quot;as written&quot;" Location="96, 6"
             Size="200, 21" TabIndex="1" HelpContextId="1010" SectionName="Detail" PicFileName="frmOrders_txtCustomer.jpg"/>
    <Frame Name="fraOuter" Text="Delivery" Location="8, 40" Size="300, 160" TabIndex="2">
      <Controls>
        <Frame Name="fraInner" Text="Address" Location="16, 60" Size="260, 120" TabIndex="3" Level="1">
          <Controls>
            <TextBox Name="Text1" Location="24, 80" Size="100, 21" TabIndex="4" Level="2"/>
            <OptionButton Name="optFast(1)" Text="Fast" Location="24, 110" Size="100, 21" TabIndex="5" Index="1" Level="2"/>
          </Controls>
        </Frame>
      </Controls>
    </Frame>
    <Frame Name="fraOther" Text="Billing" Location="320, 40" Size="300, 160" TabIndex="6">
      <Controls><TextBox Name="Text1" Location="330, 60" Size="100, 21" TabIndex="7" Level="1" Visible="False"/></Controls>
    </Frame>
    <TabControl Name="tabMain" OriginalClassName="SSTab" Location="8, 210" Size="600, 200" TabIndex="8">
      <Controls>
        <Page Name="0_tabMain" Text="General" Location="8, 210" Size="600, 200" TabPageTab="10,212,80,18" TabPageIndex="0" Level="1">
          <Controls><CheckBox Name="chkRush" Text="Rush" Location="20, 240" Size="80, 17" TabIndex="9" Level="2"/></Controls>
        </Page>
        <Page Name="1_tabMain" Text="Notes" Location="8, 210" Size="600, 200" TabPageTab="90,212,80,18" TabPageIndex="1" Level="1"/>
      </Controls>
    </TabControl>
    <Toolbar Name="tbrMain" Location="0, -30" Size="640, 28" TabIndex="10">
      <Controls><ToolbarButton Name="1_tbrMain" Text="New" Location="2, -28" Size="24, 24" Level="1"/></Controls>
    </Toolbar>
  </Controls>
  <Documented>
    <Menus><Item Name="mnuFile" Bmk="mnuFile" Caption="File" IsMenu="True"/></Menus>
    <Controls>
      <Item Name="txtCustomer" Bmk="txtCustomer" Caption="Customer &amp; more"/>
      <Item Name="Text1" Bmk="Text11" Caption="Billing text"/>
    </Controls>
  </Documented>
</Form>)xml";

class RoundTripTest : public test::DescriptionFixture {
};

TEST_F(RoundTripTest, WriteParseWriteIsByteIdentical)
{
    CXmlForm form;
    LoadForm(form, kRichForm);
    std::string first = form.XMLSTr();
    CXmlForm again;
    LoadForm(again, first);
    EXPECT_EQ(again.XMLSTr(), first);
}

TEST_F(RoundTripTest, AFileWrittenAndLoadedGivesTheSameDocument)
{
    CXmlForm form;
    LoadForm(form, kRichForm);
    std::string path = form.SaveXml(m_data.Path());
    ASSERT_FALSE(path.empty());
    CXmlForm loaded;
    ASSERT_TRUE(loaded.Load(path)) << loaded.XmlParseError().Describe();
    EXPECT_EQ(loaded.XMLSTr(), form.XMLSTr());
}

TEST_F(RoundTripTest, EveryPartSurvivesTheTrip)
{
    CXmlForm form;
    LoadForm(form, kRichForm);
    CXmlForm again;
    LoadForm(again, form.XMLSTr());
    EXPECT_EQ(again.Text, "Orders & Invoices");
    EXPECT_EQ(again.Sections().Count(), 2u);
    EXPECT_EQ(again.ControlSectionOffsetY("Detail"), 89);
    EXPECT_EQ(again.Menus().Count(), 2u);
    EXPECT_EQ(again.AllControls().size(), 14u);
    EXPECT_EQ(again.GetControl("txtCustomer")->Text, "<name>");
    EXPECT_EQ(again.GetControl("txtCustomer")->Description, "Who ordered, \"as written\"");
    EXPECT_FALSE(again.AllControls()[7]->Visible);
    EXPECT_EQ(again.AllControls()[7]->HtmlBookMarkName(), "Text11");
    EXPECT_EQ(again.GetControl("1_tabMain")->TabPageTab(), "90,212,80,18");
    EXPECT_EQ(again.GetControl("optFast(1)")->Index, 1);
    EXPECT_EQ(again.GetControl("tbrMain")->HotSpot(), "4,19,644,47");
    EXPECT_EQ(again.DocumentedMenus().Count(), 1u);
    EXPECT_EQ(again.DocumentedControls().Find("frmOrders_Text11")->TopicCaption, "Billing text");
    EXPECT_EQ(again.hWnd, 4711);
    EXPECT_EQ(again.HelpContextId, -1);
}

TEST_F(RoundTripTest, TheMyXamlWrapperReadsBackToTheSameDocument)
{
    CXmlForm form;
    LoadForm(form, kRichForm);
    CXmlForm again;
    LoadForm(again, form.MyXaml());
    EXPECT_EQ(again.XMLSTr(), form.XMLSTr());
}

}  // namespace
}  // namespace scriv
