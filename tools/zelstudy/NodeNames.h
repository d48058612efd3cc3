#pragma once

#include <string_view>

namespace zelstudy {

// What a node type or an interface number stands for, in words for people; empty for an unknown number.
std::string_view nodeTypeName(int type);
std::string_view interfaceName(int number);

}  // namespace zelstudy
