#pragma once

#include "decks/Finding.h"

#include <string>
#include <string_view>

/// The encoding that an XML document is written in: by the mark at its start, by how its first
/// characters are stored (UTF-16 or UTF-32 without a mark), or by its declaration. Empty when
/// nothing says it, or when the declaration names one that the bytes cannot be, with a finding.
/// A name that nobody knows is given as it is declared.
std::string XmlEncoding(std::string_view bytes, Findings& findings);
