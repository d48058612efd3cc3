#pragma once

#include <libxml/xmlerror.h>

#include <string>
#include <string_view>

namespace dom {

// What the parser found wrong, in words of people who write documents.
std::string plainReason(const xmlError& error);

// What a text is that begins with these bytes, when it is of a kind that is mistaken for a document: packed,
// or in an encoding that is not read. Empty for all others.
std::string foreignKind(std::string_view head);

}  // namespace dom
