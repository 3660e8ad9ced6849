#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace scriv {

// Status codes. 0 is success; the 0x8004xxxx values are the house failure codes,
// 0x8003FE09 means that the failure has been shown to the user already.
namespace status {
inline constexpr std::uint32_t kOk = 0;
inline constexpr std::uint32_t kGeneralFailure = 0x80040001;
inline constexpr std::uint32_t kSecondFailure = 0x80040002;
inline constexpr std::uint32_t kThirdFailure = 0x80040003;
inline constexpr std::uint32_t kAbandoned = 0x8003FE09;

// Status codes of the user commands.
inline constexpr std::uint32_t kNoSourceProject = 0x80040001;
inline constexpr std::uint32_t kNoProjectsListed = 0x80040002;
inline constexpr std::uint32_t kWizardDefinitionMissing = 0x80040003;
inline constexpr std::uint32_t kCodePagesMissing = 0x80040004;
inline constexpr std::uint32_t kSampleFormMissing = 0x80040005;
inline constexpr std::uint32_t kSampleFormPictureMissing = 0x80040006;
inline constexpr std::uint32_t kNoUniqueProjectName = 0x80040007;
inline constexpr std::uint32_t kTargetFolderRefused = 0x80040065;
inline constexpr std::uint32_t kProjectNameRegistered = 0x80040066;
inline constexpr std::uint32_t kTargetFolderNotCreated = 0x80040067;
inline constexpr std::uint32_t kLockedHelpFileCancelled = 0x80040068;
inline constexpr std::uint32_t kNoWriteAccess = 0x80040069;
}  // namespace status

// The one failure type of the system: a 32-bit code, the place it was raised
// ("Class.Procedure") and a description for the user.
class ScrivError : public std::runtime_error {
public:
    ScrivError(std::uint32_t code, std::string source, std::string description);

    std::uint32_t Code() const { return m_code; }
    const std::string& Source() const { return m_source; }
    const std::string& Description() const { return m_description; }

private:
    std::uint32_t m_code { 0 };
    std::string m_source;
    std::string m_description;
};

// Throws a ScrivError.
[[noreturn]] void Raise(std::uint32_t code, std::string source, std::string description);

// "0x80040001" - the form in which codes appear in messages and logs.
std::string FormatCode(std::uint32_t code);

}  // namespace scriv
