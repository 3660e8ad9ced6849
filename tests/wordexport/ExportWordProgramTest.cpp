// The program's export-word on the bundled example, opened by LibreOffice.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "wordexport/WordPdf.h"
#include "wordexport/WordTestSupport.h"

namespace scriv::test {
namespace {

int RunProgram(const std::vector<std::string>& arguments, std::string& output)
{
    std::vector<std::string> argv { std::string(SCRIVANT_BINARY_DIR) + "/bin/scrivant" };
    argv.insert(argv.end(), arguments.begin(), arguments.end());
    return ShellAndWait(argv, &output);
}

TEST(ExportWordCommand, ExplainsItselfAndNamesAMissingProject)
{
    std::string output;
    EXPECT_EQ(RunProgram({ "export-word", "--help" }, output), 0);
    for (const char* option : { "PROJECT", "--out", "--link-pictures", "--pdf" })
        EXPECT_NE(output.find(option), std::string::npos) << option;
    EXPECT_EQ(RunProgram({ "export-word" }, output), 2);
    TempFolder data;
    EXPECT_EQ(RunProgram({ "--data", data.Path(), "export-word", data / "none.svp" }, output), 1);
    EXPECT_NE(output.find(data / "none.svp"), std::string::npos) << output;
    EXPECT_NE(output.find("does not exist"), std::string::npos) << output;
}

// The topics of a project file in contents order: the title of every node
// that has a page, without skipped nodes and what is below them.
void CollectTopics(const pugi::xml_node& node, std::vector<std::string>& titles)
{
    std::string skipped = node.attribute("skipped").value();
    if (skipped == "true" || skipped == "-1")
        return;
    if (node.attribute("GeneratedHtmlFile"))
        titles.emplace_back(node.attribute("title").value());
    for (pugi::xml_node child : node.children())
        if (child.type() == pugi::node_element)
            CollectTopics(child, titles);
}

struct TocEntry {
    std::size_t indent { 0 };
    std::string title;
    int page { 0 };
};

// The OrderDesk help, its Word document and the PDF that LibreOffice makes
// of it: made once for every test here.
class ExportedExample : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        if (FindLibreOffice().empty() || FindProgramOnPath("pdftotext").empty() || FindProgramOnPath("pdfimages").empty())
            return;
        s_work = std::make_unique<TempFolder>();
        CopyExample("OrderDesk", *s_work);
        std::string help = *s_work / "help/";
        std::string output;
        int code = RunProgram({ "--data", *s_work / "data", "generate", *s_work / "OrderDesk/OrderDesk.vbp",
                                  "--no-compile", "--out", help },
            output);
        ASSERT_EQ(code, 0) << output;
        // The About box is left out of the document.
        std::string svp = ReadFileText(help + "OrderDesk.svp").value_or("");
        std::size_t about = svp.find("name = \"frmAbout\"");
        ASSERT_NE(about, std::string::npos);
        svp.insert(about, "skipped = \"true\" ");
        ASSERT_TRUE(WriteFileBytes(help + "OrderDesk.svp", svp));

        code = RunProgram({ "--data", *s_work / "data", "export-word", help + "OrderDesk.svp", "--out",
                              help + "OrderDesk.docx", "--pdf" },
            output);
        ASSERT_EQ(code, 0) << output;
        ASSERT_EQ(ShellAndWait({ "pdftotext", "-layout", help + "OrderDesk.pdf", help + "OrderDesk.txt" }), 0);
        ASSERT_EQ(ShellAndWait({ "pdfimages", "-list", help + "OrderDesk.pdf" }, &s_images), 0);
        s_text = ReadFileText(help + "OrderDesk.txt").value_or("");
        s_pages = Split(s_text, "\f");
        s_svp = svp;
    }

    static void TearDownTestSuite() { s_work.reset(); }

    void SetUp() override
    {
        if (!s_work)
            GTEST_SKIP() << "LibreOffice (soffice) or poppler-utils are not installed";
        ASSERT_FALSE(s_text.empty());
    }

    static std::string Help() { return *s_work / "help/"; }

    static std::vector<TocEntry> Contents()
    {
        std::vector<TocEntry> entries;
        static const std::regex line(R"(^( *)(\S.*?)\s*\.{3,}\s*(\d+)\s*$)");
        std::istringstream in(s_pages.front());
        std::string text;
        bool started = false;
        while (std::getline(in, text)) {
            if (TrimWhitespace(text) == "Contents") {
                started = true;
                continue;
            }
            std::smatch match;
            if (started && std::regex_match(text, match, line))
                entries.push_back({ match[1].length(), match[2].str(), std::stoi(match[3].str()) });
        }
        return entries;
    }

    static std::vector<std::string> Lines(const std::string& page)
    {
        std::vector<std::string> lines;
        for (const std::string& line : SplitLines(page))
            lines.push_back(TrimWhitespace(line));
        return lines;
    }

    static std::unique_ptr<TempFolder> s_work;
    static std::string s_text;
    static std::vector<std::string> s_pages;
    static std::string s_images;
    static std::string s_svp;
};

std::unique_ptr<TempFolder> ExportedExample::s_work;
std::string ExportedExample::s_text;
std::vector<std::string> ExportedExample::s_pages;
std::string ExportedExample::s_images;
std::string ExportedExample::s_svp;

TEST_F(ExportedExample, OpensWithTheTitleAndAPagedTableOfContentsOfEveryTopic)
{
    std::vector<std::string> lines = Lines(s_pages.front());
    auto first = std::find_if(lines.begin(), lines.end(), [](const std::string& l) { return !l.empty(); });
    ASSERT_NE(first, lines.end());
    EXPECT_EQ(*first, "OrderDesk");

    pugi::xml_document project;
    ASSERT_TRUE(project.load_string(s_svp.c_str()));
    std::vector<std::string> expected;
    CollectTopics(project.document_element().child("Project"), expected);
    ASSERT_EQ(expected.size(), 10u);
    std::vector<TocEntry> entries = Contents();
    std::vector<std::string> titles;
    for (const TocEntry& entry : entries)
        titles.push_back(entry.title);
    // Every topic in contents order; no About box, no controls or their lists.
    EXPECT_EQ(titles, expected);

    // Topics stand at the depth of their nodes.
    ASSERT_EQ(entries.size(), 10u);
    EXPECT_GT(entries[1].indent, entries[0].indent);
    EXPECT_GT(entries[2].indent, entries[1].indent);
    EXPECT_EQ(entries[9].indent, entries[1].indent);
    // Page numbers go forward, and each heading stands on its page.
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i > 0)
            EXPECT_GE(entries[i].page, entries[i - 1].page);
        ASSERT_GE(entries[i].page, 2);
        ASSERT_LE(static_cast<std::size_t>(entries[i].page), s_pages.size());
        std::vector<std::string> page = Lines(s_pages[entries[i].page - 1]);
        EXPECT_NE(std::find(page.begin(), page.end(), entries[i].title), page.end())
            << entries[i].title << " on page " << entries[i].page;
    }
}

TEST_F(ExportedExample, TheSkippedTopicIsAbsentAndTheControlListsAreBoldText)
{
    std::size_t intros = 0;
    for (std::size_t at = s_text.find("Describe here what this window is for"); at != std::string::npos;
         at = s_text.find("Describe here what this window is for", at + 1))
        ++intros;
    EXPECT_EQ(intros, 7u);
    // Only the About box has this control.
    EXPECT_EQ(s_text.find("System Info..."), std::string::npos);
    OoxmlPackage document = OoxmlPackage::Open(Help() + "OrderDesk.docx");
    pugi::xml_document body;
    LoadPart(document, "word/document.xml", body);
    EXPECT_FALSE(body.select_node("//w:bookmarkStart[@w:name='OrderDesk_Form_frmAbout']"));
    EXPECT_TRUE(body.select_node("//w:bookmarkStart[@w:name='OrderDesk_Form_frmLogin']"));

    EXPECT_NE(s_text.find("Parts of this window"), std::string::npos);
    auto lists = body.select_nodes("//w:r[w:t='Parts of this window']");
    ASSERT_EQ(lists.size(), 7u);
    for (const auto& run : lists) {
        EXPECT_TRUE(run.node().select_node("w:rPr/w:b"));
        EXPECT_FALSE(run.node().parent().select_node("w:pPr/w:pStyle"));
    }
    EXPECT_TRUE(body.select_node("//w:r[w:t='Controls:']/w:rPr/w:b"));
}

TEST_F(ExportedExample, EveryPictureOfTheExportedPagesIsInTheDocument)
{
    // Pictures of the pages that were exported: every form but the About box.
    std::size_t pictures = 0;
    for (const std::string& name : ListFiles(Help(), "OrderDesk_Form_*.htm")) {
        if (name == "OrderDesk_Form_frmAbout.htm")
            continue;
        std::string page = ReadFileText(Help() + name).value_or("");
        for (std::size_t at = FindNoCase(page, "<img"); at != std::string::npos; at = FindNoCase(page, "<img", at + 1))
            ++pictures;
    }
    std::vector<int> imagePages;
    for (const std::string& line : SplitLines(s_images)) {
        std::istringstream in(line);
        int page = 0;
        std::string number, type;
        if (in >> page >> number >> type && type == "image")
            imagePages.push_back(page);
    }
    EXPECT_EQ(imagePages.size(), pictures);
    // Each form's picture follows its heading.
    for (const TocEntry& entry : Contents()) {
        if (entry.indent != Contents()[2].indent)
            continue;
        bool near = std::any_of(imagePages.begin(), imagePages.end(),
            [&](int page) { return page == entry.page || page == entry.page + 1; });
        EXPECT_TRUE(near) << entry.title;
    }
}

}  // namespace
}  // namespace scriv::test
