#include <gtest/gtest.h>

#include "foundation/Paths.h"
#include "generation/BrowserHelp.h"
#include "generation/CFormHtmlTemplates.h"
#include "generation/SiteSearch.h"
#include "generation/Templates.h"
#include "generation/clsHTMLFile.h"
#include "support/CoreFixture.h"
#include "uidesc/CXmlControl.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

const LanguageTag kRussian { "ru", false };
const LanguageTag kArabic { "ar", true };

TEST(PageLanguage, LangGoesOnTheHtmlTagAndDirWithARightToLeftLanguage)
{
    EXPECT_EQ(WithHtmlLanguage("<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01//EN\">\r\n<HTML>\r\n<HEAD>", kRussian),
        "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01//EN\">\r\n<HTML lang=\"ru\">\r\n<HEAD>");
    EXPECT_EQ(WithHtmlLanguage("<html class=\"x\"><body></body></html>", kArabic),
        "<html lang=\"ar\" dir=\"rtl\" class=\"x\"><body></body></html>");
    EXPECT_EQ(WithHtmlLanguage("<html\r\n><p>", kRussian), "<html lang=\"ru\"\r\n><p>");
}

TEST(PageLanguage, WhatThePageStatesAlreadyStays)
{
    // A page in a language of its own is not turned around either.
    for (std::string page : { "<html lang=\"en\"><p>a</p></html>", "<HTML LANG=en>", "<html data-x=\"1\" lang>" })
        EXPECT_EQ(WithHtmlLanguage(page, kArabic), page);
    EXPECT_EQ(WithHtmlLanguage("<html dir=\"ltr\">", kArabic), "<html lang=\"ar\" dir=\"ltr\">");
    // Neither xml:lang nor a value that reads "lang" is the attribute.
    EXPECT_EQ(WithHtmlLanguage("<html xml:lang=\"de\" class=lang title=\"lang\">", kRussian),
        "<html lang=\"ru\" xml:lang=\"de\" class=lang title=\"lang\">");
}

TEST(PageLanguage, OnlyARealHtmlStartTagIsChanged)
{
    EXPECT_EQ(WithHtmlLanguage("<!-- <html> --><html><p>x</p>", kRussian), "<!-- <html> --><html lang=\"ru\"><p>x</p>");
    EXPECT_EQ(WithHtmlLanguage("<htmlish><p>fragment</p>", kRussian), "<htmlish><p>fragment</p>");
    EXPECT_EQ(WithHtmlLanguage("<p>no html tag</p>", kRussian), "<p>no html tag</p>");
    EXPECT_EQ(WithHtmlLanguage("<html title=\"a>b\">", kRussian), "<html lang=\"ru\" title=\"a>b\">");
    EXPECT_EQ(WithHtmlLanguage("<html title=\"never closed", kRussian), "<html title=\"never closed");
    EXPECT_EQ(WithHtmlLanguage("<html>", LanguageTag {}), "<html>");
}

TEST(PageLanguage, AnEmptyOrMissingTitleGetsTheFallback)
{
    EXPECT_EQ(WithPageTitle("<head><title></title></head>", "Orders"), "<head><title>Orders</title></head>");
    EXPECT_EQ(WithPageTitle("<head><TITLE> \r\n</TITLE></head>", "Orders"), "<head><TITLE>Orders</TITLE></head>");
    EXPECT_EQ(WithPageTitle("<head><title>Kept</title></head>", "Orders"), "<head><title>Kept</title></head>");
    EXPECT_EQ(WithPageTitle("<HTML><HEAD class=\"h\">\r\n<meta x></HEAD>", "Orders"),
        "<HTML><HEAD class=\"h\"><title>Orders</title>\r\n<meta x></HEAD>");
    // A <header> is no <head>; without a head there is no place for a title.
    EXPECT_EQ(WithPageTitle("<body><header>x</header></body>", "Orders"), "<body><header>x</header></body>");
    EXPECT_EQ(WithPageTitle("<head><title></title></head>", " "), "<head><title></title></head>");
}

TEST(EmptyLinks, ALinkThatShowsNothingAndLeadsNowhereGoes)
{
    EXPECT_EQ(WithoutEmptyLinks("<td><a href=\"\"></a></td><td><A HREF='mailto:'> </A></td><td><a href=http://></a></td>"),
        "<td></td><td></td><td></td>");
    // A link with an address, with text, or without href (a bookmark) stays.
    for (std::string page : { "<a href=\"x.htm\"></a>", "<a href=\"\">Home</a>", "<a name=\"frmA_txt\"></a>",
             "<a href=\"mailto:me@example.com\"></a>", "<a href=\"\"><img src=\"a.jpg\" alt=\"A\"></a>",
             "<abbr title=\"\"></abbr>", "<a href=\"\">never closed" })
        EXPECT_EQ(WithoutEmptyLinks(page), page);
    EXPECT_EQ(WithoutEmptyLinks("<p><a href=\"\"></a><a href=\"\"></a>x<a href=\"b.htm\">b</a></p>"),
        "<p>x<a href=\"b.htm\">b</a></p>");
}

class PageLanguageTest : public test::CoreFixture {
protected:
    test::TempFolder m_pages;
};

TEST_F(PageLanguageTest, TheProjectsLanguageIsItsCodeElseItsTemplateLanguageElseEnglish)
{
    Parameters().Language = "EN";
    Parameters().LanguageCode = "1025";
    EXPECT_EQ(ProjectPageLanguage().tag, "ar-SA");
    EXPECT_TRUE(ProjectPageLanguage().rightToLeft);
    Parameters().LanguageCode = "99999";
    Parameters().Language = "RU";
    EXPECT_EQ(ProjectPageLanguage().tag, "ru");
    EXPECT_FALSE(ProjectPageLanguage().rightToLeft);
    Parameters().Language.clear();
    Parameters().LanguageCode.clear();
    EXPECT_EQ(ProjectPageLanguage().tag, "en");
}

TEST_F(PageLanguageTest, PagesCopiedFromTemplatesAndSavedAgainCarryTheLanguageOnce)
{
    Parameters().Language = "he";
    Parameters().SetHelpProjectTitle("Orders");
    std::string source = m_pages.Write("t.htm", "<html><head><title></title></head><body><h1>x</h1></body></html>");
    std::string text = ReplaceTagsAndCopy(source, m_pages / "p.htm", {});
    EXPECT_EQ(text, "<html lang=\"he\" dir=\"rtl\"><head><title>Orders</title></head><body><h1>x</h1></body></html>");
    EXPECT_EQ(m_pages.Read("p.htm"), text);

    clsHTMLFile page;
    ASSERT_EQ(page.Load(m_pages / "p.htm"), 0u);
    page.Title.clear();
    page.Caption = "Customer";
    ASSERT_EQ(page.Save(), 0u);
    EXPECT_EQ(m_pages.Read("p.htm"),
        "<html lang=\"he\" dir=\"rtl\"><head><title>Customer</title></head><body><h1>Customer</h1></body></html>");
}

TEST_F(PageLanguageTest, TheShippedCopyrightPageLeavesOutTheAddressesThatAreNotGiven)
{
    Parameters().Website = "https://example.com/orders";
    std::string page = ReplaceTagsAndCopy(test::SourceDataFolder() + "Templates/Localized/EN/Copyright.htm", {}, {});
    EXPECT_NE(page.find("<a href=\"https://example.com/orders\">https://example.com/orders</a>"), std::string::npos)
        << page;
    EXPECT_EQ(page.find("<a href=\"mailto:\""), std::string::npos) << page;
    EXPECT_EQ(page.find("<a href=\"\""), std::string::npos) << page;
}

TEST_F(PageLanguageTest, APageWithNeitherTitleNorCaptionIsTitledByItsFileName)
{
    clsHTMLFile page;
    page.HTML = "<html><head></head><body></body></html>";
    ASSERT_EQ(page.Save(m_pages / "Order_Lines.htm"), 0u);
    EXPECT_EQ(m_pages.Read("Order_Lines.htm"),
        "<html lang=\"en\"><head><title>Order_Lines</title></head><body></body></html>");
}

TEST_F(PageLanguageTest, TheSearchPageAndTheFramesAreInTheProjectsLanguage)
{
    Parameters().Language = "Farsi";
    m_pages.Write("Welcome.htm", "<html><head><title>Welcome</title></head><body><h1>Welcome</h1></body></html>");
    BrowserHelpInput input;
    input.folder = m_pages.Path();
    input.projectFileName = "Orders";
    input.rootPage = "Welcome.htm";
    ASSERT_EQ(MakeJavaHelp2(input), 0u);
    for (const char* name : { "main.htm", "hh_toc_java.htm", "hh_index_java.htm", "ss.html" }) {
        std::string page = m_pages.Read(name);
        EXPECT_NE(page.find("<html lang=\"fa\" dir=\"rtl\">"), std::string::npos) << name << "\n" << page;
        EXPECT_EQ(page.find("lang=\"en\""), std::string::npos) << name;
    }
}

class FormPictureTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        Parameters().Language = "ZH-CN";
        ASSERT_TRUE(m_form.LoadXml(R"(<Form Name="frmA" Text="Orders &amp; Lines" HasMap="True"><Controls>
            <TextBox Name="txtNote" Text="" ClassName="TextBox" Location="8, 8" Size="100, 19" TabIndex="0" />
            <Frame Name="fraMode" Text="Mode" ClassName="Frame" Location="8, 40" Size="200, 80" TabIndex="1">
            <Controls>
              <OptionButton Name="optA" Text="Quick" ClassName="OptionButton" Location="16, 56" Size="80, 17" Level="1" />
            </Controls>
            </Frame>
            </Controls></Form>)"))
            << m_form.XmlParseError().Reason();
        m_form.SetPicFullPath(m_pages.Write("frmA.jpg", "picture"));
        m_form.GetControl("fraMode")->PicFullPath = m_pages / "frmA_fraMode.jpg";
    }

    test::TempFolder m_pages;
    CXmlForm m_form;
    CFormHtmlTemplates m_templates;
};

TEST_F(FormPictureTest, ScreenshotsAreNamedByTheCaptionOfWhatTheyShow)
{
    EXPECT_NE(m_templates.MainImage(m_form, true, {}).find("<IMG SRC=\"images/frmA.jpg\" BORDER=0 ALT=\"Orders &#38; Lines\" \r\n"
                                                           "USEMAP=\"#frmA\" />"),
        std::string::npos)
        << m_templates.MainImage(m_form, true, {});
    const CXmlControl& frame = *m_form.GetControl("fraMode");
    EXPECT_NE(m_templates.ControlImage(m_form, frame, true, {}).find("BORDER=0 ALT=\"Mode\" \r\nUSEMAP=\"#frmA_fraMode\""),
        std::string::npos)
        << m_templates.ControlImage(m_form, frame, true, {});
    // Without a caption the name stands in, for the picture and for a hot spot.
    m_form.Text.clear();
    EXPECT_NE(m_templates.MainImage(m_form, true, {}).find("ALT=\"frmA\""), std::string::npos);
    const CXmlControl& note = *m_form.GetControl("txtNote");
    EXPECT_NE(m_templates.ControlArea(m_form, note, nullptr, false).find("alt=\"txtNote\""), std::string::npos);
}

TEST_F(FormPictureTest, AControlWithoutACaptionIsTitledByItsName)
{
    const CXmlControl& note = *m_form.GetControl("txtNote");
    EXPECT_EQ(CFormHtmlTemplates::Title(note), "txtNote");
    EXPECT_NE(m_templates.ControlsList(m_form).find("<a href=\"#frmA_txtNote\">txtNote</a>"), std::string::npos);
    EXPECT_NE(m_templates.Controls(m_form, false, false).find("<H2><a name=\"frmA_txtNote\">txtNote</a></H2>"),
        std::string::npos);
    EXPECT_EQ(CFormHtmlTemplates::Title(*m_form.GetControl("fraMode")), "Mode");
    m_form.Text = "  ";
    EXPECT_EQ(CFormHtmlTemplates::Title(m_form), "frmA");
}

TEST_F(FormPictureTest, EveryPictureOfAFormTopicHasATextAlternativeAndThePageALanguage)
{
    PageSections sections { true, true, true, true, true, true };
    for (std::string_view templatePath : { std::string_view(), std::string_view("/nowhere/form.htm") }) {
        std::string page = m_templates.FileTemplate(m_form, sections, templatePath, "");
        EXPECT_NE(page.find("<HTML lang=\"zh-CN\">"), std::string::npos) << page;
        std::size_t pictures = 0;
        for (std::size_t at = page.find("<IMG "); at != std::string::npos; at = page.find("<IMG ", at + 1)) {
            ++pictures;
            std::size_t end = page.find('>', at);
            EXPECT_NE(page.substr(at, end - at).find(" ALT=\""), std::string::npos) << page.substr(at, end - at);
        }
        EXPECT_EQ(pictures, 2u) << page;
    }
    std::string templated = m_templates.FileTemplate(m_form, sections,
        m_pages.Write("form.htm", "<html><head><title>{{HtmlPageTitle}}</title></head><body>{{IMAGE}}</body></html>"), "");
    EXPECT_EQ(templated.find("<html lang=\"zh-CN\"><head><title>Orders &#38; Lines</title>"), 0u) << templated;
    EXPECT_NE(templated.find("ALT=\"Orders &#38; Lines\""), std::string::npos);
}

}  // namespace
}  // namespace scriv
