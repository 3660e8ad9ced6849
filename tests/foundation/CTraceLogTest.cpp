#include <gtest/gtest.h>

#include <pugixml.hpp>
#include <regex>
#include <string>

#include "foundation/AppFolders.h"
#include "foundation/CTraceLog.h"
#include "foundation/Paths.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

constexpr std::string_view kHeader = "<dataroot xmlns:od=\"urn:schemas-microsoft-com:officedata\" started=\"2020-01-02T03:04:05\">\r\n";
constexpr std::string_view kClose = "</dataroot>";

// The texts of the <msg> elements of a log, parsed as XML; fails the test when
// the file is not well formed.
std::vector<std::string> Messages(const std::string& bytes)
{
    pugi::xml_document document;
    pugi::xml_parse_result result = document.load_buffer(bytes.data(), bytes.size());
    EXPECT_TRUE(result) << result.description() << " in:\n" << bytes;
    std::vector<std::string> texts;
    for (pugi::xml_node message : document.child("dataroot").children("msg"))
        texts.emplace_back(message.child_value());
    return texts;
}

// "hh:nn:ss - text" less its time.
std::string WithoutTime(const std::string& message)
{
    EXPECT_TRUE(std::regex_match(message.substr(0, 11), std::regex(R"(\d\d:\d\d:\d\d - )"))) << message;
    return message.substr(11);
}

// A log whose text part (all but the closing tag) is exactly size bytes.
std::string LogOfTextSize(std::size_t size)
{
    std::string text(kHeader);
    const std::string lineStart = "<msg>00:00:00 - ";
    const std::string lineEnd = "</msg>\r\n";
    while (text.size() < size) {
        std::size_t room = size - text.size() - lineStart.size() - lineEnd.size();
        text += lineStart + std::string(std::min<std::size_t>(room, 100), 'x') + lineEnd;
    }
    EXPECT_EQ(text.size(), size);
    return text + std::string(kClose);
}

class TraceLogFiles : public ::testing::Test {
protected:
    void TurnOn() { m_folder.Write("trace.txt", "anything"); }
    std::string Read(std::string_view name) const { return m_folder.Read(name); }
    bool Exists(std::string_view name) const { return FileExists(m_folder / name); }

    test::TempFolder m_folder;
    CTraceLog m_log { m_folder.Path() };
};

TEST_F(TraceLogFiles, WithoutTheSwitchNoFileIsTouched)
{
    EXPECT_FALSE(m_log.IsOn());
    m_log.addMessage("plain", false);
    m_log.addMessage("failure", true);
    EXPECT_EQ(ListFiles(m_folder.Path()), std::vector<std::string> {});
}

TEST_F(TraceLogFiles, FirstMessageCreatesTheLogWithItsExactLayout)
{
    TurnOn();
    EXPECT_TRUE(m_log.IsOn());
    EXPECT_EQ(m_log.addMessage("hello world", false), 0u);
    std::regex layout(R"(<dataroot xmlns:od="urn:schemas-microsoft-com:officedata" started="\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d">\r\n)"
                      R"(<msg>\d\d:\d\d:\d\d - hello world</msg>\r\n</dataroot>)");
    EXPECT_TRUE(std::regex_match(Read("trace.xml"), layout)) << Read("trace.xml");
    EXPECT_FALSE(Exists("tracedErrors.xml"));
}

TEST_F(TraceLogFiles, StaysWellFormedAfterEveryMessage)
{
    TurnOn();
    for (int i = 1; i <= 25; ++i) {
        bool isError = i % 5 == 0;
        m_log.addMessage("step " + std::to_string(i) + " <b>&amp; \"q\"</b>", isError);
        std::string log = Read("trace.xml");
        ASSERT_TRUE(log.ends_with(kClose));
        std::vector<std::string> messages = Messages(log);
        ASSERT_EQ(messages.size(), static_cast<std::size_t>(i));
        EXPECT_EQ(WithoutTime(messages.back()), "step " + std::to_string(i) + " <b>&amp; \"q\"</b>");
        if (isError) {
            std::string errors = Read("tracedErrors.xml");
            ASSERT_TRUE(errors.ends_with(kClose));
            EXPECT_EQ(Messages(errors).size(), static_cast<std::size_t>(i / 5));
        }
    }
}

TEST_F(TraceLogFiles, EscapesAmpersandFirstSoNothingDoubles)
{
    TurnOn();
    m_log.addMessage("a & b < c > d \"e\"", false);
    std::string log = Read("trace.xml");
    EXPECT_NE(log.find(" - a &amp; b &lt; c &gt; d &quot;e&quot;</msg>"), std::string::npos) << log;
    EXPECT_EQ(log.find("&amp;lt;"), std::string::npos);
    EXPECT_EQ(TraceEscape("&lt;"), "&amp;lt;");
}

TEST_F(TraceLogFiles, ErrorsGoToBothLogs)
{
    TurnOn();
    m_log.addMessage("just so", false);
    m_log.addMessage("went wrong", true);
    std::vector<std::string> all = Messages(Read("trace.xml"));
    std::vector<std::string> errors = Messages(Read("tracedErrors.xml"));
    ASSERT_EQ(all.size(), 2u);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(WithoutTime(errors[0]), "went wrong");
    EXPECT_EQ(errors[0], all[1]);
}

TEST_F(TraceLogFiles, MirrorsPlainLinesIntoTheTextFile)
{
    TurnOn();
    m_log.addMessage("a & <b>", false);
    m_log.addMessage("</dataroot>", false);
    m_log.addMessage("second", true);
    std::string mirror = Read("trace.xml.txt");
    EXPECT_TRUE(std::regex_match(mirror, std::regex("\\d\\d:\\d\\d:\\d\\d - a & <b>\r\n\\d\\d:\\d\\d:\\d\\d - second\r\n"))) << mirror;
    // The closing tag as a message is escaped in the log, so the log stays whole.
    EXPECT_EQ(Messages(Read("trace.xml")).size(), 3u);
}

TEST_F(TraceLogFiles, ExactlyTheRotationSizeIsKept)
{
    TurnOn();
    std::string full = LogOfTextSize(CTraceLog::kRotationSize);
    m_folder.Write("trace.xml", full);
    m_log.addMessage("still here", false);
    EXPECT_FALSE(Exists("trace_back.xml"));
    std::string log = Read("trace.xml");
    EXPECT_EQ(log.substr(0, CTraceLog::kRotationSize), full.substr(0, CTraceLog::kRotationSize));
    EXPECT_EQ(WithoutTime(Messages(log).back()), "still here");
}

TEST_F(TraceLogFiles, OneByteMoreRotatesIntoTheBackFile)
{
    TurnOn();
    std::string full = LogOfTextSize(CTraceLog::kRotationSize + 1);
    m_folder.Write("trace.xml", full);
    m_log.addMessage("fresh start", false);
    EXPECT_EQ(Read("trace_back.xml"), full);
    std::vector<std::string> messages = Messages(Read("trace.xml"));
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(WithoutTime(messages[0]), "fresh start");
}

TEST_F(TraceLogFiles, ErrorLogRotatesOnItsOwn)
{
    TurnOn();
    std::string full = LogOfTextSize(CTraceLog::kRotationSize + 1);
    m_folder.Write("tracedErrors.xml", full);
    m_log.addMessage("broken", true);
    EXPECT_EQ(Read("traceErrors_back.xml"), full);
    EXPECT_FALSE(Exists("trace_back.xml"));
    EXPECT_EQ(Messages(Read("tracedErrors.xml")).size(), 1u);
}

TEST_F(TraceLogFiles, HeldRotationLetsTheLogGrow)
{
    TurnOn();
    m_log.SetRotationHeld(true);
    std::string full = LogOfTextSize(CTraceLog::kRotationSize + 500);
    m_folder.Write("trace.xml", full);
    m_log.addMessage("kept", false);
    EXPECT_FALSE(Exists("trace_back.xml"));
    EXPECT_GT(Messages(Read("trace.xml")).size(), 1u);
}

TEST_F(TraceLogFiles, DamagedLogIsSetAsideNotWrittenInto)
{
    TurnOn();
    m_folder.Write("trace.xml", "<dataroot started=\"x\">\r\n<msg>half a li");
    m_log.addMessage("after the crash", false);
    EXPECT_EQ(Read("trace_back.xml"), "<dataroot started=\"x\">\r\n<msg>half a li");
    std::vector<std::string> messages = Messages(Read("trace.xml"));
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(WithoutTime(messages[0]), "after the crash");
}

TEST_F(TraceLogFiles, AFailingWriteIsSwallowed)
{
    TurnOn();
    ASSERT_TRUE(MakeFolders(m_folder / "trace.xml/"));
    std::uint32_t result = 0;
    EXPECT_NO_THROW(result = m_log.addMessage("nowhere to go", true));
    EXPECT_NE(result, 0u);
    // The error log does not depend on the main one.
    EXPECT_EQ(Messages(Read("tracedErrors.xml")).size(), 1u);
}

TEST(TraceLogAccessor, FollowsTheLogFolderOfTheProcess)
{
    test::TempFolder home;
    test::TempFolder data;
    AppFolderOptions previous { Folders().InstallFolder(), Folders().UserDataFolder() };
    ConfigureFolders({ home.Path(), data.Path() });
    ReleaseTraceLog();
    data.Write("trace.txt", "");
    EXPECT_EQ(TraceLog().Folder(), data.Path());
    Trace("through the module");
    EXPECT_NE(data.Read("trace.xml").find(" - through the module</msg>"), std::string::npos);

    TraceLog().SetVerbose(true);
    ReleaseTraceLog();
    EXPECT_FALSE(TraceLog().Verbose());
    ReleaseTraceLog();
    ConfigureFolders(previous);
}

}  // namespace
}  // namespace scriv
