#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "foundation/Paths.h"
#include "studio/StudioFileAccess.h"
#include "studio/StudioRequestGuard.h"
#include "StudioFixture.h"

namespace scriv::studio {
namespace {

namespace fs = std::filesystem;
using test::StatusOf;
using test::TempFolder;

// --- the guard's tests, one by one ---

TEST(StudioRequestGuard, HostMustBeALoopbackNameWithTheStudiosPort)
{
    StudioRequestGuard guard(4321, "secret", "key");
    EXPECT_TRUE(guard.HostAllowed("127.0.0.1:4321"));
    EXPECT_TRUE(guard.HostAllowed("localhost:4321"));
    EXPECT_TRUE(guard.HostAllowed("LOCALHOST:4321"));
    // A name that an attacker's DNS points at 127.0.0.1 is not the studio.
    EXPECT_FALSE(guard.HostAllowed("evil.example:4321"));
    EXPECT_FALSE(guard.HostAllowed("127.0.0.1.evil.example:4321"));
    EXPECT_FALSE(guard.HostAllowed("127.0.0.1:4322"));
    EXPECT_FALSE(guard.HostAllowed("127.0.0.1"));
    EXPECT_FALSE(guard.HostAllowed(""));
}

TEST(StudioRequestGuard, OnlyTheStudiosOwnOriginMayChangeAnything)
{
    StudioRequestGuard guard(4321, "secret", "key");
    EXPECT_TRUE(guard.OriginAllowed("http://127.0.0.1:4321"));
    // The helps' origin, sandboxed frames ("null"), other sites and no Origin at all are refused.
    EXPECT_FALSE(guard.OriginAllowed("http://localhost:4321"));
    EXPECT_FALSE(guard.OriginAllowed("null"));
    EXPECT_FALSE(guard.OriginAllowed("http://evil.example"));
    EXPECT_FALSE(guard.OriginAllowed("http://127.0.0.1:4321.evil.example"));
    EXPECT_FALSE(guard.OriginAllowed(""));
    EXPECT_FALSE(StudioRequestGuard::ChangesState("GET"));
    EXPECT_FALSE(StudioRequestGuard::ChangesState("HEAD"));
    for (const char* method : { "POST", "PUT", "DELETE", "PATCH", "OPTIONS" })
        EXPECT_TRUE(StudioRequestGuard::ChangesState(method)) << method;
}

TEST(StudioRequestGuard, TokenComesFromItsCookieOrItsHeader)
{
    StudioRequestGuard guard(4321, "secret", "key");
    EXPECT_EQ(guard.CookieName(), "scrivant_studio_4321");
    EXPECT_TRUE(guard.TokenPresented("other=1; scrivant_studio_4321=secret; more=2", ""));
    EXPECT_TRUE(guard.TokenPresented("", "secret"));
    // The cookie of a studio on another port does not open this one.
    EXPECT_FALSE(guard.TokenPresented("scrivant_studio_4322=secret", ""));
    EXPECT_FALSE(guard.TokenPresented("scrivant_studio_4321=secre", ""));
    EXPECT_FALSE(guard.TokenPresented("scrivant_studio_4321=secret2", "wrong"));
    EXPECT_FALSE(guard.TokenPresented("", ""));
    // An empty token never matches, even an empty one.
    StudioRequestGuard empty(4321, "", "");
    EXPECT_FALSE(empty.TokenPresented("scrivant_studio_4321=", ""));
    EXPECT_FALSE(empty.ContentKeyMatches(""));
    EXPECT_NE(guard.CookieHeaderValue().find("HttpOnly"), std::string::npos);
    EXPECT_NE(guard.CookieHeaderValue().find("SameSite=Strict"), std::string::npos);
}

TEST(StudioRequestGuard, NewTokensAreLongRandomHexadecimal)
{
    std::set<std::string> tokens;
    for (int i = 0; i < 50; ++i) {
        std::string token = StudioRequestGuard::NewToken();
        EXPECT_EQ(token.size(), 48u);
        EXPECT_EQ(token.find_first_not_of("0123456789abcdef"), std::string::npos);
        tokens.insert(token);
    }
    EXPECT_EQ(tokens.size(), 50u);
}

// --- the allowed folders ---

class StudioFileAccessTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_inside.Write("help/main.htm", "<p>main</p>");
        m_inside.Write("help/App.svp", "<Project/>");
        m_inside.Write("help/sub/deep.htm", "deep");
        m_outside.Write("secret.txt", "secret");
        fs::create_symlink(m_outside / "secret.txt", m_inside / "help/leak.txt");
        fs::create_symlink(m_outside.Path(), m_inside / "help/outdir");
        fs::create_symlink(m_inside / "help/main.htm", m_inside / "help/alias.htm");
        m_access.SetRoots({ m_inside / "help/" });
    }

    TempFolder m_inside;
    TempFolder m_outside;
    StudioFileAccess m_access;
};

TEST_F(StudioFileAccessTest, FilesInsideARootResolve)
{
    ASSERT_TRUE(m_access.Resolve(m_inside / "help/main.htm"));
    EXPECT_EQ(m_access.Resolve(m_inside / "help/sub/deep.htm")->string(), m_inside / "help/sub/deep.htm");
    // A link that stays inside is followed.
    EXPECT_EQ(m_access.Resolve(m_inside / "help/alias.htm")->string(), m_inside / "help/main.htm");
    // ".." that stays inside is worked out.
    EXPECT_TRUE(m_access.Resolve(m_inside / "help/sub/../main.htm"));
}

TEST_F(StudioFileAccessTest, DotDotAbsolutePathsAndLinksOutAreRefused)
{
    EXPECT_FALSE(m_access.Resolve(m_inside / "help/../help/../../" + FileNameOf(RemoveBackslash(m_outside.Path()))
        + "/secret.txt"));
    EXPECT_FALSE(m_access.Resolve(m_outside / "secret.txt"));
    EXPECT_FALSE(m_access.Resolve("/etc/passwd"));
    EXPECT_FALSE(m_access.Resolve(m_inside / "help/leak.txt"));
    EXPECT_FALSE(m_access.Resolve(m_inside / "help/outdir/secret.txt"));
    EXPECT_FALSE(m_access.Resolve("help/main.htm"));
    EXPECT_FALSE(m_access.Resolve(""));
    EXPECT_FALSE(m_access.Resolve(m_inside / "help/missing.htm"));
    // A folder beside a root whose name starts like the root's is not inside it.
    m_inside.Write("help2/other.htm", "x");
    EXPECT_FALSE(m_access.Resolve(m_inside / "help2/other.htm"));
}

TEST_F(StudioFileAccessTest, WritesStayInsideAndNeverThroughALinkOut)
{
    EXPECT_EQ(m_access.ResolveForWriting(m_inside / "help/new.htm")->string(), m_inside / "help/new.htm");
    EXPECT_TRUE(m_access.ResolveForWriting(m_inside / "help/main.htm"));
    EXPECT_FALSE(m_access.ResolveForWriting(m_inside / "help/leak.txt"));
    EXPECT_FALSE(m_access.ResolveForWriting(m_inside / "help/outdir/new.txt"));
    EXPECT_FALSE(m_access.ResolveForWriting(m_outside / "new.txt"));
    EXPECT_FALSE(m_access.ResolveForWriting(m_inside / "help/missing/new.txt"));
    EXPECT_FALSE(m_access.ResolveForWriting(m_inside / "help/.."));
}

TEST_F(StudioFileAccessTest, BrowsingListsRootsFoldersAndMatchingFilesOnly)
{
    nlohmann::json roots = *m_access.Browse("", "");
    EXPECT_EQ(roots["folders"], nlohmann::json::array({ m_inside / "help/" }));
    nlohmann::json listing = *m_access.Browse(m_inside / "help", "*.svp");
    EXPECT_EQ(listing["path"], m_inside / "help/");
    EXPECT_EQ(listing["folders"], nlohmann::json::array({ "sub" }));
    EXPECT_EQ(listing["files"], nlohmann::json::array({ "App.svp" }));
    // Above the root there is nothing to go up to.
    EXPECT_TRUE(listing["parent"].is_null());
    nlohmann::json all = *m_access.Browse(m_inside / "help/", "*");
    std::vector<std::string> files = all["files"];
    EXPECT_EQ(files, (std::vector<std::string> { "App.svp", "alias.htm", "main.htm" }));
    EXPECT_EQ((*m_access.Browse(m_inside / "help/sub", ""))["parent"], m_inside / "help/");
    EXPECT_FALSE(m_access.Browse(m_outside.Path(), ""));
    EXPECT_FALSE(m_access.Browse("/", ""));
}

// --- the running server ---

class StudioServerSecurityTest : public test::StudioFixture {
protected:
    void SetUp() override
    {
        StudioFixture::SetUp();
        m_app.Write("CHM/main.htm", "<p>the help</p>");
        m_app.Write("Orders.vbp", "Type=Exe\r\n");
        m_outside.Write("secret.txt", "secret");
        fs::create_symlink(m_outside / "secret.txt", m_app / "CHM/leak.htm");
        StartShell(OrdersHost());
        StartServer();
    }

    TempFolder m_outside;
};

TEST_F(StudioServerSecurityTest, TheApiNeedsTheToken)
{
    EXPECT_EQ(StatusOf(Get("/api/state", StudioHeaders(false))), 403);
    httplib::Headers wrong = StudioHeaders(false);
    wrong.emplace("X-Scrivant-Token", Guard().Token() + "0");
    EXPECT_EQ(StatusOf(Get("/api/state", wrong)), 403);
    httplib::Result refused = Get("/api/state", StudioHeaders(false));
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->body, "Forbidden");
    EXPECT_EQ(StatusOf(Get("/", StudioHeaders(false))), 403);
    EXPECT_EQ(StatusOf(Get("/js/main.js", StudioHeaders(false))), 403);

    httplib::Result state = Get("/api/state", StudioHeaders());
    ASSERT_EQ(StatusOf(state), 200);
    nlohmann::json body = nlohmann::json::parse(state->body);
    EXPECT_EQ(body["source"]["projects"][0]["name"], "Orders");
    EXPECT_EQ(body["content"]["files"], Guard().ContentOrigin() + "/files/" + Guard().ContentKey());
}

TEST_F(StudioServerSecurityTest, TheFirstAddressSetsTheCookieThatOpensEverythingElse)
{
    httplib::Result first = Get("/?token=" + Guard().Token(), StudioHeaders(false));
    ASSERT_EQ(StatusOf(first), 303);
    EXPECT_EQ(first->get_header_value("Location"), "/");
    std::string cookie = first->get_header_value("Set-Cookie");
    EXPECT_EQ(cookie, Guard().CookieHeaderValue());
    EXPECT_EQ(StatusOf(Get("/?token=wrong", StudioHeaders(false))), 403);

    httplib::Headers withCookie = StudioHeaders(false);
    withCookie.emplace("Cookie", cookie.substr(0, cookie.find(';')));
    httplib::Result page = Get("/", withCookie);
    ASSERT_EQ(StatusOf(page), 200);
    EXPECT_NE(page->body.find("studio page"), std::string::npos);
    EXPECT_EQ(StatusOf(Get("/api/state", withCookie)), 200);
    // The page's files stay inside the page's folder.
    EXPECT_EQ(StatusOf(Get("/../../etc/passwd", withCookie)), 404);
}

TEST_F(StudioServerSecurityTest, AForeignHostIsRefusedEvenWithTheToken)
{
    for (const std::string& host :
        std::vector<std::string> { "evil.example:" + std::to_string(Port()), "127.0.0.1:1", "127.0.0.1" }) {
        httplib::Headers headers { { "Host", host }, { "X-Scrivant-Token", Guard().Token() } };
        EXPECT_EQ(StatusOf(Get("/api/state", headers)), 403) << host;
    }
    // The helps' origin serves helps only: not the API, not the page.
    httplib::Headers content = ContentHeaders();
    content.emplace("X-Scrivant-Token", Guard().Token());
    EXPECT_EQ(StatusOf(Get("/api/state", content)), 403);
    EXPECT_EQ(StatusOf(Get("/", content)), 403);
}

TEST_F(StudioServerSecurityTest, ChangesNeedTheStudiosOwnOrigin)
{
    const std::string command = R"({"command":"AboutForm"})";
    EXPECT_EQ(StatusOf(Post("/api/command", command, StudioHeaders())), 403);
    for (const char* origin : { "http://evil.example", "null", "http://localhost:0" }) {
        httplib::Headers headers = StudioHeaders();
        headers.emplace("Origin", origin);
        EXPECT_EQ(StatusOf(Post("/api/command", command, headers)), 403) << origin;
        EXPECT_EQ(StatusOf(Post("/api/exit", "{}", headers)), 403) << origin;
    }
    httplib::Headers contentOrigin = StudioHeaders();
    contentOrigin.emplace("Origin", Guard().ContentOrigin());
    EXPECT_EQ(StatusOf(Post("/api/cancel", "{}", contentOrigin)), 403);
    // The right Origin without the token is still refused.
    httplib::Headers noToken = StudioHeaders(false);
    noToken.emplace("Origin", Guard().StudioOrigin());
    EXPECT_EQ(StatusOf(Post("/api/command", command, noToken)), 403);

    EXPECT_EQ(StatusOf(PostFromStudio("/api/command", R"({"command":"NoSuchCommand"})")), 400);
    EXPECT_EQ(StatusOf(PostFromStudio("/api/command", "not json")), 400);
    EXPECT_EQ(StatusOf(PostFromStudio("/api/cancel", "{}")), 200);
}

TEST_F(StudioServerSecurityTest, HelpFilesAreServedInsideTheAllowedFoldersOnly)
{
    httplib::Result help = Get(FileUrl(m_app / "CHM/main.htm"), ContentHeaders());
    ASSERT_EQ(StatusOf(help), 200);
    EXPECT_EQ(help->body, "<p>the help</p>");
    EXPECT_EQ(help->get_header_value("Content-Type"), "text/html; charset=utf-8");

    // The key stands for the token on the helps' origin.
    EXPECT_EQ(StatusOf(Get("/files/wrongkey" + m_app.Path() + "CHM/main.htm", ContentHeaders())), 403);
    EXPECT_EQ(StatusOf(Get("/files/" + m_app.Path() + "CHM/main.htm", ContentHeaders())), 403);
    // Only on the helps' origin, where their scripts cannot reach the studio's page.
    EXPECT_EQ(StatusOf(Get(FileUrl(m_app / "CHM/main.htm"), StudioHeaders())), 403);

    EXPECT_EQ(StatusOf(Get(FileUrl(m_app / "CHM/../../" + FileNameOf(RemoveBackslash(m_outside.Path()))
                                   + "/secret.txt"),
                  ContentHeaders())),
        403);
    EXPECT_EQ(StatusOf(Get(FileUrl(m_app / "CHM/../../../../../../etc/passwd"), ContentHeaders())), 403);
    EXPECT_EQ(StatusOf(Get(FileUrl("/etc/passwd"), ContentHeaders())), 403);
    EXPECT_EQ(StatusOf(Get(FileUrl(m_outside / "secret.txt"), ContentHeaders())), 403);
    EXPECT_EQ(StatusOf(Get(FileUrl(m_app / "CHM/leak.htm"), ContentHeaders())), 403);
    EXPECT_EQ(StatusOf(Get(FileUrl(m_app / "CHM"), ContentHeaders())), 403);
    httplib::Headers posting = ContentHeaders();
    posting.emplace("Origin", Guard().ContentOrigin());
    EXPECT_EQ(StatusOf(Post(FileUrl(m_app / "CHM/main.htm"), "x", posting)), 403);
}

TEST_F(StudioServerSecurityTest, FolderListingsAndCompiledHelpsStayInsideAsWell)
{
    httplib::Result listing = Get("/api/browse?path=" + m_app.Path() + "&pattern=*.vbp", StudioHeaders());
    ASSERT_EQ(StatusOf(listing), 200);
    nlohmann::json body = nlohmann::json::parse(listing->body);
    EXPECT_EQ(body["files"], nlohmann::json::array({ "Orders.vbp" }));
    EXPECT_EQ(body["folders"], nlohmann::json::array({ "CHM" }));

    EXPECT_EQ(StatusOf(Get("/api/browse?path=/etc", StudioHeaders())), 403);
    EXPECT_EQ(StatusOf(Get("/api/browse?path=" + m_app.Path() + "../", StudioHeaders())), 403);
    EXPECT_EQ(StatusOf(Get("/api/chm?path=/etc/passwd", StudioHeaders())), 403);
    EXPECT_EQ(StatusOf(Get("/api/chm?path=" + m_app.Path() + "CHM/leak.htm", StudioHeaders())), 403);
    // Inside, but no compiled help.
    EXPECT_EQ(StatusOf(Get("/api/chm?path=" + m_app.Path() + "CHM/main.htm", StudioHeaders())), 422);
    EXPECT_EQ(StatusOf(Get("/chm/" + Guard().ContentKey() + "/etc/passwd/::/x.htm", ContentHeaders())), 403);
}

}  // namespace
}  // namespace scriv::studio
