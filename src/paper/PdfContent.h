#pragma once

#include <string>

#include "paper/Page.h"
#include "paper/PdfFont.h"

namespace zelkor {

/// Appends what draws a page of that height. The faces are those by number: regular, bold.
void appendContent(std::string& content, const Page& page, double height, PdfFont (&faces)[2]);

/// A text outside of pages, as a string object.
std::string pdfText(std::string_view text);

}  // namespace zelkor
