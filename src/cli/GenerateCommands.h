#pragma once

#include <string>

namespace scriv {

struct GlobalOptions;

struct SourceGenerateOptions {
    // A .vbp, a .vbg, or an XML description of projects and forms.
    std::string source;
    // Folder of the help project; empty: the settings' (the CHM folder beside the application).
    std::string out;
    // "jpg" or "bmp"; empty: the settings'.
    std::string images;
    bool noCompile { false };
    bool open { false };
};

// scrivant generate SOURCE: the wizard run unattended on the settings, then
// the whole generation.
int RunGenerateSource(const GlobalOptions& global, const SourceGenerateOptions& options);
// scrivant recompile PROJECT.svp [--web-only]
int RunRecompile(const GlobalOptions& global, const std::string& projectFile, bool webOnly, const std::string& hostFile);
// scrivant regenerate PROJECT.svp
int RunRegenerate(const GlobalOptions& global, const std::string& projectFile, const std::string& hostFile);

}  // namespace scriv
