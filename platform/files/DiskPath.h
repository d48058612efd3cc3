#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// Between the names of the system and those of this host's disk. Texts are UTF-8, and names written on
// another system part directories by "\".
std::filesystem::path diskPath(std::string_view name);
std::string diskPathText(const std::filesystem::path& path);
