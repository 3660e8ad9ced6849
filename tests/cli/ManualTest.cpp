// The program's own manual, as the build makes it with the program: its
// compiled help and browser help hold every topic of its contents document,
// its links resolve, and it documents what the program has (every command and
// option, every setting, every page of the wizard).
#include <gtest/gtest.h>

#include <pugixml.hpp>

#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "foundation/TextEncoding.h"
#include "model/CAddInSettingsXmlFile.h"
#include "studio/ChmArchive.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

namespace fs = std::filesystem;
using json = nlohmann::json;

struct ManualTopic {
    std::string caption;
    std::string page; // the file name of its page
    std::vector<std::string> keywords;
    int level { 0 };
};

std::string SourceFolder()
{
    return std::string(SCRIVANT_MANUAL_SOURCE_DIR) + "/";
}

// The help project the build made, and the files it put into the program's data.
std::string ProjectFolder()
{
    return std::string(SCRIVANT_MANUAL_WORK_DIR) + "/Scrivant/";
}
std::string CompiledManual()
{
    return std::string(SCRIVANT_BINARY_DIR) + "/share/scrivant/Scrivant.chm";
}
std::string BrowserManualFolder()
{
    return std::string(SCRIVANT_BINARY_DIR) + "/share/scrivant/Manual/";
}

void CollectTopics(const pugi::xml_node& element, int level, std::vector<ManualTopic>& topics)
{
    for (const pugi::xml_node& child : element.children()) {
        if (child.type() != pugi::node_element)
            continue;
        ManualTopic topic;
        topic.caption = child.attribute("Caption").value();
        topic.page = FileNameOf(child.attribute("TemplateHtmlFile").value());
        for (const std::string& keyword : Split(child.attribute("Indexes").value(), "|"))
            if (!keyword.empty())
                topic.keywords.push_back(keyword);
        topic.level = level;
        topics.push_back(topic);
        CollectTopics(child, level + 1, topics);
    }
}

// The topics of the manual's contents document, in the order of its contents.
std::vector<ManualTopic> ContentsTopics()
{
    pugi::xml_document document;
    EXPECT_TRUE(document.load_file((SourceFolder() + "Scrivant.xml").c_str()));
    std::vector<ManualTopic> topics;
    CollectTopics(document.child("ScrivProject"), 1, topics);
    return topics;
}

std::string ReadPage(const std::string& path)
{
    return ReadFileText(path).value_or("");
}

// The built manual's page of a topic (as the program wrote it).
std::string BuiltPage(const std::string& page)
{
    return ReadPage(ProjectFolder() + page);
}

// The contents tree of a compiled help flattened in order, with each entry's level.
void Flatten(const json& topics, int level, std::vector<std::pair<std::string, std::string>>& entries,
    std::vector<int>& levels)
{
    for (const json& topic : topics) {
        entries.emplace_back(topic.value("name", ""), topic.value("local", ""));
        levels.push_back(level);
        Flatten(topic["children"], level + 1, entries, levels);
    }
}

int RunProgram(std::vector<std::string> arguments, std::string& output, const std::string& dataFolder = {})
{
    std::vector<std::string> argv { std::string(SCRIVANT_BINARY_DIR) + "/bin/scrivant" };
    if (!dataFolder.empty()) {
        argv.push_back("--data");
        argv.push_back(dataFolder);
    }
    argv.insert(argv.end(), arguments.begin(), arguments.end());
    return ShellAndWait(argv, &output);
}

// The long options ("--out") of a --help text, in its Options section.
std::set<std::string> LongOptions(const std::string& help)
{
    std::set<std::string> options;
    std::size_t start = help.find("Options:");
    std::size_t end = help.find("Subcommands:");
    std::string section = help.substr(start == std::string::npos ? 0 : start,
        end == std::string::npos ? std::string::npos : end - start);
    static const std::regex option(R"((--[a-z][a-z-]*))");
    for (auto it = std::sregex_iterator(section.begin(), section.end(), option); it != std::sregex_iterator(); ++it)
        options.insert((*it)[1]);
    options.erase("--help");
    return options;
}

// The subcommands that "scrivant --help" lists.
std::vector<std::string> Subcommands(const std::string& help)
{
    std::vector<std::string> commands;
    std::size_t start = help.find("Subcommands:");
    if (start == std::string::npos)
        return commands;
    static const std::regex line(R"(\n  ([a-z][a-z-]*)\s)");
    std::string section = help.substr(start);
    for (auto it = std::sregex_iterator(section.begin(), section.end(), line); it != std::sregex_iterator(); ++it)
        commands.push_back((*it)[1]);
    return commands;
}

// The page of a topic from its caption, or "" when the contents has none.
std::string PageOfCaption(const std::vector<ManualTopic>& topics, const std::string& caption)
{
    for (const ManualTopic& topic : topics)
        if (topic.caption == caption)
            return topic.page;
    return {};
}

bool HasAnchor(const std::string& page, const std::string& anchor)
{
    return page.find("name=\"" + anchor + "\"") != std::string::npos
        || page.find("id=\"" + anchor + "\"") != std::string::npos;
}

class ManualTest : public ::testing::Test {
protected:
    void SetUp() override { m_topics = ContentsTopics(); }

    std::vector<ManualTopic> m_topics;
};

// --- the contents document and its pages ---

TEST_F(ManualTest, EveryPageIsATopicOfTheContentsAndEveryTopicHasAPage)
{
    ASSERT_GT(m_topics.size(), 30u);
    std::set<std::string> named;
    for (const ManualTopic& topic : m_topics) {
        EXPECT_FALSE(topic.caption.empty()) << topic.page;
        EXPECT_TRUE(named.insert(topic.page).second) << topic.page << " is named twice";
        EXPECT_TRUE(FileExists(SourceFolder() + "pages/" + topic.page)) << topic.page;
        EXPECT_FALSE(topic.keywords.empty()) << topic.page << " has no index keywords";
    }
    for (const auto& entry : fs::directory_iterator(SourceFolder() + "pages"))
        EXPECT_TRUE(named.count(entry.path().filename().string())) << entry.path() << " is in no contents entry";
}

TEST_F(ManualTest, TheBuiltPagesCarryTheirCaptionsAndNoTagIsLeft)
{
    for (const ManualTopic& topic : m_topics) {
        std::string page = BuiltPage(topic.page);
        ASSERT_FALSE(page.empty()) << topic.page;
        EXPECT_NE(page.find("<h1>" + topic.caption + "</h1>"), std::string::npos) << topic.page;
        EXPECT_EQ(page.find("{{"), std::string::npos) << topic.page;
        EXPECT_EQ(page.find("@MANUAL_PAGES@"), std::string::npos) << topic.page;
        EXPECT_NE(page.find("<html lang=\"en-US\">"), std::string::npos) << topic.page;
        EXPECT_NE(page.find("href=\"Office10.css\""), std::string::npos) << topic.page;
    }
    // The version the manual names is the program's.
    std::string output;
    ASSERT_EQ(RunProgram({ "--version" }, output), 0);
    std::string version = TrimWhitespace(output.substr(output.find(' ') + 1));
    EXPECT_NE(BuiltPage("Welcome.htm").find("This manual belongs to Scrivant " + version + "."), std::string::npos);
}

// --- the compiled help ---

TEST_F(ManualTest, TheCompiledManualHoldsEveryTopicOfItsContentsInOrder)
{
    if (FindProgramOnPath("chmcmd").empty())
        GTEST_SKIP() << "no help compiler (chmcmd): the build makes the manual as browser help only";
    std::unique_ptr<studio::ChmArchive> archive = studio::ChmArchive::Open(CompiledManual());
    ASSERT_TRUE(archive) << CompiledManual();
    EXPECT_EQ(archive->Title(), "Scrivant Help");
    EXPECT_EQ(archive->DefaultTopic(), "Welcome.htm");

    std::vector<std::pair<std::string, std::string>> entries;
    std::vector<int> levels;
    Flatten(archive->Contents()["topics"], 1, entries, levels);
    ASSERT_EQ(entries.size(), m_topics.size());
    for (std::size_t i = 0; i < m_topics.size(); ++i) {
        EXPECT_EQ(entries[i].first, m_topics[i].caption);
        EXPECT_EQ(entries[i].second, m_topics[i].page);
        EXPECT_EQ(levels[i], m_topics[i].level) << m_topics[i].page;
        std::optional<std::string> page = archive->Read(m_topics[i].page);
        ASSERT_TRUE(page) << m_topics[i].page << " is not in the compiled help";
        EXPECT_EQ(*page, BuiltPage(m_topics[i].page));
    }
    // The picture the manual shows is compiled in, and is a PNG drawn by the program.
    std::optional<std::string> picture = archive->Read("images/OrderDesk_frmCustomer.png");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->substr(0, 8), "\x89PNG\r\n\x1a\n");
    EXPECT_TRUE(archive->Read("Office10.css"));
}

TEST_F(ManualTest, TheCompiledIndexLeadsEveryKeywordToItsTopic)
{
    if (FindProgramOnPath("chmcmd").empty())
        GTEST_SKIP() << "no help compiler (chmcmd): the build makes the manual as browser help only";
    std::unique_ptr<studio::ChmArchive> archive = studio::ChmArchive::Open(CompiledManual());
    ASSERT_TRUE(archive);
    std::optional<std::string> index = archive->Read("Scrivant.hhk");
    ASSERT_TRUE(index);
    // Each entry is an object: its first parameter is the keyword, its Local
    // parameters the pages it leads to (a keyword of several topics names each).
    std::multimap<std::string, std::string> entries;
    static const std::regex object(R"re(<OBJECT type="text/sitemap">([\s\S]*?)</OBJECT>)re");
    static const std::regex parameter(R"re(<param name="([A-Za-z]+)" Value = "([^"]*)">)re");
    for (auto it = std::sregex_iterator(index->begin(), index->end(), object); it != std::sregex_iterator(); ++it) {
        std::string block = (*it)[1].str();
        std::string keyword;
        for (auto p = std::sregex_iterator(block.begin(), block.end(), parameter); p != std::sregex_iterator(); ++p) {
            if (keyword.empty())
                keyword = DecodeHtmlChars((*p)[2].str());
            else if ((*p)[1].str() == "Local")
                entries.emplace(keyword, (*p)[2].str());
        }
    }
    std::size_t keywords = 0;
    for (const ManualTopic& topic : m_topics) {
        for (const std::string& keyword : topic.keywords) {
            ++keywords;
            bool found = false;
            auto [first, last] = entries.equal_range(keyword);
            for (auto it = first; it != last; ++it)
                found = found || it->second == topic.page;
            EXPECT_TRUE(found) << "'" << keyword << "' -> " << topic.page;
        }
    }
    EXPECT_GE(entries.size(), keywords);
}

// --- links ---

TEST_F(ManualTest, EveryLinkOfTheManualResolves)
{
    test::TempFolder data;
    std::string output;
    EXPECT_EQ(RunProgram({ "check-links", ProjectFolder() + "Scrivant.svp" }, output, data.Path()), 0) << output;
    EXPECT_NE(output.find("All links are Ok!"), std::string::npos) << output;

    // The link check leaves out the part after "#": every anchor a page links
    // to must be there as well.
    static const std::regex link(R"re(href="([A-Za-z0-9_]+\.htm)?#([^"]+)")re");
    std::size_t anchors = 0;
    for (const ManualTopic& topic : m_topics) {
        std::string page = BuiltPage(topic.page);
        for (auto it = std::sregex_iterator(page.begin(), page.end(), link); it != std::sregex_iterator(); ++it) {
            std::string target = (*it)[1].matched ? (*it)[1].str() : topic.page;
            ++anchors;
            EXPECT_TRUE(HasAnchor(BuiltPage(target), (*it)[2].str()))
                << topic.page << " links to " << target << "#" << (*it)[2].str();
        }
    }
    EXPECT_GT(anchors, 10u);
}

TEST_F(ManualTest, TheLinkCheckFindsABrokenLinkInTheManual)
{
    // The check above can fail: a copy of the manual with one link broken is reported.
    test::TempFolder copy;
    test::TempFolder data;
    fs::copy(ProjectFolder(), copy.Path(), fs::copy_options::recursive);
    std::string page = copy.Read("Recompile.htm");
    ASSERT_NE(page.find("href=\"BrowserHelp.htm\""), std::string::npos);
    copy.Write("Recompile.htm", ReplaceAll(page, "href=\"BrowserHelp.htm\"", "href=\"BrowserHelpGone.htm\""));
    std::string output;
    EXPECT_EQ(RunProgram({ "check-links", copy / "Scrivant.svp" }, output, data.Path()), 1) << output;
    EXPECT_NE(output.find("Recompile.htm\tA\t"), std::string::npos) << output;
    EXPECT_NE(output.find("BrowserHelpGone.htm\tBroken hyperlink"), std::string::npos) << output;
}

// --- the browser help ---

TEST_F(ManualTest, TheBrowserManualHasEveryTopicInItsContentsTree)
{
    std::string folder = BrowserManualFolder();
    std::string tree = ReadPage(folder + "hh_toc_java.htm");
    ASSERT_FALSE(tree.empty()) << folder;
    for (const char* file : { "main.htm", "hh_index_java.htm", "ss.html", "ss_index.js", "browserhelp.js", "Office10.css" })
        EXPECT_TRUE(FileExists(folder + file)) << file;
    // The first topic is the entry page's; the others are in the tree.
    EXPECT_NE(ReadPage(folder + "main.htm").find("src=\"" + m_topics.front().page + "\""), std::string::npos);
    for (const ManualTopic& topic : m_topics) {
        EXPECT_TRUE(FileExists(folder + topic.page)) << topic.page;
        if (&topic != &m_topics.front()) {
            EXPECT_NE(tree.find("href=\"" + topic.page + "\""), std::string::npos) << topic.page;
        }
    }
    EXPECT_TRUE(FileExists(folder + "images/OrderDesk_frmCustomer.png"));
    // The project's own files stay in the build: they name the build's folders.
    for (const char* file : { "Scrivant.svp", "Scrivant.hhp", "Scrivant.chm" })
        EXPECT_FALSE(FileExists(folder + file)) << file;
}

// --- what the manual documents ---

TEST_F(ManualTest, EveryCommandAndOptionOfTheProgramIsDocumented)
{
    std::string output;
    ASSERT_EQ(RunProgram({ "--help" }, output), 0);
    std::string commandLine = BuiltPage(PageOfCaption(m_topics, "The command line"));
    ASSERT_FALSE(commandLine.empty());
    for (const std::string& option : LongOptions(output))
        EXPECT_NE(commandLine.find(option), std::string::npos) << "the command line topic does not name " << option;

    std::vector<std::string> commands = Subcommands(output);
    ASSERT_GE(commands.size(), 14u) << output;
    for (const std::string& command : commands) {
        EXPECT_NE(commandLine.find(">" + command + "</a>"), std::string::npos) << command;
        std::string file = PageOfCaption(m_topics, "scrivant " + command);
        ASSERT_FALSE(file.empty()) << "no topic for scrivant " << command;
        std::string page = BuiltPage(file);
        std::string help;
        ASSERT_EQ(RunProgram({ command, "--help" }, help), 0) << command;
        for (const std::string& option : LongOptions(help))
            EXPECT_NE(page.find(option), std::string::npos) << file << " does not name " << option;
    }
}

TEST_F(ManualTest, EveryOptionOfTheSettingsIsDocumented)
{
    std::string page = BuiltPage(PageOfCaption(m_topics, "Settings"));
    ASSERT_FALSE(page.empty());
    const std::vector<std::string>& known = CAddInSettings::KnownOptions();
    ASSERT_GT(known.size(), 50u);
    for (const std::string& option : known)
        EXPECT_NE(page.find("<code>" + option + "</code>"), std::string::npos) << option;
}

TEST_F(ManualTest, EveryPageOfTheWizardHasASectionWithItsOptions)
{
    pugi::xml_document definition;
    ASSERT_TRUE(definition.load_file((test::SourceDataFolder() + "Settings/ScrivantWizardDef.xml").c_str()));
    std::string page = BuiltPage(PageOfCaption(m_topics, "The wizard"));
    ASSERT_FALSE(page.empty());
    std::size_t pages = 0;
    for (const pugi::xml_node& entry : definition.child("Wizard").child("Pages").children("Page")) {
        ++pages;
        std::string name = entry.attribute("Name").value();
        EXPECT_TRUE(HasAnchor(page, name)) << name;
        for (const pugi::xml_node& control : entry.child("Controls").children("Control")) {
            std::string option = control.attribute("OptionName").value();
            if (!option.empty()) {
                EXPECT_NE(page.find("<code>" + option + "</code>"), std::string::npos) << name << ": " << option;
            }
        }
    }
    EXPECT_GE(pages, 10u);
}

}  // namespace
}  // namespace scriv
