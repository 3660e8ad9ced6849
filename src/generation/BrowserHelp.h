#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// The copy of a help project that runs in an ordinary web browser straight
// from the project folder: the entry page "main.htm" (contents, index and
// search on the left, topics in the frame "right"), the contents and index
// frames, the site search, and the marker script that sends a topic opened
// alone to the entry page.
namespace scriv {

inline constexpr std::string_view kEntryPage = "main.htm";
inline constexpr std::string_view kContentsFrame = "hh_toc_java.htm";
inline constexpr std::string_view kIndexFrame = "hh_index_java.htm";

struct BrowserHelpInput {
    std::string folder;          // the help project folder, final "/"
    std::string projectFileName; // the cleaned project name: "<it>TOC.htm" is the contents page
    std::string treeText;        // nested <UL>/<li><a href="topic.htm" target="right">Caption</a></li> lines
    std::string optionsText;     // <option value="topic.htm">Caption or keyword</option> lines
    std::string rootPage;        // the root topic's file name, e.g. "Welcome.htm"
    std::string cssFullPath;     // style sheet path or ""
    std::string charset;         // e.g. "utf-8"; "" means utf-8
    std::string searchCacheFile; // what the site search kept of the pages last time, or ""
};

// --- building the browser help ---

// Creates the images folder, copies the images, scripts and style sheets of
// the common templates, writes "main.htm" from the localized template and the
// two frames from the common ones (placeholders filled, each page in the
// charset it declares), then the site search. Answers 0; raises ScrivError
// when a file cannot be copied or written.
std::uint32_t MakeJavaHelp2(const BrowserHelpInput& input);
// MakeJavaHelp2 in an error frame ("CHelpPrjTree.MakeJavaHelp"): a failure is
// reported and its code answered; nothing is thrown.
std::uint32_t MakeJavaHelp(const BrowserHelpInput& input);

// The index entries: one line per distinct caption (the text between the
// first ">" and the next "<"; captions compare without regard to case, the
// first line of a caption is kept), sorted by caption, each after indent
// blanks, joined by CR LF.
std::string BuildOptionsList(std::string_view treeText, int indent);

// --- the marker script ---

// The script element with id "wbh" that sends a topic opened outside the frame
// set to entryPage, with the topic's address in double quotes after "?".
std::string WBHScriptText(std::string_view entryPage = kEntryPage);
// The page text with two line breaks and the script after it; the text as it
// is when it holds "wbh" anywhere.
std::string WithWBHScript(std::string_view pageText);
// The page text cut after its "</html>" when a "<script" follows that; nothing
// when there is none.
std::optional<std::string> WithoutWBHScript(std::string_view pageText);

// Adds the script to a page file unless it has it. A missing or unreadable
// page is left alone; a failed write raises ScrivError.
void AddWBHScript(const std::string& pageFullPath);
// Cuts a page file after its "</html>" when a "<script" follows it, and
// answers true; false (the file untouched) otherwise.
bool RemoveWBHScript(const std::string& pageFullPath);

// --- page fix-ups ---

// Removes "file:///" + folder, "file://" + folder and the folder alone (in
// this order, ignoring case) from a page whose text holds its own folder.
void MakeRelativeFileLinks(const std::string& pageFullPath);
// Links a style sheet into a page through the page's document (relative path,
// else the file name), unless the page mentions that path already. Does
// nothing unless both files exist; the marker script is taken off before and
// put back after.
void LinkStyleSheet(const std::string& styleSheetFullPath, const std::string& pageFullPath);

}  // namespace scriv
