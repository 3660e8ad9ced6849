#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

#include "foundation/ErrorMessage.h"
#include "foundation/Paths.h"
#include "foundation/Version.h"
#include "ReportingFixture.h"

namespace scriv {
namespace {

const std::string kVersionedTitle = std::string("Scrivant v.") + kProgramVersion;

using ErrorReports = test::ReportingFixture;

TEST_F(ErrorReports, RaisedErrorIsReportedCountedAndAnsweredWithItsCode)
{
    std::uint32_t code = ErrorFrame("CScrivServer.OpenNewProject", [] {
        Raise(status::kTargetFolderRefused, "CScrivActions.CheckTarget", "The folder is refused.");
    });
    EXPECT_EQ(code, status::kTargetFolderRefused);
    EXPECT_EQ(ErrorCounter(), 1);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    const MessageBoxRequest& box = m_ui->MessageBoxes()[0];
    EXPECT_EQ(box.flags, 16);
    EXPECT_EQ(box.title, "Error: " + kVersionedTitle);
    EXPECT_EQ(box.text, "The folder is refused.\r\n\r\n0x80040065 in CScrivActions.CheckTarget");
    EXPECT_NE(ErrorTraceText().find("0x80040065 in CScrivActions.CheckTarget: The folder is refused."), std::string::npos)
        << ErrorTraceText();
    EXPECT_NE(TraceText().find("0x80040065"), std::string::npos);
}

TEST_F(ErrorReports, OtherExceptionsAreGeneralFailuresOfTheFrame)
{
    std::uint32_t code = ErrorFrame("CXmlForm.LoadXml", [] { throw std::runtime_error("bad attribute"); });
    EXPECT_EQ(code, status::kGeneralFailure);
    std::uint32_t second = ErrorFrame("Lonely", [] { throw 42; });
    EXPECT_EQ(second, status::kGeneralFailure);
    EXPECT_EQ(ErrorCounter(), 2);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 2u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "bad attribute\r\n\r\n0x80040001 in CXmlForm.LoadXml");
    EXPECT_EQ(m_ui->MessageBoxes()[1].text, "Unknown failure\r\n\r\n0x80040001 in Lonely");
}

TEST_F(ErrorReports, ErrorWithoutSourceTakesTheFrames)
{
    ErrorFrame("CHelpPrjTree.Save", [] { Raise(status::kNoWriteAccess, "", "Read-only folder"); });
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_NE(m_ui->MessageBoxes()[0].text.find(" in CHelpPrjTree.Save"), std::string::npos);
}

TEST_F(ErrorReports, NormalEndIsSilent)
{
    bool ran = false;
    EXPECT_EQ(ErrorFrame("CScrivant.Generate", [&] { ran = true; }), status::kOk);
    EXPECT_TRUE(ran);
    EXPECT_EQ(ErrorCounter(), 0);
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
    EXPECT_EQ(ErrorTraceText(), "");
}

TEST_F(ErrorReports, FailureAlreadyShownIsNotShownAgain)
{
    std::uint32_t code = ErrorFrame("CScrivant.Generate", [] { Raise(status::kAbandoned, "CScrivant.Generate", "cancelled"); });
    EXPECT_EQ(code, status::kAbandoned);
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
    EXPECT_EQ(ErrorCounter(), 0);
    EXPECT_NE(ErrorTraceText().find("0x8003FE09"), std::string::npos);
}

// An interface whose boxes fail, as a console whose terminal has gone.
class BrokenInterface : public ScriptedUserInterface {
public:
    int MessageBox(const MessageBoxRequest&) override { throw std::runtime_error("no terminal"); }
};

TEST_F(ErrorReports, AFailingReportDoesNotEscapeTheFrame)
{
    std::unique_ptr<IUserInterface> scripted = SetUserInterface(std::make_unique<BrokenInterface>());
    std::uint32_t code = 0;
    EXPECT_NO_THROW(code = ErrorFrame("CScrivant.Generate", [] { Raise(status::kSecondFailure, "X.Y", "twice"); }));
    EXPECT_EQ(code, status::kSecondFailure);
    EXPECT_EQ(ErrorCounter(), 1);
    SetUserInterface(std::move(scripted));
}

TEST_F(ErrorReports, CallersThatCatchReportTheSameWay)
{
    ScrivError error(status::kThirdFailure, "CXmlMessages.Load", "not XML");
    EXPECT_EQ(ReportError(error), status::kThirdFailure);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "not XML\r\n\r\n0x80040003 in CXmlMessages.Load");
    EXPECT_EQ(ErrorCounter(), 1);
}

TEST_F(ErrorReports, ReportTextAndBoxTextEdges)
{
    EXPECT_EQ(ErrorReportText(0x80040001, 12, "bad", "CXmlMessages", "Load"), "0x80040001: CXmlMessages.Load line 12 bad");
    rErrorMessage(0x80040001, 0, "", "", "", false);
    rErrorMessage(0x80040001, 0, "", "mMain", "", false);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 2u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "0x80040001");
    EXPECT_EQ(m_ui->MessageBoxes()[1].text, "0x80040001 in mMain");
    EXPECT_EQ(ErrorCounter(), 2);
}

TEST_F(ErrorReports, WithoutSupportContactNothingIsOfferedByMail)
{
    rErrorMessage(0x80040001, 3, "Disk full", "CScrivant", "Generate", true);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, 16);
    EXPECT_TRUE(m_launched.empty());
}

class MailedReports : public test::ReportingFixture {
protected:
    void SetUp() override
    {
        test::ReportingFixture::SetUp();
        const char* tmp = std::getenv("TMPDIR");
        m_previousTmp = tmp ? std::optional<std::string>(tmp) : std::nullopt;
        setenv("TMPDIR", m_tmp.Path().c_str(), 1);
        SetSupportContact("support@example.org");
    }
    void TearDown() override
    {
        if (m_previousTmp)
            setenv("TMPDIR", m_previousTmp->c_str(), 1);
        else
            unsetenv("TMPDIR");
        test::ReportingFixture::TearDown();
    }
    std::vector<std::string> ReportFiles() const { return ListFiles(m_tmp.Path(), "~*.txt"); }

    test::TempFolder m_tmp;
    std::optional<std::string> m_previousTmp;
};

TEST_F(MailedReports, YesWritesTheReportAndHandsItToTheMailProgram)
{
    m_ui->QueueAnswer(vbYes);
    EXPECT_EQ(rErrorMessage(0x80040001, 7, "Tom & Jerry failed", "CScrivant", "Generate", true), vbYes);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, 4 | 16);
    EXPECT_TRUE(m_ui->MessageBoxes()[0].text.ends_with("\r\n\r\nDo you want to report the problem?"));

    ASSERT_EQ(m_launched.size(), 1u);
    ASSERT_EQ(m_launched[0].size(), 2u);
    EXPECT_EQ(m_launched[0][0], "xdg-email");
    const std::string& url = m_launched[0][1];
    std::string subject = "Runtime%20error%20in%20Scrivant%20v." + std::string(kProgramVersion) + "%20%28CScrivant%29";
    EXPECT_TRUE(url.starts_with("mailto:support@example.org?subject=" + subject + "&body=0x80040001%3A%20CScrivant.Generate%20line%207%20Tom%20%20Jerry"))
        << url;
    EXPECT_NE(url.find("DESCRIBE%20WHAT%20YOU%20TRY%20TO%20DO%3A%20"), std::string::npos);

    std::vector<std::string> files = ReportFiles();
    ASSERT_EQ(files.size(), 1u);
    EXPECT_TRUE(MatchesPattern(files[0], "~??????????????.txt")) << files[0];
    std::string report = m_tmp.Read(files[0]);
    EXPECT_TRUE(report.starts_with("Please send the following error to support@example.org\r\n---\r\n"
                                   "0x80040001: CScrivant.Generate line 7 Tom  Jerry failed\r\n"))
        << report;
    EXPECT_NE(report.find("DESCRIBE WHAT HAPPENS: "), std::string::npos);
    EXPECT_NE(TraceText().find("DESCRIBE WHAT YOU TRY TO DO: "), std::string::npos);
}

TEST_F(MailedReports, WithoutAMailProgramTheReportFileIsOpened)
{
    m_launchResult = 3;
    m_ui->QueueAnswer(vbYes);
    rErrorMessage(0x80040001, 0, "broken", "CScrivant", "Generate", true);
    ASSERT_EQ(m_launched.size(), 2u);
    ASSERT_EQ(ReportFiles().size(), 1u);
    EXPECT_EQ(m_launched[1], (std::vector<std::string> { "xdg-open", m_tmp / ReportFiles()[0] }));
}

TEST_F(MailedReports, NoSendsNothingAndTheDefaultCanBeNo)
{
    m_ui->QueueAnswer(vbNo);
    rErrorMessage(0x80040001, 0, "broken", "CScrivant", "Generate", true);
    EXPECT_TRUE(m_launched.empty());
    EXPECT_TRUE(ReportFiles().empty());

    SetReportDefaultNo(true);
    EXPECT_EQ(rErrorMessage(0x80040001, 0, "broken", "CScrivant", "Generate", true), vbNo);
    EXPECT_EQ(m_ui->MessageBoxes()[1].flags, 4 | 16 | 256);
    EXPECT_TRUE(m_launched.empty());
}

TEST_F(MailedReports, WithoutShowMailThePlainBoxIsShown)
{
    rErrorMessage(0x80040001, 0, "broken", "CScrivant", "Generate", false);
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, 16);
    EXPECT_TRUE(m_launched.empty());
}

TEST_F(ErrorReports, WarningsCarryTheProgramTitleAndGoToTheTrace)
{
    UserWarningMessage("The help file is open elsewhere.");
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    const MessageBoxRequest& box = m_ui->MessageBoxes()[0];
    EXPECT_EQ(box.flags, 48);
    EXPECT_EQ(box.title, kVersionedTitle);
    EXPECT_EQ(box.source, "mErrorMessage.UserWarningMessage");
    EXPECT_NE(TraceText().find(" - UserWarningMessage: The help file is open elsewhere.</msg>"), std::string::npos);
    EXPECT_EQ(ErrorCounter(), 0);
}

TEST(MailHandOff, UrlsArePercentEncoded)
{
    EXPECT_EQ(MailToUrl("a@b.org", "x y", "1&2\r\n~ok_-."), "mailto:a@b.org?subject=x%20y&body=1%262%0D%0A~ok_-.");
    EXPECT_EQ(MailToUrl("a@b.org", "\xC3\xA9", ""), "mailto:a@b.org?subject=%C3%A9&body=");
}

}  // namespace
}  // namespace scriv
