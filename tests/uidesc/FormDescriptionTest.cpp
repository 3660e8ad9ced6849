#include <gtest/gtest.h>

#include <string>

#include "DescriptionFixture.h"
#include "foundation/StringUtil.h"
#include "model/CAddInProject.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

using FormWriteTest = test::DescriptionFixture;
using FormReadTest = test::DescriptionFixture;

// --- writing the document ---

TEST_F(FormWriteTest, AFormWithoutPartsWritesStartTagEmptyDocumentedAndEndTag)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmEmpty" Text="Empty"/>)");
    EXPECT_EQ(form.XMLSTr(),
        "<Form Name = \"frmEmpty\" Text = \"Empty\" WindowSize = \"0, 0\" ClientAreaOffset = \"0, 0\" "
        "BorderStyle = \"0\" Indexes = \"Empty\" >\r\n"
        "<Documented>\r\n"
        "</Documented>\r\n"
        "</Form>\r\n");
}

TEST_F(FormWriteTest, AttributesKeepTheirOrderAndTheirTwoSpacingStyles)
{
    CXmlForm form;
    LoadForm(form,
        R"(<Form Name="frmMain" Text="Main" AutoScaleBaseSize="5, 13" WindowSize="408, 296" ClientAreaOffset="4, 30"
           BorderStyle="2" HasMap="True" Charset="utf-8" Description="Main &amp; only" Language="EN"
           Stylesheet="/styles/Office10.css" NamePrefix="F" PicFullPath="/help/images/frmMain.jpg"
           HtmlFullPath="/help/frmMain.htm" HelpContextId="-1" NewHelpContextIdsCount="3" SourceProjectType="VB6"
           SourceProjectName="Orders" OriginalClassName="VBForm" GUIObjectSubType="Dialog" HWND="77"
           Indexes="Main window"/>)");
    EXPECT_EQ(form.XMLSTr(),
        "<Form Name = \"frmMain\" Text = \"Main\" AutoScaleBaseSize = \"5, 13\" WindowSize = \"408, 296\" "
        "ClientAreaOffset = \"4, 30\" BorderStyle = \"2\" HasMap = \"True\" Charset=\"utf-8\" "
        "Description=\"Main &#38; only\" Language=\"EN\" Stylesheet=\"Office10.css\" NamePrefix=\"F\" "
        "PicFileName=\"frmMain.jpg\" HtmlFileName=\"frmMain.htm\" HelpContextId = \"-1\" "
        "NewHelpContextIdsCount = \"3\" SourceProjectType = \"VB6\" SourceProjectName = \"Orders\" "
        "OriginalClassName = \"VBForm\" GUIObjectSubType = \"Dialog\" HWND = \"77\" Indexes = \"Main window\" >\r\n"
        "<Documented>\r\n</Documented>\r\n</Form>\r\n");
}

TEST_F(FormWriteTest, HelpContextIdZeroIsLeftOutAndMinusOneIsWritten)
{
    CXmlForm form;
    form.SetType_("Form");
    form.Name = "frmA";
    EXPECT_EQ(form.XMLSTr().find("HelpContextId"), std::string::npos);
    form.HelpContextId = -1;
    EXPECT_NE(form.XMLSTr().find("HelpContextId = \"-1\" "), std::string::npos);
    form.HelpContextId = -2;
    EXPECT_EQ(form.XMLSTr().find("HelpContextId"), std::string::npos);
    form.HelpContextId = 1000;
    EXPECT_NE(form.XMLSTr().find("HelpContextId = \"1000\" "), std::string::npos);
}

TEST_F(FormWriteTest, AFortyCharacterCaptionGivesIndexesOfThirtyTwoAndDots)
{
    IdentifyBy(0);
    const std::string caption = "Customers and their delivery addresses";
    const std::string forty = caption + "!!";
    ASSERT_EQ(forty.size(), 40u);
    CXmlForm form;
    LoadForm(form, "<Form Name=\"frmCustomers\" Text=\"" + forty + "\"/>");
    EXPECT_EQ(form.Indexes, forty.substr(0, 32) + "...");
    EXPECT_NE(form.XMLSTr().find("Indexes = \"Customers and their delivery add...\" "), std::string::npos);
}

TEST_F(FormWriteTest, IndexesTakeTheNameWhenIdentifyControlsIsSet)
{
    IdentifyBy(1);
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmCustomers" Text="Customers"/>)");
    EXPECT_EQ(form.Indexes, "frmCustomers");
}

TEST_F(FormWriteTest, HasMapFalseWritesNothing)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA"/>)");
    EXPECT_FALSE(form.HasMap);
    EXPECT_EQ(form.XMLSTr().find("HasMap"), std::string::npos);
}

TEST_F(FormWriteTest, AnEscapedNameAndTextAreEscapedAgainAsNumericReferences)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA" Text="Orders &amp;amp; Invoices &lt;new&gt;"/>)");
    EXPECT_EQ(form.Text, "Orders &amp; Invoices <new>");
    EXPECT_EQ(form.Text4Xml(), "Orders &#38; Invoices &#60;new&#62;");
}

TEST_F(FormWriteTest, DoubledLineEndsAreReducedToOne)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA"/>)");
    form.Charset = "utf-8\r\n\r\nx";
    std::string text = form.XMLSTr();
    EXPECT_NE(text.find("Charset=\"utf-8\r\nx\" "), std::string::npos);
    EXPECT_EQ(text.find("\r\n\r\n"), std::string::npos);
}

TEST_F(FormWriteTest, ValuesWrittenWithoutTheEntityFilterStayWellFormed)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA" SourceProjectName="R&amp;D &quot;tools&quot;"/>)");
    std::string text = form.XMLSTr();
    EXPECT_NE(text.find("SourceProjectName = \"R&amp;D &quot;tools&quot;\" "), std::string::npos);
    CXmlForm again;
    LoadForm(again, text);
    EXPECT_EQ(again.SourceProjectName, "R&D \"tools\"");
}

TEST_F(FormWriteTest, MyXamlWrapsTheDocumentInTheFixedStartTag)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA"/>)");
    std::string text = form.MyXaml();
    EXPECT_EQ(text.rfind("<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"no\"?>\r\n"
                         "<MyXaml xml:lang=\"ru-RU\" xmlns:def=\"Definition\" xmlns=\"System.Windows.Forms, ",
                  0),
        0u);
    EXPECT_NE(text.find("xmlns:sd=\"System.Data, System.Data, Version=1.0.5000.0, Culture=neutral, "
                        "PublicKeyToken=b77a5c561934e089\">\r\n<Form "),
        std::string::npos);
    EXPECT_TRUE(EndsWithNoCase(text, "</Form>\r\n\r\n</MyXaml>"));
}

TEST_F(FormWriteTest, SaveXmlWritesBesideTheFolderUnderTheTopicName)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA" HtmlFullPath="/help/frmA_topic.htm"/>)");
    EXPECT_EQ(form.XmlFileName(), "frmA_topic.xml");
    std::string path = form.SaveXml(m_data.Path());
    EXPECT_EQ(path, m_data / "frmA_topic.xml");
    EXPECT_EQ(m_data.Read("frmA_topic.xml"), "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n" + form.XMLSTr());
}

TEST_F(FormWriteTest, SaveXmlIntoAMissingFolderAnswersEmpty)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA"/>)");
    EXPECT_EQ(form.SaveXml("", m_data / "no/such/folder/a.xml"), "");
}

// --- reading the document ---

TEST_F(FormReadTest, EachRootNameGivesItsObjectType)
{
    const std::pair<const char*, int> roots[] = { { "Form", 2 }, { "Report", 3 }, { "Table", 0 }, { "Query", 1 },
        { "Macro", 4 }, { "Worksheet", 81 }, { "Chart", 82 } };
    for (const auto& [root, type] : roots) {
        CXmlForm form;
        LoadForm(form, "<" + std::string(root) + " Name=\"x\"/>");
        EXPECT_EQ(form.Type_(), root);
        EXPECT_EQ(form.SourceObjectType(), type) << root;
    }
}

TEST_F(FormReadTest, AnyNonEmptyHasMapSetsIt)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA" HasMap="False"/>)");
    EXPECT_TRUE(form.HasMap);
}

TEST_F(FormReadTest, CaptionStandsInForAMissingText)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA" Caption="From caption"/>)");
    EXPECT_EQ(form.Text, "From caption");
    EXPECT_EQ(form.Caption(), "From caption");
}

TEST_F(FormReadTest, AnotherRootNameIsAnUndefinedTag)
{
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string("<Dialog Name='x'/>"));
    CXmlForm form;
    EXPECT_FALSE(form.Parse(document.document_element()));
    EXPECT_EQ(form.XmlParseError().Reason(), "Undefined source object tag");
    EXPECT_EQ(form.XmlParseError().Source(), "CXmlForm.Parse");
}

TEST_F(FormReadTest, AFileWithoutADescriptionNamesTheFile)
{
    std::string path = m_data.Write("other.xml", "<Settings><Dialog Name='x'/></Settings>");
    CXmlForm form;
    EXPECT_FALSE(form.Load(path));
    EXPECT_EQ(form.XmlParseError().Reason(), "Error parsing XML definition of 'other.xml'");
    EXPECT_EQ(form.XmlParseError().Source(), "CXmlForm.Load");
}

TEST_F(FormReadTest, AFormBelowOtherElementsIsFound)
{
    CXmlForm form;
    LoadForm(form, R"(<Wrapper><Inner><Report Name="rptDaily"/></Inner></Wrapper>)");
    EXPECT_EQ(form.Name, "rptDaily");
    EXPECT_EQ(form.SourceObjectType(), 3);
}

TEST_F(FormReadTest, TextThatIsNoXmlFailsWithTheParsersError)
{
    CXmlForm form;
    EXPECT_FALSE(form.LoadXml("<Form Name=\"a\"><Controls></Form>"));
    EXPECT_NE(form.XmlParseError().ErrorCode(), 0u);
}

TEST_F(FormReadTest, AMissingFileFails)
{
    CXmlForm form;
    EXPECT_FALSE(form.Load(m_data / "missing.xml"));
    EXPECT_TRUE(form.XmlParseError().Failed());
}

TEST_F(FormReadTest, ANumberAttributeThatHoldsNoNumberFailsTheParse)
{
    CXmlForm form;
    EXPECT_FALSE(form.LoadXml(R"(<Form Name="frmA" WindowSize="wide, 200"/>)"));
    EXPECT_EQ(form.XmlParseError().Source(), "CXmlForm.Parse");
    EXPECT_NE(form.XmlParseError().Reason().find("WindowSize"), std::string::npos);
}

TEST_F(FormReadTest, AParseErrorOfAChildIsCopiedUpAndStopsTheParse)
{
    CXmlForm form;
    EXPECT_FALSE(form.LoadXml(R"(<Form Name="frmA"><Controls>
        <Frame Name="fra"><Controls><TextBox Name="txt" Size="wide, 3"/></Controls></Frame>
        <CommandButton Name="cmdOK"/></Controls></Form>)"));
    EXPECT_EQ(form.XmlParseError().Source(), "CXmlControl.Parse");
    EXPECT_NE(form.XmlParseError().Reason().find("'wide'"), std::string::npos);
    EXPECT_EQ(form.GetControl("cmdOK"), nullptr);
}

TEST_F(FormReadTest, ASectionsParseErrorIsCopiedUp)
{
    CXmlForm form;
    EXPECT_FALSE(form.LoadXml(R"(<Report Name="r"><Sections><Section Name="Detail" Height="tall"/></Sections></Report>)"));
    EXPECT_EQ(form.XmlParseError().Source(), "CXmlSection.Parse");
}

TEST_F(FormReadTest, ReadingAgainDropsTheFormerContent)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA"><Controls><TextBox Name="txtA"/></Controls></Form>)");
    LoadForm(form, R"(<Form Name="frmB"><Controls><TextBox Name="txtB"/></Controls></Form>)");
    ASSERT_EQ(form.AllControls().size(), 1u);
    EXPECT_EQ(form.AllControls()[0]->Name, "txtB");
}

TEST_F(FormReadTest, BareFileNamesAreJoinedToTheCurrentProjectsFolders)
{
    Connect();
    CAddInProject& project = UseProject("Orders", m_data.Path());
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA" PicFileName="frmA.jpg" HtmlFileName="frmA.htm" Stylesheet="Office10.css"/>)");
    EXPECT_EQ(form.PicFullPath(), project.PicsSubfolderPath() + "frmA.jpg");
    EXPECT_EQ(form.HtmlFullPath(), m_data / "frmA.htm");
    EXPECT_EQ(form.StylesheetFullPath(), m_data / "Office10.css");
    EXPECT_EQ(form.UniqueName(), "frmA");
    EXPECT_EQ(form.PicLocalPath(), Parameters().NameOfFolderForGeneratedImagesWithSlash() + "frmA.jpg");
}

TEST_F(FormReadTest, WithoutAProjectBareFileNamesStayBare)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA" PicFileName="frmA.jpg" HtmlFileName="frmA.htm"/>)");
    EXPECT_EQ(form.PicFullPath(), "frmA.jpg");
    EXPECT_EQ(form.HtmlFullPath(), "frmA.htm");
}

TEST_F(FormReadTest, AMyXamlDocumentIsReadBack)
{
    CXmlForm form;
    LoadForm(form, R"(<Form Name="frmA" Text="Alpha"><Controls><TextBox Name="txtA"/></Controls></Form>)");
    std::string path = m_data.Write("wrapped.xml", form.MyXaml());
    CXmlForm again;
    ASSERT_TRUE(again.Load(path)) << again.XmlParseError().Describe();
    EXPECT_EQ(again.XMLSTr(), form.XMLSTr());
}

}  // namespace
}  // namespace scriv
