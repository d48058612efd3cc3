#pragma once

#include <string_view>

#include "DomNode.h"

namespace dom {

// Names of the process: equal names have one number, so that trees compare numbers. A name stays for the life
// of the process; there are as many as the vocabulary of its documents has words.
enum FixedName : NameId { nameNone, nameText, nameCData, nameComment, nameDocument, nameXml };

// A number that no name has: a query takes it for "any name".
inline constexpr NameId anyName = ~NameId{0};

NameId internName(std::string_view name);
// anyName when nothing in this process has that name.
NameId findName(std::string_view name) noexcept;
std::string_view nameOf(NameId id) noexcept;

}  // namespace dom
