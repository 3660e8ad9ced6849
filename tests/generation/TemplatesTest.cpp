#include <gtest/gtest.h>

#include "foundation/AppFolders.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "generation/Templates.h"
#include "generation/clsHTMLFile.h"
#include "model/CScrivantParameters.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

// Templates in a home folder of the test's own.
class TemplatesTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        ConfigureFolders({ m_home.Path(), m_data.Path() });
    }

    test::TempFolder m_home;
};

TEST_F(TemplatesTest, ATemplateIsTakenFromTheFirstFamilyThatHasIt)
{
    m_home.Write("Templates/Parameterized/Both.htm", "p");
    m_home.Write("Templates/Localized/EN/Both.htm", "l");
    m_home.Write("Templates/Localized/EN/Welcome.htm", "w");
    m_home.Write("Templates/Common/Only.htm", "c");
    std::string root = m_home.Path() + "Templates/";
    EXPECT_EQ(TemplateFullPath("Both.htm"), root + "Parameterized/Both.htm");
    EXPECT_EQ(TemplateFullPath("/anywhere/else/Welcome.htm"), root + "Localized/EN/Welcome.htm");
    EXPECT_EQ(TemplateFullPath("Only.htm"), root + "Common/Only.htm");
    EXPECT_EQ(TemplateFullPath("None.htm"), root + "Common/None.htm");
}

TEST_F(TemplatesTest, ALanguageFolderWithoutWelcomeFallsBackToEnglish)
{
    m_home.Write("Templates/Localized/EN/Welcome.htm", "en");
    m_home.Write("Templates/Localized/DE/Copyright.htm", "de");
    m_home.Write("Templates/Localized/FR/Welcome.htm", "fr");
    Parameters().Language = "DE";
    EXPECT_EQ(LocalizedFolder(), m_home.Path() + "Templates/Localized/EN/");
    Parameters().Language = "FR";
    EXPECT_EQ(LocalizedFolder(), m_home.Path() + "Templates/Localized/FR/");
}

TEST_F(TemplatesTest, ARedirectFileMovesTheTemplates)
{
    test::TempFolder elsewhere;
    elsewhere.Write("Common/Moved.htm", "x");
    // No final separator in the redirect file.
    m_home.Write("Redirect/Templates.rdt", elsewhere.Path().substr(0, elsewhere.Path().size() - 1) + "\r\n");
    EXPECT_EQ(TemplateFullPath("Moved.htm"), elsewhere.Path() + "Common/Moved.htm");
}

TEST_F(TemplatesTest, ReplaceTagsAndCopyFillsTagsThenTheListWithoutCase)
{
    Parameters().ApplicationNameStr = "Orders";
    std::string source = m_home.Write("Templates/Common/t.htm",
        "<title>{{HtmlPageTitle}}</title><p>{{Application}} {{application}} {Application}</p>{{Body}}");
    std::string target = m_data / "out.htm";
    std::string text = ReplaceTagsAndCopy(source, target, { "{{htmlpagetitle}} | The Title ", "no bar here", "{{BODY}}|<b>x</b>" });
    EXPECT_EQ(text, "<title>The Title</title><p>Orders {{application}} Orders</p><b>x</b>");
    EXPECT_EQ(m_data.Read("out.htm"), text);
}

TEST_F(TemplatesTest, AMissingTemplateGivesNothingAndWritesNothing)
{
    EXPECT_EQ(ReplaceTagsAndCopy(m_home / "missing.htm", m_data / "out.htm", {}), "");
    EXPECT_FALSE(FileExists(m_data / "out.htm"));
}

TEST_F(TemplatesTest, AFailedWriteIsRaisedWithThePath)
{
    std::string source = m_home.Write("Templates/Common/t.htm", "x");
    std::string target = m_data / "no/such/folder/out.htm";
    try {
        ReplaceTagsAndCopy(source, target, {});
        FAIL();
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Description(), "Error saving file " + target);
        EXPECT_EQ(error.Source(), "modScrivUtils.ReplaceTagsAndCopy");
    }
}

TEST_F(TemplatesTest, CaptionsKeepOnlyTheAmpersandsHtmlHelpShows)
{
    EXPECT_EQ(EscapeHtmlEntities("Save&As", false), "SaveAs");
    EXPECT_EQ(EscapeHtmlEntities("Save&&As", false), "Save&&As");
    EXPECT_EQ(EscapeHtmlEntities("R&#38;D", false), "R&#38;D");
    EXPECT_EQ(EscapeHtmlEntities("Tom &", false), "Tom &");
    EXPECT_EQ(EscapeHtmlEntities("a&#38;b&#38;c", true), "a&#38;bc");
    EXPECT_EQ(EscapeHtmlEntities("end&#38;", true), "end&#38;");
}

TEST_F(TemplatesTest, CaptionsAreCutAt32Characters)
{
    EXPECT_EQ(TruncateForCaption(std::string(32, 'x')), std::string(32, 'x'));
    EXPECT_EQ(TruncateForCaption(std::string(33, 'x')), std::string(32, 'x') + "...");
    EXPECT_EQ(TruncateForCaption("Überschrift über alle Fenster der Anwendung"), "Überschrift über alle Fenster de...");
}

TEST_F(TemplatesTest, PathsAreMadeRelativeToAFolder)
{
    EXPECT_EQ(SetRelativePath("/help/images/a.jpg", "/help/"), "images/a.jpg");
    EXPECT_EQ(SetRelativePath("/help/style.css", "/help/sub"), "../style.css");
    EXPECT_EQ(StyleSheetHref("/help/Office10.css", "/help/"), "Office10.css");
    EXPECT_EQ(StyleSheetHref("Office10.css", "/help/"), "Office10.css");
    EXPECT_EQ(StyleSheetHref("", "/help/"), "");
}

TEST_F(TemplatesTest, TreeImagesHaveTheirIndexes)
{
    EXPECT_EQ(TreeNodeImageIndex("no"), 1);
    EXPECT_EQ(TreeNodeImageIndex("OPENEDBOOK"), 2);
    EXPECT_EQ(TreeNodeImageIndex("hlpclose"), 3);
    EXPECT_EQ(TreeNodeImageIndex("report"), 6);
    EXPECT_EQ(TreeNodeImageIndex("unknown"), 0);
}

// --- pages read back and written again ---

TEST_F(TemplatesTest, APageIsReadForItsTitleAndCaption)
{
    clsHTMLFile page;
    EXPECT_EQ(page.Load(""), status::kGeneralFailure);
    EXPECT_EQ(page.Load(m_data / "missing.htm"), status::kSecondFailure);
    std::string path = m_data.Write("p.htm", "<html><head><TITLE>T1</TITLE></head><body><h1>C1</h1><h1>C2</h1></body></html>");
    ASSERT_EQ(page.Load(path), 0u);
    EXPECT_EQ(page.Title, "T1");
    EXPECT_EQ(page.Caption, "C1");
}

TEST_F(TemplatesTest, SavingPutsTitleCaptionCharsetStyleSheetAndBody)
{
    std::string path = m_data.Write("p.htm",
        "<html><head><meta charset={{charset}}>{{StyleSheetLinkHtml}}<title>x</title></head>"
        "<body><h1>y</h1>{{BODY}}</body></html>");
    clsHTMLFile page;
    ASSERT_EQ(page.Load(path), 0u);
    page.Title = "Orders & more";
    page.Caption = "Orders";
    page.Charset = "utf-8";
    page.CSSFullPath = m_data / "Office10.css";
    page.Body = "<p>b</p>";
    page.ZoomFactor = "1.5";
    ASSERT_EQ(page.Save(), 0u);
    EXPECT_EQ(m_data.Read("p.htm"),
        "<html lang=\"en\"><head><meta charset=utf-8><style type=\"text/css\" media=\"screen\">body {zoom: 1.5}</style>\r\n"
        "<link href=\"Office10.css\" type=\"text/css\" rel=\"stylesheet\"><title>Orders & more</title></head>"
        "<body><h1>Orders</h1><p>b</p></body></html>");
    // The file that was replaced was moved aside and then deleted.
    EXPECT_EQ(ListFiles(m_data.Path(), "p*.htm"), (std::vector<std::string> { "p.htm" }));
}

TEST_F(TemplatesTest, AMapPlaceholderReplacesTheBodyAfterTheCaption)
{
    std::string path = m_data.Write("p.htm", "<body><h1>Form</h1>{{MAP}}<p>old</p></body>");
    clsHTMLFile page;
    ASSERT_EQ(page.Load(path), 0u);
    ASSERT_EQ(page.Save(), 0u);
    EXPECT_EQ(m_data.Read("p.htm"), "<body><h1>Form</h1></body>");
}

TEST_F(TemplatesTest, SavingToAFolderThatCannotHoldItKeepsTheOriginal)
{
    clsHTMLFile page;
    page.HTML = "<html></html>";
    EXPECT_NE(page.Save(m_data / "missing/folder/p.htm"), 0u);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Can't save file '" + (m_data / "missing/folder/p.htm") + "'.");
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, 48);
}

// --- parameters ---

TEST_F(TemplatesTest, TheHelpFolderIsReadWithItsSeparatorsTidied)
{
    CScrivantParameters& parameters = Parameters();
    parameters.SetFolderForGeneratedHelp("\\\\server\\share\\\\help");
    EXPECT_EQ(parameters.FolderForGeneratedHelp(), "\\\\server\\share\\help/");
    parameters.SetFolderForGeneratedHelp("/home//me/help");
    EXPECT_EQ(parameters.FolderForGeneratedHelp(), "/home/me/help/");
    parameters.SetFolderForGeneratedHelp("{Project Location}/CHM");
    EXPECT_EQ(parameters.FolderForGeneratedHelp(), "{{ProjectLocation}}CHM/");
    parameters.SetFolderForGeneratedHelp("ab");
    EXPECT_EQ(parameters.FolderForGeneratedHelp(), "ab");
    EXPECT_EQ(parameters.FolderForGeneratedHelpRaw(), "ab");
}

TEST_F(TemplatesTest, TheImagesFolderDefaultsToImages)
{
    CScrivantParameters& parameters = Parameters();
    EXPECT_EQ(parameters.NameOfFolderForGeneratedImages(), "images");
    parameters.SetNameOfFolderForGeneratedImages("pics");
    EXPECT_EQ(parameters.NameOfFolderForGeneratedImages(), "pics/");
    EXPECT_EQ(parameters.NameOfFolderForGeneratedImagesWithSlash(), "pics/");
    parameters.SetFolderForGeneratedHelp("/help/");
    EXPECT_EQ(parameters.FolderForGeneratedImages(), "/help/pics/");
    parameters.SetImagesFormat(1);
    EXPECT_EQ(parameters.ImagesFileExt(), ".bmp");
    parameters.SetImagesFormat(2);
    EXPECT_EQ(parameters.ImagesType(), "jpg");
}

TEST_F(TemplatesTest, ABareStyleSheetNameLivesInTheProjectFolder)
{
    Connect();
    UseProject("Orders", "/help/orders/");
    Parameters().SetCSSFullPath("my.css");
    EXPECT_EQ(Parameters().CSSFullPath(), "/help/orders/my.css");
    Parameters().SetCSSFullPath("/styles/my.css");
    EXPECT_EQ(Parameters().CSSFullPath(), "/styles/my.css");
    EXPECT_EQ(Parameters().CompiledHelpFullPath(), "/help/orders/Orders.chm");
}

TEST_F(TemplatesTest, TagsAreReplacedWithCaseAndEveryOldSingleBracedForm)
{
    CScrivantParameters& parameters = Parameters();
    parameters.ApplicationNameStr = "Orders";
    parameters.Organization = "Acme";
    parameters.SetAuthor("Ann");
    EXPECT_EQ(parameters.ReplaceTags("{{Application}}/{Application}/{{APPLICATION}}"), "Orders/Orders/{{APPLICATION}}");
    EXPECT_EQ(parameters.ReplaceTags("{Organization} {Author}"), "Acme Ann");
    EXPECT_EQ(parameters.ReplaceTags("{{Project Location}}|{{ProjectName}}", true, "/src/", "Sales"), "/src/|Sales");
    // No host: the location is the temporary folder.
    EXPECT_EQ(parameters.ReplaceTags("{Project Location}"), TempFolder());
    EXPECT_EQ(parameters.HelpProjectTitle(), "Orders");
    EXPECT_EQ(parameters.GeneratedHelpFileName(), "{{:GeneratedHelpFileName}}.chm");
}

TEST_F(TemplatesTest, ACloneIsIndependent)
{
    Parameters().Copyright = "one";
    Parameters().SetHotSpots(true);
    auto copy = Parameters().Clone();
    Parameters().Copyright = "two";
    EXPECT_EQ(copy->Copyright, "one");
    EXPECT_TRUE(copy->HotSpots());
}

}  // namespace
}  // namespace scriv
