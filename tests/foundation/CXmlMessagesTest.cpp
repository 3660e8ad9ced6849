#include <gtest/gtest.h>

#include "foundation/CXmlMessages.h"
#include "foundation/ScrivError.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

constexpr std::string_view kTable = R"(<?xml version="1.0" encoding="utf-8" ?>
<Messages>
  <!-- a comment between rows -->
  <Message Code="Saved" Text="The project {1} was saved in {2}."/>
  <Message Code="Plain" Text="Nothing to replace: {1}"/>
  <Message Code="{{ContentsTitle}}" Text="Contents title" T="Contents"/>
  <Message Code="{{IndexTitle}}" T="Index"/>
  <Message code="lower" text="attribute names in any case"/>
  <Message Code="Empty" Text=""/>
  <Message Code="Saved" Text="a second row with a used code"/>
</Messages>
)";

class MessageTable : public ::testing::Test {
protected:
    void SetUp() override { m_messages.Load(m_folder.Write("Messages.xml", kTable)); }
    test::TempFolder m_folder;
    CXmlMessages m_messages;
};

TEST_F(MessageTable, AnswersTextsByCodeWithoutRegardToCase)
{
    EXPECT_EQ(m_messages.GetMessage("Saved"), "The project {1} was saved in {2}.");
    EXPECT_EQ(m_messages.GetMessage("SAVED"), "The project {1} was saved in {2}.");
    EXPECT_EQ(m_messages.GetMessage("lower"), "attribute names in any case");
    EXPECT_EQ(m_messages.GetMessage("{{ContentsTitle}}"), "Contents title");
    EXPECT_EQ(m_messages.Messages().Count(), 4u);
}

TEST_F(MessageTable, UnknownOrTextlessCodesAnswerEmpty)
{
    EXPECT_EQ(m_messages.GetMessage("NoSuchCode"), "");
    EXPECT_EQ(m_messages.GetMessage("Empty"), "");
    EXPECT_EQ(m_messages.GetMessage("{{IndexTitle}}"), "");
    EXPECT_EQ(m_messages.GetMessageWithParams("NoSuchCode", { "x" }), "");
}

TEST_F(MessageTable, ParametersReplacePlaceholdersByPosition)
{
    EXPECT_EQ(m_messages.GetMessageWithParams("Saved", { "Help1", "/out/" }), "The project Help1 was saved in /out/.");
    // No parameters: the placeholder stays.
    EXPECT_EQ(m_messages.GetMessageWithParams("Plain", {}), "Nothing to replace: {1}");
    // Too few parameters: the missing ones stay.
    EXPECT_EQ(m_messages.GetMessageWithParams("Saved", { "Help1" }), "The project Help1 was saved in {2}.");
    // A value that looks like a placeholder is not replaced again.
    EXPECT_EQ(m_messages.GetMessageWithParams("Saved", { "{2}", "there" }), "The project {2} was saved in there.");
}

TEST(Placeholders, OnlyWholeNumbersInBracesAreReplaced)
{
    std::vector<std::string> params { "A", "B" };
    EXPECT_EQ(ReplacePlaceholders("{1}{2}{1}", params), "ABA");
    EXPECT_EQ(ReplacePlaceholders("{0} {3} {x} {} {-1} {+1} { 1}", params), "{0} {3} {x} {} {-1} {+1} { 1}");
    EXPECT_EQ(ReplacePlaceholders("{{1}} {1", params), "{A} {1");
    EXPECT_EQ(ReplacePlaceholders("", params), "");
}

TEST_F(MessageTable, ReplaceParametersLocalisesPageWords)
{
    EXPECT_EQ(m_messages.ReplaceParameters("<h1>{{ContentsTitle}}</h1><p>{{IndexTitle}} / {{ContentsTitle}}</p>{{Other}}"),
        "<h1>Contents</h1><p>Index / Contents</p>{{Other}}");
    // Rows without T are messages only.
    EXPECT_EQ(m_messages.ReplaceParameters("Saved"), "Saved");
}

TEST_F(MessageTable, ReloadForgetsTheOldTable)
{
    std::string other = m_folder.Write("Other.xml", "<Messages><M Code=\"New\" Text=\"new text\"/></Messages>");
    m_messages.Reload(other);
    EXPECT_EQ(m_messages.GetMessage("New"), "new text");
    EXPECT_EQ(m_messages.GetMessage("Saved"), "");
    EXPECT_EQ(m_messages.ReplaceParameters("{{ContentsTitle}}"), "{{ContentsTitle}}");
    EXPECT_EQ(m_messages.Path(), other);
}

TEST_F(MessageTable, AFileThatDoesNotParseRaisesAndEmptiesTheTable)
{
    std::string broken = m_folder.Write("Broken.xml", "<Messages><Message Code=\"A\" Text=\"a\"></Messages>");
    try {
        m_messages.Load(broken);
        FAIL() << "no error raised";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Source(), "CXmlMessages.Load");
        EXPECT_NE(error.Code(), 0u);
        EXPECT_TRUE(error.Description().ends_with(" - " + FormatCode(error.Code()))) << error.Description();
        EXPECT_GT(error.Description().size(), 13u);
    }
    EXPECT_EQ(m_messages.GetMessage("Saved"), "");
    EXPECT_THROW(m_messages.Load(m_folder / "missing.xml"), ScrivError);
}

TEST(MessagesFile, LanguageFolderFirstThenEnglish)
{
    test::TempFolder root;
    root.Write("Localized/EN/Messages.xml", "<Messages/>");
    root.Write("Localized/DE/Messages.xml", "<Messages/>");
    EXPECT_EQ(FindMessagesFile(root.Path(), "DE"), root / "Localized/DE/Messages.xml");
    EXPECT_EQ(FindMessagesFile(root.Path(), "FR"), root / "Localized/EN/Messages.xml");
    EXPECT_EQ(FindMessagesFile(root.Path(), ""), root / "Localized/EN/Messages.xml");
}

TEST(MessagesFile, TheShippedTableHasThePageWords)
{
    CXmlMessages messages;
    messages.Load(FindMessagesFile(test::SourceDataFolder() + "Templates", "EN"));
    EXPECT_FALSE(messages.GetMessage("{{HelpScreenshots}}").empty());
    EXPECT_FALSE(messages.GetMessage("{{DatamodelScreenshot}}").empty());
    EXPECT_EQ(messages.ReplaceParameters("<p>{{HelpScreenshots}}</p>"), "<p>" + messages.GetMessage("{{HelpScreenshots}}") + "</p>");
}

}  // namespace
}  // namespace scriv
