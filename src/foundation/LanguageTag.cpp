#include "foundation/LanguageTag.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <vector>

#include "foundation/StringUtil.h"

namespace scriv {

namespace {

struct Language {
    std::string_view code;    // the shortest ISO 639 code, as BCP 47 wants it
    std::string_view iso3;    // ISO 639-2/T
    std::string_view iso3b;   // ISO 639-2/B where it differs, else ""
    std::string_view names;   // English names, "|" between them
    int windowsPrimary;       // the low ten bits of a Windows language code, or 0
};

// The languages known by name and by three-letter code.
constexpr Language kLanguages[] = {
    { "af", "afr", "", "Afrikaans", 0x36 },
    { "sq", "sqi", "alb", "Albanian", 0x1c },
    { "am", "amh", "", "Amharic", 0x5e },
    { "ar", "ara", "", "Arabic", 0x01 },
    { "hy", "hye", "arm", "Armenian", 0x2b },
    { "az", "aze", "", "Azerbaijani|Azeri", 0x2c },
    { "eu", "eus", "baq", "Basque", 0x2d },
    { "be", "bel", "", "Belarusian|Byelorussian", 0x23 },
    { "bn", "ben", "", "Bengali|Bangla", 0x45 },
    { "bs", "bos", "", "Bosnian", 0 },
    { "bg", "bul", "", "Bulgarian", 0x02 },
    { "ca", "cat", "", "Catalan", 0x03 },
    { "ckb", "ckb", "", "Central Kurdish|Sorani", 0x92 },
    { "zh", "zho", "chi", "Chinese", 0x04 },
    { "hr", "hrv", "", "Croatian", 0x1a },
    { "cs", "ces", "cze", "Czech", 0x05 },
    { "da", "dan", "", "Danish", 0x06 },
    { "dv", "div", "", "Divehi|Dhivehi|Maldivian", 0x65 },
    { "nl", "nld", "dut", "Dutch|Flemish", 0x13 },
    { "en", "eng", "", "English", 0x09 },
    { "et", "est", "", "Estonian", 0x25 },
    { "fo", "fao", "", "Faroese", 0x38 },
    { "fil", "fil", "", "Filipino", 0x64 },
    { "fi", "fin", "", "Finnish", 0x0b },
    { "fr", "fra", "fre", "French", 0x0c },
    { "gl", "glg", "", "Galician", 0x56 },
    { "ka", "kat", "geo", "Georgian", 0x37 },
    { "de", "deu", "ger", "German", 0x07 },
    { "el", "ell", "gre", "Greek", 0x08 },
    { "gu", "guj", "", "Gujarati", 0x47 },
    { "he", "heb", "", "Hebrew", 0x0d },
    { "hi", "hin", "", "Hindi", 0x39 },
    { "hu", "hun", "", "Hungarian", 0x0e },
    { "is", "isl", "ice", "Icelandic", 0x0f },
    { "id", "ind", "", "Indonesian", 0x21 },
    { "ga", "gle", "", "Irish", 0x3c },
    { "it", "ita", "", "Italian", 0x10 },
    { "ja", "jpn", "", "Japanese", 0x11 },
    { "kn", "kan", "", "Kannada", 0x4b },
    { "kk", "kaz", "", "Kazakh", 0x3f },
    { "km", "khm", "", "Khmer", 0x53 },
    { "ko", "kor", "", "Korean", 0x12 },
    { "ku", "kur", "", "Kurdish", 0 },
    { "ky", "kir", "", "Kyrgyz", 0x40 },
    { "lo", "lao", "", "Lao", 0x54 },
    { "lv", "lav", "", "Latvian", 0x26 },
    { "lt", "lit", "", "Lithuanian", 0x27 },
    { "mk", "mkd", "mac", "Macedonian", 0x2f },
    { "ms", "msa", "may", "Malay", 0x3e },
    { "ml", "mal", "", "Malayalam", 0x4c },
    { "mt", "mlt", "", "Maltese", 0x3a },
    { "mr", "mar", "", "Marathi", 0x4e },
    { "mn", "mon", "", "Mongolian", 0x50 },
    { "ne", "nep", "", "Nepali", 0x61 },
    { "no", "nor", "", "Norwegian", 0x14 },
    { "nb", "nob", "", "Norwegian Bokmal|Norwegian Bokm\u00e5l|Bokmal|Bokm\u00e5l", 0 },
    { "nn", "nno", "", "Norwegian Nynorsk|Nynorsk", 0 },
    { "ps", "pus", "", "Pashto|Pushto", 0x63 },
    { "fa", "fas", "per", "Persian|Farsi", 0x29 },
    { "pl", "pol", "", "Polish", 0x15 },
    { "pt", "por", "", "Portuguese", 0x16 },
    { "pa", "pan", "", "Punjabi|Panjabi", 0x46 },
    { "ro", "ron", "rum", "Romanian", 0x18 },
    { "ru", "rus", "", "Russian", 0x19 },
    { "sr", "srp", "", "Serbian", 0 },
    { "sd", "snd", "", "Sindhi", 0x59 },
    { "si", "sin", "", "Sinhala|Sinhalese", 0x5b },
    { "sk", "slk", "slo", "Slovak", 0x1b },
    { "sl", "slv", "", "Slovenian|Slovene", 0x24 },
    { "es", "spa", "", "Spanish|Castilian", 0x0a },
    { "sw", "swa", "", "Swahili|Kiswahili", 0x41 },
    { "sv", "swe", "", "Swedish", 0x1d },
    { "syr", "syr", "", "Syriac", 0x5a },
    { "tl", "tgl", "", "Tagalog", 0 },
    { "ta", "tam", "", "Tamil", 0x49 },
    { "tt", "tat", "", "Tatar", 0x44 },
    { "te", "tel", "", "Telugu", 0x4a },
    { "th", "tha", "", "Thai", 0x1e },
    { "bo", "bod", "tib", "Tibetan", 0x51 },
    { "tr", "tur", "", "Turkish", 0x1f },
    { "uk", "ukr", "", "Ukrainian", 0x22 },
    { "ur", "urd", "", "Urdu", 0x20 },
    { "ug", "uig", "", "Uyghur|Uighur", 0x80 },
    { "uz", "uzb", "", "Uzbek", 0x43 },
    { "vi", "vie", "", "Vietnamese", 0x2a },
    { "cy", "cym", "wel", "Welsh", 0x52 },
    { "xh", "xho", "", "Xhosa", 0x34 },
    { "yi", "yid", "", "Yiddish", 0x3d },
    { "zu", "zul", "", "Zulu", 0x35 },
};

// Every two-letter code of ISO 639-1.
constexpr std::string_view kIso6391 =
    "aa ab ae af ak am an ar as av ay az ba be bg bh bi bm bn bo br bs ca ce ch co cr cs cu cv cy da de dv dz ee "
    "el en eo es et eu fa ff fi fj fo fr fy ga gd gl gn gu gv ha he hi ho hr ht hu hy hz ia id ie ig ii ik io is "
    "it iu ja jv ka kg ki kj kk kl km kn ko kr ks ku kv kw ky la lb lg li ln lo lt lu lv mg mh mi mk ml mn mr ms "
    "mt my na nb nd ne ng nl nn no nr nv ny oc oj om or os pa pi pl ps pt qu rm rn ro ru rw sa sc sd se sg si sk "
    "sl sm sn so sq sr ss st su sv sw ta te tg th ti tk tl tn to tr ts tt tw ty ug uk ur uz ve vi vo wa wo xh yi "
    "yo za zh zu";

struct Pair {
    std::string_view from;
    std::string_view to;
};

// Codes that ISO 639 has withdrawn, and what replaced them.
constexpr Pair kWithdrawn[] = { { "iw", "he" }, { "in", "id" }, { "ji", "yi" }, { "jw", "jv" }, { "mo", "ro" } };

// Country codes that folders are named by, where the code is no language code.
constexpr Pair kCountryFolders[] = {
    { "cn", "zh-CN" }, { "tw", "zh-TW" }, { "hk", "zh-HK" }, { "jp", "ja" }, { "kr", "ko" }, { "gr", "el" },
    { "dk", "da" }, { "cz", "cs" }, { "ua", "uk" }, { "vn", "vi" }, { "il", "he" },
};

// Windows's own three-letter language abbreviations.
constexpr Pair kWindowsAbbreviations[] = {
    { "enu", "en-US" }, { "ena", "en-AU" }, { "enc", "en-CA" }, { "dea", "de-AT" }, { "des", "de-CH" },
    { "frc", "fr-CA" }, { "frb", "fr-BE" }, { "frs", "fr-CH" }, { "esp", "es-ES" }, { "esn", "es-ES" },
    { "esm", "es-MX" }, { "euq", "eu-ES" }, { "nlb", "nl-BE" }, { "ptb", "pt-BR" }, { "ptg", "pt-PT" },
    { "sve", "sv-SE" }, { "non", "nn-NO" }, { "msl", "ms-MY" }, { "plk", "pl-PL" }, { "csy", "cs-CZ" },
    { "sky", "sk-SK" }, { "rom", "ro-RO" }, { "srb", "sr-Cyrl" }, { "srl", "sr-Latn" },
    { "mki", "mk-MK" }, { "trk", "tr-TR" }, { "lth", "lt-LT" }, { "lvi", "lv-LV" }, { "eti", "et-EE" },
    { "are", "ar-EG" }, { "far", "fa-IR" }, { "chs", "zh-CN" }, { "cht", "zh-TW" }, { "zhh", "zh-HK" },
    { "zhi", "zh-SG" }, { "vit", "vi-VN" },
};

struct WindowsCode {
    int code;
    std::string_view tag;
};

// Whole Windows language codes that say more than their language.
constexpr WindowsCode kWindowsCodes[] = {
    { 1033, "en-US" }, { 2057, "en-GB" }, { 3081, "en-AU" }, { 4105, "en-CA" }, { 5129, "en-NZ" },
    { 6153, "en-IE" }, { 1031, "de-DE" }, { 3079, "de-AT" }, { 2055, "de-CH" }, { 1036, "fr-FR" },
    { 3084, "fr-CA" }, { 2060, "fr-BE" }, { 4108, "fr-CH" }, { 1040, "it-IT" }, { 2064, "it-CH" },
    { 1034, "es-ES" }, { 3082, "es-ES" }, { 2058, "es-MX" }, { 11274, "es-AR" }, { 1027, "ca-ES" },
    { 1069, "eu-ES" }, { 1043, "nl-NL" }, { 2067, "nl-BE" }, { 1046, "pt-BR" }, { 2070, "pt-PT" },
    { 1053, "sv-SE" }, { 1030, "da-DK" }, { 1044, "nb-NO" }, { 2068, "nn-NO" }, { 1035, "fi-FI" },
    { 1039, "is-IS" }, { 1057, "id-ID" }, { 1086, "ms-MY" }, { 1045, "pl-PL" }, { 1029, "cs-CZ" },
    { 1051, "sk-SK" }, { 1038, "hu-HU" }, { 1060, "sl-SI" }, { 1050, "hr-HR" }, { 1048, "ro-RO" },
    { 1052, "sq-AL" }, { 1049, "ru-RU" }, { 1058, "uk-UA" }, { 1059, "be-BY" }, { 1026, "bg-BG" },
    { 3098, "sr-Cyrl" }, { 2074, "sr-Latn" }, { 10266, "sr-Cyrl-RS" }, { 9242, "sr-Latn-RS" },
    { 5146, "bs-Latn" }, { 8218, "bs-Cyrl" }, { 1071, "mk-MK" }, { 1032, "el-GR" }, { 1055, "tr-TR" },
    { 1063, "lt-LT" }, { 1062, "lv-LV" }, { 1061, "et-EE" }, { 1037, "he-IL" }, { 1025, "ar-SA" },
    { 3073, "ar-EG" }, { 5121, "ar-DZ" }, { 6145, "ar-MA" }, { 14337, "ar-AE" }, { 1065, "fa-IR" },
    { 1056, "ur-PK" }, { 1041, "ja-JP" }, { 2052, "zh-CN" }, { 4100, "zh-SG" }, { 1028, "zh-TW" },
    { 3076, "zh-HK" }, { 5124, "zh-MO" }, { 1042, "ko-KR" }, { 1054, "th-TH" }, { 1066, "vi-VN" },
    { 1081, "hi-IN" }, { 1123, "ps-AF" }, { 1164, "prs-AF" },
};

// Names in brackets after a language name.
constexpr Pair kRegions[] = {
    { "united states", "US" }, { "usa", "US" }, { "united kingdom", "GB" }, { "uk", "GB" }, { "great britain", "GB" },
    { "australia", "AU" }, { "canada", "CA" }, { "ireland", "IE" }, { "new zealand", "NZ" },
    { "south africa", "ZA" }, { "india", "IN" }, { "germany", "DE" }, { "austria", "AT" },
    { "switzerland", "CH" }, { "liechtenstein", "LI" }, { "luxembourg", "LU" }, { "france", "FR" },
    { "belgium", "BE" }, { "italy", "IT" }, { "spain", "ES" }, { "mexico", "MX" }, { "argentina", "AR" },
    { "netherlands", "NL" }, { "brazil", "BR" }, { "portugal", "PT" }, { "malaysia", "MY" },
    { "saudi arabia", "SA" }, { "egypt", "EG" }, { "algeria", "DZ" }, { "morocco", "MA" }, { "iraq", "IQ" },
    { "jordan", "JO" }, { "lebanon", "LB" }, { "u.a.e.", "AE" }, { "united arab emirates", "AE" },
    { "israel", "IL" }, { "iran", "IR" }, { "afghanistan", "AF" }, { "pakistan", "PK" }, { "prc", "CN" },
    { "china", "CN" }, { "singapore", "SG" }, { "taiwan", "TW" }, { "hong kong sar", "HK" }, { "hong kong", "HK" },
    { "macao sar", "MO" }, { "macau sar", "MO" }, { "japan", "JP" }, { "korea", "KR" }, { "russia", "RU" },
    { "ukraine", "UA" }, { "serbia", "RS" }, { "sweden", "SE" }, { "finland", "FI" }, { "norway", "NO" },
    { "denmark", "DK" }, { "poland", "PL" }, { "turkey", "TR" }, { "greece", "GR" },
};

constexpr Pair kScripts[] = {
    { "cyrillic", "Cyrl" }, { "latin", "Latn" }, { "arabic", "Arab" }, { "hebrew", "Hebr" },
    { "devanagari", "Deva" }, { "simplified", "Hans" }, { "traditional", "Hant" },
};

// Languages and scripts written from right to left.
constexpr std::string_view kRightToLeftLanguages[] = {
    "ar", "arc", "ckb", "dv", "fa", "he", "ks", "pnb", "prs", "ps", "sd", "syr", "ug", "ur", "yi",
};
constexpr std::string_view kRightToLeftScripts[] = {
    "adlm", "arab", "aran", "hebr", "mand", "mend", "nkoo", "rohg", "samr", "syrc", "thaa", "yezi",
};

template <std::size_t N>
std::optional<std::string_view> Find(const Pair (&table)[N], std::string_view key)
{
    for (const Pair& pair : table)
        if (pair.from == key)
            return pair.to;
    return std::nullopt;
}

bool IsAsciiAlpha(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsAsciiDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool AllOf(std::string_view text, bool (*test)(char))
{
    return !text.empty() && std::all_of(text.begin(), text.end(), test);
}

bool IsAlphaNumeric(char c)
{
    return IsAsciiAlpha(c) || IsAsciiDigit(c);
}

bool IsIso6391(std::string_view code)
{
    if (code.size() != 2)
        return false;
    for (std::size_t at = 0; at < kIso6391.size(); at += 3)
        if (kIso6391.substr(at, 2) == code)
            return true;
    return false;
}

const Language* LanguageByCode(std::string_view lowerCode)
{
    for (const Language& language : kLanguages)
        if (language.code == lowerCode || language.iso3 == lowerCode || language.iso3b == lowerCode)
            return &language;
    return nullptr;
}

const Language* LanguageByName(std::string_view name)
{
    for (const Language& language : kLanguages)
        for (const std::string& each : Split(language.names, "|"))
            if (EqualsNoCase(each, name))
                return &language;
    return nullptr;
}

// The language subtag of a tag-like first part: "" when it is none.
std::string PrimaryLanguage(std::string_view lower)
{
    if (auto replaced = Find(kWithdrawn, lower))
        return std::string(*replaced);
    if (lower.size() == 2) {
        if (IsIso6391(lower))
            return std::string(lower);
        if (auto country = Find(kCountryFolders, lower))
            return std::string(*country);
        return {};
    }
    if (lower.size() == 3) {
        if (const Language* language = LanguageByCode(lower))
            return std::string(language->code);
        if (auto windows = Find(kWindowsAbbreviations, lower))
            return std::string(*windows);
        // Most languages have a three-letter code only; such a code is its own tag.
        return std::string(lower);
    }
    return {};
}

// "EN", "pt_BR", "zh-hant-tw", "zh-CHS" as a well-formed tag; "" when the text
// is not a tag.
std::string TagFromCode(std::string_view text)
{
    std::vector<std::string> parts = Split(ReplaceAll(text, "_", "-"), "-");
    if (parts.empty() || !AllOf(parts[0], IsAsciiAlpha))
        return {};
    std::string tag = PrimaryLanguage(ToLower(parts[0]));
    if (tag.empty())
        return {};
    bool extension = false;
    for (std::size_t i = 1; i < parts.size(); ++i) {
        std::string part = ToLower(parts[i]);
        if (part.empty() || part.size() > 8 || !AllOf(part, IsAlphaNumeric))
            return {};
        if (extension || part.size() == 1) {
            // An extension or private use: the rest stays as it is, in lower case.
            extension = true;
        } else if (part == "chs" || part == "cht") {
            part = part == "chs" ? "Hans" : "Hant";
        } else if (part.size() == 4 && AllOf(part, IsAsciiAlpha)) {
            part[0] = static_cast<char>(part[0] - 'a' + 'A');
        } else if ((part.size() == 2 && AllOf(part, IsAsciiAlpha)) || (part.size() == 3 && AllOf(part, IsAsciiDigit))) {
            part = ToUpper(part);
        } else if (part.size() < 4 || (part.size() == 4 && !IsAsciiDigit(part[0]))) {
            return {};
        }
        tag += "-" + part;
    }
    return tag;
}

// "0x409 English (United States)", "1025": the tag of a Windows language code.
std::string TagFromWindowsCode(std::string_view text)
{
    std::string number(text.substr(0, text.find(' ')));
    int code = 0;
    try {
        std::size_t used = 0;
        bool hex = StartsWithNoCase(number, "0x");
        code = std::stoi(hex ? number.substr(2) : number, &used, hex ? 16 : 10);
        if (used != number.size() - (hex ? 2 : 0))
            return {};
    } catch (const std::logic_error&) {
        return {};
    }
    for (const WindowsCode& known : kWindowsCodes)
        if (known.code == code)
            return std::string(known.tag);
    int primary = code & 0x3ff;
    for (const Language& language : kLanguages)
        if (primary != 0 && language.windowsPrimary == primary)
            return std::string(language.code);
    return {};
}

// "Arabic (Egypt)", "Serbian (Cyrillic)", "Norwegian (Bokmal)", "Chinese".
std::string TagFromName(std::string_view text)
{
    std::string name = Trim(text.substr(0, text.find('(')));
    std::string bracket;
    if (std::size_t open = text.find('('); open != std::string_view::npos) {
        std::size_t close = text.find(')', open);
        bracket = Trim(text.substr(open + 1, close == std::string_view::npos ? std::string_view::npos : close - open - 1));
    }
    if (!bracket.empty())
        if (const Language* combined = LanguageByName(name + " " + bracket))
            return std::string(combined->code);
    const Language* language = LanguageByName(name);
    if (!language)
        return {};
    std::string tag(language->code);
    std::string key = ToLower(bracket);
    if (auto script = Find(kScripts, key))
        tag += "-" + std::string(*script);
    else if (auto region = Find(kRegions, key))
        tag += "-" + std::string(*region);
    return tag;
}

}  // namespace

bool IsRightToLeftTag(std::string_view tag)
{
    std::vector<std::string> parts = Split(ToLower(tag), "-");
    if (parts.empty())
        return false;
    for (std::size_t i = 1; i < parts.size(); ++i) {
        if (parts[i].size() == 1)
            break;
        if (parts[i].size() == 4 && AllOf(parts[i], IsAsciiAlpha))
            return std::find(std::begin(kRightToLeftScripts), std::end(kRightToLeftScripts), parts[i])
                != std::end(kRightToLeftScripts);
    }
    return std::find(std::begin(kRightToLeftLanguages), std::end(kRightToLeftLanguages), parts[0])
        != std::end(kRightToLeftLanguages);
}

LanguageTag LanguageTagOf(std::string_view language)
{
    std::string text = Trim(language);
    if (text.empty())
        return {};
    std::string tag;
    if (IsAsciiDigit(text[0]))
        tag = TagFromWindowsCode(text);
    else if (text.find_first_of(" (") == std::string::npos && (text.size() <= 3 || text.find_first_of("-_") != std::string::npos))
        tag = TagFromCode(text);
    else
        tag = TagFromName(text);
    if (tag.empty())
        return {};
    return { tag, IsRightToLeftTag(tag) };
}

}  // namespace scriv
