#pragma once

#include <string>

// One encoding throughout, UTF-8: wide text, narrow text and BSTR text are the same type, so that no
// conversion is ever made or lost.
using RWClassicWString = std::string;
using RWClassicCString = std::string;
using _bstr_t = std::string;
