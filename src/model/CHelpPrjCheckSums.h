#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "foundation/KeyedCollection.h"

namespace scriv {

// The checksum of one page: the one saved in the checksum file, the one
// computed now, and the one seen when the entry was made.
class CHelpPrjFileCheckSum {
public:
    std::string FileName;
    std::string SavedCheckSum;
    std::string CheckSum;
    std::string PreviousCheckSum;
    std::string Folder; // with a final separator

    std::string FullPath() const;
    // CheckSum differs from SavedCheckSum (without regard to case).
    bool CheckSumChanged() const;
    // CheckSum differs from PreviousCheckSum.
    bool PreviousCheckSumChanged() const;
};

// The checksums of a project's pages, kept in "<folder><name>CS.txt".
class CHelpPrjCheckSums {
public:
    // Reads the checksum file when it exists. With an empty folder or name the
    // store stays uninitialised and the answer is 0x80040001.
    std::uint32_t init(const std::string& pagesFolder, const std::string& checkSumFolder, const std::string& projectName);
    bool Initialized() const { return m_initialized; }
    const std::string& FilePath() const { return m_filePath; }

    // The entry of a page, or nothing.
    CHelpPrjFileCheckSum* GetItem(const std::string& fullPath);
    std::vector<CHelpPrjFileCheckSum*> Files();
    std::vector<CHelpPrjFileCheckSum*> ChangedFiles();
    // The entry of a page, made when absent (CheckSum and PreviousCheckSum
    // computed, SavedCheckSum empty); a present entry is recomputed when asked.
    CHelpPrjFileCheckSum* GetCheckSumObject(const std::string& fullPath, bool recompute);
    // Recomputes the pages named (all "*.htm" of the folder when none are given)
    // and answers the names used.
    std::vector<std::string> Recalc(const std::vector<std::string>* fileNames = nullptr);
    // Writes the file. A changed page takes its new sum only when it had none or
    // keepPrevious is set. 0x80040001 when not initialised.
    std::uint32_t Save(bool keepPrevious);
    void Terminate();

private:
    std::string m_filePath;
    std::string m_folder;
    KeyedCollection<std::unique_ptr<CHelpPrjFileCheckSum>> m_files;
    bool m_initialized { false };
    bool m_terminated { false };
};

// The digest of a file's bytes: four bytes as eight hexadecimal capitals, ""
// for a missing file, "00000000" for an empty one.
std::string CalcTextFileCheckSum(const std::string& path);

// Whether any file of the .chm's folder (but .chm and .svp files) is newer than the .chm.
bool HelpProjectChangedSinceCompile(const std::string& chmPath);
// Whether the .hhc, .hhk or .svp of the folder is newer than the browser help's main page.
bool WebHelpChangedSinceGeneration(const std::string& mainPagePath);

}  // namespace scriv
