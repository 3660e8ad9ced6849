#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace scriv {

class HtmlDocument;
class HtmlElement;

// One page of a Word export: where it lies, the depth of its node in the
// contents, and the copy of it ("ZZZ_" and its name, beside it) rewritten for
// the document.
class clsMSWordExportFile {
public:
    clsMSWordExportFile(std::string fullPath, int level, std::string bookmark = {});
    ~clsMSWordExportFile();
    clsMSWordExportFile(const clsMSWordExportFile&) = delete;
    clsMSWordExportFile& operator=(const clsMSWordExportFile&) = delete;

    // --- what the page is ---
    int Level() const { return m_level; }
    // "H" and the level when the level is at least 2, else "H1".
    std::string HTag() const;
    const std::string& FullPath() const { return m_fullPath; }
    // The file name without extension: the name of the page's anchor in the document.
    std::string FileNameNoExt() const;
    // The copy's path: the same folder, "ZZZ_" and the file name.
    std::string RefactoredFullPath() const;
    bool HTMLFileExists() const;
    bool Loaded() const { return static_cast<bool>(m_document); }
    // Count of nodes in the loaded page; 0 when none is loaded.
    std::size_t HtmlDocNodesCount() const;
    const HtmlDocument* Document() const { return m_document.get(); }

    // --- the steps ---
    // Reads and parses the page; false when it cannot be read.
    bool Load();
    // Rewrites the loaded page for the document. Headings of the controls and
    // menus lists become bold paragraphs, so that they stay out of the table
    // of contents; the first heading left takes HTag, with the page's anchor
    // in front of it; links to pages of the export lead to those pages'
    // anchors (exportedFiles: file name in lower case -> the page's anchor).
    //
    // A heading counts as one of the lists when its text holds "controls:" or
    // "menus:", when its markup holds "_" and the node's bookmark (or the file
    // name without extension when there is none), when it holds an anchor of a
    // control or menu of the page's form (the form's name, "_", the control),
    // or when it stands between the markers of the controls and menus sections
    // that the generator writes. Only such a heading that starts with text or
    // a link is rewritten.
    void RefactorHeadings(const std::unordered_map<std::string, std::string>& exportedFiles);
    // Writes the loaded page as its copy in UTF-8, every "<script" ...
    // "</script>" block cut out; false when it cannot be written.
    bool SaveFile() const;
    // Drops the loaded page; a second call does nothing.
    void Terminate();

private:
    bool IsExcludedHeading(const HtmlElement& heading, bool insideListSection, const std::string& formName) const;

    std::string m_fullPath;
    int m_level { 1 };
    std::string m_bookmark;
    std::unique_ptr<HtmlDocument> m_document;
};

// Every "<script" up to and including the next "</script>" removed, found
// without regard to case; an unclosed block runs to the end of the text.
std::string RemoveScriptBlocks(std::string_view html);

// True for h1 to h10, in any case.
bool IsHeadingElement(const HtmlElement& element);

}  // namespace scriv
