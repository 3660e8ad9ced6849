#pragma once

#include <string>
#include <string_view>

// The language of a page as HTML states it: a BCP 47 tag for the lang
// attribute, and whether the text runs from right to left (dir="rtl").
namespace scriv {

struct LanguageTag {
    std::string tag; // "en", "en-US", "zh-CN", "sr-Cyrl"; "" for a language not known
    bool rightToLeft { false };

    bool Known() const { return !tag.empty(); }
};

// The tag of a language however the templates, the settings or the code pages
// table name it:
// - a tag or a folder name, in any case and with "-" or "_": "EN", "pt_BR",
//   "zh-hant-tw"; a country code that is no language code stands for the
//   country's language ("JP", "CN");
// - a three-letter code, ISO 639-2 or a Windows abbreviation: "deu", "CHS";
// - an English language name with an optional region, script or variant in
//   brackets: "Arabic (Egypt)", "Chinese (PRC)", "Serbian (Cyrillic)";
// - a Windows language code, decimal or "0x" hexadecimal, with anything after
//   a blank ignored: "1025", "0x409 English (United States)".
// The tag is empty (and rightToLeft false) for anything else.
LanguageTag LanguageTagOf(std::string_view language);

// Whether text in a BCP 47 tag's language is written from right to left: by
// its script subtag when it has one ("az-Arab" is, "ku-Latn" is not), else by
// its language (Arabic, Hebrew, Persian, Urdu, Pashto, Yiddish ...).
bool IsRightToLeftTag(std::string_view tag);

}  // namespace scriv
