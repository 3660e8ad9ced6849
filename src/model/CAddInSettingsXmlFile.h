#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/CXMLFile.h"
#include "foundation/KeyedCollection.h"

namespace scriv {

class CScrivantParameters;

// A value as the settings store answers it: nothing (no such option), a
// boolean ("true"/"false" in the file, any case), or text.
struct OptionValue {
    enum class Kind { Empty, Boolean, Text };
    Kind kind { Kind::Empty };
    bool boolean { false };
    std::string text;

    bool IsEmpty() const { return kind == Kind::Empty; }
    // The value as the file holds it: "true"/"false", the text, or "".
    std::string AsText() const;
    // True for a boolean true; false for everything else.
    bool AsBool() const;

    static OptionValue Empty() { return {}; }
    static OptionValue Bool(bool value) { return { Kind::Boolean, value, {} }; }
    static OptionValue Text(std::string value) { return { Kind::Text, false, std::move(value) }; }
};

// One named option.
struct CXMLOption {
    std::string Name;
    std::string Value;
};

// The store as the mapping sees it.
class ISettings {
public:
    virtual ~ISettings() = default;
    virtual OptionValue GetOptionValue(std::string_view name) const = 0;
    virtual void SetOptionValue(std::string_view name, const OptionValue& value) = 0;
};

// Moves values between a store and the generation parameters.
class ISettingsLoadSave {
public:
    virtual ~ISettingsLoadSave() = default;
    // Fills the parameters from the store; withProjectFields also takes the
    // fields that only a project file sets (project name, title, application).
    virtual void Load(const ISettings& settings, bool withProjectFields) = 0;
    // Writes the parameters and the other fields into the store.
    virtual void Save(ISettings& settings) = 0;
};

// The mapping between the option table and CScrivantParameters.
class CAddInSettings : public ISettingsLoadSave {
public:
    explicit CAddInSettings(CScrivantParameters& parameters);

    // ^ISettingsLoadSave
    void Load(const ISettings& settings, bool withProjectFields) override;
    void Save(ISettings& settings) override;

    // The names of the options the mapping knows, in the order it writes them,
    // with the ones it only reads at the end.
    static const std::vector<std::string>& KnownOptions();

private:
    CScrivantParameters& m_parameters;
};

// Named options kept in an XML file: the program's settings file, or the
// <Settings> block of a project file. Option names compare without regard to
// case; the order of the file is the order of first use.
class CAddInSettingsXmlFile : public ISettings {
public:
    explicit CAddInSettingsXmlFile(CScrivantParameters& parameters);

    // Reads the options of a settings file (//Settings/Options) or of a project
    // file (//ScrivProject/Settings/Options), then fills the parameters. A file
    // that does not parse is reported with code, reason and path, and its code
    // answered; a file without the options element answers 0x80040001.
    std::uint32_t Load(const std::string& path, bool fromProjectFile);
    void Terminate();

    // ^ISettings
    OptionValue GetOptionValue(std::string_view name) const override;
    void SetOptionValue(std::string_view name, const OptionValue& value) override;
    // Shorthands.
    std::string OptionText(std::string_view name) const { return GetOptionValue(name).AsText(); }
    void SetOptionText(std::string_view name, std::string value) { SetOptionValue(name, OptionValue::Text(std::move(value))); }

    // "<Settings>", "<Options>", one "  <Option Name = "n" Value = "v" />" line per
    // option that exclusions does not name, "</Options>", "</Settings>", each with
    // CR LF. A replacement given for an option is written in place of its value.
    std::string XMLSTr(const std::vector<std::string>& exclusions,
        const std::map<std::string, std::string>& replacements) const;
    // Copies the parameters into the options, writes them to a temporary file,
    // loads that as a test, and only then puts it over path. Raises 0x80040001
    // when the test load fails; the file at path is then untouched.
    void Save(const std::string& path);
    // Copies the parameters into the options without writing.
    void CopyToOptions();

    const CXmlParseError& XmlParseError() const { return m_parseError; }
    const std::vector<CXMLOption>& Options() const { return m_options; }
    const std::string& Path() const { return m_path; }

private:
    CScrivantParameters& m_parameters;
    std::vector<CXMLOption> m_options;
    CXmlParseError m_parseError;
    std::string m_path;
};

}  // namespace scriv
