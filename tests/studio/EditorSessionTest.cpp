#include <gtest/gtest.h>

#include <filesystem>

#include "desktop/CW_IDEVB6Context.h"
#include "foundation/EventLoop.h"
#include "foundation/LoadedForms.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "model/CAddInSettingsXmlFile.h"
#include "studio/EditorSession.h"
#include "StudioFixture.h"

namespace scriv::studio {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using json = nlohmann::json;
using test::StatusOf;

constexpr const char* kCustomer = "OrderDesk.Form_frmCustomer";
constexpr const char* kOrder = "OrderDesk.Form_frmOrder";
constexpr const char* kSearch = "OrderDesk.Form_frmSearch";
constexpr const char* kLogin = "OrderDesk.Form_frmLogin";
constexpr int kCtrl = 2;

// The OrderDesk example, generated in the studio into its CHM folder, with
// the Help Editor opening at the end as the wizard's option asks.
class EditorSessionTest : public test::StudioFixture {
protected:
    void SetUp() override
    {
        StudioFixture::SetUp();
        m_page = m_events.Subscribe();
        m_vbp = scriv::test::CopyExample("OrderDesk", m_app) + "OrderDesk.vbp";
        m_shell = std::make_unique<StudioShell>(m_events, m_files);
        m_shell->Connect(CW_IDEVB6Context::Open(m_vbp), m_vbp);
        Data().OverrideOption("CompileHTMLHelp", OptionValue::Bool(false));
    }

    void TearDown() override
    {
        m_page.reset();
        StudioFixture::TearDown();
    }

    void Generate(bool openEditor = true)
    {
        Data().OverrideOption("OpenHTMLEditor", OptionValue::Bool(openEditor));
        ASSERT_EQ(m_shell->Run("NewProject"), 0u) << ::testing::PrintToString(BoxTexts());
        ASSERT_TRUE(m_shell->Wizard().Open());
        ASSERT_EQ(m_shell->Run("WizardFinish"), 0u) << ::testing::PrintToString(BoxTexts());
    }

    EditorSession& Editor() { return m_shell->Editor(); }
    CScrivServerData& Data() { return m_shell->Server().Data(); }
    std::string Help(const std::string& name) const { return FolderOf(m_vbp) + "CHM/" + name; }
    std::string Read(const std::string& name) const { return ReadFileText(Help(name)).value_or(""); }



    // An item of the tree the page gets, or null.
    static json FindItem(const json& items, const std::string& key)
    {
        for (const json& item : items) {
            if (item["key"] == key)
                return item;
            json found = FindItem(item["children"], key);
            if (!found.is_null())
                return found;
        }
        return nullptr;
    }
    std::vector<std::string> ChildKeys(const std::string& key)
    {
        std::vector<std::string> keys;
        json item = FindItem(Editor().Tree()["items"], key);
        for (const json& child : item["children"])
            keys.push_back(child["key"]);
        return keys;
    }

    static json WithPage(const std::string& text, bool source = false)
    {
        return { { "page", { { "text", text }, { "source", source } } } };
    }

    std::string m_vbp;
};

// --- opening ---

TEST_F(EditorSessionTest, AGenerationThatAsksForTheEditorOpensItOnTheProject)
{
    Generate();
    ASSERT_TRUE(Editor().IsOpen());
    EXPECT_EQ(LoadedForms().Find("frmHelpEditor"), &Editor());
    EXPECT_TRUE(m_shell->State()["editorOpen"].get<bool>());
    EXPECT_FALSE(PageEvents("editor").empty());
    EXPECT_TRUE(PageEvents("editor").back()["open"].get<bool>());

    json state = Editor().State();
    EXPECT_EQ(state["title"], "Help Editor");
    EXPECT_EQ(state["page"]["path"], Help("Welcome.htm"));
    EXPECT_EQ(state["selectedKey"], "Project");
    EXPECT_FALSE(state["treeMenu"].empty());
    json tree = Editor().Tree();
    EXPECT_EQ(tree["version"], state["treeVersion"]);
    json customer = FindItem(tree["items"], kCustomer);
    ASSERT_TRUE(customer.is_object());
    EXPECT_EQ(customer["text"], "Customer");
    EXPECT_EQ(customer["page"], Help("OrderDesk_Form_frmCustomer.htm"));
    // The form's documented controls are nodes below its topic.
    std::vector<std::string> controls = ChildKeys(kCustomer);
    EXPECT_NE(std::find(controls.begin(), controls.end(), std::string(kCustomer) + ".cmdCancel"), controls.end());
}

TEST_F(EditorSessionTest, WithoutTheOptionTheEditorWaitsForOpenHelpProject)
{
    Generate(false);
    EXPECT_FALSE(Editor().IsOpen());
    EXPECT_FALSE(m_shell->State()["editorOpen"].get<bool>());

    m_ui->QueueChoice(0);
    EXPECT_EQ(m_shell->Run("OpenProject"), 0u);
    EXPECT_TRUE(Editor().IsOpen());
    EXPECT_EQ(Editor().State()["page"]["path"], Help("Welcome.htm"));

    // An open editor stands against a new project.
    EXPECT_EQ(m_shell->Run("NewProject"), status::kAbandoned);
    EXPECT_EQ(BoxTexts().back(), "You have to close the Help Editor before you can generate a new Help project.");
}

// --- the page ---

TEST_F(EditorSessionTest, AChangedPageIsSavedThroughTheBeautifierBeforeAnotherIsShown)
{
    Generate();
    json state = Editor().Select({}, kCustomer);
    ASSERT_EQ(state["page"]["path"], Help("OrderDesk_Form_frmCustomer.htm"));
    std::uint64_t shown = state["pageVersion"];
    std::string original = Read("OrderDesk_Form_frmCustomer.htm");
    // What the browser holds: the page as it was served, with a sentence more.
    std::optional<std::string> served = Editor().HeldPageText(Help("OrderDesk_Form_frmCustomer.htm"));
    EXPECT_FALSE(served) << "an unchanged page is served from its file";
    std::string live = original.substr(0, original.find("</p>")) + " The clerk fills it.</p>"
        + original.substr(original.find("</p>") + 4, original.find("</html>") + 7 - original.find("</p>") - 4);

    state = Editor().Select(WithPage(live), kOrder);
    EXPECT_EQ(state["page"]["path"], Help("OrderDesk_Form_frmOrder.htm"));
    EXPECT_GT(state["pageVersion"].get<std::uint64_t>(), shown);
    EXPECT_FALSE(state["dirty"].get<bool>());
    std::string saved = Read("OrderDesk_Form_frmCustomer.htm");
    EXPECT_NE(saved.find("The clerk fills it.</P>"), std::string::npos);
    EXPECT_EQ(saved.find("\n"), saved.find("\r\n") + 1);
    std::size_t end = saved.find("</HTML>");
    ASSERT_NE(end, std::string::npos);
    EXPECT_EQ(saved.find("<script"), saved.find("<script", end)) << "the browser-help script only behind </html>";
    EXPECT_NE(saved.find("id=\"wbh\"", end), std::string::npos);
}

TEST_F(EditorSessionTest, TheSourceViewsTextIsSavedAsItStands)
{
    Generate();
    Editor().Select({}, kOrder);
    std::string source = "<html>\n<body>\n<h1>Order</h1>\n<p>Typed  {CURRENTCURSORPOSITON} here</p>\n</body>\n</html>";
    json state = Editor().Save(WithPage(source, true));
    EXPECT_TRUE(state["saved"].get<bool>());
    std::string saved = Read("OrderDesk_Form_frmOrder.htm");
    EXPECT_EQ(saved.substr(0, saved.find("</html>") + 7),
        "<html>\r\n<body>\r\n<h1>Order</h1>\r\n<p>Typed  here</p>\r\n</body>\r\n</html>");
    // The temporary page of the source view is gone with the save.
    EXPECT_FALSE(Editor().TempPage(source).empty());
    Editor().Save(WithPage(source, true));
    EXPECT_FALSE(FileExists(Help("~temp.htp")));
}

TEST_F(EditorSessionTest, TheSourceViewRoundTripKeepsTheMarkerUntilTheSave)
{
    Generate();
    Editor().Select({}, kOrder);
    std::string text = Editor().SourceText("<html><body><p>a {CURRENTCURSORPOSITON}b</p></body></html>");
    EXPECT_NE(text.find("a {CURRENTCURSORPOSITON}b"), std::string::npos);
    std::string temp = Editor().TempPage(text);
    EXPECT_EQ(temp, Help("~temp.htp"));
    EXPECT_NE(ReadFileText(temp)->find("{CURRENTCURSORPOSITON}"), std::string::npos);
    // The page editor's later document comes from the temporary page; it
    // is saved to the page itself.
    json state = Editor().Save(WithPage("<html><body><p>a b</p></body></html>"));
    EXPECT_TRUE(state["saved"].get<bool>());
    EXPECT_NE(Read("OrderDesk_Form_frmOrder.htm").find("<P>a b</P>"), std::string::npos);
    EXPECT_FALSE(FileExists(temp));
}

// --- the tree ---

TEST_F(EditorSessionTest, MovesAndTheirUndoChangeTheTreeThePageFetches)
{
    Generate();
    Editor().Select({}, kCustomer);
    std::vector<std::string> before = ChildKeys("Dialogs");
    std::uint64_t version = Editor().State()["treeVersion"];
    json state = Editor().Key({}, 38, kCtrl);
    EXPECT_GT(state["treeVersion"].get<std::uint64_t>(), version);
    std::vector<std::string> moved = ChildKeys("Dialogs");
    auto at = std::find(before.begin(), before.end(), kCustomer) - before.begin();
    ASSERT_GT(at, 0);
    EXPECT_EQ(moved[at - 1], kCustomer);
    EXPECT_EQ(state["selectedKey"], kCustomer);
    EXPECT_EQ(state["undoStackLength"], 1);

    Editor().Key({}, 'Z', kCtrl);
    EXPECT_EQ(ChildKeys("Dialogs"), before);
}

TEST_F(EditorSessionTest, DeletingANodeAnsweredNoKeepsItsPage)
{
    Generate();
    Editor().Select({}, kLogin);
    m_ui->QueueAnswer(vbNo);
    json state = Editor().Key({}, 46, 0);
    EXPECT_EQ(BoxTexts().back(),
        "Delete action removes the node from the contents tree.\r\nDo you also want to delete the corresponding HTML page?");
    EXPECT_TRUE(FindItem(Editor().Tree()["items"], kLogin).is_null());
    EXPECT_TRUE(FileExists(Help("OrderDesk_Form_frmLogin.htm")));
}

TEST_F(EditorSessionTest, ARenamedTopicRetitlesItsPageWhichIsSavedOnClosingWithTheProject)
{
    Generate();
    Editor().Select({}, kSearch);
    json state = Editor().Key({}, 113, 0);
    EXPECT_TRUE(state["renaming"].get<bool>());
    EXPECT_EQ(state["renameKey"], kSearch);
    std::uint64_t shown = state["pageVersion"];
    state = Editor().Rename({}, std::string("Search for Orders"));
    EXPECT_FALSE(state["renaming"].get<bool>());
    EXPECT_TRUE(state["dirty"].get<bool>());
    EXPECT_GT(state["pageVersion"].get<std::uint64_t>(), shown) << "the page shows its new title";
    EXPECT_EQ(FindItem(Editor().Tree()["items"], kSearch)["text"], "Search for Orders");
    std::optional<std::string> held = Editor().HeldPageText(Help("OrderDesk_Form_frmSearch.htm"));
    ASSERT_TRUE(held);
    EXPECT_NE(held->find("Search for Orders</h1>"), std::string::npos) << *held;
    EXPECT_EQ(held->find("wbh"), std::string::npos);

    std::size_t boxes = m_ui->MessageBoxes().size();
    EXPECT_TRUE(Editor().Command({}, "Close"));
    EXPECT_EQ(m_ui->MessageBoxes().size(), boxes) << "closing asks nothing";
    EXPECT_FALSE(Editor().IsOpen());
    EXPECT_EQ(LoadedForms().Find("frmHelpEditor"), nullptr);
    EXPECT_FALSE(PageEvents("editor").back()["open"].get<bool>());
    EXPECT_NE(Read("OrderDesk_Form_frmSearch.htm").find("Search for Orders"), std::string::npos);
    EXPECT_NE(Read("OrderDesk.svp").find("Search for Orders"), std::string::npos);
    // The commands of the help project find the project's tree again.
    ASSERT_NE(Data().LoadedTree(), nullptr);
    EXPECT_NE(Data().LoadedTree()->Root(), nullptr);
    EXPECT_EQ(m_shell->Run("RecompileHelpProject"), 0u);
    EXPECT_NE(Read("OrderDesk.hhc").find("Search for Orders"), std::string::npos);
}

TEST_F(EditorSessionTest, IndexEntriesAreEditedInTheDialogThePageShows)
{
    Generate();
    Editor().Select({}, kCustomer);
    json shown;
    json afterAdd;
    // The person's clicks, as the page sends them while the dialog is up.
    LogicLoop().Post([&] {
        shown = PageEvents("editor-dialog").back();
        Editor().IndexEntries({ { "action", "add" }, { "text", "Clients; \"all\"" } });
        afterAdd = Editor().IndexEntries({ { "action", "select" }, { "selected", 1 } });
        Editor().IndexEntries({ { "action", "ok" } });
    });
    Editor().Key({}, 'I', kCtrl);
    EXPECT_EQ(shown["dialog"], "index-entries");
    EXPECT_EQ(shown["title"], "Node Index Entries");
    EXPECT_EQ(shown["entries"], json::array({ "Customer" }));
    EXPECT_EQ(afterAdd["entries"], json::array({ "Customer", "Clients all" })) << "quotes and semicolons go";
    EXPECT_EQ(afterAdd["selected"], 1);
    EXPECT_TRUE(afterAdd["buttons"]["up"].get<bool>());
    EXPECT_FALSE(afterAdd["buttons"]["down"].get<bool>());
    EXPECT_TRUE(PageEvents("editor-dialog").back()["closed"].get<bool>());
    EXPECT_FALSE(Editor().IndexEntries({})["open"].get<bool>());
    EXPECT_NE(Read("xml/OrderDesk_Form_frmCustomer.xml").find("Clients all"), std::string::npos);

    // Cancel leaves the entries as they were.
    LogicLoop().Post([&] {
        Editor().IndexEntries({ { "action", "add" }, { "text", "Dropped" } });
        Editor().IndexEntries({ { "action", "cancel" } });
    });
    Editor().Key({}, 'I', kCtrl);
    EXPECT_EQ(Read("xml/OrderDesk_Form_frmCustomer.xml").find("Dropped"), std::string::npos);
}

// --- the tools ---

TEST_F(EditorSessionTest, FindReportsThePagesAndOpenGoesToTheFirstHit)
{
    Generate();
    std::size_t pages = Editor().FindReplace({ { "mode", 0 }, { "findWhat", "Describe here" } });
    EXPECT_GE(pages, 8u);
    std::vector<json> reports = PageEvents("editor-report");
    ASSERT_FALSE(reports.empty());
    json report = reports.back();
    EXPECT_EQ(report["report"], "find-replace");
    EXPECT_EQ(report["rows"].size(), pages);
    EXPECT_EQ(report["status"], std::to_string(pages) + " occurrences are found");
    EXPECT_EQ(Editor().State()["findDialog"]["findTexts"], json::array({ "Describe here" }));

    std::uint64_t serial = Editor().State()["find"]["serial"];
    json state = Editor().Report("find-replace", "open", 1);
    EXPECT_EQ(state["page"]["path"], report["rows"][1]["path"]);
    EXPECT_EQ(state["find"]["text"], "Describe here");
    EXPECT_GT(state["find"]["serial"].get<std::uint64_t>(), serial);
    Editor().Report("find-replace", "close", 0);
    EXPECT_TRUE(PageEvents("editor-report").back()["closed"].get<bool>());
}

TEST_F(EditorSessionTest, AReplaceChangesTheFilesAndTheOpenPageIsReadAgain)
{
    Generate();
    json state = Editor().Select({}, kOrder);
    std::uint64_t shown = state["pageVersion"];
    std::size_t pages = Editor().FindReplace(
        { { "mode", 1 }, { "findWhat", "Describe here" }, { "replaceWith", "Tell" }, { "matchCase", true } });
    EXPECT_GE(pages, 8u);
    EXPECT_NE(Read("OrderDesk_Form_frmOrder.htm").find("Tell what this window is for"), std::string::npos);
    state = Editor().State();
    EXPECT_GT(state["pageVersion"].get<std::uint64_t>(), shown);
    EXPECT_EQ(state["findDialog"]["replaceTexts"], json::array({ "Tell" }));
}

TEST_F(EditorSessionTest, BrokenLinksAreReportedAndOpenGoesToTheLink)
{
    Generate();
    Editor().Select({}, kOrder);
    std::string page = Read("OrderDesk_Form_frmOrder.htm");
    page.replace(page.find("</h1>"), 5, "</h1><p><a href=\"Gone.htm\">gone</a></p>");
    Editor().Save(WithPage(page));
    Editor().Select({}, kCustomer);

    EXPECT_TRUE(Editor().Command({}, "SearchForBrokenLinks"));
    json report = PageEvents("editor-report").back();
    EXPECT_EQ(report["report"], "broken-links");
    ASSERT_EQ(report["rows"].size(), 1u);
    EXPECT_EQ(report["rows"][0]["page"], "OrderDesk_Form_frmOrder.htm");
    EXPECT_EQ(report["rows"][0]["url"], Help("Gone.htm"));
    EXPECT_EQ(report["rows"][0]["problem"], "Broken hyperlink");
    EXPECT_EQ(Editor().State()["reports"]["brokenLinks"].size(), 1u);

    json state = Editor().Report("broken-links", "open", 0);
    EXPECT_EQ(state["page"]["path"], Help("OrderDesk_Form_frmOrder.htm"));
    EXPECT_EQ(state["selectedKey"], kOrder);
    EXPECT_NE(state["find"]["url"].get<std::string>().find("Gone.htm"), std::string::npos);

    Editor().Report("broken-links", "close", 0);
    EXPECT_TRUE(Editor().State()["reports"]["brokenLinks"].is_null());
    // The page mended, the search says so.
    Editor().Select({}, kOrder);
    page.replace(page.find("Gone.htm"), 8, "OrderDesk_Form_frmCustomer.htm");
    Editor().Save(WithPage(page));
    Editor().Command({}, "SearchForBrokenLinks");
    EXPECT_EQ(BoxTexts().back(), "All links are Ok!");
}

TEST_F(EditorSessionTest, ExportToWordAsksForTheDocumentAndSaysWhenItIsWritten)
{
    Generate();
    EXPECT_TRUE(Editor().Command({}, "ExportToWord"));
    json asked = PageEvents("editor-dialog").back();
    EXPECT_EQ(asked["dialog"], "word-export");
    EXPECT_EQ(asked["target"], Help("OrderDesk documentation.docx"));
    EXPECT_EQ(Editor().WordExport(asked["target"], true), 0u);
    EXPECT_TRUE(FileExists(Help("OrderDesk documentation.docx")));
    EXPECT_EQ(BoxTexts().back(), "Export to MS Word finished OK.");
}

TEST_F(EditorSessionTest, TheEditorsCommandsReachTheProject)
{
    Generate();
    fs::remove(Help("OrderDesk.hhk"));
    EXPECT_TRUE(Editor().Command({}, "Recompile"));
    EXPECT_TRUE(FileExists(Help("OrderDesk.hhk")));
    EXPECT_TRUE(Editor().Command({}, "GetNewObjects"));
    EXPECT_EQ(BoxTexts().back(), "There are no new objects in the source project");
    EXPECT_TRUE(Editor().IsOpen());
    EXPECT_FALSE(Editor().Command({}, "NoSuchCommand"));
}

// --- the routes of the page ---

class EditorRoutesTest : public EditorSessionTest {
protected:
    void Start()
    {
        Generate();
        StartServer();
    }
    std::string EditUrl(const std::string& name) const { return "/edit" + Help(name); }
};

TEST_F(EditorRoutesTest, APageIsServedForEditingOnTheStudiosOriginWithNoScriptAllowed)
{
    Start();
    httplib::Result result = Get(EditUrl("OrderDesk_Form_frmOrder.htm"), StudioHeaders());
    ASSERT_EQ(StatusOf(result), 200);
    EXPECT_EQ(result->get_header_value("Content-Type"), "text/html; charset=utf-8");
    std::string policy = result->get_header_value("Content-Security-Policy");
    EXPECT_NE(policy.find("script-src 'none'"), std::string::npos);
    EXPECT_NE(policy.find("sandbox allow-same-origin"), std::string::npos);
    EXPECT_EQ(policy.find("allow-scripts"), std::string::npos);
    EXPECT_NE(result->body.find("<h1>Order</h1>"), std::string::npos);
    EXPECT_EQ(result->body.find("wbh"), std::string::npos) << "the browser-help script is not served";
    EXPECT_NE(Read("OrderDesk_Form_frmOrder.htm").find("wbh"), std::string::npos);
    // The files a page uses come the same way.
    httplib::Result style = Get(EditUrl("Office10.css"), StudioHeaders());
    ASSERT_EQ(StatusOf(style), 200);
    EXPECT_EQ(style->get_header_value("Content-Type"), "text/css; charset=utf-8");

    // The studio's page may frame its own origin.
    httplib::Result studioPage = Get("/", StudioHeaders());
    ASSERT_EQ(StatusOf(studioPage), 200);
    EXPECT_NE(studioPage->get_header_value("Content-Security-Policy").find("frame-src 'self'"), std::string::npos);
}

TEST_F(EditorRoutesTest, TheEditRouteServesNothingOutsideTheAllowedFoldersOrWithoutTheToken)
{
    Start();
    EXPECT_NE(StatusOf(Get("/edit/etc/passwd", StudioHeaders())), 200);
    EXPECT_NE(StatusOf(Get(EditUrl("../../../../etc/passwd"), StudioHeaders())), 200);
    EXPECT_EQ(StatusOf(Get(EditUrl("Welcome.htm"), StudioHeaders(false))), 403);
    // The helps' origin serves no page for editing.
    httplib::Headers content = ContentHeaders();
    content.emplace("X-Scrivant-Token", Guard().Token());
    EXPECT_EQ(StatusOf(Get(EditUrl("Welcome.htm"), content)), 403);
}

TEST_F(EditorRoutesTest, TheEditorsRequestsNeedTheStudiosOrigin)
{
    Start();
    std::string body = json { { "key", kOrder } }.dump();
    EXPECT_EQ(StatusOf(Post("/api/editor/select", body, StudioHeaders())), 403);
    httplib::Headers foreign = StudioHeaders();
    foreign.emplace("Origin", Guard().ContentOrigin());
    EXPECT_EQ(StatusOf(Post("/api/editor/select", body, foreign)), 403);
    EXPECT_EQ(StatusOf(Post("/api/editor/save", "{}", foreign)), 403);

    httplib::Result selected = PostFromStudio("/api/editor/select", body);
    ASSERT_EQ(StatusOf(selected), 200);
    json state = json::parse(selected->body);
    EXPECT_EQ(state["page"]["path"], Help("OrderDesk_Form_frmOrder.htm"));
    httplib::Result read = Get("/api/editor/state", StudioHeaders());
    ASSERT_EQ(StatusOf(read), 200);
    EXPECT_EQ(json::parse(read->body)["selectedKey"], kOrder);
    httplib::Result tree = Get("/api/editor/tree", StudioHeaders());
    ASSERT_EQ(StatusOf(tree), 200);
    EXPECT_EQ(json::parse(tree->body)["version"], state["treeVersion"]);
}

TEST_F(EditorRoutesTest, APageTheEditorHoldsChangedIsServedAsItHoldsIt)
{
    Start();
    PostFromStudio("/api/editor/select", json { { "key", kSearch } }.dump());
    PostFromStudio("/api/editor/key", json { { "keyCode", 113 }, { "shift", 0 } }.dump());
    httplib::Result renamed = PostFromStudio("/api/editor/rename", json { { "text", "Search for Orders" } }.dump());
    ASSERT_EQ(StatusOf(renamed), 200);
    EXPECT_TRUE(json::parse(renamed->body)["dirty"].get<bool>());
    httplib::Result page = Get(EditUrl("OrderDesk_Form_frmSearch.htm"), StudioHeaders());
    ASSERT_EQ(StatusOf(page), 200);
    EXPECT_NE(page->body.find("Search for Orders</h1>"), std::string::npos);
    EXPECT_EQ(page->body.find("wbh"), std::string::npos);
    EXPECT_EQ(Read("OrderDesk_Form_frmSearch.htm").find("Search for Orders"), std::string::npos) << "not saved yet";

    // The page the browser sends is saved through the program.
    json save = { { "page", { { "text", page->body }, { "source", false } } } };
    httplib::Result saved = PostFromStudio("/api/editor/save", save.dump());
    ASSERT_EQ(StatusOf(saved), 200);
    EXPECT_TRUE(json::parse(saved->body)["saved"].get<bool>());
    EXPECT_NE(Read("OrderDesk_Form_frmSearch.htm").find("Search for Orders</H1>"), std::string::npos);
}

TEST_F(EditorRoutesTest, LongCommandsStartAndAnswerAtOnce)
{
    Start();
    fs::remove(Help("OrderDesk.hhk"));
    httplib::Result started = PostFromStudio("/api/editor/command", json { { "name", "Recompile" } }.dump());
    ASSERT_EQ(StatusOf(started), 202);
    LogicLoop().RunUntil([&] { return FileExists(Help("OrderDesk.hhk")); }, std::chrono::seconds(20));
    EXPECT_TRUE(FileExists(Help("OrderDesk.hhk")));
}

}  // namespace
}  // namespace scriv::studio
