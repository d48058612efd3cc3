#pragma once

#include <string>
#include <string_view>

namespace dom {

// What XML can hold, so that all that a document takes can be written and read again as it was.

// UTF-8 of characters that XML allows, and of a length that a node can hold.
bool validText(std::string_view text) noexcept;
// A name as XML 1.0 (fifth edition) has it, colons included.
bool validName(std::string_view name) noexcept;
// The value of an XML declaration that names no encoding or UTF-8, the one we write.
bool validDeclaration(std::string_view value) noexcept;
// Whether `value` can stand in a node of this type. `target` is the target of a processing instruction.
bool validValue(int type, std::string_view target, std::string_view value) noexcept;

bool isBlank(std::string_view text) noexcept;  // white space only

// Where the quoted value of the pseudo-attribute `name` stands in an XML declaration; a view of no characters
// with a null pointer when it is not there.
std::string_view declared(std::string_view declaration, std::string_view name) noexcept;

inline constexpr std::string_view defaultDeclaration = "version=\"1.0\" encoding=\"UTF-8\"";
inline constexpr std::size_t longestText = std::size_t{1} << 30;

}  // namespace dom
