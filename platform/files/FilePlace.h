#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "api/ApiSysFileState.h"

namespace files {

// The file that a link stands for in the end, though it be missing yet. An error for a circle of links.
std::filesystem::path followed(std::filesystem::path path, std::error_code& error);

// Fill in the name and place of a state, and what a file system tells of it.
void setNames(ApiSysFileState& state, const std::string& name);
void setStatus(ApiSysFileState& state, const struct stat& status);

}  // namespace files
