#pragma once

#include <random>
#include <string>
#include <string_view>

namespace fuzz {

// Reads a text with our reader and with libxml2's tree; writes it and reads that with both. Answers where
// they differ, or nothing. What we refuse and libxml2 takes is a document type declaration, too many levels,
// and text behind a NUL or half a character. With `drops` our side loses the attributes named "a".
std::string runRoundTrip(std::string_view text, bool drops = false);

// A text that is an XML document mostly: all kinds of nodes, of characters and of ways to write them.
std::string randomXml(std::mt19937_64& random);

// A character in UTF-8.
std::string utf8(char32_t c);

}  // namespace fuzz
