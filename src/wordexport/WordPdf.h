#pragma once

#include <string>

namespace scriv {

// The LibreOffice program that can turn a document into a PDF (soffice or
// libreoffice on PATH), or "" when none is installed.
std::string FindLibreOffice();

// Makes a PDF of a Word document with LibreOffice, run headless in a profile
// of its own that is removed afterwards; the document's fields and its table
// of contents are brought up to date first, so that the contents show page
// numbers. Raises ScrivError 0x80040001 naming the file when LibreOffice is
// missing or makes no PDF.
void ConvertToPdf(const std::string& document, const std::string& pdf);

}  // namespace scriv
