#pragma once

#include <string>
#include <vector>

namespace scriv {

struct GlobalOptions;

struct DescribeOptions {
    // A .vbp, or a .vbg whose projects are all described.
    std::string source;
    // Names of the forms to describe; all forms without any.
    std::vector<std::string> forms;
    // Folder the help would be generated into; names the pages and pictures.
    std::string out;
};

// scrivant describe SOURCE [FORM...]: the normalised description of each form,
// as the generation saves it. A form that cannot be read is reported on stderr
// with its file and line; the run fails only when no form could be described.
int RunDescribe(const GlobalOptions& global, const DescribeOptions& options);

}  // namespace scriv
