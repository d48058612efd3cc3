#pragma once

#include <string_view>

namespace zelstudy {

// Whether the text is well-formed UTF-8: no overlong form, no surrogate, nothing above U+10FFFF.
bool isUtf8(std::string_view text);

// Whether XML can hold the text: well-formed UTF-8, and of the control characters only tab, line feed and
// carriage return; U+FFFE and U+FFFF are out too.
bool isXmlText(std::string_view text);

}  // namespace zelstudy
